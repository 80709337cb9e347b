#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "shell/execute_panel.h"
#include "shell/panel_apply.h"
#include "shell/gui_reporter.h"
#include "shell/main_window.h"
#include "shell/window_broker.h"
#include "shell/settings.h"
#include "url_sink.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QRandomGenerator>
#include <QSettings>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QUndoView>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

// Remembers what the window told the server.
class RecordingBroker final : public WindowBroker
{
public:
    bool open(QWidget *, const QString &product, const QString &file) override
    {
        opened << product + QLatin1Char(' ') + file;
        return false;
    }
    int checkAlreadyOpen(QWidget *, const QString &product, const QString &file,
                         const QString &title) override
    {
        asked << product + QLatin1Char('|') + file + QLatin1Char('|') + title;
        return answer;
    }
    void switchFile(QWidget *, const QString &product, const QString &oldFile,
                    const QString &newFile) override
    {
        switches << product + QLatin1Char('|') + oldFile + QLatin1Char('|') + newFile;
    }
    QStringList opened;
    QStringList asked;
    QStringList switches;
    int answer = 0;
};

const char descriptionText[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<DESCRIPTION>\n"
    " <QUV_Config nTestSet=\"6\" nValSet=\"5\">\n"
    "  <datasource>\n   <file name=\"loans.csv\"/>\n  </datasource>\n"
    " </QUV_Config>\n"
    " <COLS>\n"
    "  <VALUE>\n   <COL name=\"age\" label=\"Age\" auc=\"0.61\"/>\n"
    "   <COL name=\"income\" label=\"Income\" auc=\"0.66\"/>\n  </VALUE>\n"
    "  <NOMINAL/>\n"
    "  <BIN>\n   <COL name=\"bad\" label=\"Bad loan\"/>\n  </BIN>\n"
    " </COLS>\n"
    "</DESCRIPTION>\n";

QByteArray configText(const QString &descPath, int nValSet)
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<QUV_Config nValSet=\"%2\" nTestSet=\"6\">\n"
                          " <DescriptionFile>\n  %1\n </DescriptionFile>\n"
                          " <Target type=\"C\">bad</Target>\n"
                          "</QUV_Config>\n")
        .arg(descPath)
        .arg(nValSet)
        .toUtf8();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QStringList tabTexts(const QTabWidget *tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts;
}

QStringList actionTexts(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *a : menu->actions())
        texts << (a->isSeparator() ? QStringLiteral("---") : a->text());
    return texts;
}

} // namespace

class tst_main_window : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void startState();
    void menus_data();
    void menus();
    void menuOrder();
    void recentMenuBeforeExit();
    void togglePageNeedsAdvancedAndRecord();
    void togglePageKeepsOrder_data();
    void togglePageKeepsOrder();
    void openSetsTitleAndLabels();
    void titleStar();
    void saveAsCancelledChangesNothing();
    void saveUnderNewName();
    void recentListAtMostTen();
    void recentEntryOfMissingFileFails();
    void openFailureKeepsRecord_data();
    void openFailureKeepsRecord();
    void openRefusesWhatIsNoFile_data();
    void openRefusesWhatIsNoFile();
    void openDialogCancelled();
    void openByDialogAnnounces();
    void reopenSameFile();
    void descriptionWithoutConfiguration();
    void changeDetectionQuestion();
    void deactivationEmptiesWatcher();
    void closingNeverAsks();
    void undoShowsPageOfCommandBelow();
    void undoToZeroRefreshesPageInView();
    void undoOnHiddenPage();
    void undoOnLogPage();
    void groupPageAndActions();
    void switchUserLevel();
    void showHideUndoStack();
    void helpOpensGuide();
    void brokerMenus();
    void commandLineFileOpensQuietly();
    void commandLineDescriptionUnderMinusD();
    void fileTakesItsPlaceOnEveryRoad();
    void reporterShowsBoxes();

private:
    std::unique_ptr<QuvaCfgXMLEditor> makeWindow();
    QString makeConfig(const QString &name, int nValSet = 5);
    QTabWidget *tabs(QuvaCfgXMLEditor *w) { return w->findChild<QTabWidget *>("twMain"); }
    QString labelText(QuvaCfgXMLEditor *w, const char *name)
    {
        return w->findChild<QLabel *>(name)->text();
    }

    QTemporaryDir home;
    std::unique_ptr<QTemporaryDir> files;
    QString descPath;
    RecordingBroker broker;
    QList<UserQuestion> questions;
    QList<QMessageBox::StandardButton> answers;
    QList<FileQuestion> fileQuestions;
    QStringList fileAnswers;
};

void tst_main_window::initTestCase()
{
    QVERIFY(home.isValid());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
    setWindowBroker(&broker);
    // Every box and file dialog is answered here; an unexpected one fails the
    // test instead of waiting for a user.
    setQuestionHook([this](const UserQuestion &q) {
        questions << q;
        if (answers.isEmpty())
            return QMessageBox::Ok;
        return answers.takeFirst();
    });
    setFileDialogHook([this](const FileQuestion &q) {
        fileQuestions << q;
        return fileAnswers.isEmpty() ? QString() : fileAnswers.takeFirst();
    });
}

void tst_main_window::init()
{
    QSettings("Brandolin", "QUV").clear();
    files.reset(new QTemporaryDir);
    QVERIFY(files->isValid());
    descPath = files->filePath("loans.DescXML");
    QVERIFY(writeFile(descPath, descriptionText));
    broker.opened.clear();
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    questions.clear();
    answers.clear();
    fileQuestions.clear();
    fileAnswers.clear();
    setAdvancedUser(false);
}

void tst_main_window::cleanup()
{
    QVERIFY2(answers.isEmpty(), "a prepared answer was not asked for");
}

std::unique_ptr<QuvaCfgXMLEditor> tst_main_window::makeWindow()
{
    auto w = std::make_unique<QuvaCfgXMLEditor>();
    return w;
}

