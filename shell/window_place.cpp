#include "shell/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

// Where a window goes whose stored place is of no use.
const QPoint fallbackPosition(200, 200);

QSize desktopSize()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualSize() : QSize();
}

// Screens come and go between sessions: a window whose top-left corner no
// screen shows any more (left of the desktop, above it, or where a screen
// was unplugged) could not be grabbed to move it back. The desktop's far
// edges, which the rule of the stored place lets through, stay as they are.
QPoint onSomeScreen(const QPoint &pos)
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary || QGuiApplication::screenAt(pos))
        return pos;
    const QRect desktop = primary->virtualGeometry();
    const QRect withFarEdges(desktop.topLeft(), desktop.size() + QSize(1, 1));
    const bool onFarEdge = withFarEdges.contains(pos)
                           && (pos.x() == desktop.right() + 1 || pos.y() == desktop.bottom() + 1);
    return onFarEdge ? pos : fallbackPosition;
}

// No larger than the free part of the screen it lands on.
QSize fittingSize(const QSize &size, const QPoint &pos)
{
    const QScreen *screen = QGuiApplication::screenAt(pos);
    if (!screen)
        return size;
    return size.boundedTo(screen->availableGeometry().size());
}

} // namespace

void restoreWorkingSpace(QWidget *window, const WorkingSpace &place)
{
    if (!window)
        return;
    QPoint pos(place.x, place.y);
    const QSize desktop = desktopSize();
    if (desktop.isValid() && (pos.x() > desktop.width() || pos.y() > desktop.height()))
        pos = fallbackPosition;
    pos = onSomeScreen(pos);
    window->resize(fittingSize(QSize(place.w, place.h), pos));
    window->move(pos);
}

WorkingSpace workingSpaceOfWindow(const QWidget *window)
{
    return WorkingSpace{window->x(), window->y(), window->width(), window->height()};
}
