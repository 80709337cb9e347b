#pragma once

#include "core/working_space.h"

class QWidget;

// The window's side of the WorkingSpace element: the place a configuration
// stores is applied here, and the window's own place is read here for the
// save.

// Resizes, then moves the window to `place`. A position beyond the desktop
// (x past its width or y past its height) falls back to 200, 200.
void restoreWorkingSpace(QWidget *window, const WorkingSpace &place);

// The window's position and the size of its own rectangle, frame excluded.
WorkingSpace workingSpaceOfWindow(const QWidget *window);
