#include "shell/main_window.h"

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "shell/execute_panel.h"
#include "shell/main_window_broker.h"
#include "shell/settings.h"
#include "ui_main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QUndoStack>
#include <QUndoView>
#include <QUrl>

// Resources of a static library are registered by hand.
static void initMainWindowResources()
{
    Q_INIT_RESOURCE(main_window);
}

QString windowBaseTitle()
{
    return QStringLiteral("Quva Modeler Config");
}

QuvaCfgXMLEditor::QuvaCfgXMLEditor(QWidget *parent)
    : QMainWindow(parent), varListWindow(this, true), ui(new Ui::QuvaCfgXMLEditor),
      guiReporter(this)
{
    initMainWindowResources();
    updatingPanel = true;
    ui->setupUi(this);
    setReporter(&guiReporter);

    setUpExecution();
    ui->mainToolBar->hide();
    ui->statusBar->hide();
    setUpRecentFilesMenu();
    setUpPages();
    setUpUndo();
    setUpMainPanel();
    // The sliders and tables of the parameter pages are set up here by the
    // pages themselves, in the order of the row of tabs.

    qApp->installEventFilter(this);
    openCommandLineFile();
    if (!cfg)
        refreshAfterLoad(QString(), false);
    resize(800, 40);
    updatingPanel = false;
}

QuvaCfgXMLEditor::~QuvaCfgXMLEditor()
{
    qApp->removeEventFilter(this);
    if (reporter() == &guiReporter)
        setReporter(nullptr);
    // Commands point into the record: the stack goes first.
    delete undoView;
    delete undoStack;
    delete cfg;
    delete ui;
}

void QuvaCfgXMLEditor::setUpExecution()
{
    executePanel = new ExecutePanel(this, true);
    // The page that applies a finished model; its controls come with the
    // apply panel.
    applyPanel = new QWidget(this);
    applyPanel->setObjectName(QStringLiteral("applyPanel"));
    ui->twMain->addTab(applyPanel, QStringLiteral("Apply model"));
    connect(executePanel, &ExecutePanel::myFinishExe, this, &QuvaCfgXMLEditor::on_myFinishExe);
    connect(executePanel, &ExecutePanel::myProgressBar, this,
            &QuvaCfgXMLEditor::on_myProgressBar);
    ui->twMain->addTab(executePanel, QStringLiteral("Execution Log"));
}

void QuvaCfgXMLEditor::setUpRecentFilesMenu()
{
    recentFilesMenu = new QMenu(QStringLiteral("Recent .CfgXML Files"), ui->menuFile);
    recentFilesMenu->setObjectName(QStringLiteral("menuRecentCfgXML"));
    ui->menuFile->insertMenu(ui->actionExit, recentFilesMenu);
    ui->menuFile->insertSeparator(ui->actionExit);
    for (int i = 0; i < maxRecentFiles; ++i) {
        auto *action = new QAction(this);
        action->setVisible(false);
        connect(action, &QAction::triggered, this, &QuvaCfgXMLEditor::on_openRecentFile);
        recentFilesMenu->addAction(action);
        recentFileActions.append(action);
    }
    connect(recentFilesMenu, &QMenu::aboutToShow, this,
            &QuvaCfgXMLEditor::on_displayRecentFileList);
}

void QuvaCfgXMLEditor::setUpPages()
{
    ui->twMain->setCurrentIndex(0);
    for (int i : {7, 3, 2, 1})
        ui->twMain->removeTab(i);
    pages = {ui->tQuva,          ui->tDataPartitioning, ui->tModelParam1,
             ui->tModelParam2,   ui->tSelectVariables,  ui->tSelectLine,
             ui->tTargetDefinition, ui->tModalityRecodings, ui->tCreateModel,
             applyPanel,         executePanel};
}

void QuvaCfgXMLEditor::setUpUndo()
{
    undoStack = new QUndoStack();
    connect(undoStack, &QUndoStack::cleanChanged, this, &QuvaCfgXMLEditor::on_cleanChanged);
    connect(undoStack, &QUndoStack::indexChanged, this, &QuvaCfgXMLEditor::on_undoRedoActions);
    connect(ui->twMain, &QTabWidget::currentChanged, this, &QuvaCfgXMLEditor::updatePanel);
    stackUndoAction = undoStack->createUndoAction(this, QStringLiteral("&Undo"));
    stackUndoAction->setShortcuts(QKeySequence::Undo);
    stackRedoAction = undoStack->createRedoAction(this, QStringLiteral("&Redo"));
    stackRedoAction->setShortcuts(QKeySequence::Redo);

    undoView = new QUndoView(undoStack);
    undoView->setWindowTitle(QStringLiteral("Undo-stack List"));
    undoView->setAttribute(Qt::WA_QuitOnClose, false);
    undoView->hide();
}

