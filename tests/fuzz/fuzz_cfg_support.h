#pragma once

// The configuration targets work in a folder of their own, holding the
// descriptions that the examples and the test files name, and check that a
// record saves to a text that reads, and that saving what was read back
// gives the very same bytes.

#include "fuzz_entry.h"

#include "core/cfg_model.h"
#include "xml/xml_node.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QFile>
#include <QString>

namespace fuzzcfg {

// Created once per process, with the descriptions copied in.
inline QString folder()
{
    static const QString path = [] {
        const QString dir = QDir::tempPath() + QStringLiteral("/quva-fuzz-%1")
                                                   .arg(QCoreApplication::applicationPid());
        QDir().mkpath(dir);
        const char *const sources[] = {"/examples/credit.DescXML",
                                       "/tests/data/core/golden.DescXML",
                                       "/tests/data/batch/batch.DescXML"};
        for (const char *source : sources) {
            const QString from = QStringLiteral(QUVA_SOURCE_DIR) + QLatin1String(source);
            QFile::copy(from, dir + QLatin1Char('/') + QFileInfo(from).fileName());
        }
        return dir;
    }();
    return path;
}

// The tree of a description; those of the folder, which never change, are
// parsed once.
inline XmlNode descriptionTree(const QString &path)
{
    static QHash<QString, XmlNode> kept;
    if (!path.startsWith(folder() + QLatin1Char('/')) || !path.endsWith(QLatin1String(".DescXML")))
        return readXmlFile(path, "DESCRIPTION");
    auto it = kept.find(path);
    if (it == kept.end())
        it = kept.insert(path, readXmlFile(path, "DESCRIPTION"));
    return it.value();
}

// The record that `saved`, a .CfgXML text of `model`, gives when it is read
// with the same description, written again.
inline QByteArray savedAgain(const CfgModel &model, const QByteArray &saved)
{
    const XmlNode root = parseXmlFileBytes(saved, "QUV_Config", nullptr, QString(), nullptr);
    fuzzCheck(!root.isEmpty(), "a saved configuration parses");
    const XmlNode descRoot = descriptionTree(descFilePath(model));
    if (root.isEmpty() || descRoot.isEmpty())
        return saved;
    const CfgModel again(new DescModel(model.desc->fileName, descRoot), model.cfgFileName, root);
    return cfgFileBytes(again);
}

// Every save gives a text that reads, and from the record read back on,
// saving is a fixed point. The first reading may still change a record that
// holds what no file can carry: text that is no valid UTF-8 (it reads back
// with U+FFFD in its place), or an input variable whose label is empty (it
// reads back as the variable's column).
inline void checkSaveIsStable(const CfgModel &model)
{
    const QByteArray once = savedAgain(model, cfgFileBytes(model));
    fuzzCheck(savedAgain(model, once) == once, "a saved configuration saves to the same bytes");
}

} // namespace fuzzcfg