QString tst_main_window::makeConfig(const QString &name, int nValSet)
{
    const QString path = files->filePath(name);
    writeFile(path, configText(descPath, nValSet));
    return path;
}

void tst_main_window::startState()
{
    auto w = makeWindow();
    QCOMPARE(tabTexts(tabs(w.get())),
             (QStringList{"Quva", "Select Variables", "Select Lines / Segment",
                          "Target Definition", "CREATE MODEL", "Apply model", "Execution Log"}));
    QCOMPARE(w->pageTable().count(), 11);
    const QStringList pageNames{"tQuva",          "tDataPartitioning",  "tModelParam1",
                                "tModelParam2",   "tSelectVariables",   "tSelectLine",
                                "tTargetDefinition", "tModalityRecodings", "tCreateModel",
                                "applyPanel"};
    for (int i = 0; i < pageNames.size(); ++i)
        QCOMPARE(w->pageTable().widget(i)->objectName(), pageNames.at(i));
    QCOMPARE(w->pageTable().widget(10), static_cast<QWidget *>(w->executePanel()));
    QCOMPARE(tabs(w.get())->currentIndex(), 0);
    for (int i = 1; i < tabs(w.get())->count(); ++i)
        QVERIFY(!tabs(w.get())->isTabEnabled(i));
    QVERIFY(tabs(w.get())->isTabEnabled(0));
    QVERIFY(w->cfg() == nullptr);
    QCOMPARE(w->windowTitle(), QStringLiteral("Quva Modeler Config"));
    QVERIFY(!w->updatingPanel());
    QVERIFY(!w->targetEditable());
    QVERIFY(w->undoStack()->isClean());
    QCOMPARE(w->undoStack()->count(), 0);
    QVERIFY(!w->undoView()->isVisible());
    QCOMPARE(w->undoView()->windowTitle(), QStringLiteral("Undo-stack List"));
    QVERIFY(!w->undoView()->testAttribute(Qt::WA_QuitOnClose));
    QVERIFY(w->findChild<QToolBar *>("mainToolBar")->isHidden());
    QVERIFY(w->findChild<QStatusBar *>("statusBar")->isHidden());
    QCOMPARE(labelText(w.get(), "lInterfaceLevel"), QStringLiteral("INTERFACE LEVEL: basic"));
    QCOMPARE(labelText(w.get(), "lDescriptionPath"), QStringLiteral("Description file: "));
    QCOMPARE(labelText(w.get(), "lAppPath"),
             QStringLiteral("Quva: ") + QCoreApplication::applicationDirPath());
    QCOMPARE(w->findChild<QPushButton *>("pbOpen")->text(), QStringLiteral("Open config file"));
    QCOMPARE(w->pageTable().widget(0)->palette().color(QPalette::Window), QColor("#F0F0F0"));
    QVERIFY(!w->findChild<QLabel *>("lLogo")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(w->stackUndoAction()->text(), QStringLiteral("&Undo"));
    QCOMPARE(w->stackRedoAction()->text(), QStringLiteral("&Redo"));
    QCOMPARE(w->stackUndoAction()->shortcut(), QKeySequence(QKeySequence::Undo));
    QVERIFY(w->stackUndoAction()->associatedWidgets().isEmpty());
    QVERIFY(questions.isEmpty());
}

void tst_main_window::menus_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    const char *rows[][3] = {
        {"actionNewWindow", "New Window", "Ctrl+N"},
        {"actionOpenDescriptionFile", "Open Description File", "Ctrl+W"},
        {"actionOpenConfigFile", "Open Config-file...", "Ctrl+O"},
        {"actionSaveConfigFile", "Save Config-file", "Ctrl+S"},
        {"actionSaveAsConfigFile", "Save As Config-file...", "Ctrl+E"},
        {"actionExit", "Exit", "Ctrl+X"},
        {"actionShowHideUndoStack", "Show/Hide Undo Stack", ""},
        {"actionUndo", "Undo", "Ctrl+Z"},
        {"actionRedo", "Redo", "Ctrl+Y"},
        {"actionDataPartioning", "Data Partitioning", ""},
        {"actionModelParameters1", "Model Parameters(1)", ""},
        {"actionModelParameters2", "Model Parameters(2)", ""},
        {"actionModalityRecodings", "Modality Recodings", ""},
        {"actionSwitchUserLevel", "Switch User Level", "Ctrl+U"},
        {"actionOpenWindowMain", "Open Main Menu Window", ""},
        {"actionOpenWindowDSource", "Open .DSourceXML Editor Window", ""},
        {"actionOpenWindowType", "Open .TypeXML Editor Window", ""},
        {"actionOpenWindowModel", "Open .ModelXML Window", ""},
        {"actionHelp", "Help", "F1"},
        {"actionOpenFile", "Open File", ""},
        {"actionRecent_Config_Files", "Recent Config Files", ""},
    };
    for (const auto &r : rows)
        QTest::newRow(r[0]) << r[0] << r[1] << r[2];
}

void tst_main_window::menus()
{
    QFETCH(QString, action);
    QFETCH(QString, text);
    QFETCH(QString, shortcut);
    auto w = makeWindow();
    auto *a = w->findChild<QAction *>(action);
    QVERIFY(a);
    QCOMPARE(a->text(), text);
    QCOMPARE(a->shortcut(), QKeySequence(shortcut));
    if (action == "actionDataPartioning")
        QCOMPARE(a->toolTip(), QStringLiteral("Data Partioning"));
    const bool inNoMenu = action == "actionOpenFile" || action == "actionRecent_Config_Files";
    bool inMenu = false;
    for (QWidget *owner : a->associatedWidgets())
        inMenu = inMenu || qobject_cast<QMenu *>(owner);
    QCOMPARE(inMenu, !inNoMenu);
}

