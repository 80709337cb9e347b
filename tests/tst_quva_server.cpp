#include "broker_test_support.h"

#include <QAtomicInt>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstring>
#include <memory>
#include <vector>

// QuvaServer as the editors meet it: a real process on a name of the test's
// own, driven frame by frame.

namespace {

QString isOpen(const QString &file)
{
    return QStringLiteral("[IsOpen \"%1\"]").arg(file);
}

QString get(qint64 pid, const QString &file)
{
    return QStringLiteral("[Get %1 \"%2\"]").arg(QString::number(pid), file);
}

QString closeCommand(const QString &file)
{
    return QStringLiteral("[Close \"%1\"]").arg(file);
}

struct Step
{
    QString command;
    int expected;
};

// One file's round while `holder` is a running process other than this
// one: nobody holds it, the holder takes it, this process cannot drop it,
// takes it over, is not "another window" to itself, drops it, and the
// holder takes it again.
QVector<Step> fileRound(const QString &file, qint64 holder)
{
    const qint64 self = QCoreApplication::applicationPid();
    return {{isOpen(file), BrokerFailed},       {get(holder, file), BrokerAcknowledged},
            {isOpen(file), BrokerAcknowledged}, {closeCommand(file), BrokerFailed},
            {isOpen(file), BrokerAcknowledged}, {get(self, file), BrokerAcknowledged},
            {isOpen(file), BrokerFailed},       {closeCommand(file), BrokerAcknowledged},
            {isOpen(file), BrokerFailed},       {get(holder, file), BrokerAcknowledged}};
}

} // namespace

class tst_quva_server : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void topicAndPid();
    void otherTopicRefused();
    void holdAndRelease();
    void getOfEndedProcessRefused();
    void malformedCommands_data();
    void malformedCommands();
    void holderKilledIsForgotten();
    void fiftyClients();
    void randomBytes();
    void silentCallerDropped();
    void quietBetweenFramesKept();
    void oversizedFrame();
    void busyBeyondLimit();
    void secondServerLeavesQuietly();
    void raceLeavesOneServer();
    void deadServerTakenOver();
    void openWithoutEditor_data();
    void openWithoutEditor();
    void openHeldByDeafProcess();
    void openStartsEditor();

private:
    QProcessEnvironment environment() const;
    bool startServer(const QStringList &arguments = {});
    bool startSleeper();
    QString file(int i) const { return dir.path() + QStringLiteral("/f%1.CfgXML").arg(i); }

    QTemporaryDir dir;
    QString name;
    int serial = 0;
    std::unique_ptr<ServerProcess> server;
    QProcess sleeper;
};

void tst_quva_server::initTestCase()
{
    QVERIFY(dir.isValid());
    QVERIFY(QDir().mkpath(dir.path() + QStringLiteral("/home")));
    QVERIFY(QFileInfo(serverProgram()).isExecutable());
}

// A fresh name for each test: no state is carried from one to the next.
void tst_quva_server::init()
{
    name = dir.path() + QStringLiteral("/s%1").arg(++serial);
    server = std::make_unique<ServerProcess>();
}

void tst_quva_server::cleanup()
{
    server.reset();
    if (sleeper.state() != QProcess::NotRunning) {
        sleeper.kill();
        sleeper.waitForFinished(5000);
    }
}

QProcessEnvironment tst_quva_server::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("HOME"), dir.path() + QStringLiteral("/home"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), dir.path() + QStringLiteral("/home/.config"));
    env.remove(QStringLiteral("QUVA_APP_DIR"));
    return env;
}

bool tst_quva_server::startServer(const QStringList &arguments)
{
    return server->start(name, arguments, environment());
}

// A running process other than the test, to hold files.
bool tst_quva_server::startSleeper()
{
    sleeper.start(QStringLiteral("sleep"), {QStringLiteral("600")});
    return sleeper.waitForStarted(5000);
}

void tst_quva_server::topicAndPid()
{
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(c.open(name, QStringLiteral("SYSTEM")));
    QByteArray bytes;
    QCOMPARE(c.send(frameRequest, brokerText(QStringLiteral("pid")), &bytes),
             int(BrokerAcknowledged));
    QCOMPARE(bytes.size(), 4);
    quint32 pid = 0;
    std::memcpy(&pid, bytes.constData(), 4);
    QCOMPARE(qint64(pid), server->process.processId());
    QCOMPARE(c.send(frameRequest, brokerText(QStringLiteral("windows")), &bytes),
             int(BrokerFailed));
    QVERIFY(bytes.isEmpty());
}

void tst_quva_server::otherTopicRefused()
{
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(!c.open(name, QStringLiteral("files")));
    QVERIFY(c.closedWithin(5000));
    TestConversation noTopic;
    noTopic.socket.connectToServer(name);
    QVERIFY(noTopic.socket.waitForConnected(5000));
    QCOMPARE(noTopic.execute(isOpen(file(1))), int(BrokerFailed));
    QVERIFY(noTopic.closedWithin(5000));
}

