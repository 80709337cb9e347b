#include "shell/main_window.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/data_partitioning_page.h"
#include "panels/modality_recodings_page.h"
#include "panels/model_param1_page.h"
#include "panels/model_param2_page.h"
#include "panels/quva_page.h"
#include "panels/select_line_page.h"
#include "panels/select_variables_page.h"
#include "panels/target_definition_page.h"
#include "shell/allow_foreground.h"
#include "shell/application_directory.h"
#include "shell/cfg_document.h"
#include "shell/create_model_page.h"
#include "shell/execute_panel.h"
#include "shell/panel_apply.h"
#include "shell/raise_listener.h"
#include "shell/settings.h"
#include "shell/window_broker.h"
#include "shell/window_place.h"
#include "ui_main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QUndoView>
#include <QUrl>

QString windowBaseTitle()
{
    return QStringLiteral("Quva Modeler Config");
}

QuvaCfgXMLEditor::QuvaCfgXMLEditor(QWidget *parent)
    : QMainWindow(parent), ui(new Ui::QuvaCfgXMLEditor), guiReporter(this),
      doc(new CfgDocument(this))
{
    setUpdatingPanel(true);
    ui->setupUi(this);
    setReporter(&guiReporter);
    ui->mainToolBar->hide();
    ui->statusBar->hide();
    setUpRecentFilesMenu();
    setUpPages();
    setUpUndo();
    setUpDocument();
    // The server of the product family may ask this window to come forward.
    startAllowToSetForegroundWindow(this, brokerProductWord());
    new RaiseListener(this);

    qApp->installEventFilter(this);
    openCommandLineFile();
    if (!cfg())
        refreshAfterLoad();
    resize(800, 40);
    constructing = false;
    if (placeAfterConstruction)
        takePlace(*placeAfterConstruction);
    setUpdatingPanel(false);
}

QuvaCfgXMLEditor::~QuvaCfgXMLEditor()
{
    qApp->removeEventFilter(this);
    if (reporter() == &guiReporter)
        setReporter(nullptr);
    // Nothing reaches this window while it is taken apart, and the pages go
    // before the document whose record they show.
    ui->twMain->disconnect(this);
    doc->undoStack()->disconnect(this);
    doc->disconnect(this);
    delete ui->centralWidget;
    delete stackView;
    delete doc;
    delete ui;
}

CfgModel *QuvaCfgXMLEditor::cfg() const
{
    return doc->cfg();
}

QUndoStack *QuvaCfgXMLEditor::undoStack() const
{
    return doc->undoStack();
}

// The row of tabs in the order of the page numbers; the optional pages
// (1, 2, 3 and 7) start out of it.
void QuvaCfgXMLEditor::setUpPages()
{
    pages = PageTable(ui->twMain);
    PageContext &context = *this;
    execute = new ExecutePanel(this, true);
    quvaPage = new QuvaPage(context);
    connect(quvaPage, &QuvaPage::openConfigRequested, this,
            &QuvaCfgXMLEditor::on_actionOpenConfigFile_triggered);
    pages.add(PageQuva, quvaPage);
    pages.add(PageDataPartitioning, new DataPartitioningPage(context));
    pages.add(PageModelParam1, new ModelParam1Page(context));
    pages.add(PageModelParam2, new ModelParam2Page(context));
    pages.add(PageSelectVariables, new SelectVariablesPage(context));
    pages.add(PageSelectLine, new SelectLinePage(context));
    pages.add(PageTargetDefinition, new TargetDefinitionPage(context));
    pages.add(PageModalityRecodings, new ModalityRecodingsPage(context));
    pages.add(PageCreateModel, new CreateModelPage(context, execute));
    apply = new PanelApply(this, nullptr, execute);
    apply->setObjectName(QStringLiteral("applyPanel"));
    pages.add(PageApply, apply, QStringLiteral("Apply model"));
    pages.add(PageExecute, execute, QStringLiteral("Execution Log"));

    ui->twMain->setCurrentIndex(0);
    for (int optional : {PageModalityRecodings, PageModelParam2, PageModelParam1,
                         PageDataPartitioning})
        pages.hide(optional);
    connect(ui->twMain, &QTabWidget::currentChanged, this, &QuvaCfgXMLEditor::updatePanel);
}