void tst_main_window::menuOrder()
{
    auto w = makeWindow();
    QStringList titles;
    for (QAction *a : w->menuBar()->actions())
        titles << a->menu()->objectName() + ":" + a->text();
    QCOMPARE(titles, (QStringList{"menuFile:File", "menuTools:Tools",
                                  "menuAdittional_pannels:Additional panels",
                                  "menuWindows:Windows", "menuHelp:Help"}));
    QCOMPARE(actionTexts(w->findChild<QMenu *>("menuFile")),
             (QStringList{"New Window", "Open Description File", "---", "Open Config-file...",
                          "Save Config-file", "Save As Config-file...", "---",
                          "Recent .CfgXML Files", "---", "Exit"}));
    QCOMPARE(actionTexts(w->findChild<QMenu *>("menuTools")),
             (QStringList{"Show/Hide Undo Stack", "Undo", "Redo"}));
    QCOMPARE(actionTexts(w->findChild<QMenu *>("menuAdittional_pannels")),
             (QStringList{"Data Partitioning", "Model Parameters(1)", "Model Parameters(2)",
                          "Modality Recodings", "---", "Switch User Level"}));
    QCOMPARE(actionTexts(w->findChild<QMenu *>("menuWindows")),
             (QStringList{"Open Main Menu Window", "---", "Open .DSourceXML Editor Window",
                          "Open .TypeXML Editor Window", "Open .ModelXML Window"}));
    QCOMPARE(actionTexts(w->findChild<QMenu *>("menuHelp")), QStringList{"Help"});
}

void tst_main_window::recentMenuBeforeExit()
{
    auto w = makeWindow();
    QCOMPARE(w->recentFileActions().size(), 10);
    QCOMPARE(w->recentFilesMenu()->title(), QStringLiteral("Recent .CfgXML Files"));
    QCOMPARE(w->recentFilesMenu()->actions().size(), 10);
    for (QAction *a : qAsConst(w->recentFileActions()))
        QVERIFY(!a->isVisible());
}

void tst_main_window::togglePageNeedsAdvancedAndRecord()
{
    auto w = makeWindow();
    const QStringList start = tabTexts(tabs(w.get()));
    // No record: nothing, whatever the level.
    setAdvancedUser(true);
    w->findChild<QAction *>("actionDataPartioning")->trigger();
    QCOMPARE(tabTexts(tabs(w.get())), start);

    w->openConfigFile(makeConfig("a.CfgXML"), false);
    QVERIFY(w->cfg());
    // Basic level: nothing.
    setAdvancedUser(false);
    w->findChild<QAction *>("actionDataPartioning")->trigger();
    QCOMPARE(tabTexts(tabs(w.get())), start);
    // Advanced: shows, then hides.
    setAdvancedUser(true);
    w->findChild<QAction *>("actionDataPartioning")->trigger();
    QCOMPARE(tabs(w.get())->tabText(1), QStringLiteral("Data Partitioning"));
    QCOMPARE(tabs(w.get())->widget(1), w->pageTable().widget(1));
    QCOMPARE(tabs(w.get())->count(), start.size() + 1);
    // Switching back to basic does not remove it.
    setAdvancedUser(false);
    QCOMPARE(tabs(w.get())->count(), start.size() + 1);
    setAdvancedUser(true);
    w->findChild<QAction *>("actionDataPartioning")->trigger();
    QCOMPARE(tabTexts(tabs(w.get())), start);
}

void tst_main_window::togglePageKeepsOrder_data()
{
    QTest::addColumn<QVector<int>>("sequence");
    QTest::newRow("7 then 1") << QVector<int>{7, 1};
    QTest::newRow("3 2 1 7") << QVector<int>{3, 2, 1, 7};
    QTest::newRow("2 7 3 2 1") << QVector<int>{2, 7, 3, 2, 1};
    QTest::newRow("1 1 3 3 2") << QVector<int>{1, 1, 3, 3, 2};
    QRandomGenerator rng(20261121);
    const int optional[] = {1, 2, 3, 7};
    for (int run = 0; run < 8; ++run) {
        QVector<int> seq;
        for (int i = 0; i < 12; ++i)
            seq << optional[rng.bounded(4)];
        QTest::newRow(qPrintable(QStringLiteral("random %1").arg(run))) << seq;
    }
}

void tst_main_window::togglePageKeepsOrder()
{
    QFETCH(QVector<int>, sequence);
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    setAdvancedUser(true);
    const char *actions[] = {nullptr, "actionDataPartioning", "actionModelParameters1",
                             "actionModelParameters2", nullptr, nullptr, nullptr,
                             "actionModalityRecodings"};
    const QMap<int, QString> titles{{1, "Data Partitioning"},
                                    {2, "Model Parameters (1)"},
                                    {3, "Model Parameters (2)"},
                                    {7, "Modality Recodings"}};
    QSet<int> shown{0, 4, 5, 6, 8, 9, 10};
    for (int page : sequence) {
        w->findChild<QAction *>(actions[page])->trigger();
        if (shown.contains(page))
            shown.remove(page);
        else
            shown.insert(page);
        QList<int> expected = shown.values();
        std::sort(expected.begin(), expected.end());
        QTabWidget *t = tabs(w.get());
        QCOMPARE(t->count(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            QCOMPARE(t->widget(i), w->pageTable().widget(expected.at(i)));
            if (titles.contains(expected.at(i)))
                QCOMPARE(t->tabText(i), titles.value(expected.at(i)));
        }
    }
}

void tst_main_window::openSetsTitleAndLabels()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML");
    tabs(w.get())->setCurrentIndex(3);
    w->openConfigFile(path, false);
    QVERIFY(w->cfg());
    QCOMPARE(w->cfg()->cfgFileName, path);
    QCOMPARE(w->windowTitle(), QStringLiteral("Quva Modeler Config - ") + path);
    QCOMPARE(tabs(w.get())->currentIndex(), 0);
    QCOMPARE(labelText(w.get(), "lDescriptionPath"),
             QStringLiteral("Description file: ") + w->cfg()->desc->fileName);
    for (int i = 0; i < tabs(w.get())->count(); ++i)
        QVERIFY(tabs(w.get())->isTabEnabled(i));
    QVERIFY(w->targetEditable()); // the description names no target
    QVERIFY(w->undoStack()->isClean());
    QCOMPARE(w->cfg()->watcher.files().size(), 2);
    QVERIFY(w->cfg()->cfgLastModified.isValid());
    QVERIFY(w->cfg()->descLastModified.isValid());
    QCOMPARE(settingsStringList(recentCfgXmlKey()),
             QStringList{QFileInfo(path).canonicalFilePath()});
    QVERIFY(questions.isEmpty());
}

