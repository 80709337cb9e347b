#pragma once

#include <QByteArray>
#include <QStringList>

// Start-up steps shared by the program and its window module.

// All number text of the process in the C format, whatever the machine's
// regional settings: Qt's default locale, and the C library's numeric
// locale, which the application object takes from the environment and the
// number readers of the files rely on.
void fixNumberFormat();

// The program's own debug lines (structural trouble in a description, a
// refresh that finds no page) stay off a user's terminal. Qt's logging
// rules bring them back: QT_LOGGING_RULES="default.debug=true".
void quietDebugOutput();

// Three or more entries take the batch path, unless entry 0, the program's
// own path, is "-d". Entry 1 is not looked at. The entries are those left
// once an application object has taken its own options, if there is one.
bool takesBatchPath(const QStringList &args);

// What a start is to do.
enum class LaunchMode {
    Info,           // "--help", "-h" or "--version": print and end, no application object
    NoDisplay,      // the window was asked for where no display is: say so and end
    HeadlessBatch,  // the batch path on QtCore alone, messages on standard error
    BatchWithBoxes, // the batch path in the window module, boxes where a screen is
    Interactive     // the window
};

// What of the process environment the decision looks at.
struct LaunchEnvironment
{
    bool platformSet = false; // QT_QPA_PLATFORM is set, even if empty
    QByteArray platform;      // its value
    bool hasDisplay = false;  // DISPLAY or WAYLAND_DISPLAY is set and not empty
};

struct LaunchDecision
{
    LaunchMode mode = LaunchMode::Interactive;
    // The platform that the start must set before any application object,
    // or empty to leave the environment as it is. A batch run with no
    // display and no platform of its own gets "offscreen", so that its
    // messages reach the caller on standard error.
    QByteArray platform;
};

// The one decision of a start, from the command line as the process got it
// (entry 0 the program) and the environment. Used by the program before any
// application object, and by the window module on what its application
// object leaves of the command line.
LaunchDecision decideLaunch(const QStringList &args, const LaunchEnvironment &env);

// Exit code of a start that wanted the window where there is no display.
constexpr int noDisplayExitCode = 2;
// The one line that such a start writes on standard error.
extern const char noDisplayMessage[];

// The environment of this process.
LaunchEnvironment processLaunchEnvironment();
