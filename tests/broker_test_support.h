#pragma once

// What the window broker's tests share: a blocking conversation with long
// limits, the real server as a child process, and a stand-in server on a
// thread of its own that records what it is told.

#include "shell/broker_names.h"
#include "shell/broker_wire.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMutex>
#include <QProcess>
#include <QRegularExpression>
#include <QSemaphore>
#include <QThread>

#include <functional>

#include <signal.h>

inline QString serverProgram()
{
    return QStringLiteral(QUVA_BINARY_DIR "/app/QuvaServer");
}

// Whether a process that is no child of the test has ended within `msecs`.
// Where nobody reaps it, it stays a zombie, which counts as ended.
inline bool processEnded(qint64 pid, int msecs = 10000)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
        if (::kill(pid_t(pid), 0) != 0 || !stat.open(QIODevice::ReadOnly))
            return true;
        const QByteArray text = stat.readAll();
        if (text.mid(text.lastIndexOf(')') + 2, 1) == "Z")
            return true;
        if (timer.elapsed() >= msecs)
            return false;
        QThread::msleep(20);
    }
}

// The process id in a journal line such as "started process 4711 for ...".
inline qint64 pidInLine(const QString &line)
{
    const QRegularExpression number(QStringLiteral("process (\\d+)"));
    return number.match(line).captured(1).toLongLong();
}

// A conversation driven frame by frame, with limits far above the client's
// so that a loaded machine does not fail a test.
class TestConversation
{
public:
    // Connects and sends `topic`; true when the server acknowledged it.
    bool open(const QString &name, const QString &topic = brokerTopic())
    {
        socket.connectToServer(name);
        return socket.waitForConnected(5000) &&
               send(frameTopic, brokerText(topic)) == BrokerAcknowledged;
    }
    // The outcome of one frame, or -1 when no whole reply came.
    int send(char kind, const QByteArray &body, QByteArray *data = nullptr, int msecs = 10000)
    {
        const QDeadlineTimer deadline(msecs);
        QByteArray reply;
        if (!writeBrokerFrame(socket, brokerFrame(kind, body), deadline) ||
            !readBrokerFrame(socket, &reply, deadline))
            return -1;
        if (data)
            *data = reply.mid(1);
        return reply.at(0);
    }
    int execute(const QString &command) { return send(frameExecute, brokerText(command)); }
    // Whether the other end closed the connection within `msecs`.
    bool closedWithin(int msecs)
    {
        QElapsedTimer timer;
        timer.start();
        while (socket.state() == QLocalSocket::ConnectedState && timer.elapsed() < msecs) {
            socket.waitForReadyRead(50);
            socket.readAll();
        }
        return socket.state() != QLocalSocket::ConnectedState;
    }

    QLocalSocket socket;
};

// QuvaServer as a child of the test, on a name of the test's own. Its
// standard error is the journal of windows started and raised.
class ServerProcess
{
public:
    ~ServerProcess() { stop(); }

    bool start(const QString &name, const QStringList &arguments = {},
               QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
    {
        serverName = name;
        environment.insert(QStringLiteral("QUVA_BROKER_NAME"), name);
        process.setProcessEnvironment(environment);
        process.setReadChannel(QProcess::StandardError);
        process.start(serverProgram(), arguments);
        return process.waitForStarted(5000) && waitUntilAnswering();
    }
    bool waitUntilAnswering()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 10000) {
            TestConversation probe;
            if (probe.open(serverName))
                return true;
            QThread::msleep(20);
        }
        return false;
    }
    // Everything the server wrote on its standard error so far.
    QString journal()
    {
        text += QString::fromUtf8(process.readAllStandardError());
        return text;
    }
    // Waits for a journal line that contains `part`; returns the line.
    QString waitForLine(const QString &part, int msecs = 10000)
    {
        QElapsedTimer timer;
        timer.start();
        for (;;) {
            for (const QString &line : journal().split(QLatin1Char('\n'))) {
                if (line.contains(part))
                    return line;
            }
            if (timer.elapsed() >= msecs)
                return QString();
            process.waitForReadyRead(50);
        }
    }
    void stop()
    {
        if (process.state() == QProcess::NotRunning)
            return;
        process.terminate();
        if (!process.waitForFinished(5000)) {
            process.kill();
            process.waitForFinished(5000);
        }
    }

    QProcess process;
    QString serverName;
    QString text;
};

// A stand-in for the server, listening on a thread of its own so that the
// client's blocking calls on the test's thread get their answers. It keeps
// every conversation as a list of what came ("topic system", "execute
// [IsOpen "f"]", "request pid"), recorded before the answer goes out, and
// answers executes by a rule: -1 leaves a command unanswered.
class FakeBroker : public QThread
{
public:
    using Rule = std::function<int(const QString &command)>;

    FakeBroker(const QString &name, Rule rule) : name(name), rule(std::move(rule)) {}
    ~FakeBroker() override
    {
        quit();
        wait();
    }

    // The bytes answered to the item "pid".
    static QByteArray pidReply() { return QByteArray("\x04\x03\x02\x01", 4); }

    bool begin()
    {
        start();
        ready.acquire();
        return listening;
    }
    QList<QStringList> conversations() const
    {
        QMutexLocker lock(&mutex);
        return log;
    }
    // The conversations with at least one execute, in the order they began.
    QList<QStringList> commandConversations() const
    {
        QList<QStringList> found;
        for (const QStringList &c : conversations()) {
            if (!c.filter(QStringLiteral("execute ")).isEmpty())
                found << c;
        }
        return found;
    }
    void clear()
    {
        QMutexLocker lock(&mutex);
        log.clear();
    }

protected:
    void run() override
    {
        QLocalServer server;
        QLocalServer::removeServer(name);
        listening = server.listen(name);
        QObject::connect(&server, &QLocalServer::newConnection, &server, [this, &server] {
            while (QLocalSocket *socket = server.nextPendingConnection())
                serve(socket);
        });
        ready.release();
        exec();
    }

private:
    void serve(QLocalSocket *socket)
    {
        int index;
        {
            QMutexLocker lock(&mutex);
            index = log.size();
            log.append(QStringList());
        }
        auto pending = std::make_shared<QByteArray>();
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [=] {
            *pending += socket->readAll();
            QByteArray frame;
            while (takeBrokerFrame(*pending, &frame) == FrameTake::Frame)
                answer(socket, index, frame);
        });
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    }
    void answer(QLocalSocket *socket, int index, const QByteArray &frame)
    {
        QString text;
        readBrokerText(frame.mid(1), &text);
        const char kind = frame.at(0);
        const QString word = kind == frameTopic     ? QStringLiteral("topic ")
                             : kind == frameExecute ? QStringLiteral("execute ")
                                                    : QStringLiteral("request ");
        {
            QMutexLocker lock(&mutex);
            log[index].append(word + text);
        }
        if (kind == frameTopic)
            socket->write(brokerFrame(BrokerAcknowledged));
        else if (kind == frameRequest)
            socket->write(brokerFrame(BrokerAcknowledged, pidReply()));
        else if (const int outcome = rule(text); outcome >= 0)
            socket->write(brokerFrame(char(outcome)));
    }

    QString name;
    Rule rule;
    QSemaphore ready;
    bool listening = false;
    mutable QMutex mutex;
    QList<QStringList> log;
};