void tst_main_window::titleStar()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML", 3);
    w->openConfigFile(path, false);
    QCOMPARE(w->cfg()->nValSet, 3);
    const QString title = QStringLiteral("Quva Modeler Config - ") + path;
    QCOMPARE(w->windowTitle(), title);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nValSet, 4,
                                                      "nbr Validation sets", 1, true));
    QCOMPARE(w->windowTitle(), title + "*");
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nValSet, 5,
                                                      "nbr Validation sets", 1, true));
    QCOMPARE(w->undoStack()->count(), 1);
    QCOMPARE(w->undoStack()->text(0), QStringLiteral("nbr Validation sets|3=>5 - grouped"));
    w->findChild<QAction *>("actionUndo")->trigger();
    QCOMPARE(w->cfg()->nValSet, 3);
    QCOMPARE(w->windowTitle(), title);
    w->findChild<QAction *>("actionRedo")->trigger();
    QCOMPARE(w->cfg()->nValSet, 5);
    QCOMPARE(w->windowTitle(), title + "*");
    QVERIFY(w->saveConfig(false));
    QCOMPARE(w->windowTitle(), title);
    QVERIFY(fileQuestions.isEmpty());
    // What was saved is what comes back.
    w->openConfigFile(path, false);
    QCOMPARE(w->cfg()->nValSet, 5);
    QCOMPARE(w->windowTitle(), title);
}

void tst_main_window::saveAsCancelledChangesNothing()
{
    auto w = makeWindow();
    QVERIFY(!w->saveConfig(true)); // no record
    QVERIFY(fileQuestions.isEmpty());
    const QString path = makeConfig("a.CfgXML");
    w->openConfigFile(path, false);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 7, "t", 1, false));
    const QString title = w->windowTitle();
    QVERIFY(title.endsWith("*"));
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    QVERIFY(!w->saveConfig(true));
    QCOMPARE(fileQuestions.size(), 1);
    QCOMPARE(fileQuestions.at(0).caption, QStringLiteral("Save .CfgXML File as.."));
    QCOMPARE(fileQuestions.at(0).filter, QStringLiteral("Quva Cfg XML file (*.CfgXML)"));
    QVERIFY(fileQuestions.at(0).save);
    QCOMPARE(w->windowTitle(), title);
    QCOMPARE(w->cfg()->cfgFileName, path);
    QVERIFY(broker.switches.isEmpty());
}

void tst_main_window::saveUnderNewName()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML");
    w->openConfigFile(path, false);
    const QString newPath = files->filePath("b.CfgXML");
    fileAnswers << newPath;
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    w->findChild<QAction *>("actionSaveAsConfigFile")->trigger();
    QCOMPARE(w->cfg()->cfgFileName, newPath);
    QVERIFY(QFileInfo::exists(newPath));
    QCOMPARE(w->windowTitle(), QStringLiteral("Quva Modeler Config - ") + newPath);
    QCOMPARE(broker.switches, QStringList{"Quva|" + path + "|" + newPath});
    QCOMPARE(settingsStringList(recentCfgXmlKey()).first(), QFileInfo(newPath).canonicalFilePath());
    QCOMPARE(lastDir(), files->path());
}

void tst_main_window::recentListAtMostTen()
{
    auto w = makeWindow();
    QStringList opened;
    for (int i = 0; i < 12; ++i) {
        const QString path = makeConfig(QStringLiteral("c%1.CfgXML").arg(i));
        w->openConfigFile(path, false);
        opened.prepend(QFileInfo(path).canonicalFilePath());
    }
    w->on_displayRecentFileList();
    int visible = 0;
    for (int i = 0; i < w->recentFileActions().size(); ++i) {
        QAction *a = w->recentFileActions().at(i);
        QVERIFY(a->isVisible());
        ++visible;
        QCOMPARE(a->text(), opened.at(i));
        QCOMPARE(a->data().toString(), opened.at(i));
    }
    QCOMPARE(visible, 10);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), opened.mid(0, 10));

    // Opening an entry through its action makes it current and first, and is
    // announced.
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    const QString previous = w->cfg()->cfgFileName;
    w->recentFileActions().at(4)->trigger();
    QCOMPARE(broker.switches, QStringList{"Quva|" + previous + "|" + opened.at(4)});
    QCOMPARE(w->cfg()->cfgFileName, opened.at(4));
    QCOMPARE(settingsStringList(recentCfgXmlKey()).first(), opened.at(4));
    QCOMPARE(settingsStringList(recentCfgXmlKey()).size(), 10);

    // A shorter list, written by another editor, renews only its own
    // positions: the actions behind it are never hidden again.
    const QString seventh = w->recentFileActions().at(7)->text();
    QSettings("Brandolin", "QUV").setValue(recentCfgXmlKey(), QStringList{"/x/one", "/x/two"});
    w->on_displayRecentFileList();
    QCOMPARE(w->recentFileActions().at(0)->text(), QStringLiteral("/x/one"));
    QCOMPARE(w->recentFileActions().at(1)->data().toString(), QStringLiteral("/x/two"));
    QCOMPARE(w->recentFileActions().at(7)->text(), seventh);
    for (QAction *a : w->recentFileActions())
        QVERIFY(a->isVisible());
}

