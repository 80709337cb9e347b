#include <QApplication>
#include <QLocale>
#include <QMainWindow>

namespace {

// Batch path: patches a configuration from the command line (not built yet).
int runBatch(const QStringList &)
{
    return 99;
}

int runInteractive()
{
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Quva Modeler Config"));
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

} // namespace

int main(int argc, char *argv[])
{
    chooseHeadlessPlatform(argc);
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::C, QLocale::AnyCountry));
    const QStringList args = QCoreApplication::arguments();
    // Entry 0 is the program's own path; "-d" there is the only way out of
    // the batch path for three or more entries.
    if (args.size() >= 3 && args.at(0) != QLatin1String("-d"))
        return runBatch(args);
    return runInteractive();
}
