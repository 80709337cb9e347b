#include "broker_test_support.h"
#include "question_recorder.h"

#include "shell/allow_foreground.h"
#include "shell/broker_ensure_server.h"
#include "shell/broker_transport.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"
#include "shell/window_broker.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstring>
#include <memory>

// The editor's client of the window broker: finding or starting the
// server, and what each operation sends and makes of the answers.

namespace {

const QString title = QStringLiteral("Quva Cfg XML Editor Warning");

QString pidText()
{
    return QString::number(QCoreApplication::applicationPid());
}

void setEnv(const char *name, const QString &value)
{
    qputenv(name, value.toLocal8Bit());
}

bool writeScript(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
           file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
}

} // namespace

class tst_broker_client : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void noServerFileIsSilentAndFast();
    void silentServerWarnsOnce_data();
    void silentServerWarnsOnce();
    void warningFromStartUpThread();
    void serverStartedWhenAbsent();
    void openSendsCommand();
    void alreadyOpen_data();
    void alreadyOpen();
    void answerTooLateCountsAsNotOpen();
    void quoteSentAsIs();
    void sameNameSendsNothingButConnects();
    void switchFile_data();
    void switchFile();
    void pidRequestCopiesRawBytes();
    void startUpThreadAsksPid();
    void threadsKeepTheirConversations();
    void withoutConversation();

private:
    bool startFake(FakeBroker::Rule rule = [](const QString &) { return 0; });

    QTemporaryDir dir;
    QString emptyDir;
    QString silentDir;
    QString name;
    int serial = 0;
    std::unique_ptr<FakeBroker> fake;
    qint64 startedServer = 0;
    QuestionRecorder boxes;
};

void tst_broker_client::initTestCase()
{
    QVERIFY(dir.isValid());
    keepSettingsIn(dir.path());
    emptyDir = dir.path() + QStringLiteral("/empty");
    silentDir = dir.path() + QStringLiteral("/silent");
    QVERIFY(QDir().mkpath(emptyDir) && QDir().mkpath(silentDir));
    // A server file that never answers; it notes that it was started, and
    // with how many arguments.
    QVERIFY(writeScript(silentDir + QStringLiteral("/QuvaServer"),
                        "#!/bin/sh\necho $# >> \"$(dirname \"$0\")/started\"\n"));
    boxes.install();
}

void tst_broker_client::init()
{
    name = dir.path() + QStringLiteral("/s%1").arg(++serial);
    setEnv("QUVA_BROKER_NAME", name);
    setEnv("QUVA_APP_DIR", emptyDir);
    brokerForgetServer();
    boxes.questions.clear();
    boxes.answer = QMessageBox::No;
    QSettings(QStringLiteral("Brandolin"), QStringLiteral("Quva")).clear();
}

void tst_broker_client::cleanup()
{
    fake.reset();
    if (startedServer > 0) {
        ::kill(pid_t(startedServer), SIGTERM);
        QVERIFY(processEnded(startedServer));
        startedServer = 0;
    }
    QFile::remove(silentDir + QStringLiteral("/started"));
}

bool tst_broker_client::startFake(FakeBroker::Rule rule)
{
    fake = std::make_unique<FakeBroker>(name, std::move(rule));
    return fake->begin();
}

// No server and no server file: every operation is a silent no-op, and
// none costs more than a few milliseconds, the first one included.
void tst_broker_client::noServerFileIsSilentAndFast()
{
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(
        brokerCheckAlreadyOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/a.CfgXML"), title),
        0);
    const qint64 first = timer.nsecsElapsed();
    QVERIFY(!brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral(".CfgXML")));
    brokerSwitchFile(nullptr, QStringLiteral("Quva"), QStringLiteral("/a.CfgXML"),
                     QStringLiteral("/b.CfgXML"));
    const qint64 all = timer.nsecsElapsed();
    timer.restart();
    for (int i = 0; i < 1000; ++i)
        brokerSwitchFile(nullptr, QStringLiteral("Quva"), QString(), QStringLiteral("/b.CfgXML"));
    qInfo("first call %lld us, the first three %lld us, later calls %lld ns each", first / 1000,
          all / 1000, timer.nsecsElapsed() / 1000);
    QVERIFY(brokerClient()->serverMissing);
    QVERIFY(!gaveUp);
    QVERIFY(boxes.questions.isEmpty());
    QVERIFY2(all < 50 * 1000 * 1000, "more than 50 ms without a server");
}

