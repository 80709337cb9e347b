#include "tools/engine_standin/standin_options.h"

#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

const QString delayFlag = QStringLiteral("--standin-delay");
const QString exitFlag = QStringLiteral("--standin-exit");
const QString crashFlag = QStringLiteral("--standin-crash");

// Reads `text` into *value; on failure names `source` in options.error.
void readNumber(const QString &text, const QString &source, int minimum, int *value,
                StandinOptions &options)
{
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    if (ok && number >= minimum)
        *value = number;
    else if (options.error.isEmpty())
        options.error = QStringLiteral("%1 needs a whole number, not '%2'").arg(source, text);
}

void readEnvironment(const QProcessEnvironment &env, StandinOptions &options)
{
    const QString delay = env.value(QStringLiteral("QUVA_STANDIN_DELAY_MS"));
    if (!delay.isEmpty())
        readNumber(delay, QStringLiteral("QUVA_STANDIN_DELAY_MS"), 0, &options.delayMs, options);
    const QString code = env.value(QStringLiteral("QUVA_STANDIN_EXIT"));
    if (!code.isEmpty())
        readNumber(code, QStringLiteral("QUVA_STANDIN_EXIT"), INT_MIN, &options.exitCode, options);
    const QString crash = env.value(QStringLiteral("QUVA_STANDIN_CRASH"));
    options.crash = !crash.isEmpty() && crash != QLatin1String("0");
}

} // namespace

StandinOptions readStandinOptions(const QStringList &arguments,
                                  const QProcessEnvironment &environment)
{
    StandinOptions options;
    readEnvironment(environment, options);
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &arg = arguments.at(i);
        const bool takesValue = arg == delayFlag || arg == exitFlag;
        if (takesValue && i + 1 >= arguments.size()) {
            options.error = arg + QStringLiteral(" needs a value");
            break;
        }
        if (arg == delayFlag)
            readNumber(arguments.at(++i), arg, 0, &options.delayMs, options);
        else if (arg == exitFlag)
            readNumber(arguments.at(++i), arg, INT_MIN, &options.exitCode, options);
        else if (arg == crashFlag)
            options.crash = true;
        else if (arg == QLatin1String("--help") || arg == QLatin1String("-h"))
            options.help = true;
        else
            options.arguments.append(arg);
    }
    return options;
}

void crashIfAsked(const StandinOptions &options)
{
    if (!options.crash)
        return;
    std::fputs("Crashing now, as asked.\n", stdout);
    std::fflush(stdout);
    std::signal(SIGSEGV, SIG_DFL);
    std::raise(SIGSEGV);
    std::abort(); // not reached where the signal ends the process
}