void QuvaCfgXMLEditor::setUpMainPanel()
{
    QPalette palette = ui->tQuva->palette();
    palette.setColor(QPalette::Window, QColor(QStringLiteral("#F0F0F0")));
    ui->tQuva->setPalette(palette);
    ui->tQuva->setAutoFillBackground(true);
    ui->lAppPath->setText(QStringLiteral("Quva: ") + QCoreApplication::applicationDirPath());
}

// The comparison with "-d" looks at the program's own path, so a normal
// start always opens a configuration; neither open asks other windows.
void QuvaCfgXMLEditor::openCommandLineFile()
{
    const QStringList args = QCoreApplication::arguments();
    if (args.size() <= 1)
        return;
    if (args.at(0) == QLatin1String("-d"))
        openDescriptionFile(args.at(1), false);
    else
        openConfigFile(args.at(1), false);
}

// --- refresh path ---------------------------------------------------------

int QuvaCfgXMLEditor::currentPageIndex() const
{
    const QWidget *current = ui->twMain->currentWidget();
    for (int i = PageApply; i >= 0; --i) {
        if (pages.value(i) == current)
            return i;
    }
    return -1;
}

void QuvaCfgXMLEditor::updatePanel()
{
    updatePanelIdx(currentPageIndex());
}

void QuvaCfgXMLEditor::updatePanelIdx(int idx)
{
    ui->actionUndo->setEnabled(undoStack->canUndo());
    ui->actionRedo->setEnabled(undoStack->canRedo());
    switch (idx) {
    case PageQuva:
        refreshMainPanel();
        break;
    case PageDataPartitioning:
        refreshDataPartitioningPanel();
        break;
    case PageModelParam1:
        refreshModelParameters1Panel();
        break;
    case PageModelParam2:
        refreshModelParameters2Panel();
        break;
    case PageSelectVariables:
        refreshVariablesPanel();
        break;
    case PageSelectLine:
        refreshLineSelectionPanel();
        break;
    case PageTargetDefinition:
        refreshTargetPanel();
        break;
    case PageModalityRecodings:
        refreshModalityRecodingsPanel();
        break;
    case PageCreateModel:
        refreshCreateModelPanel();
        break;
    default:
        qDebug() << "not supposed to arrive here, wrong index";
        return;
    }
    emit pageRefreshed(idx);
}

// The command at idx - 1 is the one just pushed or redone; after an undo it
// is the one below the command taken back, so the user lands on the page of
// the previous edit.
void QuvaCfgXMLEditor::on_undoRedoActions(int idx)
{
    const auto *command = dynamic_cast<const QUndoCommandPanel *>(undoStack->command(idx - 1));
    if (command && command->panel < PageCount) {
        ui->twMain->setCurrentWidget(pages.at(command->panel));
        updatePanelIdx(command->panel);
    } else {
        updatePanelIdx(currentPageIndex());
    }
}

void QuvaCfgXMLEditor::on_cleanChanged(bool)
{
    updateWindowTitle();
}

void QuvaCfgXMLEditor::on_actionUndo_triggered()
{
    undoStack->undo();
}

void QuvaCfgXMLEditor::on_actionRedo_triggered()
{
    undoStack->redo();
}

void QuvaCfgXMLEditor::on_actionShowHideUndoStack_triggered()
{
    undoView->setVisible(!undoView->isVisible());
}

void QuvaCfgXMLEditor::refreshMainPanel()
{
    PanelRefreshScope scope(updatingPanel);
    ui->lInterfaceLevel->setText(isAdvancedUser()
                                     ? QStringLiteral("INTERFACE LEVEL: advanced")
                                     : QStringLiteral("INTERFACE LEVEL: basic"));
}

void QuvaCfgXMLEditor::updateWindowTitle()
{
    if (cfg && !cfg->cfgFileName.isEmpty()) {
        setWindowTitle(windowBaseTitle() + QStringLiteral(" - ") + cfg->cfgFileName
                       + (undoStack->isClean() ? QString() : QStringLiteral("*")));
    } else {
        setWindowTitle(windowBaseTitle());
    }
}

// --- pages and user level -------------------------------------------------

void QuvaCfgXMLEditor::togglePage(QWidget *page, const QString &title)
{
    if (!isAdvancedUser() || !cfg)
        return;
    QTabWidget *tabs = ui->twMain;
    const int shown = tabs->indexOf(page);
    if (shown >= 0) {
        tabs->removeTab(shown);
        return;
    }
    // Behind the nearest page before it that is shown; page 0 always is.
    for (int before = pages.indexOf(page) - 1; before >= 0; --before) {
        const int at = tabs->indexOf(pages.at(before));
        if (at >= 0) {
            tabs->insertTab(at + 1, page, title);
            return;
        }
    }
}

void QuvaCfgXMLEditor::on_actionDataPartioning_triggered()
{
    togglePage(ui->tDataPartitioning, QStringLiteral("Data Partitioning"));
}

void QuvaCfgXMLEditor::on_actionModelParameters1_triggered()
{
    togglePage(ui->tModelParam1, QStringLiteral("Model Parameters (1)"));
}

