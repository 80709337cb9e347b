#include "core/cfg_load.h"

#include "core/cfg_model.h"
#include "core/desc_prefetch.h"
#include "core/reporter.h"

#include "text/text_convert.h"
#include "xml/file_read.h"
#include "xml/xml_node.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

namespace {

bool oneShotLoading = false;

// Reachable from here to the end of the process, and never destroyed: the
// memory goes back to the system with the process, all at once.
std::vector<XmlNode> *keptTrees = nullptr;

void keepTree(const XmlNode &root)
{
    if (!oneShotLoading || root.isEmpty())
        return;
    if (!keptTrees)
        keptTrees = new std::vector<XmlNode>;
    keptTrees->push_back(root);
}

const QString errorTitle = QStringLiteral(".CfgXML error");

// The wait cursor of one load. It goes off before any message, so that the
// user is not shown a box under a busy cursor, and at the latest on return.
class WaitCursor
{
public:
    WaitCursor() { reporter()->setBusy(true); }
    ~WaitCursor() { restore(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

    void restore()
    {
        if (on_) {
            on_ = false;
            reporter()->setBusy(false);
        }
    }

private:
    bool on_ = true;
};

// The message, and on a line of its own what was wrong with the file, when
// that is known.
CfgModel *fail(WaitCursor &cursor, bool showErrors, const QString &text,
               const QString &why = QString())
{
    cursor.restore();
    if (showErrors)
        reportMessage(MessageIcon::Critical, errorTitle,
                      why.isEmpty() ? text : text + QLatin1Char('\n') + why);
    return nullptr;
}

CfgModel *buildModels(const XmlNode &cfgRoot, const QString &cfgPath, const QString &descPath,
                      bool showErrors, WaitCursor &cursor, DescPrefetch *prefetch = nullptr)
{
    const QString readPath = resolveDescPath(descPath, cfgPath);
    XmlNode descRoot;
    DescModel *desc = nullptr;
    XmlFileFailure failure;
    if (!prefetch || !prefetch->take(descPath, readPath, &descRoot, &desc, &failure))
        descRoot = readXmlFile(readPath, "DESCRIPTION", nullptr, &failure);
    keepTree(descRoot);
    if (descRoot.isEmpty())
        return fail(cursor, showErrors,
                    QStringLiteral("error: Empty Description file'") + readPath
                        + QStringLiteral("'?"),
                    describeXmlFileFailure(failure));
    if (!desc)
        desc = new DescModel(descPath, descRoot);
    if (desc->columnCount() == 0) {
        delete desc;
        return fail(cursor, showErrors,
                    QStringLiteral("error in Description file'") + readPath + QLatin1Char('\''));
    }
    // Every description carries a default configuration; a new one starts from it.
    const XmlNode root = cfgRoot.isEmpty() ? descRoot.childNode("QUV_Config") : cfgRoot;
    if (root.isEmpty()) {
        delete desc;
        cursor.restore();
        return nullptr;
    }
    CfgModel *model = new CfgModel(desc, cfgPath, root);
    cursor.restore();
    return model;
}

QString namesNoDescription(const QString &path)
{
    return QStringLiteral("File '") + path
           + QStringLiteral("' names no description: its DescriptionFile element is missing or "
                            "empty.");
}

} // namespace

CfgLoad loadCfgFile(QString path, bool showErrors, const OtherWindowCheck &askOtherWindows,
                    const QString &currentPath)
{
    CfgLoad result;
    WaitCursor cursor;
    if (path.isEmpty()) {
        fail(cursor, showErrors, QStringLiteral("Error: null Cfg file?"));
        return result;
    }
    path = QFileInfo(path).absoluteFilePath();
    if (askOtherWindows && path != currentPath) {
        const int answer = askOtherWindows(path);
        if (answer == 2)
            result.endProcess = true; // the other window has taken over the file
        if (answer == 1 || answer == 2)
            return result;
    }
    if (!path.endsWith(QLatin1String(".CfgXML")))
        path += QLatin1String(".CfgXML");
    // The file is opened once. In a one-shot process the description is
    // read on a second thread while the configuration is parsed here.
    DescPrefetch prefetch;
    XmlFileFailure failure;
    QByteArray bytes;
    XmlNode root;
    if (readWholeFile(path, &bytes, &failure)) {
        const QString guess = oneShotLoading ? guessDescPath(bytes) : QString();
        if (!guess.isEmpty())
            prefetch.start(guess, resolveDescPath(guess, path));
        root = parseXmlFileBytes(bytes, "QUV_Config", nullptr, path, &failure);
    }
    keepTree(root);
    const QString descPath = QString::fromUtf8(root.childNode("DescriptionFile").textAt(0));
    if (root.isEmpty() || descPath.isEmpty()) {
        fail(cursor, showErrors, QStringLiteral("Error: Cfg file not loaded"),
             root.isEmpty() ? describeXmlFileFailure(failure) : namesNoDescription(path));
        return result;
    }
    result.place = workingSpaceOf(root);
    result.model.reset(buildModels(root, path, descPath, showErrors, cursor, &prefetch));
    return result;
}

CfgLoad loadDescFile(QString path, bool showErrors, const OtherWindowCheck &askOtherWindows,
                     const QString &currentPath)
{
    CfgLoad result;
    WaitCursor cursor;
    if (path.isEmpty()) {
        fail(cursor, showErrors, QStringLiteral("Error: null description file?"));
        return result;
    }
    if (!path.endsWith(QLatin1String(".DescXML")))
        path += QLatin1String(".DescXML");
    if (!QFile::exists(path)) {
        fail(cursor, showErrors, QStringLiteral("Error: description file not found"));
        return result;
    }
    const QFileInfo info(path);
    path = info.absoluteFilePath();
    // No separator between the folder and the name: a configuration lying
    // beside its description is not found this way, and the description's
    // default configuration takes over. Users have always seen it so.
    QString sibling = info.absolutePath() + info.completeBaseName() + QLatin1String(".CfgXML");
    XmlNode root;
    if (QFile::exists(sibling)) {
        if (askOtherWindows && sibling != currentPath && askOtherWindows(sibling) != 0)
            return result;
        root = readXmlFile(sibling, "QUV_Config");
    } else {
        sibling.clear();
    }
    result.place = workingSpaceOf(root);
    result.model.reset(buildModels(root, sibling, path, showErrors, cursor));
    return result;
}

void setOneShotLoading(bool oneShot)
{
    oneShotLoading = oneShot;
}

CfgModel *buildModels(const XmlNode &cfgRoot, const QString &cfgPath, const QString &descPath,
                      bool showErrors)
{
    WaitCursor cursor;
    return buildModels(cfgRoot, cfgPath, descPath, showErrors, cursor);
}
