#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

// The program's pictures are SVG drawings in its resources. These render one
// at its own size (or `size`), with as many pixels as the screen's pixel
// ratio asks, so that it stays sharp on a dense screen. A path that holds no
// drawing gives the null pixmap.
QPixmap svgPixmap(const QString &path, qreal devicePixelRatio = 1.0, QSize size = QSize());
// The drawing as an icon, for screens of pixel ratio 1 and 2.
QIcon svgIcon(const QString &path);