void tst_main_window::recentEntryOfMissingFileFails()
{
    auto w = makeWindow();
    const QString keep = makeConfig("keep.CfgXML");
    const QString gone = makeConfig("gone.CfgXML");
    w->openConfigFile(gone, false);
    w->openConfigFile(keep, false);
    const QString goneCanonical = QFileInfo(gone).canonicalFilePath();
    QVERIFY(QFile::remove(gone));
    CfgModel *before = w->cfg();
    w->on_displayRecentFileList();
    QCOMPARE(w->recentFileActions().at(1)->data().toString(), goneCanonical);
    w->recentFileActions().at(1)->trigger();
    QCOMPARE(w->cfg(), before);
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.at(0).title, QStringLiteral(".CfgXML error"));
    // The entry stays in the list.
    QVERIFY(settingsStringList(recentCfgXmlKey()).contains(goneCanonical));
}

void tst_main_window::openFailureKeepsRecord_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("description");
    QTest::newRow("missing configuration") << "none.CfgXML" << QByteArray() << false;
    QTest::newRow("no description element")
        << "bare.CfgXML" << QByteArray("<QUV_Config nValSet=\"2\"/>") << false;
    QTest::newRow("description missing")
        << "lost.CfgXML"
        << QByteArray("<QUV_Config><DescriptionFile>/nowhere/x.DescXML</DescriptionFile>"
                      "</QUV_Config>")
        << false;
    QTest::newRow("missing description") << "none.DescXML" << QByteArray() << true;
    QTest::newRow("description without columns")
        << "empty.DescXML" << QByteArray("<DESCRIPTION><QUV_Config/></DESCRIPTION>") << true;
}

void tst_main_window::openFailureKeepsRecord()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    QFETCH(bool, description);
    auto w = makeWindow();
    const QString good = makeConfig("good.CfgXML");
    w->openConfigFile(good, false);
    CfgModel *before = w->cfg();
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 9, "t", 1, false));
    const QString title = w->windowTitle();
    const QStringList recent = settingsStringList(recentCfgXmlKey());
    const QString bad = files->filePath(fileName);
    if (!content.isEmpty())
        QVERIFY(writeFile(bad, content));
    if (description)
        w->openDescriptionFile(bad, true);
    else
        w->openConfigFile(bad, true);
    QCOMPARE(w->cfg(), before);
    QCOMPARE(w->cfg()->cfgFileName, good);
    QCOMPARE(w->cfg()->nTestSet, 9);
    QCOMPARE(w->undoStack()->count(), 1);
    QCOMPARE(w->windowTitle(), title);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), recent);
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.at(0).title, QStringLiteral(".CfgXML error"));
    QVERIFY(broker.switches.isEmpty());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_main_window::openRefusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("description");
    QTest::addColumn<QString>("reason");
    const char *const kinds[][2] = {
        {"folder", "is a folder, not a file."},
        {"fifo", "is a FIFO (named pipe), not a regular file."},
        {"device", "is a character device, not a regular file."},
        {"unreadable", "cannot be read: Input/output error."},
    };
    for (const auto &kind : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("configuration: ") + kind[0]))
            << kind[0] << false << QString::fromLatin1(kind[1]);
        QTest::newRow(qPrintable(QStringLiteral("description: ") + kind[0]))
            << kind[0] << true << QString::fromLatin1(kind[1]);
    }
}

// Open given a folder, a FIFO that nobody writes, a device or a file that
// cannot be read: one box names the file and the reason, at once, and the
// open record and the folder stay as they were.
void tst_main_window::openRefusesWhatIsNoFile()
{
    QFETCH(QString, kind);
    QFETCH(bool, description);
    QFETCH(QString, reason);
    auto w = makeWindow();
    const QString good = makeConfig("good.CfgXML");
    w->openConfigFile(good, false);
    CfgModel *before = w->cfg();
    const QString odd = files->filePath(description ? "odd.DescXML" : "odd.CfgXML");
    if (kind == "folder")
        QVERIFY(QDir().mkdir(odd));
    else if (kind == "fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(odd).constData(), 0600), 0);
    else if (kind == "device")
        QVERIFY(QFile::link("/dev/zero", odd));
    else // read at offset 0, where nothing is mapped: refused even to root
        QVERIFY(QFile::link("/proc/self/mem", odd));
    const QStringList entries = QDir(files->path()).entryList(QDir::AllEntries | QDir::Hidden);
    const QStringList recent = settingsStringList(recentCfgXmlKey());
    QElapsedTimer clock;
    clock.start();
    if (description)
        w->openDescriptionFile(odd, true);
    else
        w->openConfigFile(odd, true);
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(w->cfg(), before);
    QCOMPARE(w->cfg()->cfgFileName, good);
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.at(0).icon, QMessageBox::Critical);
    QVERIFY2(questions.at(0).text.contains(QStringLiteral("File '%1' %2").arg(odd, reason)),
             qPrintable(questions.at(0).text));
    QCOMPARE(QDir(files->path()).entryList(QDir::AllEntries | QDir::Hidden), entries);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), recent);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_main_window::openDialogCancelled()
{
    auto w = makeWindow();
    w->findChild<QPushButton *>("pbOpen")->click();
    QCOMPARE(fileQuestions.size(), 1);
    QCOMPARE(fileQuestions.at(0).caption, QStringLiteral("Open CfgXML file"));
    QCOMPARE(fileQuestions.at(0).filter, QStringLiteral("Quva Cfg XML file (*.CfgXML)"));
    QCOMPARE(fileQuestions.at(0).directory, lastDir());
    QVERIFY(!fileQuestions.at(0).save);
    w->findChild<QAction *>("actionOpenDescriptionFile")->trigger();
    QCOMPARE(fileQuestions.size(), 2);
    QCOMPARE(fileQuestions.at(1).caption, QStringLiteral("Open DescXML file"));
    QCOMPARE(fileQuestions.at(1).filter, QStringLiteral("Quva Desc XML file (*.DescXML)"));
    QVERIFY(w->cfg() == nullptr);
    QVERIFY(questions.isEmpty());
    QVERIFY(settingsStringList(recentCfgXmlKey()).isEmpty());
}

