#pragma once

#include "tools/engine_standin/progress_printer.h"
#include "tools/engine_standin/report.h"
#include "tools/engine_standin/run_report.h"
#include "tools/engine_standin/standin_options.h"

#include "core/cfg_load.h"

// The engine's run "-m <file>" as the stand-in does it: it reads the
// configuration and its description with the editor's own loaders, tells
// its steps in progress lines, makes the next numbered output folder and
// writes into it every file that the editor's report buttons open, each
// saying that no model was fitted.
class ModelRun
{
public:
    explicit ModelRun(const StandinOptions &options);
    ~ModelRun();
    // Returns the exit code: the one asked for, or 1 when a step failed.
    int exec(const QString &cfgArgument);

private:
    bool load();
    bool check();
    bool count();
    bool makeFolder();
    bool writeAnalysisReport();
    bool writeOfficeReports();
    bool drawCharts();
    bool writeModelFile();
    bool write(const char *suffix, const QByteArray &bytes);

    const StandinOptions &options_;
    ProgressPrinter out_;
    QString cfgArgument_;
    CfgLoad load_;
    RunFindings run_;
    Report report_;  // the analysis report, written in three forms
    QString prefix_; // <folder>/<name>, the stem of every file
};
