#include "app/server/broker_server.h"

#include "app/server/editor_start.h"
#include "app/server/raise_call.h"
#include "app/server/server_command.h"
#include "app/server/server_conversation.h"
#include "shell/broker_names.h"
#include "shell/broker_wire.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <QPointer>

namespace {

int outcome(bool acknowledged)
{
    return acknowledged ? BrokerAcknowledged : BrokerFailed;
}

} // namespace

BrokerServer::BrokerServer(const ServerOptions &options, QObject *parent)
    : QObject(parent), options(options)
{
    connect(&server, &QLocalServer::newConnection, this, &BrokerServer::accept);
}

bool BrokerServer::listen(const QString &name)
{
    QLocalServer::removeServer(name);
    server.setSocketOptions(QLocalServer::UserAccessOption);
    server.setMaxPendingConnections(2 * options.maxConversations);
    return server.listen(name);
}

void BrokerServer::accept()
{
    while (QLocalSocket *socket = server.nextPendingConnection()) {
        if (conversations >= 2 * options.maxConversations) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        const bool busy = conversations >= options.maxConversations;
        ++conversations;
        auto *conversation = new ServerConversation(socket, busy, options.frameTimeoutMsecs, this);
        connect(conversation, &ServerConversation::finished, this, [this] { --conversations; });
        connect(conversation, &ServerConversation::executeReceived, this,
                [this, conversation](const QString &text) { execute(conversation, text); });
        connect(conversation, &ServerConversation::requestReceived, this,
                [this, conversation](const QString &item) { request(conversation, item); });
    }
}

// "[IsOpen ...]" is acknowledged only for a file that another running
// process holds; the asker's own file is not "open in another window".
void BrokerServer::execute(ServerConversation *conversation, const QString &text)
{
    ServerCommand command;
    if (!parseServerCommand(text, &command)) {
        conversation->reply(BrokerFailed);
        return;
    }
    const qint64 peer = conversation->peerPid();
    switch (command.verb) {
    case ServerCommand::Open:
        open(conversation, command.file);
        return;
    case ServerCommand::IsOpen: {
        const qint64 holder = liveHolder(table, command.file);
        conversation->reply(outcome(holder != 0 && holder != peer));
        return;
    }
    case ServerCommand::Get:
        conversation->reply(outcome(holdFile(table, command.pid, command.file)));
        return;
    case ServerCommand::Close:
        conversation->reply(outcome(releaseFile(table, peer, command.file)));
        return;
    }
}

// The one item: the server's process id as four raw bytes.
void BrokerServer::request(ServerConversation *conversation, const QString &item)
{
    if (item.compare(QLatin1String("pid"), Qt::CaseInsensitive) != 0) {
        conversation->reply(BrokerFailed);
        return;
    }
    const quint32 pid = quint32(QCoreApplication::applicationPid());
    conversation->reply(BrokerAcknowledged,
                        QByteArray(reinterpret_cast<const char *>(&pid), sizeof pid));
}

// A held file brings its window forward. Otherwise an editor is started,
// and as it does not announce a file from its command line, the server
// records it as the holder itself.
void BrokerServer::open(ServerConversation *conversation, const QString &file)
{
    if (const qint64 holder = liveHolder(table, file)) {
        raise(conversation, holder, file);
        return;
    }
    const QString program = editorFor(file);
    if (program.isEmpty()) {
        journal(QStringLiteral("no editor for %1").arg(file));
        conversation->reply(BrokerFailed);
        return;
    }
    const bool kindOnly = isKindOnly(file);
    const qint64 pid = startEditor(program, kindOnly ? QString() : file);
    if (pid == 0) {
        journal(QStringLiteral("could not start %1").arg(program));
        conversation->reply(BrokerFailed);
        return;
    }
    if (!kindOnly)
        holdFile(table, pid, file);
    journal(QStringLiteral("started process %1 for %2").arg(QString::number(pid), file));
    conversation->reply(BrokerAcknowledged);
}

// The asker waits for the outcome; it may have gone by then.
void BrokerServer::raise(ServerConversation *conversation, qint64 holder, const QString &file)
{
    auto *call = new RaiseCall(brokerListenerName(server.serverName(), holder),
                               options.raiseTimeoutMsecs, this);
    const QPointer<ServerConversation> asker(conversation);
    connect(call, &RaiseCall::done, this, [asker, holder, file](bool raised) {
        const QString line = raised ? QStringLiteral("raised process %1 for %2")
                                    : QStringLiteral("process %1 did not come forward for %2");
        journal(line.arg(QString::number(holder), file));
        if (asker)
            asker->reply(outcome(raised));
    });
    call->start();
}
