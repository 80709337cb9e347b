#include "shell/desktop_notification.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace {

const char service[] = "org.freedesktop.Notifications";

} // namespace

void notifyDesktop(const QString &summary, const QString &body)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()
        || !bus.interface()->isServiceRegistered(QLatin1String(service)))
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QLatin1String(service), QStringLiteral("/org/freedesktop/Notifications"),
        QLatin1String(service), QStringLiteral("Notify"));
    // Application, no notice to replace, no icon, the texts, no actions, no
    // hints, the server's own timeout.
    call << QStringLiteral("Quva Modeler Config") << 0u << QString() << summary << body
         << QStringList() << QVariantMap() << -1;
    bus.call(call, QDBus::NoBlock);
}
