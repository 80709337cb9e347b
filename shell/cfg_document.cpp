#include "shell/cfg_document.h"

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"
#include "shell/window_broker.h"

#include <QFileInfo>

CfgDocument::CfgDocument(QWidget *window) : QObject(window), window(window)
{
}

CfgDocument::~CfgDocument()
{
    // Commands point into the record: the stack goes first.
    stack.clear();
}

QString CfgDocument::fileName() const
{
    return model ? model->cfgFileName : QString();
}

bool CfgDocument::openConfigFile(const QString &path, bool notifyBroker)
{
    return open(path, notifyBroker, false);
}

// A description never enters the recent list.
bool CfgDocument::openDescriptionFile(const QString &path, bool notifyBroker)
{
    return open(path, notifyBroker, true);
}

int CfgDocument::askOtherWindows(const QString &path)
{
    return windowBroker()->checkAlreadyOpen(window, brokerProductWord(), path,
                                            QStringLiteral("Quva Cfg XML Editor Warning"));
}

// The new record is built first; the old one goes only when that worked, so
// a failed open leaves everything as it was.
bool CfgDocument::open(const QString &path, bool notifyBroker, bool description)
{
    const QString previousFile = fileName();
    OtherWindowCheck check;
    if (notifyBroker)
        check = [this](const QString &file) { return askOtherWindows(file); };
    CfgLoad load = description ? loadDescFile(path, true, check, previousFile)
                               : loadCfgFile(path, true, check, previousFile);
    if (load.endProcess) {
        emit endProcessRequested();
        return false;
    }
    if (load.place)
        emit placeRead(*load.place);
    if (!load.model)
        return false;
    // Commands point into the old record: empty the stack before it goes.
    stack.clear();
    if (model)
        emit aboutToReplace();
    model = std::move(load.model);
    if (!description)
        addRecentFile(recentCfgXmlKey(), QFileInfo(path).canonicalFilePath());
    if (notifyBroker)
        windowBroker()->switchFile(window, brokerProductWord(), previousFile, fileName());
    armWatcher();
    stack.clear();
    stack.setClean();
    emit loaded(previousFile);
    return true;
}

void CfgDocument::armWatcher()
{
    watchFiles(*model, model->cfgFileName, descFilePath(*model));
    model->cfgLastModified = QFileInfo(model->cfgFileName).lastModified();
    model->descLastModified = QFileInfo(descFilePath(*model)).lastModified();
    connect(&model->watcher, &QFileSystemWatcher::fileChanged, this,
            &CfgDocument::changedOnDisk);
}

bool CfgDocument::saveConfig(bool askName, const WorkingSpace &windowPlace)
{
    if (!model)
        return false;
    const QString oldName = model->cfgFileName;
    if (askName || oldName.isEmpty()) {
        QString name = askSaveFileName(window, QStringLiteral("Save .CfgXML File as.."),
                                       lastDir(), QStringLiteral("Quva Cfg XML file (*.CfgXML)"));
        if (name.isEmpty())
            return false;
        // A configuration opens again only under its own ending.
        if (!name.endsWith(QLatin1String(".CfgXML")))
            name += QLatin1String(".CfgXML");
        renameCfgFile(*model, name);
        setLastDir(name);
    }
    // A failed write has told nothing and still counts as saved.
    saveCfgFile(*model, &windowPlace);
    windowBroker()->switchFile(window, brokerProductWord(), oldName, model->cfgFileName);
    stack.setClean();
    addRecentFile(recentCfgXmlKey(), QFileInfo(model->cfgFileName).canonicalFilePath());
    emit saved();
    return true;
}

bool CfgDocument::write(const WorkingSpace &windowPlace)
{
    if (!model || !saveCfgFile(*model, &windowPlace))
        return false;
    stack.setClean();
    emit saved();
    return true;
}

void CfgDocument::release()
{
    if (!model)
        return;
    windowBroker()->switchFile(window, brokerProductWord(), model->cfgFileName, QString());
    windowBroker()->switchFile(window, brokerProductWord(), descFilePath(*model), QString());
}

void CfgDocument::stopWatching()
{
    if (model)
        watchFiles(*model, QString(), QString());
}

// A reload in answer to changedOnDisk() replaces the record, so every step
// reads it anew.
void CfgDocument::checkOnActivation()
{
    if (!model || model->cfgFileName.isEmpty())
        return;
    if (model->cfgLastModified.isValid()
        && QFileInfo(model->cfgFileName).lastModified() != model->cfgLastModified)
        emit changedOnDisk();
    if (model->descLastModified.isValid()
        && QFileInfo(descFilePath(*model)).lastModified() != model->descLastModified)
        emit changedOnDisk();
    watchFiles(*model, model->cfgFileName, descFilePath(*model));
}
