#include "shell/broker_ensure_server.h"

#include "shell/application_directory.h"
#include "shell/broker_names.h"
#include "shell/broker_transport.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMutex>
#include <QProcess>
#include <QThread>

std::atomic<bool> gaveUp{false};

namespace {

// Guards the connecting step and nothing else. A plain basic mutex, so that
// a start-up thread still running while the process ends never meets a
// destroyed lock.
QBasicMutex connectMutex;
BrokerClient *client = nullptr;

constexpr int startTries = 15;
constexpr int startPauseMsecs = 100;

// The server's output goes nowhere: it must not mix with the editor's. A
// start that fails shows as a server that never answers.
void startServer(const QString &file)
{
    QProcess server;
    server.setProgram(file);
    server.setWorkingDirectory(QStringLiteral("/"));
    server.setStandardOutputFile(QProcess::nullDevice());
    server.setStandardErrorFile(QProcess::nullDevice());
    server.startDetached();
}

// A box can only be shown by the interface thread. Asked from the start-up
// thread, it is left to the interface thread without a parent, which may be
// gone by then, and without waiting: that thread may itself be waiting for
// the lock held here.
void warnServerSilent(QWidget *parent, const QString &product)
{
    const UserQuestion warning{QMessageBox::Warning, product + QStringLiteral(" Error"),
                               brokerServiceName(product) + QStringLiteral(" not found.\n") +
                                   product +
                                   QStringLiteral(" will still run but with reduced capability.\n"),
                               QMessageBox::Ok, QMessageBox::Ok};
    QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        return;
    if (QThread::currentThread() == app->thread())
        askUser(parent, warning);
    else
        QMetaObject::invokeMethod(
            app, [warning] { askUser(nullptr, warning); }, Qt::QueuedConnection);
}

bool waitForStartedServer(const QString &service)
{
    for (int i = 0; i < startTries; ++i) {
        if (brokerConnect(*client, service, brokerTopic()))
            return true;
        QThread::msleep(startPauseMsecs);
    }
    return false;
}

} // namespace

BrokerClient *brokerClient()
{
    return client;
}

bool brokerEnsureServer(QWidget *parent, const QString &product)
{
    if (gaveUp)
        return false;
    QMutexLocker lock(&connectMutex);
    if (!client)
        client = new BrokerClient;
    // A second caller that waited here while the first gave up stops too:
    // the warning is shown once at most.
    if (client->serverMissing || gaveUp)
        return false;
    const QString service = brokerServiceName(product);
    if (brokerConnect(*client, service, brokerTopic()))
        return true;
    const QString file = applicationDirectory() + QLatin1Char('/') + service;
    if (!QFileInfo::exists(file)) {
        client->serverMissing = true;
        return false;
    }
    startServer(file);
    if (waitForStartedServer(service))
        return true;
    gaveUp = true;
    if (useVelmorinServer().startsWith(QLatin1Char('1')))
        warnServerSilent(parent, product);
    return false;
}

void brokerForgetServer()
{
    QMutexLocker lock(&connectMutex);
    if (client)
        client->serverMissing = false;
    gaveUp = false;
}
