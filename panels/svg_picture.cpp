#include "panels/svg_picture.h"

#include <QPainter>
#include <QSvgRenderer>

// The resources live in a static library: nothing else would pull them in.
// Outside any namespace, as the resource's own initializer is.
static void loadPictures()
{
    static const bool loaded = [] {
        Q_INIT_RESOURCE(pictures);
        return true;
    }();
    Q_UNUSED(loaded)
}

QPixmap svgPixmap(const QString &path, qreal devicePixelRatio, QSize size)
{
    loadPictures();
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return QPixmap();
    const QSize logical = size.isValid() ? size : renderer.defaultSize();
    QPixmap pixmap(logical * devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon svgIcon(const QString &path)
{
    QIcon icon;
    for (qreal ratio : {1.0, 2.0})
        icon.addPixmap(svgPixmap(path, ratio));
    return icon;
}