void QuvaCfgXMLEditor::on_actionModelParameters2_triggered()
{
    togglePage(ui->tModelParam2, QStringLiteral("Model Parameters (2)"));
}

void QuvaCfgXMLEditor::on_actionModalityRecodings_triggered()
{
    togglePage(ui->tModalityRecodings, QStringLiteral("Modality Recodings"));
}

void QuvaCfgXMLEditor::on_actionSwitchUserLevel_triggered()
{
    const bool wasAdvanced = isAdvancedUser();
    setAdvancedUser(!wasAdvanced);
    askUser(this, UserQuestion{QMessageBox::Information, QStringLiteral("User Level"),
                               wasAdvanced ? QStringLiteral("You are now an basic Quva user.")
                                           : QStringLiteral("You are now an expert user of Quva."),
                               QMessageBox::Ok, QMessageBox::Ok});
    updatePanelIdx(currentPageIndex());
}

// --- other windows and help -----------------------------------------------

void QuvaCfgXMLEditor::on_actionNewWindow_triggered()
{
    windowBrokerCalls()->open(this, brokerProductWord(), QStringLiteral(".CfgXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowDSource_triggered()
{
    windowBrokerCalls()->open(this, brokerProductWord(), QStringLiteral(".DSourceXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowMain_triggered()
{
    windowBrokerCalls()->open(this, brokerProductWord(), QStringLiteral(".MainMenu"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowType_triggered()
{
    windowBrokerCalls()->open(this, brokerProductWord(), QStringLiteral(".TypeXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowModel_triggered()
{
    windowBrokerCalls()->open(this, brokerProductWord(), QStringLiteral(".ModelXML"));
}

// The quick guide lies beside the program; the desktop's PDF viewer opens it
// at the chapter on building a model. Without the guide nothing happens.
void QuvaCfgXMLEditor::on_actionHelp_triggered()
{
    const QString guide = QCoreApplication::applicationDirPath()
                          + QStringLiteral("/QuvaQuickGuide.pdf");
    if (!QFileInfo::exists(guide))
        return;
    QUrl url = QUrl::fromLocalFile(guide);
    url.setFragment(QStringLiteral("nameddest=6_3_build_a_predictive_model_t"));
    QDesktopServices::openUrl(url);
}

void QuvaCfgXMLEditor::on_actionExit_triggered()
{
    close();
}

// Closing never asks about unsaved changes: the star in the title is the
// only warning. The files are handed back to the server.
void QuvaCfgXMLEditor::closeEvent(QCloseEvent *event)
{
    if (cfg) {
        windowBrokerCalls()->switchFile(this, brokerProductWord(), cfg->cfgFileName, QString());
        windowBrokerCalls()->switchFile(this, brokerProductWord(), descFilePath(*cfg), QString());
    }
    QMainWindow::closeEvent(event);
}

// --- change detection -----------------------------------------------------

// While the application is inactive the watcher is emptied, so that nothing
// is asked while the user works elsewhere; on return the modification times
// are compared instead and the watcher is armed again.
bool QuvaCfgXMLEditor::eventFilter(QObject *object, QEvent *event)
{
    if (cfg && object == qApp && !inEventFilter) {
        if (event->type() == QEvent::ApplicationDeactivate) {
            inEventFilter = true;
            watchFiles(*cfg, QString(), QString());
            inEventFilter = false;
        } else if (event->type() == QEvent::ApplicationActivate) {
            inEventFilter = true;
            checkTimesOnActivation();
            inEventFilter = false;
        }
    }
    return QMainWindow::eventFilter(object, event);
}

void QuvaCfgXMLEditor::checkTimesOnActivation()
{
    if (cfg->cfgFileName.isEmpty())
        return;
    // A reload replaces cfg, so every step reads it anew.
    if (cfg->cfgLastModified.isValid()
        && QFileInfo(cfg->cfgFileName).lastModified() != cfg->cfgLastModified)
        on_fileChanged();
    if (cfg->descLastModified.isValid()
        && QFileInfo(descFilePath(*cfg)).lastModified() != cfg->descLastModified)
        on_fileChanged();
    watchFiles(*cfg, cfg->cfgFileName, descFilePath(*cfg));
}

void QuvaCfgXMLEditor::on_fileChanged()
{
    if (!cfg)
        return;
    const QString text = QStringLiteral("WARNING: One or both the files\n  ") + cfg->cfgFileName
                         + QStringLiteral("\n  ") + descFilePath(*cfg)
                         + QStringLiteral("\nhave changed on disk.\n"
                                          "Do you want to re-load these files from disk?");
    const auto answer = askUser(this, UserQuestion{QMessageBox::Critical,
                                                   QStringLiteral("Quva CfgXML Editor Warning"),
                                                   text, QMessageBox::Ok | QMessageBox::Cancel,
                                                   QMessageBox::Ok});
    if (answer == QMessageBox::Ok)
        openConfigFile(cfg->cfgFileName, true);
}
