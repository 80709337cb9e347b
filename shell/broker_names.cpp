#include "shell/broker_names.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

QString brokerServiceName(const QString &product)
{
    return product + QLatin1String("Server");
}

QString brokerServerName(const QString &service)
{
    const QString name = qEnvironmentVariable("QUVA_BROKER_NAME");
    if (!name.isEmpty())
        return name;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isDir())
        return runtime + QLatin1Char('/') + service;
    return QDir::tempPath() + QLatin1Char('/') + service + QLatin1Char('-') +
           QString::number(getuid());
}

QString brokerListenerName(const QString &serverName, qint64 pid)
{
    return serverName + QLatin1String(".editor.") + QString::number(pid);
}

QString brokerSocketPath(const QString &name)
{
    if (name.startsWith(QLatin1Char('/')))
        return name;
    return QDir::tempPath() + QLatin1Char('/') + name;
}