void tst_quva_server::holdAndRelease()
{
    QVERIFY(startServer());
    QVERIFY(startSleeper());
    TestConversation c;
    QVERIFY(c.open(name));
    for (const Step &step : fileRound(file(1), sleeper.processId()))
        QCOMPARE(c.execute(step.command), step.expected);
    // A quote in the name is part of it.
    const QString quoted = dir.path() + QStringLiteral("/a\"b.CfgXML");
    QCOMPARE(c.execute(get(sleeper.processId(), quoted)), int(BrokerAcknowledged));
    QCOMPARE(c.execute(isOpen(quoted)), int(BrokerAcknowledged));
    QCOMPARE(c.execute(isOpen(dir.path() + QStringLiteral("/a"))), int(BrokerFailed));
}

void tst_quva_server::getOfEndedProcessRefused()
{
    QVERIFY(startServer());
    QProcess ended;
    ended.start(QStringLiteral("true"), QStringList());
    QVERIFY(ended.waitForStarted(5000));
    const qint64 pid = ended.processId();
    QVERIFY(ended.waitForFinished(5000));
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(get(pid, file(1))), int(BrokerFailed));
    QCOMPARE(c.execute(get(2147483647, file(1))), int(BrokerFailed));
    QCOMPARE(c.execute(isOpen(file(1))), int(BrokerFailed));
}

// The grammar has tests of its own; here the server meets a few. Ids 0
// and -1 would signal whole groups of processes, this test's among them.
void tst_quva_server::malformedCommands_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown verb") << QStringLiteral("[Raise \"/a.CfgXML\"]");
    QTest::newRow("get pid 0") << QStringLiteral("[Get 0 \"/a.CfgXML\"]");
    QTest::newRow("get pid -1") << QStringLiteral("[Get -1 \"/a.CfgXML\"]");
}

// Each is answered "failed", and the conversation goes on.
void tst_quva_server::malformedCommands()
{
    QFETCH(QString, command);
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(command), int(BrokerFailed));
    QCOMPARE(c.execute(get(QCoreApplication::applicationPid(), file(1))), int(BrokerAcknowledged));
}

void tst_quva_server::holderKilledIsForgotten()
{
    QVERIFY(startServer());
    QVERIFY(startSleeper());
    TestConversation c;
    QVERIFY(c.open(name));
    const qint64 holder = sleeper.processId();
    QCOMPARE(c.execute(get(holder, file(1))), int(BrokerAcknowledged));
    QCOMPARE(c.execute(isOpen(file(1))), int(BrokerAcknowledged));
    sleeper.kill(); // SIGKILL
    QVERIFY(sleeper.waitForFinished(5000));
    QCOMPARE(c.execute(isOpen(file(1))), int(BrokerFailed));
    QCOMPARE(c.execute(get(holder, file(1))), int(BrokerFailed));
}

// 50 callers at once, each with 20 of the 1,000 files; then the holder is
// killed and every file is free again.
void tst_quva_server::fiftyClients()
{
    constexpr int clients = 50;
    constexpr int files = 1000;
    QVERIFY(startServer());
    QVERIFY(startSleeper());
    const qint64 holder = sleeper.processId();
    QAtomicInt wrong;
    QAtomicInt answered;
    QMutex mutex;
    QString firstWrong;
    QElapsedTimer timer;
    timer.start();
    std::vector<std::unique_ptr<QThread>> threads;
    for (int k = 0; k < clients; ++k) {
        threads.emplace_back(QThread::create([&, k] {
            TestConversation c;
            if (!c.open(name)) {
                wrong.fetchAndAddRelaxed(1);
                return;
            }
            for (int i = k; i < files; i += clients) {
                for (const Step &step : fileRound(file(i), holder)) {
                    const int outcome = c.execute(step.command);
                    answered.fetchAndAddRelaxed(1);
                    if (outcome != step.expected && wrong.fetchAndAddRelaxed(1) == 0) {
                        QMutexLocker lock(&mutex);
                        firstWrong = step.command + QStringLiteral(" gave %1").arg(outcome);
                    }
                }
            }
        }));
        threads.back()->start();
    }
    for (auto &thread : threads)
        QVERIFY(thread->wait(120000));
    qInfo("%d answers to %d callers in %lld ms", answered.loadRelaxed(), clients, timer.elapsed());
    QVERIFY2(wrong.loadRelaxed() == 0, qPrintable(firstWrong));
    QCOMPARE(answered.loadRelaxed(), files * fileRound(QString(), holder).size());

    sleeper.kill();
    QVERIFY(sleeper.waitForFinished(5000));
    TestConversation c;
    QVERIFY(c.open(name));
    for (int i = 0; i < files; ++i)
        QCOMPARE(c.execute(isOpen(file(i))), int(BrokerFailed));
}

