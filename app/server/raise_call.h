#pragma once

#include <QObject>
#include <QTimer>

class QLocalSocket;

// Asks the editor listening on a local name to bring its window forward,
// without blocking the server: connects, sends "[Raise]", and reports
// whether the editor acknowledged within the time given. Deletes itself
// after reporting.
class RaiseCall : public QObject
{
    Q_OBJECT

public:
    RaiseCall(const QString &listenerName, int timeoutMsecs, QObject *parent);
    // Starts the call; connect to done() first, which may come at once.
    void start();

signals:
    void done(bool raised);

private:
    void readReply();
    void finish(bool raised);

    QString listenerName;
    int timeoutMsecs;
    QLocalSocket *socket;
    QTimer timer;
    QByteArray pending;
    bool finished = false;
};
