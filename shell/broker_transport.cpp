#include "shell/broker_transport.h"

#include "shell/broker_names.h"
#include "shell/broker_wire.h"

#include <QLocalSocket>

#include <cstring>
#include <memory>

namespace {

constexpr int connectMsecs = 1000;
constexpr int executeMsecs = 1000;
constexpr int requestMsecs = 1000000;

QLocalSocket *conversationOf(BrokerClient &client)
{
    return client.conversation.hasLocalData() ? client.conversation.localData() : nullptr;
}

// One frame out, one reply in: the reply's kind (its outcome), with its body
// in `body`. Anything but a whole reply in time is BrokerFailed.
int transact(QLocalSocket &socket, const QByteArray &frame, int msecs, QByteArray *body)
{
    const QDeadlineTimer deadline(msecs);
    QByteArray reply;
    if (!writeBrokerFrame(socket, frame, deadline) || !readBrokerFrame(socket, &reply, deadline))
        return -1;
    const int outcome = reply.at(0);
    if (outcome != BrokerAcknowledged && outcome != BrokerBusy && outcome != BrokerFailed)
        return -1;
    if (body)
        *body = reply.mid(1);
    return outcome;
}

} // namespace

bool brokerConnect(BrokerClient &client, const QString &service, const QString &topic)
{
    brokerDisconnect(client);
    auto socket = std::make_unique<QLocalSocket>();
    socket->connectToServer(brokerServerName(service));
    if (!socket->waitForConnected(connectMsecs))
        return false;
    if (transact(*socket, brokerFrame(frameTopic, brokerText(topic)), connectMsecs, nullptr) !=
        BrokerAcknowledged)
        return false;
    client.conversation.setLocalData(socket.release());
    return true;
}

int brokerExecute(BrokerClient &client, const QString &command)
{
    QLocalSocket *socket = conversationOf(client);
    if (!socket)
        return BrokerFailed;
    const int outcome =
        transact(*socket, brokerFrame(frameExecute, brokerText(command)), executeMsecs, nullptr);
    if (outcome < 0) {
        brokerDisconnect(client);
        return BrokerFailed;
    }
    return outcome;
}

QString brokerRequest(BrokerClient &client, const QString &item)
{
    QLocalSocket *socket = conversationOf(client);
    if (!socket)
        return QString();
    QByteArray bytes;
    const int outcome =
        transact(*socket, brokerFrame(frameRequest, brokerText(item)), requestMsecs, &bytes);
    if (outcome < 0)
        brokerDisconnect(client);
    if (outcome != BrokerAcknowledged || bytes.size() < 2)
        return QString();
    QString reply(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(reply.data(), bytes.constData(), size_t(reply.size()) * 2);
    return reply;
}

void brokerDisconnect(BrokerClient &client)
{
    if (QLocalSocket *socket = conversationOf(client))
        socket->disconnectFromServer();
    // Setting the data again deletes the socket held before.
    client.conversation.setLocalData(nullptr);
}
