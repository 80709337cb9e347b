#pragma once

#include <QObject>

class QLocalServer;
class QLocalSocket;
class QWidget;

// Takes the one request that the window broker's server makes of an editor:
// bring your window forward. It listens on the local name of this process
// (brokerListenerName), answers "[Raise]" with an acknowledgement and
// raises and activates the window; anything else is answered as failed.
// Where the name cannot be taken the editor simply cannot be raised.
class RaiseListener : public QObject
{
    Q_OBJECT

public:
    // Listens for `window`, which also owns the listener.
    explicit RaiseListener(QWidget *window);
    ~RaiseListener() override;

    bool isListening() const;

signals:
    // The window was brought forward.
    void raised();

private:
    void accept();
    void readRequest(QLocalSocket *socket);
    void bringForward();

    QWidget *window;
    QLocalServer *server;
};
