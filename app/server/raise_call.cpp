#include "app/server/raise_call.h"

#include "shell/broker_wire.h"

#include <QLocalSocket>

RaiseCall::RaiseCall(const QString &listenerName, int timeoutMsecs, QObject *parent)
    : QObject(parent), listenerName(listenerName), timeoutMsecs(timeoutMsecs),
      socket(new QLocalSocket(this))
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [this] { finish(false); });
    connect(socket, &QLocalSocket::connected, this, [this] {
        socket->write(brokerFrame(frameExecute, brokerText(QStringLiteral("[Raise]"))));
    });
    connect(socket, &QLocalSocket::readyRead, this, &RaiseCall::readReply);
    // A reply may still wait unread when the editor has already hung up.
    const auto ended = [this] {
        readReply();
        finish(false);
    };
    connect(socket, &QLocalSocket::disconnected, this, ended);
    connect(socket, &QLocalSocket::errorOccurred, this, ended);
}

void RaiseCall::start()
{
    timer.start(timeoutMsecs);
    socket->connectToServer(listenerName);
}

void RaiseCall::readReply()
{
    if (finished)
        return;
    pending += socket->readAll();
    QByteArray frame;
    if (takeBrokerFrame(pending, &frame) == FrameTake::Frame)
        finish(frame.at(0) == BrokerAcknowledged);
}

// The first outcome counts; the socket's own end comes after it.
void RaiseCall::finish(bool raised)
{
    if (finished)
        return;
    finished = true;
    timer.stop();
    emit done(raised);
    socket->abort();
    deleteLater();
}
