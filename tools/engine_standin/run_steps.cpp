#include "tools/engine_standin/run_steps.h"

#include "tools/engine_standin/progress_printer.h"

int runSteps(ProgressPrinter &out, const std::vector<RunStep> &steps, const char *doneText,
             int exitCode)
{
    for (const RunStep &step : steps) {
        out.progress(step.percent, QLatin1String(step.text));
        if (!step.work())
            return 1;
    }
    out.progress(100, QLatin1String(doneText));
    if (exitCode != 0)
        out.line(QStringLiteral("Ending with exit code %1, as asked.").arg(exitCode));
    return exitCode;
}