// 10,000 random byte strings: half as the bodies of frames of any kind in
// one conversation, each answered; half thrown raw at fresh connections.
// The server answers a well-formed conversation afterwards.
void tst_quva_server::randomBytes()
{
    QVERIFY(startServer({QStringLiteral("--frame-timeout"), QStringLiteral("200")}));
    QRandomGenerator random(20240611);
    const auto randomString = [&random] {
        QByteArray bytes(int(random.bounded(1, 300)), '\0');
        for (char &b : bytes)
            b = char(random.bounded(256));
        return bytes;
    };
    TestConversation framed;
    QVERIFY(framed.open(name));
    for (int i = 0; i < 5000; ++i) {
        const QByteArray body = randomString();
        const int outcome = framed.send(body.at(0), body.mid(1));
        QVERIFY2(outcome >= 0 && outcome <= 2, qPrintable(QString::number(i)));
    }
    for (int i = 0; i < 5000; ++i) {
        QLocalSocket raw;
        raw.connectToServer(name);
        QVERIFY(raw.waitForConnected(5000));
        raw.write(randomString());
        raw.waitForBytesWritten(5000);
    }
    QCOMPARE(server->process.state(), QProcess::Running);
    TestConversation after;
    QVERIFY(after.open(name));
    QCOMPARE(after.execute(get(QCoreApplication::applicationPid(), file(1))),
             int(BrokerAcknowledged));
}

void tst_quva_server::silentCallerDropped()
{
    QVERIFY(startServer({QStringLiteral("--frame-timeout"), QStringLiteral("300")}));
    QElapsedTimer timer;
    timer.start();
    TestConversation silent;
    silent.socket.connectToServer(name);
    QVERIFY(silent.socket.waitForConnected(5000));
    QVERIFY(silent.closedWithin(5000));
    QVERIFY(timer.elapsed() >= 250);

    TestConversation halfFrame;
    QVERIFY(halfFrame.open(name));
    halfFrame.socket.write(brokerFrame(frameExecute, brokerText(isOpen(file(1)))).left(7));
    QVERIFY(halfFrame.socket.waitForBytesWritten(5000));
    QVERIFY(halfFrame.closedWithin(5000));
}

// An editor keeps its conversation open while its user answers a question.
void tst_quva_server::quietBetweenFramesKept()
{
    QVERIFY(startServer({QStringLiteral("--frame-timeout"), QStringLiteral("200")}));
    TestConversation c;
    QVERIFY(c.open(name));
    QTest::qWait(700);
    QCOMPARE(c.socket.state(), QLocalSocket::ConnectedState);
    QCOMPARE(c.execute(isOpen(file(1))), int(BrokerFailed));
}

void tst_quva_server::oversizedFrame()
{
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(c.open(name));
    QByteArray header(4, '\0');
    qToBigEndian<quint32>(quint32(maxBrokerFrame + 1), header.data());
    c.socket.write(header);
    QByteArray reply;
    QVERIFY(readBrokerFrame(c.socket, &reply, QDeadlineTimer(5000)));
    QCOMPARE(int(reply.at(0)), int(BrokerFailed));
    QVERIFY(c.closedWithin(5000));
}

// Two served at once: a third is let in and told "busy"; a fifth is shut.
void tst_quva_server::busyBeyondLimit()
{
    QVERIFY(startServer({QStringLiteral("--max-conversations"), QStringLiteral("2")}));
    auto first = std::make_unique<TestConversation>();
    TestConversation second;
    TestConversation third;
    TestConversation fourth;
    QVERIFY(first->open(name));
    QVERIFY(second.open(name));
    QVERIFY(third.open(name));
    QVERIFY(fourth.open(name));
    QCOMPARE(third.execute(get(QCoreApplication::applicationPid(), file(1))), int(BrokerBusy));
    QCOMPARE(fourth.send(frameRequest, brokerText(QStringLiteral("pid"))), int(BrokerBusy));
    QCOMPARE(second.execute(get(QCoreApplication::applicationPid(), file(1))),
             int(BrokerAcknowledged));
    TestConversation fifth;
    QVERIFY(!fifth.open(name));

    // Once the others have left, a newcomer is served again.
    first.reset();
    third.socket.disconnectFromServer();
    fourth.socket.disconnectFromServer();
    const auto newcomer = [this] {
        TestConversation later;
        return later.open(name) ? later.execute(closeCommand(file(1))) : -1;
    };
    QElapsedTimer timer;
    timer.start();
    int outcome = newcomer();
    while (outcome != BrokerAcknowledged && timer.elapsed() < 5000) {
        QThread::msleep(50);
        outcome = newcomer();
    }
    QCOMPARE(outcome, int(BrokerAcknowledged));
}

