#include "app/batch_path.h"
#include "app/gui_module.h"
#include "app/start_up.h"

#include <QCoreApplication>

#include <cstring>
#include <malloc.h>

namespace {

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
// screen is looked at, so the core application object serves it, and the
// window module with its GUI libraries is never loaded.
bool batchNeedsNoGui(int argc, char *argv[])
{
    if (!takesBatchPath(argc, argv) || hasGuiOption(argc, argv))
        return false;
    QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const int colon = platform.indexOf(':');
    if (colon >= 0)
        platform.truncate(colon);
    platform = platform.toLower();
    return platform == "offscreen" || platform == "minimal";
}

// A batch run lives for a few milliseconds and frees little before its end.
// The buffers of whole files are taken from the heap like everything else,
// so that their pages serve again once they are freed instead of going back
// to the system and being faulted in anew.
void tuneAllocatorForBatch()
{
    mallopt(M_MMAP_THRESHOLD, 256 << 20);
    mallopt(M_TRIM_THRESHOLD, 512 << 20);
}

// The batch path with its messages on standard error only.
int runHeadlessBatch(int argc, char *argv[])
{
    tuneAllocatorForBatch();
    QCoreApplication app(argc, argv);
    fixNumberFormat();
    return runBatch(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char *argv[])
{
    if (isInfoRequest(argc, argv))
        return 0;
    chooseHeadlessPlatform(argc);
    if (batchNeedsNoGui(argc, argv))
        return runHeadlessBatch(argc, argv);
    if (const GuiEntry guiMain = loadGuiModule())
        return guiMain(argc, argv);
    // Without its window module the program can still patch files; the
    // messages then reach the caller on standard error alone.
    if (takesBatchPath(argc, argv))
        return runHeadlessBatch(argc, argv);
    return 1;
}
