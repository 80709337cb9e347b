// The page "CREATE MODEL". Its short form of the modes, which every user
// sees: the two presets, Smart Activate on a performance run, and the mode
// shown from the record's values. Its run part: the controls, the report
// buttons enabled from the file name, each button's report, and a run of
// the engine's stand-in through the log page's panel.

#include "param_page_support.h"

#include "shell/execute_panel.h"
#include "standin_app_dir.h"
#include "url_sink.h"
#include "window_test_main.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QDir>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

class tst_create_model_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { f.support.install(); }
    void init()
    {
        f.open(PageCreateModel, nullptr);
        setAdvancedUser(false);
    }
    void cleanupTestCase() { f.close(); }

    void controlsAsBuilt();
    void shownMode();
    void performanceWithoutSmartActivateIsThreeChanges();
    void performanceWithSmartActivateActivatesRows();
    void performanceWithNothingToActivate();
    void standardAfterPerformanceKeepsLimit_data();
    void standardAfterPerformanceKeepsLimit();
    void clickOnModeInForceKeepsIt();
    void smartActivateCheckedAgainAtLoad();
    void refreshPushesNothing();
    void undoingAPresetShowsTheRunPage();

private:
    void setPenalization(double lambda, double alpha, int pruning, int maxVar)
    {
        f.cfg()->lambda = lambda;
        f.cfg()->alpha = alpha;
        f.cfg()->pruning = pruning;
        f.cfg()->nMaxVar = maxVar;
        f.refresh();
    }
    QRadioButton *perform() { return f.control<QRadioButton>("rbModelPerform_2"); }
    QRadioButton *standard() { return f.control<QRadioButton>("rbModelStandard_2"); }
    QCheckBox *smart() { return f.control<QCheckBox>("cbSmartActivate"); }

    ParamPageFixture f;
};

void tst_create_model_page::controlsAsBuilt()
{
    QCOMPARE(perform()->text(), QStringLiteral("Performance/Efficiency\n(with many variables)"));
    QCOMPARE(standard()->text(), QStringLiteral("Insight\n(with few variables)"));
    QVERIFY(!perform()->autoExclusive());
    QVERIFY(!standard()->autoExclusive());
    QCOMPARE(smart()->text(), QStringLiteral("Use Smart Activate\nfor Performance Mode"));
    QVERIFY(smart()->isChecked());
}

void tst_create_model_page::shownMode()
{
    setPenalization(-1.0, -1.0, 0, 12);
    QVERIFY(perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(!perform()->isChecked());
    QVERIFY(standard()->isChecked());
    setPenalization(-1.0, 1.0, 2, 25);
    QVERIFY(!standard()->isChecked());
    setPenalization(-1.0, 1.0, 3, 30); // high quality shows as neither
    QVERIFY(!perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    QCOMPARE(f.stack()->count(), 0);
}

void tst_create_model_page::performanceWithoutSmartActivateIsThreeChanges()
{
    setPenalization(-1.0, 1.0, 2, 30);
    ParamPageFixture::click(smart());
    QVERIFY(!smart()->isChecked());
    ParamPageFixture::click(perform());
    QCOMPARE(stackTexts(f.stack()), QStringList{"performance mode"});
    QCOMPARE(f.stack()->command(0)->childCount(), 3);
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(f.cfg()->alpha, -1.0);
    QVERIFY(perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageCreateModel));
}

// The record's age dummies 2 and 3 are ignored beside an active one.
void tst_create_model_page::performanceWithSmartActivateActivatesRows()
{
    setPenalization(-1.0, 1.0, 2, 30);
    QCOMPARE(f.cfg()->fi[2], 'I');
    QCOMPARE(f.cfg()->fi[3], 'I');
    ParamPageFixture::click(perform());
    QCOMPARE(f.stack()->count(), 1);
    const QUndoCommand *group = f.stack()->command(0);
    QCOMPARE(group->childCount(), 4);
    QCOMPARE(group->child(3)->text(), QStringLiteral("smart activate"));
    QCOMPARE(f.cfg()->fi[2], ' ');
    QCOMPARE(f.cfg()->fi[3], ' ');
    QCOMPARE(f.cfg()->fi[7], 'I'); // a wholly ignored variable stays
    f.stack()->undo();
    QCOMPARE(f.cfg()->fi[2], 'I');
    QCOMPARE(f.cfg()->fi[3], 'I');
    QCOMPARE(f.cfg()->pruning, 2);
}

void tst_create_model_page::performanceWithNothingToActivate()
{
    for (int i = 0; i < f.cfg()->columnCount(); ++i)
        f.cfg()->fi[i] = 0;
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(smart()->isChecked());
    ParamPageFixture::click(perform());
    QCOMPARE(f.stack()->count(), 1);
    QCOMPARE(f.stack()->command(0)->childCount(), 3);
}

void tst_create_model_page::standardAfterPerformanceKeepsLimit_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("12") << 12 << 12;
    QTest::newRow("none") << -1 << 30;
}

