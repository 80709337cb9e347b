#pragma once

// The socket's whole type, not a declaration: the per-thread storage
// deletes the socket wherever a client is made, and a delete of an
// incomplete type frees the memory without running the destructor.
#include <QLocalSocket>
#include <QString>
#include <QThreadStorage>

// The editor's end of the window broker's conversations: a local socket to
// the server (docs/window_broker.md). The logic above these four operations
// knows nothing of sockets.

// One per process, made on first use and never freed.
struct BrokerClient
{
    // The server's file was not found at the last try; no further try is
    // made until the program starts again.
    bool serverMissing = false;
    // The open conversation of each thread, null between operations. The
    // start-up request and the window may talk at the same time; each
    // keeps a socket of its own.
    QThreadStorage<QLocalSocket *> conversation;
};

// Opens a conversation with the server of `service` on `topic`. False when
// no server answers within a second.
bool brokerConnect(BrokerClient &client, const QString &service, const QString &topic);
// Sends a command: BrokerAcknowledged, BrokerBusy or BrokerFailed. Without a
// conversation, or with no answer within 1,000 ms, BrokerFailed; a late
// answer would be taken for the next one, so a timeout also ends the
// conversation.
int brokerExecute(BrokerClient &client, const QString &command);
// Asks for an item. The reply's bytes are copied as they are into UTF-16
// units, half as many as bytes; empty without a conversation or a reply.
QString brokerRequest(BrokerClient &client, const QString &item);
// Ends this thread's conversation, if any.
void brokerDisconnect(BrokerClient &client);
