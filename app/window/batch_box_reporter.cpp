#include "app/window/batch_box_reporter.h"

#include <QApplication>
#include <QMessageBox>

namespace {

bool hasDisplay()
{
    const QString platform = QGuiApplication::platformName();
    return qobject_cast<QApplication *>(QCoreApplication::instance())
           && platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

QMessageBox::Icon boxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Warning: return QMessageBox::Warning;
    case MessageIcon::Critical: break;
    }
    return QMessageBox::Critical;
}

} // namespace

void BatchBoxReporter::message(MessageIcon icon, const QString &title, const QString &text)
{
    stderrReporter.message(icon, title, text);
    if (!hasDisplay())
        return;
    QMessageBox box(boxIcon(icon), title, text, QMessageBox::Ok);
    box.exec();
}

void BatchBoxReporter::setBusy(bool busy)
{
    if (!hasDisplay())
        return;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}