void tst_create_model_page::standardAfterPerformanceKeepsLimit()
{
    QFETCH(int, before);
    QFETCH(int, after);
    setPenalization(0.1, 0.5, 1, before);
    ParamPageFixture::click(perform());
    QCOMPARE(f.cfg()->nMaxVar, before);
    ParamPageFixture::click(standard());
    QCOMPARE(f.cfg()->nMaxVar, after);
    QCOMPARE(f.cfg()->pruning, 2);
    QCOMPARE(f.cfg()->alpha, 1.0);
    QCOMPARE(stackTexts(f.stack()), (QStringList{"performance mode", "standard mode"}));
    QVERIFY(!perform()->isChecked());
    QCOMPARE(standard()->isChecked(), after == 30);
}

void tst_create_model_page::clickOnModeInForceKeepsIt()
{
    setPenalization(-1.0, -1.0, 0, 30);
    QVERIFY(perform()->isChecked());
    ParamPageFixture::click(perform());
    QVERIFY(perform()->isChecked());
    QCOMPARE(f.stack()->count(), 0);
}

void tst_create_model_page::smartActivateCheckedAgainAtLoad()
{
    ParamPageFixture::click(smart());
    QVERIFY(!smart()->isChecked());
    f.w->openConfigFile(f.cfgPath, false);
    QVERIFY(smart()->isChecked());
}

void tst_create_model_page::refreshPushesNothing()
{
    for (const char *fixture : {"core/defaults.CfgXML", "core/root_changed.CfgXML",
                                "core/vars.CfgXML", "pages/vars.CfgXML"}) {
        f.support.copy("core/golden.DescXML", "golden.DescXML");
        f.w->openConfigFile(f.support.copy(fixture, "f.CfgXML"), false);
        QVERIFY2(f.cfg(), fixture);
        f.refresh();
        QCOMPARE(f.stack()->count(), 0);
    }
}

// The preset's commands carry the run page's number. An undo shows the page
// of the command left on top, so undoing the second of two presets from
// another page brings the run page back into view.
void tst_create_model_page::undoingAPresetShowsTheRunPage()
{
    setPenalization(-1.0, 1.0, 2, 30);
    ParamPageFixture::click(perform());
    ParamPageFixture::click(standard());
    QCOMPARE(f.stack()->count(), 2);
    f.w->pageTable().show(PageSelectVariables);
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageSelectVariables));
    f.stack()->undo();
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageCreateModel));
    QVERIFY(perform()->isChecked());
}

class tst_create_model_page_run : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void controlsAndTexts_data();
    void controlsAndTexts();
    void segmentationButtonStaysDead();
    void reportButtonsFollowTheName();
    void chartsForAdvancedUsersOnly();
    void buttonOpensItsReport_data();
    void buttonOpensItsReport();
    void noOutputFolderNothingHappens();
    void unnamedConfigurationCannotRun();
    void runMovesTheBarAndEndsInABox();
    void missingHtmlReportMadeByConverter();

private:
    QWidget *page() { return w->pageTable().widget(8); }
    template <typename T>
    T *control(const char *name) { return childOf<T>(page(), name); }
    void click(const char *name) { QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton); }
    bool waitEnd(QSignalSpy &spy) { return spy.count() > 0 || spy.wait(30000); }

    WindowTestSupport support;
    StandInAppDir appDir;
    UrlSink sink;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_create_model_page_run::initTestCase()
{
    support.install();
    QVERIFY(appDir.install());
    // No desktop notices: a bus that is not there.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/quva-test-bus");
    QDesktopServices::setUrlHandler("file", &sink, "openUrl");
}

void tst_create_model_page_run::cleanupTestCase()
{
    w.reset();
    QDesktopServices::unsetUrlHandler("file");
    support.uninstall();
}