void tst_broker_client::silentServerWarnsOnce_data()
{
    QTest::addColumn<bool>("stored");
    QTest::addColumn<QString>("useServer");
    QTest::addColumn<bool>("warns");
    QTest::newRow("no value") << false << QString() << true;
    QTest::newRow("1") << true << QStringLiteral("1") << true;
    QTest::newRow("10 begins with 1") << true << QStringLiteral("10") << true;
    QTest::newRow("0") << true << QStringLiteral("0") << false;
    QTest::newRow("empty") << true << QString() << false;
    QTest::newRow("blank first") << true << QStringLiteral(" 1") << false;
}

// The file is there, is started without arguments, and never answers:
// about one and a half seconds of tries, the warning once, then nothing.
void tst_broker_client::silentServerWarnsOnce()
{
    QFETCH(bool, stored);
    QFETCH(QString, useServer);
    QFETCH(bool, warns);
    if (stored)
        setUseVelmorinServer(useServer);
    setEnv("QUVA_APP_DIR", silentDir);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral(".CfgXML")));
    const qint64 tried = timer.elapsed();
    qInfo("gave up after %lld ms", tried);
    QVERIFY(tried >= 1400 && tried < 15000);
    QVERIFY(gaveUp);
    QTRY_VERIFY(QFileInfo::exists(silentDir + QStringLiteral("/started")));
    QFile started(silentDir + QStringLiteral("/started"));
    QVERIFY(started.open(QIODevice::ReadOnly));
    QCOMPARE(started.readAll(), QByteArray("0\n"));
    QCOMPARE(boxes.questions.size(), warns ? 1 : 0);
    if (warns) {
        QCOMPARE(boxes.questions.at(0).icon, QMessageBox::Warning);
        QCOMPARE(boxes.questions.at(0).title, QStringLiteral("Quva Error"));
        QCOMPARE(boxes.questions.at(0).text,
                 QStringLiteral("QuvaServer not found.\n"
                                "Quva will still run but with reduced capability.\n"));
        QCOMPARE(boxes.questions.at(0).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }

    timer.restart();
    QCOMPARE(
        brokerCheckAlreadyOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/a.CfgXML"), title),
        0);
    brokerSwitchFile(nullptr, QStringLiteral("Quva"), QString(), QStringLiteral("/a.CfgXML"));
    QVERIFY(!brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/a.CfgXML")));
    QVERIFY(timer.elapsed() < 50);
    QCOMPARE(boxes.questions.size(), warns ? 1 : 0);
    QFile again(silentDir + QStringLiteral("/started"));
    QVERIFY(again.open(QIODevice::ReadOnly));
    QCOMPARE(again.readAll(), QByteArray("0\n"));
}

// The start-up thread cannot show a box: the interface thread shows it
// once it gets to its events.
void tst_broker_client::warningFromStartUpThread()
{
    setEnv("QUVA_APP_DIR", silentDir);
    CAllowToSetForegroundWindow thread(nullptr, QStringLiteral("Quva"));
    thread.start();
    QVERIFY(thread.wait(15000));
    QVERIFY(gaveUp);
    QVERIFY(boxes.questions.isEmpty());
    QTRY_COMPARE(boxes.questions.size(), 1);
    QCOMPARE(boxes.questions.at(0).title, QStringLiteral("Quva Error"));
}

// No server answers, the file is there: it is started in "/" and answers
// within the tries.
void tst_broker_client::serverStartedWhenAbsent()
{
    setEnv("QUVA_APP_DIR", QStringLiteral(QUVA_BINARY_DIR "/app"));
    QVERIFY(brokerEnsureServer(nullptr, QStringLiteral("Quva")));
    const QString reply = brokerRequest(*brokerClient(), QStringLiteral("pid"));
    brokerDisconnect(*brokerClient());
    QCOMPARE(reply.size(), 2);
    quint32 pid = 0;
    std::memcpy(&pid, reply.constData(), 4);
    QVERIFY(pid > 0);
    startedServer = pid;
    QCOMPARE(QFileInfo(QStringLiteral("/proc/%1/cwd").arg(pid)).symLinkTarget(),
             QStringLiteral("/"));
    QVERIFY(boxes.questions.isEmpty());
}

void tst_broker_client::openSendsCommand()
{
    QVERIFY(!brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral(".CfgXML")));
    brokerForgetServer();
    QVERIFY(startFake());
    QVERIFY(brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral(".DSourceXML")));
    QVERIFY(brokerOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/d/a.DSourceXML")));
    QCOMPARE(fake->conversations(),
             (QList<QStringList>{{"topic system", "execute [Open \".DSourceXML\"]"},
                                 {"topic system", "execute [Open \"/d/a.DSourceXML\"]"}}));
    QVERIFY(boxes.questions.isEmpty());
}

