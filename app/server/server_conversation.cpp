#include "app/server/server_conversation.h"

#include "app/server/process_probe.h"
#include "shell/broker_names.h"
#include "shell/broker_wire.h"

#include <QLocalSocket>
#include <QScopedValueRollback>

namespace {

// How long a conversation may sit between whole frames.
constexpr int idleMsecs = 30 * 60 * 1000;

QString textOf(const QByteArray &body)
{
    QString text;
    return readBrokerText(body, &text) ? text : QString();
}

} // namespace

ServerConversation::ServerConversation(QLocalSocket *socket, bool busy, int frameTimeoutMsecs,
                                       QObject *parent)
    : QObject(parent), socket(socket), busy(busy), frameTimeoutMsecs(frameTimeoutMsecs)
{
    socket->setParent(this);
    peer = peerProcessId(socket->socketDescriptor());
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, socket, &QLocalSocket::abort);
    connect(socket, &QLocalSocket::readyRead, this, &ServerConversation::readFrames);
    connect(socket, &QLocalSocket::disconnected, this, [this] {
        emit finished();
        deleteLater();
    });
    armTimer();
}

// A frame begun but not ended, or no topic yet, has the short limit.
void ServerConversation::armTimer()
{
    if (awaitingReply) {
        timer.stop();
        return;
    }
    timer.start(hasTopic && pending.isEmpty() ? idleMsecs : frameTimeoutMsecs);
}

// Replies given while the frames are read come back to this loop instead of
// calling it again, so that a caller who sends many frames at once cannot
// make the calls nest.
void ServerConversation::readFrames()
{
    if (reading)
        return;
    const QScopedValueRollback<bool> guard(reading, true);
    pending += socket->readAll();
    while (!awaitingReply && !closing) {
        QByteArray frame;
        const FrameTake take = takeBrokerFrame(pending, &frame);
        if (take == FrameTake::Incomplete)
            break;
        if (take == FrameTake::Oversized) {
            refuse();
            return;
        }
        handleFrame(frame);
    }
    armTimer();
}

void ServerConversation::handleFrame(const QByteArray &frame)
{
    const char kind = frame.at(0);
    const QByteArray body = frame.mid(1);
    if (!hasTopic) {
        if (kind == frameTopic)
            handleTopic(body);
        else
            refuse();
        return;
    }
    awaitingReply = true;
    if (busy) {
        reply(BrokerBusy);
    } else if (kind == frameExecute) {
        emit executeReceived(textOf(body));
    } else if (kind == frameRequest) {
        emit requestReceived(textOf(body));
    } else {
        reply(BrokerFailed);
    }
}

void ServerConversation::handleTopic(const QByteArray &body)
{
    if (textOf(body).compare(brokerTopic(), Qt::CaseInsensitive) != 0) {
        refuse();
        return;
    }
    hasTopic = true;
    socket->write(brokerFrame(BrokerAcknowledged));
}

// The stream can no longer be trusted: one last "failed", then the end.
void ServerConversation::refuse()
{
    if (closing)
        return;
    closing = true;
    pending.clear();
    socket->write(brokerFrame(BrokerFailed));
    socket->disconnectFromServer();
}

void ServerConversation::reply(int outcome, const QByteArray &data)
{
    if (!awaitingReply)
        return;
    awaitingReply = false;
    socket->write(brokerFrame(char(outcome), data));
    readFrames();
}
