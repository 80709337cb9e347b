#include "app/batch_path.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QLocale>

#include <clocale>

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

} // namespace

int main(int argc, char *argv[])
{
    if (isInfoRequest(argc, argv))
        return 0;
    chooseHeadlessPlatform(argc);
    QApplication app(argc, argv);
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