void QuvaCfgXMLEditor::setUpRecentFilesMenu()
{
    recentMenu = new QMenu(QStringLiteral("Recent .CfgXML Files"), ui->menuFile);
    recentMenu->setObjectName(QStringLiteral("menuRecentCfgXML"));
    ui->menuFile->insertMenu(ui->actionExit, recentMenu);
    ui->menuFile->insertSeparator(ui->actionExit);
    for (int i = 0; i < maxRecentFiles; ++i) {
        auto *action = new QAction(this);
        action->setVisible(false);
        connect(action, &QAction::triggered, this, &QuvaCfgXMLEditor::on_openRecentFile);
        recentMenu->addAction(action);
        recentActions.append(action);
    }
    connect(recentMenu, &QMenu::aboutToShow, this, &QuvaCfgXMLEditor::on_displayRecentFileList);
}

void QuvaCfgXMLEditor::setUpUndo()
{
    QUndoStack *stack = doc->undoStack();
    connect(stack, &QUndoStack::cleanChanged, this, &QuvaCfgXMLEditor::on_cleanChanged);
    connect(stack, &QUndoStack::indexChanged, this, &QuvaCfgXMLEditor::on_undoRedoActions);
    stackUndo = stack->createUndoAction(this, QStringLiteral("&Undo"));
    stackUndo->setShortcuts(QKeySequence::Undo);
    stackRedo = stack->createRedoAction(this, QStringLiteral("&Redo"));
    stackRedo->setShortcuts(QKeySequence::Redo);

    stackView = new QUndoView(stack);
    stackView->setWindowTitle(QStringLiteral("Undo-stack List"));
    stackView->setAttribute(Qt::WA_QuitOnClose, false);
    stackView->hide();
}

void QuvaCfgXMLEditor::setUpDocument()
{
    connect(doc, &CfgDocument::aboutToReplace, this, [this] {
        pages.releaseRecord();
        apply->setCfg(nullptr);
    });
    connect(doc, &CfgDocument::loaded, this, &QuvaCfgXMLEditor::refreshAfterLoad);
    connect(doc, &CfgDocument::saved, this, &QuvaCfgXMLEditor::updateWindowTitle);
    connect(doc, &CfgDocument::changedOnDisk, this, &QuvaCfgXMLEditor::on_fileChanged);
    connect(doc, &CfgDocument::placeRead, this, &QuvaCfgXMLEditor::takePlace);
    connect(doc, &CfgDocument::endProcessRequested, this, &QuvaCfgXMLEditor::endProcess);
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

// --- opening and saving ----------------------------------------------------

void QuvaCfgXMLEditor::on_actionOpenConfigFile_triggered()
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
                                      QStringLiteral("Quva Cfg XML file (*.CfgXML)"));
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
    doc->openConfigFile(path, notifyBroker);
}

// The tab in view stays until refreshAfterLoad changes it.
void QuvaCfgXMLEditor::openDescriptionFile(const QString &path, bool notifyBroker)
{
    doc->openDescriptionFile(path, notifyBroker);
}

void QuvaCfgXMLEditor::refreshAfterLoad()
{
    ui->twMain->setCurrentIndex(0);
    // A description that names its own target leaves the target page no
    // choice.
    targetIsEditable = cfg() && cfg()->desc->target.isEmpty();
    pages.setOptionalTabsEnabled(cfg() != nullptr);
    pages.setUpAfterLoad();
    apply->setCfg(cfg());
    updateWindowTitle();
}

void QuvaCfgXMLEditor::takePlace(const WorkingSpace &place)
{
    if (constructing)
        placeAfterConstruction = place;
    else
        restoreWorkingSpace(this, place);
}

// Another window has taken over the file: this one leaves at once, with no
// further question.
void QuvaCfgXMLEditor::endProcess()
{
    close();
    QCoreApplication::exit(0);
}

bool QuvaCfgXMLEditor::writeRecord()
{
    return doc->write(workingSpaceOfWindow(this));
}

bool QuvaCfgXMLEditor::saveConfig(bool askName)
{
    return doc->saveConfig(askName, workingSpaceOfWindow(this));
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
    for (int i = qMin(files.size(), recentActions.size()) - 1; i >= 0; --i) {
        QAction *action = recentActions.at(i);
        action->setVisible(true);
        action->setText(files.at(i));
        action->setData(files.at(i));
    }
}

void QuvaCfgXMLEditor::updateWindowTitle()
{
    const QString name = doc->fileName();
    if (!name.isEmpty()) {
        setWindowTitle(windowBaseTitle() + QStringLiteral(" - ") + name
                       + (undoStack()->isClean() ? QString() : QStringLiteral("*")));
    } else {
        setWindowTitle(windowBaseTitle());
    }
}

