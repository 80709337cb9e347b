#include "app/batch_path.h"
#include "app/gui_module.h"
#include "app/start_up.h"
#include "app/window/batch_box_reporter.h"
#include "shell/main_window.h"

#include <QApplication>

#include <type_traits>

namespace {

int runInteractive()
{
    QuvaCfgXMLEditor window;
    window.show();
    QObject::connect(qApp, &QApplication::lastWindowClosed, qApp, &QApplication::quit);
    return QApplication::exec();
}

} // namespace

extern "C" Q_DECL_EXPORT int quvaGuiMain(int argc, char **argv)
{
    static_assert(std::is_same_v<decltype(&quvaGuiMain), GuiEntry>);
    QApplication app(argc, argv);
    fixNumberFormat();
    // The application object has taken its own options from the line.
    const LaunchMode mode =
        decideLaunch(QCoreApplication::arguments(), processLaunchEnvironment()).mode;
    if (mode == LaunchMode::HeadlessBatch || mode == LaunchMode::BatchWithBoxes) {
        BatchBoxReporter boxes;
        ReporterScope scope(&boxes);
        return runBatch(QCoreApplication::arguments());
    }
    return runInteractive();
}
