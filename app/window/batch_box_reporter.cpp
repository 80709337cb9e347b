#include "app/window/batch_box_reporter.h"

#include <QApplication>

namespace {

bool hasDisplay()
{
    const QString platform = QGuiApplication::platformName();
    return qobject_cast<QApplication *>(QCoreApplication::instance())
           && platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

} // namespace

void BatchBoxReporter::message(MessageIcon icon, const QString &title, const QString &text)
{
    stderrReporter.message(icon, title, text);
    if (!hasDisplay())
        return;
    boxes.message(icon, title, text);
}

void BatchBoxReporter::setBusy(bool busy)
{
    if (hasDisplay())
        boxes.setBusy(busy);
}
