#pragma once

#include "app/server/holder_table.h"

#include <QLocalServer>
#include <QObject>

class ServerConversation;

struct ServerOptions
{
    // How long a caller may send nothing, or half a frame.
    int frameTimeoutMsecs = 5000;
    // Conversations served at once; as many again are let in and answered
    // "busy", and any further one is closed at once.
    int maxConversations = 64;
    // How long an editor has to acknowledge the request to come forward;
    // less than the second that the asking editor waits for its answer.
    int raiseTimeoutMsecs = 500;
};

// The window broker's server: keeps which process holds which file, answers
// whether a file is held by another, and opens windows, bringing an
// existing one forward or starting an editor. docs/window_broker.md has
// the conversation.
class BrokerServer : public QObject
{
    Q_OBJECT

public:
    explicit BrokerServer(const ServerOptions &options, QObject *parent = nullptr);

    // Listens on `name`, which the caller has made sure no live server uses.
    bool listen(const QString &name);

private:
    void accept();
    void execute(ServerConversation *conversation, const QString &text);
    void request(ServerConversation *conversation, const QString &item);
    void open(ServerConversation *conversation, const QString &file);
    void raise(ServerConversation *conversation, qint64 holder, const QString &file);

    ServerOptions options;
    QLocalServer server;
    HolderTable table;
    int conversations = 0;
};