void tst_main_window::openByDialogAnnounces()
{
    auto w = makeWindow();
    const QString first = makeConfig("first.CfgXML");
    const QString second = makeConfig("second.CfgXML");
    // Opened as from the command line: no talk to the server.
    w->openConfigFile(first, false);
    QVERIFY(broker.switches.isEmpty());
    fileAnswers << second;
    w->findChild<QAction *>("actionOpenConfigFile")->trigger();
    QCOMPARE(w->cfg()->cfgFileName, second);
    QCOMPARE(broker.switches, QStringList{"Quva|" + first + "|" + second});
    QCOMPARE(lastDir(), files->path());
}

void tst_main_window::reopenSameFile()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML");
    w->openConfigFile(path, false);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 9, "t", 1, false));
    CfgModel *before = w->cfg();
    w->openConfigFile(path, true);
    QVERIFY(w->cfg() != before);
    QCOMPARE(w->cfg()->nTestSet, 6); // changes dropped without a word
    QVERIFY(w->undoStack()->isClean());
    QCOMPARE(w->undoStack()->count(), 0);
    QVERIFY(questions.isEmpty());
    QCOMPARE(broker.switches, QStringList{"Quva|" + path + "|" + path});
}

void tst_main_window::descriptionWithoutConfiguration()
{
    auto w = makeWindow();
    tabs(w.get())->setCurrentIndex(2);
    w->openDescriptionFile(descPath, false);
    QVERIFY(w->cfg());
    QVERIFY(w->cfg()->cfgFileName.isEmpty());
    QCOMPARE(w->windowTitle(), QStringLiteral("Quva Modeler Config"));
    QCOMPARE(tabs(w.get())->currentIndex(), 0);
    QVERIFY(settingsStringList(recentCfgXmlKey()).isEmpty());
    // Nothing is watched and no activation check is made without a name.
    QVERIFY(w->cfg()->watcher.files().isEmpty());
    QEvent activate(QEvent::ApplicationActivate);
    QCoreApplication::sendEvent(qApp, &activate);
    QVERIFY(questions.isEmpty());
    // A modified record without a name still has no star: there is no name.
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 9, "t", 1, false));
    QCOMPARE(w->windowTitle(), QStringLiteral("Quva Modeler Config"));
    // Saving asks for a name.
    QVERIFY(!w->saveConfig(false));
    QCOMPARE(fileQuestions.size(), 1);
}

void tst_main_window::changeDetectionQuestion()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML", 3);
    w->openConfigFile(path, false);
    CfgModel *before = w->cfg();
    // Another program writes the file while the editor is in the background.
    QEvent deactivate(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &deactivate);
    QVERIFY(writeFile(path, configText(descPath, 7)));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(before->cfgLastModified.addSecs(-30),
                             QFileDevice::FileModificationTime));
    file.close();

    answers << QMessageBox::Cancel;
    QEvent activate(QEvent::ApplicationActivate);
    QCoreApplication::sendEvent(qApp, &activate);
    QCOMPARE(questions.size(), 1);
    const UserQuestion q = questions.at(0);
    QCOMPARE(q.title, QStringLiteral("Quva CfgXML Editor Warning"));
    QCOMPARE(q.text, QStringLiteral("WARNING: One or both the files\n  ") + path + "\n  "
                         + before->desc->fileName
                         + "\nhave changed on disk.\nDo you want to re-load these files "
                           "from disk?");
    QCOMPARE(q.icon, QMessageBox::Critical);
    QCOMPARE(q.buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(q.defaultButton, QMessageBox::Ok);
    QCOMPARE(w->cfg(), before);
    QCOMPARE(w->cfg()->nValSet, 3);

    // Declined: asked again at the next activation; accepted: reloaded.
    answers << QMessageBox::Ok;
    QCoreApplication::sendEvent(qApp, &activate);
    QCOMPARE(questions.size(), 2);
    QVERIFY(w->cfg() != before);
    QCOMPARE(w->cfg()->nValSet, 7);
    QCOMPARE(w->cfg()->watcher.files().size(), 2);
    QCOMPARE(broker.switches, QStringList{"Quva|" + path + "|" + path});
    QCoreApplication::sendEvent(qApp, &activate);
    QCOMPARE(questions.size(), 2);
}

void tst_main_window::deactivationEmptiesWatcher()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    QCOMPARE(w->cfg()->watcher.files().size(), 2);
    QEvent deactivate(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &deactivate);
    QVERIFY(w->cfg()->watcher.files().isEmpty());
    QEvent activate(QEvent::ApplicationActivate);
    QCoreApplication::sendEvent(qApp, &activate);
    QCOMPARE(w->cfg()->watcher.files().size(), 2);
    QVERIFY(questions.isEmpty());
}

void tst_main_window::closingNeverAsks()
{
    auto w = makeWindow();
    const QString path = makeConfig("a.CfgXML");
    w->openConfigFile(path, false);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 9, "t", 1, false));
    QVERIFY(w->windowTitle().endsWith("*"));
    w->show();
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    QVERIFY(w->close());
    QVERIFY(questions.isEmpty());
    QVERIFY(fileQuestions.isEmpty());
    QCOMPARE(broker.switches,
             (QStringList{"Quva|" + path + "|", "Quva|" + w->cfg()->desc->fileName + "|"}));

    // The exit action closes as well; without a record nothing is announced.
    auto empty = makeWindow();
    empty->show();
    broker.switches.clear();
    broker.asked.clear();
    broker.answer = 0;
    empty->findChild<QAction *>("actionExit")->trigger();
    QVERIFY(!empty->isVisible());
    QVERIFY(broker.switches.isEmpty());
}