// --- refresh path ---------------------------------------------------------

int QuvaCfgXMLEditor::currentPageIndex() const
{
    return pages.currentNumber();
}

void QuvaCfgXMLEditor::updatePanel()
{
    updatePanelIdx(currentPageIndex());
}

void QuvaCfgXMLEditor::updatePanelIdx(int idx)
{
    ui->actionUndo->setEnabled(undoStack()->canUndo());
    ui->actionRedo->setEnabled(undoStack()->canRedo());
    if (idx > PageCreateModel || !pages.refresh(idx)) {
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
    const auto *command = dynamic_cast<const QUndoCommandPanel *>(undoStack()->command(idx - 1));
    if (command && command->panel < PageCount) {
        pages.show(command->panel);
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
    undoStack()->undo();
}

void QuvaCfgXMLEditor::on_actionRedo_triggered()
{
    undoStack()->redo();
}

void QuvaCfgXMLEditor::on_actionShowHideUndoStack_triggered()
{
    stackView->setVisible(!stackView->isVisible());
}

// --- pages and user level -------------------------------------------------

void QuvaCfgXMLEditor::togglePage(int page, const QString &title)
{
    if (isAdvancedUser() && cfg())
        pages.toggle(page, title);
}

void QuvaCfgXMLEditor::on_actionDataPartioning_triggered()
{
    togglePage(PageDataPartitioning, QStringLiteral("Data Partitioning"));
}

void QuvaCfgXMLEditor::on_actionModelParameters1_triggered()
{
    togglePage(PageModelParam1, QStringLiteral("Model Parameters (1)"));
}

void QuvaCfgXMLEditor::on_actionModelParameters2_triggered()
{
    togglePage(PageModelParam2, QStringLiteral("Model Parameters (2)"));
}

void QuvaCfgXMLEditor::on_actionModalityRecodings_triggered()
{
    togglePage(PageModalityRecodings, QStringLiteral("Modality Recodings"));
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
    windowBroker()->open(this, brokerProductWord(), QStringLiteral(".CfgXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowDSource_triggered()
{
    windowBroker()->open(this, brokerProductWord(), QStringLiteral(".DSourceXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowMain_triggered()
{
    windowBroker()->open(this, brokerProductWord(), QStringLiteral(".MainMenu"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowType_triggered()
{
    windowBroker()->open(this, brokerProductWord(), QStringLiteral(".TypeXML"));
}

void QuvaCfgXMLEditor::on_actionOpenWindowModel_triggered()
{
    windowBroker()->open(this, brokerProductWord(), QStringLiteral(".ModelXML"));
}

// The quick guide lies beside the program; the desktop's PDF viewer opens it
// at the chapter on building a model. Without the guide nothing happens.
void QuvaCfgXMLEditor::on_actionHelp_triggered()
{
    const QString guide = applicationDirectory()
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
    doc->release();
    QMainWindow::closeEvent(event);
}

// --- change detection -----------------------------------------------------

// While the application is inactive nothing is watched, so that nothing is
// asked while the user works elsewhere; on return the modification times
// are compared instead and the watch is armed again.
bool QuvaCfgXMLEditor::eventFilter(QObject *object, QEvent *event)
{
    if (cfg() && object == qApp && !inEventFilter) {
        if (event->type() == QEvent::ApplicationDeactivate) {
            inEventFilter = true;
            doc->stopWatching();
            inEventFilter = false;
        } else if (event->type() == QEvent::ApplicationActivate) {
            inEventFilter = true;
            doc->checkOnActivation();
            inEventFilter = false;
        }
    }
    return QMainWindow::eventFilter(object, event);
}

void QuvaCfgXMLEditor::on_fileChanged()
{
    if (!cfg())
        return;
    const QString text = QStringLiteral("WARNING: One or both the files\n  ") + doc->fileName()
                         + QStringLiteral("\n  ") + descFilePath(*cfg())
                         + QStringLiteral("\nhave changed on disk.\n"
                                          "Do you want to re-load these files from disk?");
    const auto answer = askUser(this, UserQuestion{QMessageBox::Critical,
                                                   QStringLiteral("Quva CfgXML Editor Warning"),
                                                   text, QMessageBox::Ok | QMessageBox::Cancel,
                                                   QMessageBox::Ok});
    if (answer == QMessageBox::Ok)
        openConfigFile(doc->fileName(), true);
}
