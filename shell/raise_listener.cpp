#include "shell/raise_listener.h"

#include "shell/broker_names.h"
#include "shell/broker_wire.h"
#include "shell/window_broker.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>
#include <QWidget>

namespace {

// A caller that says nothing in this time is dropped.
constexpr int requestMsecs = 2000;

} // namespace

RaiseListener::RaiseListener(QWidget *window)
    : QObject(window), window(window), server(new QLocalServer(this))
{
    const QString name =
        brokerListenerName(brokerServerName(brokerServiceName(brokerProductWord())),
                           QCoreApplication::applicationPid());
    // The name carries this process's id: a file left under it belongs to
    // a dead process that had the same id.
    QLocalServer::removeServer(name);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    server->listen(name);
    connect(server, &QLocalServer::newConnection, this, &RaiseListener::accept);
}

RaiseListener::~RaiseListener() = default;

bool RaiseListener::isListening() const
{
    return server->isListening();
}

void RaiseListener::accept()
{
    while (QLocalSocket *socket = server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QTimer::singleShot(requestMsecs, socket, &QLocalSocket::abort);
    }
}

void RaiseListener::readRequest(QLocalSocket *socket)
{
    QByteArray pending = socket->peek(socket->bytesAvailable());
    QByteArray frame;
    const FrameTake take = takeBrokerFrame(pending, &frame);
    if (take == FrameTake::Incomplete)
        return;
    socket->readAll();
    QString command;
    const bool isRaise = take == FrameTake::Frame && frame.at(0) == frameExecute &&
                         readBrokerText(frame.mid(1), &command) &&
                         command == QLatin1String("[Raise]");
    socket->write(brokerFrame(isRaise ? BrokerAcknowledged : BrokerFailed));
    socket->disconnectFromServer();
    if (isRaise)
        bringForward();
}

void RaiseListener::bringForward()
{
    if (window->isMinimized())
        window->showNormal();
    window->raise();
    window->activateWindow();
    emit raised();
}
