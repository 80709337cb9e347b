#pragma once

#include <QPoint>
#include <QSize>

class QObject;

// The main window as the record layer sees it: any object with the "pos"
// and "size" properties of a widget (its place, frame excluded, and its own
// rectangle). Going through the properties keeps this layer free of widgets.

// Reads the window's place; false when it has no such properties.
bool windowPlace(const QObject *window, QPoint *pos, QSize *size);
// Resizes, then moves the window.
void placeWindow(QObject *window, const QSize &size, const QPoint &pos);
// Size of the whole desktop, or an invalid size when the application has no
// screen (a command-line run).
QSize desktopSize();
