#include "shell/allow_foreground.h"

#include "shell/broker_ensure_server.h"
#include "shell/broker_transport.h"

CAllowToSetForegroundWindow::CAllowToSetForegroundWindow(QWidget *parent, const QString &product)
    : parentWindow(parent), product(product)
{
}

void CAllowToSetForegroundWindow::run()
{
    if (!brokerEnsureServer(parentWindow, product))
        return;
    brokerRequest(*brokerClient(), QStringLiteral("pid"));
    brokerDisconnect(*brokerClient());
}

void startAllowToSetForegroundWindow(QWidget *parent, const QString &product)
{
    auto *thread = new CAllowToSetForegroundWindow(parent, product);
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}
