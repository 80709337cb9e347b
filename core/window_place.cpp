#include "core/window_place.h"

#include <QCoreApplication>
#include <QMetaProperty>
#include <QVariant>

bool windowPlace(const QObject *window, QPoint *pos, QSize *size)
{
    const QVariant p = window->property("pos");
    const QVariant s = window->property("size");
    if (!p.isValid() || !s.isValid())
        return false;
    *pos = p.toPoint();
    *size = s.toSize();
    return true;
}

void placeWindow(QObject *window, const QSize &size, const QPoint &pos)
{
    window->setProperty("size", size);
    window->setProperty("pos", pos);
}

namespace {

// The primary screen of a GUI application, or null. The property's type is
// not known to the meta-type system of this layer, so it is read raw: the
// screen is a QObject at the start of its own object.
QObject *primaryScreen()
{
    QObject *app = QCoreApplication::instance();
    if (!app)
        return nullptr;
    const QMetaObject *meta = app->metaObject();
    const int index = meta->indexOfProperty("primaryScreen");
    if (index < 0 || qstrcmp(meta->property(index).typeName(), "QScreen*") != 0)
        return nullptr;
    QObject *screen = nullptr;
    void *args[] = {&screen};
    QMetaObject::metacall(app, QMetaObject::ReadProperty, index, args);
    return screen;
}

} // namespace

QSize desktopSize()
{
    const QObject *screen = primaryScreen();
    if (!screen)
        return QSize();
    return screen->property("virtualSize").toSize();
}
