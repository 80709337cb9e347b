#include "shell/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

QSize desktopSize()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualSize() : QSize();
}

} // namespace

void restoreWorkingSpace(QWidget *window, const WorkingSpace &place)
{
    if (!window)
        return;
    QPoint pos(place.x, place.y);
    const QSize desktop = desktopSize();
    if (desktop.isValid() && (pos.x() > desktop.width() || pos.y() > desktop.height()))
        pos = QPoint(200, 200);
    window->resize(place.w, place.h);
    window->move(pos);
}

WorkingSpace workingSpaceOfWindow(const QWidget *window)
{
    return WorkingSpace{window->x(), window->y(), window->width(), window->height()};
}