void tst_broker_client::alreadyOpen_data()
{
    QTest::addColumn<int>("isOpen");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");
    QTest::addColumn<QStringList>("sent");
    const QString ask = QStringLiteral("execute [IsOpen \"/d/a.CfgXML\"]");
    const QString open = QStringLiteral("execute [Open \"/d/a.CfgXML\"]");
    QTest::newRow("held by nobody")
        << int(BrokerFailed) << int(QMessageBox::Yes) << 0 << QStringList{ask};
    QTest::newRow("server busy") << int(BrokerBusy) << int(QMessageBox::Yes) << 0
                                 << QStringList{ask};
    QTest::newRow("held, No") << int(BrokerAcknowledged) << int(QMessageBox::No) << 1
                              << QStringList{ask};
    QTest::newRow("held, box closed")
        << int(BrokerAcknowledged) << int(QMessageBox::Cancel) << 1 << QStringList{ask};
    QTest::newRow("held, Yes") << int(BrokerAcknowledged) << int(QMessageBox::Yes) << 2
                               << QStringList{ask, open};
}

void tst_broker_client::alreadyOpen()
{
    QFETCH(int, isOpen);
    QFETCH(int, button);
    QFETCH(int, result);
    QFETCH(QStringList, sent);
    QVERIFY(startFake([isOpen](const QString &command) {
        return command.startsWith(QLatin1String("[IsOpen")) ? isOpen : 0;
    }));
    boxes.answer = QMessageBox::StandardButton(button);
    QCOMPARE(brokerCheckAlreadyOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/d/a.CfgXML"),
                                    title),
             result);
    QCOMPARE(fake->conversations(), QList<QStringList>{QStringList{"topic system"} + sent});
    QCOMPARE(boxes.questions.size(), isOpen == BrokerAcknowledged ? 1 : 0);
    if (!boxes.questions.isEmpty()) {
        QCOMPARE(boxes.questions.at(0).icon, QMessageBox::Information);
        QCOMPARE(boxes.questions.at(0).title, title);
        QCOMPARE(boxes.questions.at(0).text,
                 QStringLiteral("The file\n'/d/a.CfgXML'\nis already opened in another "
                                "window.\n\nDo nothing in this window and re-open the other "
                                "one?"));
        QCOMPARE(boxes.questions.at(0).buttons, QMessageBox::Yes | QMessageBox::No);
    }
}

// An answer that does not come within 1,000 ms is "failed": not open.
void tst_broker_client::answerTooLateCountsAsNotOpen()
{
    QVERIFY(startFake([](const QString &) { return -1; }));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(brokerCheckAlreadyOpen(nullptr, QStringLiteral("Quva"), QStringLiteral("/d/a.CfgXML"),
                                    title),
             0);
    QVERIFY(timer.elapsed() >= 950 && timer.elapsed() < 5000);
    QVERIFY(boxes.questions.isEmpty());
}

// A double quote in a name breaks the command's quoting; nothing guards
// against it.
void tst_broker_client::quoteSentAsIs()
{
    QVERIFY(startFake());
    const QString quoted = QStringLiteral("/d/a\" b.CfgXML");
    boxes.answer = QMessageBox::Yes;
    brokerSwitchFile(nullptr, QStringLiteral("Quva"), QString(), quoted);
    QCOMPARE(brokerCheckAlreadyOpen(nullptr, QStringLiteral("Quva"), quoted, title), 2);
    QCOMPARE(
        fake->conversations(),
        (QList<QStringList>{{"topic system", "execute [Get " + pidText() + " \"/d/a\" b.CfgXML\"]"},
                            {"topic system", "execute [IsOpen \"/d/a\" b.CfgXML\"]",
                             "execute [Open \"/d/a\" b.CfgXML\"]"}}));
}

void tst_broker_client::sameNameSendsNothingButConnects()
{
    QVERIFY(startFake());
    brokerSwitchFile(nullptr, QStringLiteral("Quva"), QStringLiteral("/d/a.CfgXML"),
                     QStringLiteral("/d/a.CfgXML"));
    QCOMPARE(fake->conversations(), QList<QStringList>{{"topic system"}});
}

