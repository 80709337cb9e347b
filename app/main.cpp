#include "app/batch_path.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QLocale>

#include <clocale>
#include <cstring>
#include <memory>

namespace {

int runInteractive()
{
    QuvaCfgXMLEditor window;
    window.show();
    QObject::connect(qApp, &QApplication::lastWindowClosed, qApp, &QApplication::quit);
    return QApplication::exec();
}

// The batch path must run where there is no screen: it then uses the
// offscreen platform and its messages reach the caller on standard error.
void chooseHeadlessPlatform(int argc)
{
    if (argc < 3 || qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

// "--help" and "--version" need no application object, and so no display.
bool isInfoRequest(int argc, char *argv[])
{
    if (argc != 2)
        return false;
    const QStringList args{QString::fromLocal8Bit(argv[0]), QString::fromLocal8Bit(argv[1])};
    return handleInfoOption(args);
}

// The words of the command line that the GUI application object takes
// for itself. Where one of them stands, only that object reads the line
// as the user meant it.
bool hasGuiOption(int argc, char *argv[])
{
    static const char *const guiOptions[] = {
        "-platform", "-plugin", "-qwindow", "-reverse", "-session", "-style",
        "-widgetcount", "-display", "-geometry", "-title", "-name", "-visual",
        "-ncols", "-cmap", "-testability", "-qmljsdebugger", "-nograb", "-dograb",
        "-sync", "-fn", "-font", "-bg", "-background", "-fg", "-foreground",
        "-btn", "-button", "-im", "-inputstyle", "-graphicssystem"};
    for (int i = 1; i < argc; ++i) {
        for (const char *option : guiOptions) {
            if (std::strncmp(argv[i], option, std::strlen(option)) == 0)
                return true;
        }
    }
    return false;
}

// The batch path shows its messages in boxes only where somebody can click
// them. On the offscreen and minimal platforms no box is ever shown and no
// screen is looked at, so the core application object serves it as well and
// spares loading the platform, its fonts and its screens.
bool batchNeedsNoGui(int argc, char *argv[])
{
    if (argc < 3 || std::strcmp(argv[0], "-d") == 0 || hasGuiOption(argc, argv))
        return false;
    QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const int colon = platform.indexOf(':');
    if (colon >= 0)
        platform.truncate(colon);
    platform = platform.toLower();
    return platform == "offscreen" || platform == "minimal";
}

} // namespace

int main(int argc, char *argv[])
{
    if (isInfoRequest(argc, argv))
        return 0;
    chooseHeadlessPlatform(argc);
    std::unique_ptr<QCoreApplication> app;
    if (batchNeedsNoGui(argc, argv))
        app = std::make_unique<QCoreApplication>(argc, argv);
    else
        app = std::make_unique<QApplication>(argc, argv);
    // The application object adopts the environment's C locale; the number
    // readers of the files rely on the C library reading "0.5" as a half.
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::C, QLocale::AnyCountry));
    const QStringList args = QCoreApplication::arguments();
    // Entry 0 is the program's own path; "-d" there is the only way out of
    // the batch path for three or more entries.
    if (args.size() >= 3 && args.at(0) != QLatin1String("-d"))
        return runBatch(args);
    return runInteractive();
}