void tst_main_window::undoShowsPageOfCommandBelow()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    QSignalSpy refreshed(w.get(), &QuvaCfgXMLEditor::pageRefreshed);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nMaxVar, 20, "v", 4, false));
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(4));
    QVERIFY(refreshed.contains(QVariantList{4}));
    w->undoStack()->push(new UpdateTemplateCommand<char>(&w->cfg()->targetType, 'E', "t", 6, false));
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(6));
    QVERIFY(w->findChild<QAction *>("actionUndo")->isEnabled());
    QVERIFY(!w->findChild<QAction *>("actionRedo")->isEnabled());
    // Undoing the target edit lands on the page of the edit below it.
    refreshed.clear();
    w->findChild<QAction *>("actionUndo")->trigger();
    QCOMPARE(w->cfg()->targetType, 'C');
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(4));
    QCOMPARE(refreshed.last(), QVariantList{4});
    QVERIFY(w->findChild<QAction *>("actionRedo")->isEnabled());
    // Redo shows the page of the command redone.
    w->findChild<QAction *>("actionRedo")->trigger();
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(6));
}

void tst_main_window::undoToZeroRefreshesPageInView()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nMaxVar, 20, "v", 5, false));
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(5));
    tabs(w.get())->setCurrentWidget(w->pageTable().widget(8));
    QSignalSpy refreshed(w.get(), &QuvaCfgXMLEditor::pageRefreshed);
    w->undoStack()->undo();
    QCOMPARE(w->cfg()->nMaxVar, 30);
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(8));
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(refreshed.at(0), QVariantList{8});
    QVERIFY(!w->findChild<QAction *>("actionUndo")->isEnabled());
}

void tst_main_window::undoOnHiddenPage()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    QSignalSpy refreshed(w.get(), &QuvaCfgXMLEditor::pageRefreshed);
    // Page 1 is hidden at the basic level: refreshed, but no tab comes back.
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 3, "t", 1, false));
    QCOMPARE(tabs(w.get())->indexOf(w->pageTable().widget(1)), -1);
    QCOMPARE(tabs(w.get())->currentIndex(), 0);
    QVERIFY(refreshed.contains(QVariantList{1}));
    w->undoStack()->push(new UpdateTemplateCommand<int>(&w->cfg()->nTestSet, 4, "t", 1, false));
    refreshed.clear();
    w->undoStack()->undo();
    QCOMPARE(w->cfg()->nTestSet, 3);
    QCOMPARE(tabs(w.get())->indexOf(w->pageTable().widget(1)), -1);
    QCOMPARE(refreshed.last(), QVariantList{1});
}

void tst_main_window::undoOnLogPage()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    tabs(w.get())->setCurrentWidget(w->executePanel());
    QCOMPARE(w->currentPageIndex(), -1);
    tabs(w.get())->setCurrentWidget(w->applyPanel());
    QCOMPARE(w->currentPageIndex(), 9);
    int n = 0;
    QSignalSpy refreshed(w.get(), &QuvaCfgXMLEditor::pageRefreshed);
    QTest::ignoreMessage(QtDebugMsg, "not supposed to arrive here, wrong index");
    w->undoStack()->push(new UpdateTemplateCommand<int>(&n, 1, "n", 9, false));
    QCOMPARE(tabs(w.get())->currentWidget(), w->applyPanel());
    QTest::ignoreMessage(QtDebugMsg, "not supposed to arrive here, wrong index");
    tabs(w.get())->setCurrentWidget(w->executePanel());
    QTest::ignoreMessage(QtDebugMsg, "not supposed to arrive here, wrong index");
    w->undoStack()->undo();
    QCOMPARE(n, 0);
    QCOMPARE(tabs(w.get())->currentWidget(), static_cast<QWidget *>(w->executePanel()));
    QVERIFY(refreshed.isEmpty());
}

void tst_main_window::groupPageAndActions()
{
    auto w = makeWindow();
    w->openConfigFile(makeConfig("a.CfgXML"), false);
    auto *group = new QUndoCommandPanel("AUC weighting", 8);
    new UpdateTemplateCommand<double>(&w->cfg()->p1, 0.3, QString(), 3, true, group);
    new UpdateTemplateCommand<double>(&w->cfg()->p2, 0.6, QString(), 3, true, group);
    w->undoStack()->push(group);
    QCOMPARE(tabs(w.get())->currentWidget(), w->pageTable().widget(8));
    QCOMPARE(w->cfg()->p1, 0.3);
    w->undoStack()->undo();
    QCOMPARE(w->cfg()->p1, 0.2);
    QCOMPARE(w->cfg()->p2, 0.45);
}

void tst_main_window::switchUserLevel()
{
    auto w = makeWindow();
    QAction *action = w->findChild<QAction *>("actionSwitchUserLevel");
    action->trigger();
    QVERIFY(isAdvancedUser());
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.at(0).title, QStringLiteral("User Level"));
    QCOMPARE(questions.at(0).text, QStringLiteral("You are now an expert user of Quva."));
    QCOMPARE(questions.at(0).icon, QMessageBox::Information);
    QCOMPARE(labelText(w.get(), "lInterfaceLevel"), QStringLiteral("INTERFACE LEVEL: advanced"));
    action->trigger();
    QVERIFY(!isAdvancedUser());
    QCOMPARE(questions.at(1).text, QStringLiteral("You are now an basic Quva user."));
    QCOMPARE(labelText(w.get(), "lInterfaceLevel"), QStringLiteral("INTERFACE LEVEL: basic"));
}

void tst_main_window::showHideUndoStack()
{
    auto w = makeWindow();
    QAction *action = w->findChild<QAction *>("actionShowHideUndoStack");
    action->trigger();
    QVERIFY(w->undoView()->isVisible());
    action->trigger();
    QVERIFY(!w->undoView()->isVisible());
}