void tst_quva_server::secondServerLeavesQuietly()
{
    QVERIFY(startServer());
    QProcess second;
    second.setProcessEnvironment(server->process.processEnvironment());
    second.start(serverProgram(), QStringList());
    QVERIFY(second.waitForFinished(10000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(second.readAll().isEmpty());
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(server->process.state(), QProcess::Running);
}

// Started at the same moment, one server stays and the other leaves with 0.
void tst_quva_server::raceLeavesOneServer()
{
    QProcessEnvironment env = environment();
    env.insert(QStringLiteral("QUVA_BROKER_NAME"), name);
    QProcess a;
    QProcess b;
    a.setProcessEnvironment(env);
    b.setProcessEnvironment(env);
    a.start(serverProgram(), QStringList());
    b.start(serverProgram(), QStringList());
    QVERIFY(a.waitForStarted(5000) && b.waitForStarted(5000));
    QTRY_VERIFY_WITH_TIMEOUT(a.state() == QProcess::NotRunning || b.state() == QProcess::NotRunning,
                             10000);
    QProcess &left = a.state() == QProcess::NotRunning ? a : b;
    QProcess &stayed = &left == &a ? b : a;
    QCOMPARE(left.exitCode(), 0);
    QTest::qWait(200);
    QCOMPARE(stayed.state(), QProcess::Running);
    TestConversation c;
    QVERIFY(c.open(name));
    QByteArray bytes;
    QCOMPARE(c.send(frameRequest, brokerText(QStringLiteral("pid")), &bytes),
             int(BrokerAcknowledged));
    quint32 pid = 0;
    std::memcpy(&pid, bytes.constData(), 4);
    QCOMPARE(qint64(pid), stayed.processId());
    stayed.terminate();
    QVERIFY(stayed.waitForFinished(5000));
}

// A server killed outright leaves its lock and socket behind; the next one
// takes both over.
void tst_quva_server::deadServerTakenOver()
{
    QVERIFY(startServer());
    server->process.kill();
    QVERIFY(server->process.waitForFinished(5000));
    QVERIFY(QFileInfo::exists(name + QStringLiteral(".lock")));
    ServerProcess next;
    QVERIFY(next.start(name, {}, environment()));
    TestConversation c;
    QVERIFY(c.open(name));
}

void tst_quva_server::openWithoutEditor_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("kind of another editor") << QStringLiteral(".TypeXML");
    QTest::newRow("main menu") << QStringLiteral(".MainMenu");
    QTest::newRow("data source file") << QStringLiteral("/data/a.DSourceXML");
}

void tst_quva_server::openWithoutEditor()
{
    QFETCH(QString, file);
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(QStringLiteral("[Open \"%1\"]").arg(file)), int(BrokerFailed));
    QVERIFY(!server->waitForLine(QStringLiteral("no editor for ") + file).isEmpty());
}

// The holder has no ear for the request: the answer is "failed", in time
// for the asking editor's one second.
void tst_quva_server::openHeldByDeafProcess()
{
    QVERIFY(startServer());
    QVERIFY(startSleeper());
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(get(sleeper.processId(), file(1))), int(BrokerAcknowledged));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(c.execute(QStringLiteral("[Open \"%1\"]").arg(file(1))), int(BrokerFailed));
    QVERIFY(timer.elapsed() < 1000);
    QVERIFY(!server
                 ->waitForLine(QStringLiteral("process %1 did not come forward for %2")
                                   .arg(QString::number(sleeper.processId()), file(1)))
                 .isEmpty());
}

// A new window, and an editor for a file that the server then counts as
// held by it, since an editor does not announce a file of its command line.
void tst_quva_server::openStartsEditor()
{
    QVERIFY(startServer());
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(QStringLiteral("[Open \".CfgXML\"]")), int(BrokerAcknowledged));
    const qint64 newWindow = pidInLine(server->waitForLine(QStringLiteral("for .CfgXML")));
    QVERIFY(newWindow > 0);
    QCOMPARE(c.execute(QStringLiteral("[Open \"%1\"]").arg(file(2))), int(BrokerAcknowledged));
    const qint64 editor = pidInLine(server->waitForLine(QStringLiteral("for ") + file(2)));
    QVERIFY(editor > 0 && editor != newWindow);
    QCOMPARE(c.execute(isOpen(file(2))), int(BrokerAcknowledged));

    ::kill(pid_t(newWindow), SIGTERM);
    ::kill(pid_t(editor), SIGTERM);
    QVERIFY(processEnded(newWindow));
    QVERIFY(processEnded(editor));
    QCOMPARE(c.execute(isOpen(file(2))), int(BrokerFailed));
}

QTEST_GUILESS_MAIN(tst_quva_server)
#include "tst_quva_server.moc"
