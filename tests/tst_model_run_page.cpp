// The run part of the page "CREATE MODEL" in the window: its controls, the
// report buttons enabled from the file name, each button's report, and a
// run of the engine's stand-in through the log page's panel.

#include "window_test_support.h"

#include "shell/execute_panel.h"
#include "url_sink.h"

#include <QDesktopServices>
#include <QDir>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

class tst_model_run_page : public QObject
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
    QTemporaryDir appDir;
    UrlSink sink;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_model_run_page::initTestCase()
{
    support.install();
    for (const char *name : {"quva", "xml2html"})
        QVERIFY(QFile::link(QStringLiteral(QUVA_BINARY_DIR "/standin/") + name,
                            appDir.filePath(name)));
    qputenv("QUVA_APP_DIR", appDir.path().toUtf8());
    qputenv("QUVA_STANDIN_DELAY_MS", "1");
    // No desktop notices: a bus that is not there.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/quva-test-bus");
    QDesktopServices::setUrlHandler("file", &sink, "openUrl");
}

void tst_model_run_page::cleanupTestCase()
{
    w.reset();
    QDesktopServices::unsetUrlHandler("file");
    support.uninstall();
}

void tst_model_run_page::init()
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
}

void tst_model_run_page::controlsAndTexts_data()
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

void tst_model_run_page::controlsAndTexts()
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
void tst_model_run_page::segmentationButtonStaysDead()
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
void tst_model_run_page::reportButtonsFollowTheName()
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

void tst_model_run_page::chartsForAdvancedUsersOnly()
{
    QVERIFY(!control<QPushButton>("pbOverFit2")->isEnabled());
    QVERIFY(!control<QPushButton>("pbFinal")->isEnabled());
    setAdvancedUser(true);
    w->updatePanelIdx(8);
    QVERIFY(control<QPushButton>("pbOverFit2")->isEnabled());
    QVERIFY(control<QPushButton>("pbFinal")->isEnabled());
}

void tst_model_run_page::buttonOpensItsReport_data()
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
void tst_model_run_page::buttonOpensItsReport()
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

void tst_model_run_page::noOutputFolderNothingHappens()
{
    for (const char *name : {"pbWordReport", "pbHTMLReport", "pbOpenLastestDir"})
        click(name);
    QVERIFY(sink.paths().isEmpty());
    QVERIFY(support.questions.isEmpty());
    QVERIFY(!ExecutePanel::isExecuting);
}

// A clean stack with a new, unnamed configuration fails with the first
// message, not the one about the target.
void tst_model_run_page::unnamedConfigurationCannotRun()
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
void tst_model_run_page::runMovesTheBarAndEndsInABox()
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
void tst_model_run_page::missingHtmlReportMadeByConverter()
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

QTEST_MAIN(tst_model_run_page)
#include "tst_model_run_page.moc"
