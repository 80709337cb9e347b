#include "broker_test_support.h"

#include "shell/raise_listener.h"
#include "shell/window_broker.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

#include <memory>

// The editor's ear for the server: "[Raise]" brings the window forward.

class tst_raise_listener : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void raiseBringsWindowForward();
    void minimizedWindowShownAgain();
    void otherRequestsRefused_data();
    void otherRequestsRefused();
    void silentCallerDropped();
    void fileOfDeadProcessTakenOver();

private:
    QString listenerName() const;
    int ask(const QByteArray &frame);

    QTemporaryDir dir;
    int serial = 0;
    std::unique_ptr<QWidget> window;
    RaiseListener *listener = nullptr;
};

void tst_raise_listener::initTestCase()
{
    QVERIFY(dir.isValid());
}

void tst_raise_listener::init()
{
    qputenv("QUVA_BROKER_NAME", dir.filePath(QStringLiteral("s%1").arg(++serial)).toLocal8Bit());
    window = std::make_unique<QWidget>();
    window->show();
    listener = new RaiseListener(window.get());
    QVERIFY(listener->isListening());
}

void tst_raise_listener::cleanup()
{
    window.reset();
}

QString tst_raise_listener::listenerName() const
{
    return brokerListenerName(brokerServerName(QStringLiteral("QuvaServer")),
                              QCoreApplication::applicationPid());
}

// Sends one frame as the server would and returns the outcome, the
// listener answering on this same thread.
int tst_raise_listener::ask(const QByteArray &frame)
{
    QLocalSocket socket;
    socket.connectToServer(listenerName());
    if (!socket.waitForConnected(5000))
        return -2;
    socket.write(frame);
    socket.flush();
    QByteArray pending;
    QByteArray reply;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 5000) {
        QCoreApplication::processEvents();
        socket.waitForReadyRead(10);
        pending += socket.readAll();
        if (takeBrokerFrame(pending, &reply) == FrameTake::Frame)
            return reply.at(0);
    }
    return -1;
}

void tst_raise_listener::raiseBringsWindowForward()
{
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &other);
    QSignalSpy raised(listener, &RaiseListener::raised);
    QCOMPARE(ask(brokerFrame(frameExecute, brokerText(QStringLiteral("[Raise]")))),
             int(BrokerAcknowledged));
    QTRY_COMPARE(raised.count(), 1);
    QTRY_COMPARE(QApplication::activeWindow(), window.get());
}

void tst_raise_listener::minimizedWindowShownAgain()
{
    window->showMinimized();
    QTRY_VERIFY(window->isMinimized());
    QCOMPARE(ask(brokerFrame(frameExecute, brokerText(QStringLiteral("[Raise]")))),
             int(BrokerAcknowledged));
    QTRY_VERIFY(!window->isMinimized());
}

void tst_raise_listener::otherRequestsRefused_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("other command")
        << brokerFrame(frameExecute, brokerText(QStringLiteral("[Open \"/a.CfgXML\"]")));
    QTest::newRow("raise in lower case")
        << brokerFrame(frameExecute, brokerText(QStringLiteral("[raise]")));
    QTest::newRow("a request") << brokerFrame(frameRequest, brokerText(QStringLiteral("[Raise]")));
    QTest::newRow("no text") << brokerFrame(frameExecute, QByteArray("[Raise]"));
    QTest::newRow("length out of bounds") << QByteArray("\xff\xff\xff\xff", 4);
}

void tst_raise_listener::otherRequestsRefused()
{
    QFETCH(QByteArray, frame);
    QSignalSpy raised(listener, &RaiseListener::raised);
    QCOMPARE(ask(frame), int(BrokerFailed));
    QCoreApplication::processEvents();
    QCOMPARE(raised.count(), 0);
}

void tst_raise_listener::silentCallerDropped()
{
    QLocalSocket socket;
    socket.connectToServer(listenerName());
    QVERIFY(socket.waitForConnected(5000));
    QTRY_COMPARE_WITH_TIMEOUT(socket.state(), QLocalSocket::UnconnectedState, 5000);
}

// A socket file under this process's name can only be left by a dead
// process that had the same id.
void tst_raise_listener::fileOfDeadProcessTakenOver()
{
    window.reset();
    QFile stale(brokerSocketPath(listenerName()));
    QVERIFY(stale.open(QIODevice::WriteOnly));
    stale.close();
    window = std::make_unique<QWidget>();
    listener = new RaiseListener(window.get());
    QVERIFY(listener->isListening());
    QCOMPARE(ask(brokerFrame(frameExecute, brokerText(QStringLiteral("[Raise]")))),
             int(BrokerAcknowledged));
}

QTEST_MAIN(tst_raise_listener)
#include "tst_raise_listener.moc"
