// Opening, saving and the recent-file list of the main window.

#include "shell/main_window.h"

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "shell/main_window_broker.h"
#include "shell/settings.h"
#include "ui_main_window.h"

#include <QAction>
#include <QFileInfo>
#include <QUndoStack>

namespace {

const QString cfgFilter = QStringLiteral("Quva Cfg XML file (*.CfgXML)");

} // namespace

void QuvaCfgXMLEditor::on_actionOpenConfigFile_triggered()
{
    openFromDialog(false);
}

void QuvaCfgXMLEditor::on_pbOpen_clicked()
{
    openFromDialog(false);
}

void QuvaCfgXMLEditor::on_actionOpenDescriptionFile_triggered()
{
    openFromDialog(true);
}

void QuvaCfgXMLEditor::openFromDialog(bool description)
{
    const QString name =
        description ? askOpenFileName(this, QStringLiteral("Open DescXML file"), lastDir(),
                                      QStringLiteral("Quva Desc XML file (*.DescXML)"))
                    : askOpenFileName(this, QStringLiteral("Open CfgXML file"), lastDir(),
                                      cfgFilter);
    if (name.isEmpty())
        return;
    if (description)
        openDescriptionFile(name, true);
    else
        openConfigFile(name, true);
    setLastDir(name);
}

void QuvaCfgXMLEditor::openConfigFile(const QString &path, bool notifyBroker)
{
    ui->twMain->setCurrentIndex(0);
    openWith(path, notifyBroker, false);
}

// A description never enters the recent list, and the tab in view stays
// until refreshAfterLoad changes it.
void QuvaCfgXMLEditor::openDescriptionFile(const QString &path, bool notifyBroker)
{
    openWith(path, notifyBroker, true);
}

// The new record is built first; the old one goes only when that worked, so
// a failed open leaves everything as it was.
void QuvaCfgXMLEditor::openWith(const QString &path, bool notifyBroker, bool description)
{
    const QString previousFile = cfg ? cfg->cfgFileName : QString();
    CfgModel *loaded = description
                           ? loadDescFile(this, path, true, notifyBroker, previousFile)
                           : loadCfgFile(this, path, true, notifyBroker, previousFile);
    if (!loaded)
        return;
    // Commands point into the old record: empty the stack before it goes.
    undoStack->clear();
    delete cfg;
    cfg = loaded;
    if (!description)
        addRecentFile(recentCfgXmlKey(), QFileInfo(path).canonicalFilePath());
    refreshAfterLoad(previousFile, notifyBroker);
}

void QuvaCfgXMLEditor::refreshAfterLoad(const QString &previousFile, bool notifyBroker)
{
    ui->twMain->setCurrentIndex(0);
    if (!cfg) {
        setOptionalTabsEnabled(false);
        setMainPanelLabels();
        targetEditable = false;
        undoStack->clear();
        undoStack->setClean();
        return;
    }
    // A description that names its own target leaves the target page no
    // choice.
    targetEditable = cfg->desc->target.isEmpty();
    setOptionalTabsEnabled(true);
    setMainPanelLabels();
    // The load-time set-up of the parameter pages and of the apply page
    // comes here, in the order of the row of tabs.
    if (notifyBroker)
        windowBrokerCalls()->switchFile(this, brokerProductWord(), previousFile, cfg->cfgFileName);
    armChangeDetection();
    undoStack->clear();
    undoStack->setClean();
    updateWindowTitle();
}

void QuvaCfgXMLEditor::setOptionalTabsEnabled(bool enabled)
{
    for (int i = 1; i < ui->twMain->count(); ++i)
        ui->twMain->setTabEnabled(i, enabled);
}

void QuvaCfgXMLEditor::setMainPanelLabels()
{
    ui->lDescriptionPath->setText(QStringLiteral("Description file: ")
                                  + (cfg ? descFilePath(*cfg) : QString()));
    refreshMainPanel();
}

void QuvaCfgXMLEditor::armChangeDetection()
{
    watchFiles(*cfg, cfg->cfgFileName, descFilePath(*cfg));
    cfg->cfgLastModified = QFileInfo(cfg->cfgFileName).lastModified();
    cfg->descLastModified = QFileInfo(descFilePath(*cfg)).lastModified();
    connect(&cfg->watcher, &QFileSystemWatcher::fileChanged, this,
            &QuvaCfgXMLEditor::on_fileChanged);
}

bool QuvaCfgXMLEditor::saveConfig(bool askName)
{
    if (!cfg)
        return false;
    const QString oldName = cfg->cfgFileName;
    if (askName || oldName.isEmpty()) {
        const QString name = askSaveFileName(this, QStringLiteral("Save .CfgXML File as.."),
                                             lastDir(), cfgFilter);
        if (name.isEmpty())
            return false;
        cfg->cfgFileName = name;
        setLastDir(name);
        updateWindowTitle();
    }
    // A failed write has told nothing and still counts as saved.
    saveCfgFile(*cfg, this);
    windowBrokerCalls()->switchFile(this, brokerProductWord(), oldName, cfg->cfgFileName);
    undoStack->setClean();
    addRecentFile(recentCfgXmlKey(), QFileInfo(cfg->cfgFileName).canonicalFilePath());
    updateWindowTitle();
    return true;
}

void QuvaCfgXMLEditor::on_actionSaveConfigFile_triggered()
{
    saveConfig(false);
}

void QuvaCfgXMLEditor::on_actionSaveAsConfigFile_triggered()
{
    saveConfig(true);
}

void QuvaCfgXMLEditor::on_openRecentFile()
{
    if (auto *action = qobject_cast<QAction *>(sender()))
        openConfigFile(action->data().toString(), true);
}

// Entries are shown, never hidden again while the program runs.
void QuvaCfgXMLEditor::on_displayRecentFileList()
{
    const QStringList files = settingsStringList(recentCfgXmlKey());
    for (int i = qMin(files.size(), recentFileActions.size()) - 1; i >= 0; --i) {
        QAction *action = recentFileActions.at(i);
        action->setVisible(true);
        action->setText(files.at(i));
        action->setData(files.at(i));
    }
}
