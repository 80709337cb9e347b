// The run of the engine and the reports of its newest output folder, on the
// stand-ins of the engine and the converter in an application folder of
// their own, with the desktop's notices on a private session bus.

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/page.h"
#include "shell/execute_panel.h"
#include "shell/gui_reporter.h"
#include "shell/model_run.h"
#include "standin_app_dir.h"
#include "url_sink.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

#include <memory>

namespace {

// The record and the stack of a window, for the run alone.
class RunContext final : public PageContext
{
public:
    CfgModel *cfg() const override { return record.get(); }
    QUndoStack *undoStack() const override { return &stack; }
    bool targetEditable() const override { return true; }
    bool writeRecord() override
    {
        ++writes;
        if (!writable || !saveCfgFile(*record))
            return false;
        stack.setClean();
        return true;
    }

    std::unique_ptr<CfgModel> record;
    mutable QUndoStack stack;
    bool writable = true;
    int writes = 0;
};

// The desktop's notification service, as the session bus offers it.
class NotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public slots:
    uint Notify(const QString &app, uint, const QString &, const QString &summary,
                const QString &body, const QStringList &, const QVariantMap &, int)
    {
        notices << app + '|' + summary + '|' + body;
        return uint(notices.size());
    }

public:
    QStringList notices;
};

} // namespace

class tst_model_run : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void needsAName();
    void needsATarget();
    void unnamedAndTargetless();
    void runOnExampleSucceeds();
    void exitCodeTold();
    void crashTold();
    void engineMissing();
    void changedSettingsSaved();
    void changedSettingsCancelRunsAsOnDisk();
    void failedSaveStopsTheRun();
    void reportsOfNewestFolder();
    void specialCharactersInName();
    void htmlMadeWhenMissing();
    void noOutputFolderNoMessage();
    void applyTaskIgnored();
    void noticeWhenWindowInactive();
    void noNoticeWhenActive();

private:
    void load(const QString &cfgName);
    // Runs and waits for the end of task `task`.
    bool waitEnd(QSignalSpy &spy);

    StandInAppDir appDir;
    QTemporaryDir busDir;
    std::unique_ptr<QTemporaryDir> work;
    QProcess bus;
    NotificationService service;
    UrlSink sink;
    QStringList questions;
    QList<QMessageBox::StandardButton> answers;
    RunContext context;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<ExecutePanel> execute;
    QProgressBar bar;
    std::unique_ptr<ModelRun> run;
};

