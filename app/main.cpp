#include "app/batch_path.h"
#include "app/gui_module.h"
#include "app/start_up.h"

#include <QCoreApplication>

#include <cstdio>
#include <malloc.h>

namespace {

QStringList commandLine(int argc, char *argv[])
{
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    return args;
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
    quietDebugOutput();
    const QStringList args = commandLine(argc, argv);
    const LaunchDecision launch = decideLaunch(args, processLaunchEnvironment());
    if (launch.mode == LaunchMode::Info)
        return handleInfoOption(args) ? 0 : 1;
    if (launch.mode == LaunchMode::NoDisplay) {
        std::fprintf(stderr, "%s\n", noDisplayMessage);
        return noDisplayExitCode;
    }
    if (!launch.platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", launch.platform);
    if (launch.mode == LaunchMode::HeadlessBatch)
        return runHeadlessBatch(argc, argv);
    if (const GuiEntry guiMain = loadGuiModule())
        return guiMain(argc, argv);
    // Without its window module the program can still patch files; the
    // messages then reach the caller on standard error alone.
    if (launch.mode == LaunchMode::BatchWithBoxes)
        return runHeadlessBatch(argc, argv);
    return 1;
}