void tst_create_model_page_run::init()
{
    w.reset();
    support.reset();
    sink.urls.clear();
    for (const char *name : {"credit.DescXML", "credit.CfgXML"}) {
        QFile::copy(QStringLiteral(QUVA_SOURCE_DIR "/examples/") + name, support.path(name));
        QFile::setPermissions(support.path(name), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    cfgPath = support.path("credit.CfgXML");
    w = support.openWindow(cfgPath);
    QVERIFY(w->cfg());
    w->show();
    QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    w->pageTable().show(8);
    setAdvancedUser(false);
}

void tst_create_model_page_run::controlsAndTexts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("run") << "pbRunQuva" << "Run Quva Modeler";
    QTest::newRow("word") << "pbWordReport" << "View Word\nAnalysis Report";
    QTest::newRow("excel") << "pbExcelReport" << "View Excel\nAnalysis Report";
    QTest::newRow("html") << "pbHTMLReport" << "View HTML\nAnalysis Report";
    QTest::newRow("folder") << "pbOpenLastestDir" << "Open latest\noutput directory";
    QTest::newRow("segmentation") << "pbSegmentationAnalysis"
                                  << "Proceed With \nSegmentation Analysis";
    QTest::newRow("overfit") << "pbOverFit2" << "Overfitting Check 2";
    QTest::newRow("final") << "pbFinal" << "Final Model";
}

void tst_create_model_page_run::controlsAndTexts()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    auto *button = page()->findChild<QPushButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), text);
    auto *bar = control<QProgressBar>("progressBar");
    QCOMPARE(bar->value(), 0);
    QCOMPARE(bar->styleSheet(), QStringLiteral("QProgressBar:horizontal { text-align: center;}"));
}

// Created disabled, with no slot; no refresh, name or level enables it.
void tst_create_model_page_run::segmentationButtonStaysDead()
{
    auto *button = control<QPushButton>("pbSegmentationAnalysis");
    QVERIFY(!button->isEnabled());
    setAdvancedUser(true);
    w->updatePanelIdx(8);
    QVERIFY(!button->isEnabled());
    QVERIFY(button->metaObject()->indexOfSlot("on_pbSegmentationAnalysis_clicked()") < 0);
    QVERIFY(page()->metaObject()->indexOfSlot("on_pbSegmentationAnalysis_clicked()") < 0);
}

// Enabled from the file name alone, before any run left a folder.
void tst_create_model_page_run::reportButtonsFollowTheName()
{
    const char *const reports[] = {"pbOpenLastestDir", "pbWordReport", "pbExcelReport",
                                   "pbHTMLReport"};
    for (const char *name : reports)
        QVERIFY2(control<QPushButton>(name)->isEnabled(), name);
    QVERIFY(control<QPushButton>("pbRunQuva")->isEnabled());

    w->openDescriptionFile(support.path("credit.DescXML"), false);
    QVERIFY(w->cfg());
    QVERIFY(w->cfg()->cfgFileName.isEmpty());
    w->updatePanelIdx(8);
    for (const char *name : reports)
        QVERIFY2(!control<QPushButton>(name)->isEnabled(), name);
    QVERIFY(!control<QPushButton>("pbOverFit2")->isEnabled());
}

void tst_create_model_page_run::chartsForAdvancedUsersOnly()
{
    QVERIFY(!control<QPushButton>("pbOverFit2")->isEnabled());
    QVERIFY(!control<QPushButton>("pbFinal")->isEnabled());
    setAdvancedUser(true);
    w->updatePanelIdx(8);
    QVERIFY(control<QPushButton>("pbOverFit2")->isEnabled());
    QVERIFY(control<QPushButton>("pbFinal")->isEnabled());
}

void tst_create_model_page_run::buttonOpensItsReport_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("target");
    QTest::newRow("word") << "pbWordReport" << "credit_002/credit_analysisReport.doc";
    QTest::newRow("excel") << "pbExcelReport" << "credit_002/credit_analysisReport.xlsx";
    QTest::newRow("html") << "pbHTMLReport" << "credit_002/credit_analysisReport.html";
    QTest::newRow("folder") << "pbOpenLastestDir" << "credit_002";
    QTest::newRow("overfit") << "pbOverFit2" << "credit_002/credit_4_CheckOverfitting2.png";
    QTest::newRow("final") << "pbFinal" << "credit_002/credit_5_FinalModel.png";
}

// The newest of two output folders; the HTML report exists, so it opens at once.
void tst_create_model_page_run::buttonOpensItsReport()
{
    QFETCH(QString, button);
    QFETCH(QString, target);
    setAdvancedUser(true);
    w->updatePanelIdx(8);
    QDir folder(support.path(QString()));
    QVERIFY(folder.mkdir("credit_001") && folder.mkdir("credit_002"));
    QVERIFY(!support.write("credit_002/credit_analysisReport.html", "<html/>").isEmpty());
    click(button.toLatin1().constData());
    QCOMPARE(sink.paths(), QStringList{support.path(target)});
    QVERIFY(support.questions.isEmpty());
    QVERIFY(!ExecutePanel::isExecuting);
}