void tst_model_run::initTestCase()
{
    QVERIFY(appDir.install());

    // A session bus of the test's own, with a notification service on it.
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    QVERIFY(bus.waitForStarted(10000));
    QVERIFY(bus.waitForReadyRead(10000));
    const QByteArray address = bus.readLine().trimmed();
    QVERIFY(!address.isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection serviceBus = QDBusConnection::connectToBus(QString::fromUtf8(address), "svc");
    QVERIFY(serviceBus.isConnected());
    QVERIFY(serviceBus.registerService("org.freedesktop.Notifications"));
    QVERIFY(serviceBus.registerObject("/org/freedesktop/Notifications", &service,
                                      QDBusConnection::ExportAllSlots));

    QDesktopServices::setUrlHandler("file", &sink, "openUrl");
    setQuestionHook([this](const UserQuestion &q) {
        questions << q.text;
        return answers.isEmpty() ? QMessageBox::Ok : answers.takeFirst();
    });
}

void tst_model_run::cleanupTestCase()
{
    run.reset();
    execute.reset();
    window.reset();
    setQuestionHook(nullptr);
    QDesktopServices::unsetUrlHandler("file");
    QDBusConnection::disconnectFromBus("svc");
    bus.kill();
    bus.waitForFinished(5000);
}

void tst_model_run::init()
{
    run.reset();
    execute.reset();
    window = std::make_unique<QWidget>();
    work = std::make_unique<QTemporaryDir>();
    questions.clear();
    answers.clear();
    sink.urls.clear();
    service.notices.clear();
    context.stack.clear();
    context.record.reset();
    context.writable = true;
    context.writes = 0;
    execute = std::make_unique<ExecutePanel>(window.get(), true);
    run = std::make_unique<ModelRun>(context, execute.get(), &bar, window.get());
    connect(execute.get(), &ExecutePanel::myFinishExe, run.get(), &ModelRun::finished);
    connect(execute.get(), &ExecutePanel::myProgressBar, run.get(), &ModelRun::progressed);
}

void tst_model_run::load(const QString &cfgName)
{
    for (const char *name : {"credit.DescXML", "credit.CfgXML"})
        QFile::copy(QStringLiteral(QUVA_SOURCE_DIR "/examples/") + name, work->filePath(name));
    QFile::setPermissions(work->filePath("credit.CfgXML"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (cfgName != "credit.CfgXML")
        QFile::rename(work->filePath("credit.CfgXML"), work->filePath(cfgName));
    context.record = loadCfgFile(work->filePath(cfgName), false, nullptr, QString()).model;
    QVERIFY(context.record);
}

bool tst_model_run::waitEnd(QSignalSpy &spy)
{
    return spy.count() > 0 || spy.wait(30000);
}

void tst_model_run::needsAName()
{
    load("credit.CfgXML");
    context.record->cfgFileName.clear();
    run->run();
    QCOMPARE(questions, QStringList{"You must save your settings before running Quva"});
    QVERIFY(!ExecutePanel::isExecuting);
}

void tst_model_run::needsATarget()
{
    load("credit.CfgXML");
    context.record->targetColumn.clear();
    run->run();
    QCOMPARE(questions, QStringList{"Please define a target before launching Quva"});
}

// A clean stack with a new, unnamed configuration fails with the first
// message, not the second.
void tst_model_run::unnamedAndTargetless()
{
    load("credit.CfgXML");
    context.record->cfgFileName.clear();
    context.record->targetColumn.clear();
    run->run();
    QCOMPARE(questions, QStringList{"You must save your settings before running Quva"});
}

void tst_model_run::runOnExampleSucceeds()
{
    load("credit.CfgXML");
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    QSignalSpy progress(execute.get(), &ExecutePanel::myProgressBar);
    run->run();
    QCOMPARE(execute->program(), appDir.filePath("quva"));
    QCOMPARE(execute->arguments(), (QStringList{"-m", "credit.CfgXML"}));
    QCOMPARE(execute->workingDirectory(), work->path());
    QCOMPARE(execute->taskNumber(), 0);
    QVERIFY(waitEnd(finished));
    QCOMPARE(finished.at(0), (QList<QVariant>{0, 0, 0}));
    QCOMPARE(questions, QStringList{"Analysis finished successfully."});
    // The bar went to the end, then back to 0 with the last text kept.
    QCOMPARE(progress.last().at(0).toInt(), 100);
    QCOMPARE(bar.value(), 0);
    QCOMPARE(bar.format(), QStringLiteral("Done"));
    QVERIFY(QDir(work->filePath("credit_001")).exists());
}

void tst_model_run::exitCodeTold()
{
    load("credit.CfgXML");
    qputenv("QUVA_STANDIN_EXIT", "3");
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    run->run();
    const bool ended = waitEnd(finished);
    qunsetenv("QUVA_STANDIN_EXIT");
    QVERIFY(ended);
    QCOMPARE(questions,
             QStringList{"Error in Model Creation.\nCheck the Execution Log.\nError Code=3"});
}

void tst_model_run::crashTold()
{
    load("credit.CfgXML");
    qputenv("QUVA_STANDIN_CRASH", "1");
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    run->run();
    const bool ended = waitEnd(finished);
    qunsetenv("QUVA_STANDIN_CRASH");
    QVERIFY(ended);
    QCOMPARE(finished.at(0).at(2).toInt(), int(QProcess::CrashExit));
    QCOMPARE(questions.size(), 1);
    QVERIFY(questions.first().startsWith("Error in Model Creation.\nCheck the Execution Log.\n"
                                         "Error Code="));
}

void tst_model_run::engineMissing()
{
    load("credit.CfgXML");
    const QByteArray saved = qgetenv("QUVA_APP_DIR");
    qputenv("QUVA_APP_DIR", work->path().toUtf8());
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    run->run();
    qputenv("QUVA_APP_DIR", saved);
    QVERIFY(waitEnd(finished));
    QCOMPARE(questions,
             QStringList{"Error in Model Creation.\nCheck the Execution Log.\nError Code=-1"});
}

void tst_model_run::changedSettingsSaved()
{
    load("credit.CfgXML");
    context.stack.push(new UpdateTemplateCommand<int>(&context.record->randomSeed, 99, "randomSeed",
                                                      PageModalityRecodings, true));
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    answers << QMessageBox::Ok;
    run->run();
    QVERIFY(waitEnd(finished));
    QCOMPARE(questions.first(), QStringLiteral("To run Quva on the changed settings,\n"
                                               "You will need to save the XML configuration "
                                               "file first."));
    QCOMPARE(context.writes, 1);
    QVERIFY(context.stack.isClean());
    QFile file(work->filePath("credit.CfgXML"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("randomSeed='99'"));
}

// "Cancel" saves nothing and runs the engine on the file as it is on disk.
void tst_model_run::changedSettingsCancelRunsAsOnDisk()
{
    load("credit.CfgXML");
    context.stack.push(new UpdateTemplateCommand<int>(&context.record->randomSeed, 99, "randomSeed",
                                                      PageModalityRecodings, true));
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    answers << QMessageBox::Cancel;
    run->run();
    QVERIFY(waitEnd(finished));
    QCOMPARE(context.writes, 0);
    QVERIFY(!context.stack.isClean());
    QCOMPARE(questions.last(), QStringLiteral("Analysis finished successfully."));
}

void tst_model_run::failedSaveStopsTheRun()
{
    load("credit.CfgXML");
    context.stack.push(new UpdateTemplateCommand<int>(&context.record->randomSeed, 99, "randomSeed",
                                                      PageModalityRecodings, true));
    context.writable = false;
    answers << QMessageBox::Ok;
    run->run();
    QCOMPARE(context.writes, 1);
    QCOMPARE(questions.size(), 1); // the question alone, no message of the save
    QVERIFY(!ExecutePanel::isExecuting);
}

// The newest of several folders: the last of the listing by name that
// matches in any case. "A_007" sorts before "a_001", so it matches but does
// not win over "a_002"; alone, it is found.
void tst_model_run::reportsOfNewestFolder()
{
    load("a.CfgXML");
    for (const char *folder : {"a_001", "a_002", "A_007"})
        QVERIFY(QDir(work->path()).mkdir(folder));
    QString stem = work->filePath("a_002/a");
    QFile html(stem + "_analysisReport.html");
    QVERIFY(html.open(QIODevice::WriteOnly));
    html.close();
    for (const char *suffix : {"_analysisReport.doc", "_analysisReport.xlsx", "_analysisReport.html",
                               "_4_CheckOverfitting2.png", "_5_FinalModel.png"})
        run->openReport(QLatin1String(suffix));
    run->openReport(QString());
    QCOMPARE(sink.paths(), (QStringList{stem + "_analysisReport.doc", stem + "_analysisReport.xlsx",
                                      stem + "_analysisReport.html",
                                      stem + "_4_CheckOverfitting2.png",
                                      stem + "_5_FinalModel.png", work->filePath("a_002")}));
    QVERIFY(questions.isEmpty());

    sink.urls.clear();
    QVERIFY(QDir(work->path()).rmdir("a_001"));
    QVERIFY(QFile::remove(stem + "_analysisReport.html"));
    QVERIFY(QDir(work->path()).rmdir("a_002"));
    run->openReport("_analysisReport.doc");
    QCOMPARE(sink.paths(), QStringList{work->filePath("A_007/a_analysisReport.doc")});
}

// The name goes into the pattern as it stands: "+" repeats the letter
// before it, and "(" opens a group that never closes.
void tst_model_run::specialCharactersInName()
{
    load("a+b.CfgXML");
    for (const char *folder : {"a+b_001", "aab_002"})
        QVERIFY(QDir(work->path()).mkdir(folder));
    run->openReport("_5_FinalModel.png");
    QCOMPARE(sink.paths(), QStringList{work->filePath("aab_002/a+b_5_FinalModel.png")});

    sink.urls.clear();
    QVERIFY(QFile::rename(work->filePath("a+b.CfgXML"), work->filePath("x(1.CfgXML")));
    context.record->cfgFileName = work->filePath("x(1.CfgXML");
    QVERIFY(QDir(work->path()).mkdir("x(1_001"));
    run->openReport("_5_FinalModel.png");
    QVERIFY(sink.paths().isEmpty());
}

// Without the HTML report the converter makes it, and its end opens it.
void tst_model_run::htmlMadeWhenMissing()
{
    load("credit.CfgXML");
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    run->run();
    QVERIFY(waitEnd(finished));
    finished.clear();
    questions.clear();
    bar.setValue(40);
    run->openReport("_analysisReport.html");
    QCOMPARE(execute->program(), appDir.filePath("xml2html"));
    QCOMPARE(execute->arguments(), QStringList{"credit_analysisReport.xml"});
    QCOMPARE(execute->workingDirectory(), work->filePath("credit_001"));
    QCOMPARE(execute->taskNumber(), 1);
    QVERIFY(waitEnd(finished));
    const QString report = work->filePath("credit_001/credit_analysisReport.html");
    QCOMPARE(sink.paths(), QStringList{report});
    QVERIFY(QFileInfo::exists(report));
    QVERIFY(questions.isEmpty()); // no box for the converter
    // Once made, it opens at once.
    run->openReport("_analysisReport.html");
    QCOMPARE(sink.paths(), (QStringList{report, report}));
}

void tst_model_run::noOutputFolderNoMessage()
{
    load("credit.CfgXML");
    for (const char *suffix : {"", "_analysisReport.doc", "_analysisReport.html"})
        run->openReport(QLatin1String(suffix));
    QVERIFY(sink.paths().isEmpty());
    QVERIFY(questions.isEmpty());
    QVERIFY(!ExecutePanel::isExecuting);
}

void tst_model_run::applyTaskIgnored()
{
    load("credit.CfgXML");
    bar.setValue(50);
    run->finished(1001, 0, 0);
    QVERIFY(questions.isEmpty());
    QCOMPARE(bar.value(), 50);
}

void tst_model_run::noticeWhenWindowInactive()
{
    load("credit.CfgXML");
    QVERIFY(!window->isActiveWindow());
    run->finished(0, 2, 0);
    QTRY_COMPARE(service.notices.size(), 1);
    QCOMPARE(service.notices.first(),
             QStringLiteral("Quva Modeler Config|Quva Modeler|Error in Model Creation.\n"
                            "Check the Execution Log.\nError Code=2"));
}

void tst_model_run::noNoticeWhenActive()
{
    load("credit.CfgXML");
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    run->finished(0, 0, 0);
    // A notice sent now would arrive before this second one, sent inactive.
    window->hide();
    QTRY_VERIFY(!window->isActiveWindow());
    run->finished(0, 0, 0);
    QTRY_COMPARE(service.notices.size(), 1);
    QCOMPARE(questions.size(), 2);
}

QTEST_MAIN(tst_model_run)
#include "tst_model_run.moc"