void tst_main_window::helpOpensGuide()
{
    UrlSink sink;
    QDesktopServices::setUrlHandler("file", &sink, "openUrl");
    auto w = makeWindow();
    const QString guide = QCoreApplication::applicationDirPath() + "/QuvaQuickGuide.pdf";
    QFile::remove(guide);
    w->findChild<QAction *>("actionHelp")->trigger();
    QVERIFY(sink.urls.isEmpty());
    QVERIFY(writeFile(guide, "%PDF-1.4\n"));
    w->findChild<QAction *>("actionHelp")->trigger();
    QFile::remove(guide);
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(sink.urls.size(), 1);
    QCOMPARE(sink.urls.at(0).toLocalFile(), guide);
    QCOMPARE(sink.urls.at(0).fragment(), QStringLiteral("nameddest=6_3_build_a_predictive_model_t"));
}

void tst_main_window::brokerMenus()
{
    auto w = makeWindow();
    for (const char *name : {"actionNewWindow", "actionOpenWindowMain", "actionOpenWindowDSource",
                             "actionOpenWindowType", "actionOpenWindowModel"})
        w->findChild<QAction *>(name)->trigger();
    QCOMPARE(broker.opened, (QStringList{"Quva .CfgXML", "Quva .MainMenu", "Quva .DSourceXML",
                                         "Quva .TypeXML", "Quva .ModelXML"}));
    QVERIFY(questions.isEmpty());
}

void tst_main_window::reporterShowsBoxes()
{
    Reporter *before = reporter();
    {
        auto w = makeWindow();
        QVERIFY(reporter() != before);
        reportMessage(MessageIcon::Warning, "Loading", "no such file");
        QCOMPARE(questions.size(), 1);
        QCOMPARE(questions.at(0).icon, QMessageBox::Warning);
        QCOMPARE(questions.at(0).title, QStringLiteral("Loading"));
        QCOMPARE(questions.at(0).text, QStringLiteral("no such file"));
        QCOMPARE(questions.at(0).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        {
            BusyScope busy;
            QVERIFY(QGuiApplication::overrideCursor());
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        QVERIFY(!QGuiApplication::overrideCursor());
    }
    QCOMPARE(reporter(), before);
}

// The application sees only the program's name, whatever arguments pick the
// test functions; commandLineFileOpensQuietly adds one for a moment.
static int appArgc = 1;
static char *appArgv[3] = {nullptr, nullptr, nullptr};

void tst_main_window::commandLineFileOpensQuietly()
{
    const QByteArray path = makeConfig("cmd.CfgXML").toLocal8Bit();
    appArgv[1] = const_cast<char *>(path.constData());
    appArgc = 2;
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2) {
        appArgc = 1;
        QSKIP("this Qt does not read the argument list anew");
    }
    auto w = makeWindow();
    appArgc = 1;
    appArgv[1] = nullptr;
    QVERIFY(w->cfg());
    QCOMPARE(w->cfg()->cfgFileName, QString::fromLocal8Bit(path));
    QVERIFY(broker.switches.isEmpty());
    QVERIFY(questions.isEmpty());
    QVERIFY(w->undoStack()->isClean());
    QVERIFY(!w->updatingPanel());
}

// A program started under the name "-d" opens its argument as a
// description; the launcher of the description's MIME type starts it so.
void tst_main_window::commandLineDescriptionUnderMinusD()
{
    const QByteArray path = descPath.toLocal8Bit();
    char *program = appArgv[0];
    char minusD[] = "-d";
    appArgv[0] = minusD;
    appArgv[1] = const_cast<char *>(path.constData());
    appArgc = 2;
    QCOMPARE(QCoreApplication::arguments(), (QStringList{"-d", descPath}));
    auto w = makeWindow();
    appArgc = 1;
    appArgv[0] = program;
    appArgv[1] = nullptr;
    QVERIFY(w->cfg());
    QVERIFY(w->cfg()->cfgFileName.isEmpty()); // the description's own configuration
    QCOMPARE(w->cfg()->desc->fileName, descPath);
    QVERIFY(broker.switches.isEmpty());
    QVERIFY(questions.isEmpty());
}

// The place stored in the file wins over the window's own first size,
// whether the file comes from the command line or from the dialog.
void tst_main_window::fileTakesItsPlaceOnEveryRoad()
{
    QByteArray text = configText(descPath, 5);
    text.replace("</QUV_Config>", " <WorkingSpace x='10' y='20' w='700' h='500'/>\n</QUV_Config>");
    const QString file = files->filePath("placed.CfgXML");
    QVERIFY(writeFile(file, text));

    const QByteArray path = file.toLocal8Bit();
    appArgv[1] = const_cast<char *>(path.constData());
    appArgc = 2;
    QCOMPARE(QCoreApplication::arguments().size(), 2);
    auto fromCommandLine = makeWindow();
    appArgc = 1;
    appArgv[1] = nullptr;
    QVERIFY(fromCommandLine->cfg());
    QCOMPARE(fromCommandLine->size(), QSize(700, 500));
    QCOMPARE(fromCommandLine->pos(), QPoint(10, 20));

    auto byDialog = makeWindow();
    fileAnswers << file;
    byDialog->findChild<QAction *>("actionOpenConfigFile")->trigger();
    QVERIFY(byDialog->cfg());
    QCOMPARE(byDialog->size(), QSize(700, 500));
    QCOMPARE(byDialog->pos(), QPoint(10, 20));
}

int main(int argc, char **argv)
{
    // Documents and settings go to a private folder, never the user's.
    QTemporaryDir homeDir;
    qputenv("HOME", homeDir.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (homeDir.path() + "/config").toUtf8());
    QStandardPaths::setTestModeEnabled(true);
    appArgv[0] = argv[0];
    QApplication app(appArgc, appArgv);
    tst_main_window test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_main_window.moc"