void tst_create_model_page_run::noOutputFolderNothingHappens()
{
    for (const char *name : {"pbWordReport", "pbHTMLReport", "pbOpenLastestDir"})
        click(name);
    QVERIFY(sink.paths().isEmpty());
    QVERIFY(support.questions.isEmpty());
    QVERIFY(!ExecutePanel::isExecuting);
}

// A clean stack with a new, unnamed configuration fails with the first
// message, not the one about the target.
void tst_create_model_page_run::unnamedConfigurationCannotRun()
{
    w->openDescriptionFile(support.path("credit.DescXML"), false);
    QVERIFY(w->undoStack()->isClean());
    w->pageTable().show(8);
    click("pbRunQuva");
    QCOMPARE(support.questions, QStringList{"You must save your settings before running Quva"});
    QVERIFY(!ExecutePanel::isExecuting);
}

// The bar follows the engine's progress lines, the log page is not brought
// forward, and the end is told in a box with the bar back to 0.
void tst_create_model_page_run::runMovesTheBarAndEndsInABox()
{
    auto *bar = control<QProgressBar>("progressBar");
    QSignalSpy values(bar, &QProgressBar::valueChanged);
    QSignalSpy finished(w->executePanel(), &ExecutePanel::myFinishExe);
    click("pbRunQuva");
    QVERIFY(ExecutePanel::isExecuting);
    QCOMPARE(w->pageTable().currentNumber(), 8);
    QVERIFY(waitEnd(finished));
    QCOMPARE(finished.first(), (QList<QVariant>{0, 0, 0}));
    QCOMPARE(support.questions, QStringList{"Analysis finished successfully."});
    QVERIFY(values.size() >= 2);
    QCOMPARE(values.at(values.size() - 2).first().toInt(), 100);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(bar->format(), QStringLiteral("Done"));
    QCOMPARE(w->pageTable().currentNumber(), 8);
    QVERIFY(QDir(support.path("credit_001")).exists());
}

// The converter runs as task 1; its end opens the report with no box and
// leaves the bar where the converter's last progress put it, not at 0.
void tst_create_model_page_run::missingHtmlReportMadeByConverter()
{
    QSignalSpy finished(w->executePanel(), &ExecutePanel::myFinishExe);
    click("pbRunQuva");
    QVERIFY(waitEnd(finished));
    finished.clear();
    support.questions.clear();
    auto *bar = control<QProgressBar>("progressBar");
    QSignalSpy progress(w->executePanel(), &ExecutePanel::myProgressBar);
    const QString report = support.path("credit_001/credit_analysisReport.html");
    QVERIFY(!QFileInfo::exists(report));
    click("pbHTMLReport");
    QCOMPARE(w->executePanel()->taskNumber(), 1);
    QVERIFY(waitEnd(finished));
    QCOMPARE(sink.paths(), QStringList{report});
    QVERIFY(QFileInfo::exists(report));
    QVERIFY(support.questions.isEmpty());
    QVERIFY(!progress.isEmpty());
    QVERIFY(progress.last().first().toInt() > 0);
    QCOMPARE(bar->value(), progress.last().first().toInt());
}

namespace {

const QMetaObject *const halves[] = {&tst_create_model_page::staticMetaObject,
                                     &tst_create_model_page_run::staticMetaObject};

bool hasTestFunction(const QMetaObject *half, const char *argument)
{
    const QByteArray name = QByteArray(argument).split(':').first() + "()";
    return half->indexOfSlot(name.constData()) >= 0;
}

bool namesTestFunction(const char *argument)
{
    for (const QMetaObject *half : halves)
        if (hasTestFunction(half, argument))
            return true;
    return false;
}

// Runs one half with the options of the command line and the test functions
// named there that are its own; with functions named and none its own, the
// half is left out.
template <typename Half>
int runHalf(int argc, char **argv)
{
    std::vector<char *> args{argv[0]};
    bool named = false;
    bool own = false;
    for (int i = 1; i < argc; ++i) {
        const bool function = namesTestFunction(argv[i]);
        const bool mine = function && hasTestFunction(&Half::staticMetaObject, argv[i]);
        named = named || function;
        own = own || mine;
        if (!function || mine)
            args.push_back(argv[i]);
    }
    if (named && !own)
        return 0;
    Half half;
    return QTest::qExec(&half, int(args.size()), args.data());
}

} // namespace

// Runs both halves, one after the other, each with its own window and folders.
int main(int argc, char **argv)
{
    WindowTestApplication application(argv);
    int status = runHalf<tst_create_model_page>(argc, argv);
    status |= runHalf<tst_create_model_page_run>(argc, argv);
    return status;
}

#include "tst_create_model_page.moc"
