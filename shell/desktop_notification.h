#pragma once

#include <QString>

// Tells the desktop in a passing notice, through the freedesktop
// notification service of the session bus. Without a session bus or
// without the service nothing happens; the call never waits for an answer.
void notifyDesktop(const QString &summary, const QString &body);