void tst_broker_client::switchFile_data()
{
    QTest::addColumn<QString>("oldFile");
    QTest::addColumn<QString>("newFile");
    QTest::addColumn<QList<QStringList>>("sent");
    const QString get = "execute [Get " + pidText() + " \"/d/b.CfgXML\"]";
    QTest::newRow("both empty: no connection") << QString() << QString() << QList<QStringList>();
    QTest::newRow("first file") << QString() << QStringLiteral("/d/b.CfgXML")
                                << QList<QStringList>{{"topic system", get}};
    QTest::newRow("another file") << QStringLiteral("/d/a.CfgXML") << QStringLiteral("/d/b.CfgXML")
                                  << QList<QStringList>{
                                         {"topic system", "execute [Close \"/d/a.CfgXML\"]", get}};
    QTest::newRow("left") << QStringLiteral("/d/a.CfgXML") << QString()
                          << QList<QStringList>{
                                 {"topic system", "execute [Close \"/d/a.CfgXML\"]"}};
}

void tst_broker_client::switchFile()
{
    QFETCH(QString, oldFile);
    QFETCH(QString, newFile);
    QFETCH(QList<QStringList>, sent);
    QVERIFY(startFake());
    brokerSwitchFile(nullptr, QStringLiteral("Quva"), oldFile, newFile);
    QCOMPARE(fake->conversations(), sent);
}

// The reply's bytes become UTF-16 units as they are: four bytes, two units.
void tst_broker_client::pidRequestCopiesRawBytes()
{
    QVERIFY(startFake());
    QVERIFY(brokerEnsureServer(nullptr, QStringLiteral("Quva")));
    const QString reply = brokerRequest(*brokerClient(), QStringLiteral("pid"));
    brokerDisconnect(*brokerClient());
    QCOMPARE(reply.size(), 2);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(reply.constData()), 4),
             FakeBroker::pidReply());
}

void tst_broker_client::startUpThreadAsksPid()
{
    QVERIFY(startFake());
    QWidget window;
    startAllowToSetForegroundWindow(&window, QStringLiteral("Quva"));
    const QList<QStringList> startUp{{"topic system", "request pid"}};
    QTRY_COMPARE(fake->conversations(), startUp);
    QVERIFY(boxes.questions.isEmpty());
}

// The start-up thread and the interface thread may talk at the same time,
// each in its own conversation.
void tst_broker_client::threadsKeepTheirConversations()
{
    QVERIFY(startFake());
    QVERIFY(brokerEnsureServer(nullptr, QStringLiteral("Quva")));
    QSemaphore connected;
    QSemaphore mainSent;
    int workerOutcome = -1;
    std::unique_ptr<QThread> worker(QThread::create([&] {
        if (!brokerEnsureServer(nullptr, QStringLiteral("Quva")))
            return;
        connected.release();
        mainSent.acquire();
        workerOutcome = brokerExecute(*brokerClient(), QStringLiteral("[Close \"/w\"]"));
        brokerDisconnect(*brokerClient());
    }));
    worker->start();
    QVERIFY(connected.tryAcquire(1, 10000));
    QCOMPARE(brokerExecute(*brokerClient(), QStringLiteral("[Close \"/m\"]")),
             int(BrokerAcknowledged));
    mainSent.release();
    QVERIFY(worker->wait(10000));
    QCOMPARE(workerOutcome, int(BrokerAcknowledged));
    QCOMPARE(brokerExecute(*brokerClient(), QStringLiteral("[Close \"/m2\"]")),
             int(BrokerAcknowledged));
    brokerDisconnect(*brokerClient());
    QCOMPARE(
        fake->conversations(),
        (QList<QStringList>{{"topic system", "execute [Close \"/m\"]", "execute [Close \"/m2\"]"},
                            {"topic system", "execute [Close \"/w\"]"}}));
}

void tst_broker_client::withoutConversation()
{
    BrokerClient client;
    QCOMPARE(brokerExecute(client, QStringLiteral("[Close \"/a\"]")), int(BrokerFailed));
    QVERIFY(brokerRequest(client, QStringLiteral("pid")).isEmpty());
    brokerDisconnect(client);
    QVERIFY(!brokerConnect(client, QStringLiteral("QuvaServer"), QStringLiteral("system")));
    QVERIFY(startFake());
    QVERIFY(brokerConnect(client, QStringLiteral("QuvaServer"), QStringLiteral("system")));
    brokerDisconnect(client);
    QCOMPARE(brokerExecute(client, QStringLiteral("[Close \"/a\"]")), int(BrokerFailed));
}

QTEST_MAIN(tst_broker_client)
#include "tst_broker_client.moc"
