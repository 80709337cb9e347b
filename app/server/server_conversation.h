#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

class QLocalSocket;

// One editor's conversation with the server: a topic frame first, then
// executes and requests, each answered by one reply frame in the order they
// came. The conversation reads the frames; the server decides the answers.
//
// It ends, with a "failed" reply where one can still be given, on a frame
// whose length is out of bounds, on a first frame that is not the topic
// "system", and when a caller sends nothing (or half a frame) for the
// frame timeout. Between whole frames it may stay quiet much longer: an
// editor keeps it open while its user answers a question.
class ServerConversation : public QObject
{
    Q_OBJECT

public:
    // A busy conversation is one the server has no room for: it is let in,
    // and every command and request is answered "busy".
    ServerConversation(QLocalSocket *socket, bool busy, int frameTimeoutMsecs, QObject *parent);

    // The process at the other end; 0 when unknown.
    qint64 peerPid() const { return peer; }

    // Answers the frame in hand (executeReceived or requestReceived), at
    // once or later, and goes on with the frames that came meanwhile.
    void reply(int outcome, const QByteArray &data = QByteArray());

signals:
    // Each is to be answered with reply(). A command that is no text
    // arrives as an empty one.
    void executeReceived(const QString &command);
    void requestReceived(const QString &item);
    // The socket closed; the object deletes itself after this.
    void finished();

private:
    void readFrames();
    void handleFrame(const QByteArray &frame);
    void handleTopic(const QByteArray &body);
    void refuse();
    void armTimer();

    QLocalSocket *socket;
    QByteArray pending;
    QTimer timer;
    qint64 peer = 0;
    bool busy;
    bool hasTopic = false;
    bool awaitingReply = false;
    bool reading = false;
    bool closing = false;
    int frameTimeoutMsecs;
};
