#include "app/start_up.h"

#include <QLocale>
#include <QLoggingCategory>

#include <clocale>

void fixNumberFormat()
{
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::C, QLocale::AnyCountry));
}

void quietDebugOutput()
{
    // The environment's rules are applied after these, so they win.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
}

bool takesBatchPath(const QStringList &args)
{
    return args.size() >= 3 && args.at(0) != QLatin1String("-d");
}

namespace {

bool isInfoRequest(const QStringList &args)
{
    if (args.size() != 2)
        return false;
    const QString &word = args.at(1);
    return word == QLatin1String("--help") || word == QLatin1String("-h")
           || word == QLatin1String("--version");
}

// The words of the command line that the GUI application object takes
// for itself. Where one of them stands, only that object reads the line
// as the user meant it.
bool hasGuiOption(const QStringList &args)
{
    static const char *const guiOptions[] = {
        "-platform", "-plugin", "-qwindow", "-reverse", "-session", "-style",
        "-widgetcount", "-display", "-geometry", "-title", "-name", "-visual",
        "-ncols", "-cmap", "-testability", "-qmljsdebugger", "-nograb", "-dograb",
        "-sync", "-fn", "-font", "-bg", "-background", "-fg", "-foreground",
        "-btn", "-button", "-im", "-inputstyle", "-graphicssystem"};
    for (int i = 1; i < args.size(); ++i) {
        for (const char *option : guiOptions) {
            if (args.at(i).startsWith(QLatin1String(option)))
                return true;
        }
    }
    return false;
}

QByteArray platformName(QByteArray platform)
{
    const int colon = platform.indexOf(':');
    if (colon >= 0)
        platform.truncate(colon);
    return platform.toLower();
}

// The offscreen and minimal platforms never show a box and never look at a
// screen: there the core application object serves the batch path.
bool isScreenless(const QByteArray &platform)
{
    const QByteArray name = platformName(platform);
    return name == "offscreen" || name == "minimal";
}

// The platforms that draw on a display server. Without DISPLAY or
// WAYLAND_DISPLAY they cannot start, and Qt would abort with its own words.
bool needsDisplayServer(const LaunchEnvironment &env)
{
    if (!env.platformSet)
        return true;
    const QByteArray name = platformName(env.platform);
    return name.isEmpty() || name == "xcb" || name.startsWith("wayland");
}

} // namespace

const char noDisplayMessage[] =
    "quva-cfg-editor: the window needs a display, and none is set (DISPLAY or "
    "WAYLAND_DISPLAY); the batch path, quva-cfg-editor FILE OPTION..., needs none.";

LaunchDecision decideLaunch(const QStringList &args, const LaunchEnvironment &env)
{
    LaunchDecision decision;
    if (isInfoRequest(args)) {
        decision.mode = LaunchMode::Info;
        return decision;
    }
    if (!takesBatchPath(args)) {
        if (!env.hasDisplay && needsDisplayServer(env))
            decision.mode = LaunchMode::NoDisplay;
        return decision;
    }
    QByteArray platform = env.platform;
    if (!env.platformSet && !env.hasDisplay) {
        platform = "offscreen";
        decision.platform = platform;
    }
    decision.mode = isScreenless(platform) && !hasGuiOption(args) ? LaunchMode::HeadlessBatch
                                                                 : LaunchMode::BatchWithBoxes;
    return decision;
}

LaunchEnvironment processLaunchEnvironment()
{
    LaunchEnvironment env;
    env.platformSet = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    env.platform = qgetenv("QT_QPA_PLATFORM");
    env.hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY")
                     || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return env;
}
