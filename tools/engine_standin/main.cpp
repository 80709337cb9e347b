// engine_standin: stands in for the Quva engine and its report converter,
// so that the editor's run, report and apply pages can be tried without
// them. Installed as "quva" it takes the engine's command lines, installed
// as "xml2html" it converts a report; it tells by the name it is started
// under. It fits no model and says so in every file it writes.

#include "tools/engine_standin/apply_run.h"
#include "tools/engine_standin/converter.h"
#include "tools/engine_standin/model_run.h"
#include "tools/engine_standin/standin_options.h"

#include "app/start_up.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>

namespace {

const char usageText[] =
    "Quva engine stand-in: fits no model, and says so in every file it writes.\n"
    "\n"
    "As quva:\n"
    "  quva -m FILE.CfgXML     read the configuration and its description, write the\n"
    "                          next folder FILE_NNN with the reports the editor opens\n"
    "  quva -a[d][w][f] [-p=DENSITY] MODEL [-c SEPARATOR | -g | -s] DATASOURCE\n"
    "                          the apply command: write notes on it in this folder\n"
    "As xml2html:\n"
    "  xml2html NAME_analysisReport.xml   write NAME_analysisReport.html beside it\n"
    "\n"
    "Flags, each with an environment variable for runs started by the editor\n"
    "(a flag wins over its variable):\n"
    "  --standin-delay MS   QUVA_STANDIN_DELAY_MS   pause after each progress line\n"
    "                                               (default 500)\n"
    "  --standin-exit CODE  QUVA_STANDIN_EXIT       end with CODE after a full run\n"
    "  --standin-crash      QUVA_STANDIN_CRASH=1    crash with SIGSEGV half-way\n"
    "\n"
    "Exit status: 0 (or CODE) done, 1 a file could not be read or written,\n"
    "2 the command line could not be read.\n";

bool isConverterName(const char *argv0)
{
    QString name = QFileInfo(QString::fromLocal8Bit(argv0)).fileName().toLower();
    if (name.endsWith(QLatin1String(".exe")))
        name.chop(4);
    return name == QLatin1String("xml2html");
}

int usageError(const QString &why)
{
    std::fprintf(stderr, "%s\n\n%s", qPrintable(why), usageText);
    return 2;
}

int runEngine(const StandinOptions &options)
{
    const QStringList &args = options.arguments;
    if (args.size() == 2 && args.at(0) == QLatin1String("-m"))
        return ModelRun(options).exec(args.at(1));
    if (!args.isEmpty() && args.at(0).startsWith(QLatin1String("-a")))
        return ApplyRun(options).exec();
    return usageError(QStringLiteral("quva: expected -m FILE or an apply command"));
}

} // namespace

int main(int argc, char *argv[])
{
    // The charts need fonts, and so a GUI application object; the stand-in
    // shows no window, so it never needs a screen.
    char platformFlag[] = "-platform";
    char platformName[] = "offscreen";
    char *qtArgv[] = {argv[0], platformFlag, platformName, nullptr};
    int qtArgc = 3;
    QGuiApplication app(qtArgc, qtArgv);
    fixNumberFormat();

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const StandinOptions options =
        readStandinOptions(arguments, QProcessEnvironment::systemEnvironment());
    if (!options.error.isEmpty())
        return usageError(options.error);
    if (options.help) {
        std::fputs(usageText, stdout);
        return 0;
    }
    return isConverterName(argv[0]) ? convertReport(options) : runEngine(options);
}
