#include "core/model_probe.h"

#include "core/cfg_model.h"

#include "xml/xml_node.h"

#include <QFileInfo>

QString separatorName(const QString &sep)
{
    if (sep == QLatin1String(","))
        return QStringLiteral("COMMA");
    if (sep == QLatin1String(";"))
        return QStringLiteral("SEMICOLON");
    if (sep == QLatin1String("\t"))
        return QStringLiteral("TAB");
    if (sep == QLatin1String("#"))
        return QStringLiteral("HASH");
    return sep;
}

ModelProbe probeLatestModel(const CfgModel &model)
{
    ModelProbe probe;
    const QString prefix = latestOutputPrefix(model.cfgFileName);
    if (prefix.isEmpty())
        return probe;
    probe.found = true;
    probe.modelPath = prefix + QLatin1String(".ModelXML");
    probe.outputDirectory = QFileInfo(probe.modelPath).absolutePath();

    const QByteArray text = model.datasource.toUtf8();
    const XmlNode source = parseXmlText(text.constData(), nullptr, nullptr);
    const char *type = source.attribute("type");
    const char letter = type ? type[0] : 0;
    if (letter != 'c' && letter != 'g' && letter != 's')
        return probe;
    probe.kind = letter;
    probe.datasourcePath = QString::fromUtf8(source.textAt(0));
    if (letter == 'c') {
        const char *sep = source.attribute("sep");
        probe.separatorText = separatorName(sep ? QString::fromUtf8(sep) : QStringLiteral(","));
    }
    return probe;
}
