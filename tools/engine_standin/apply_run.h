#pragma once

#include "tools/engine_standin/apply_command.h"
#include "tools/engine_standin/progress_printer.h"
#include "tools/engine_standin/report.h"
#include "tools/engine_standin/standin_options.h"

// The engine's apply command as the stand-in does it, in the folder it is
// started in (the apply page's output directory): it reads the command,
// looks for the model and the data source, tells its steps in progress
// lines and writes notes, <model>_appliedOn_<data>_apply.txt, with the drift
// reports that the letters d and w ask for (_driftReport.xml, .doc). Every
// file says that no model was applied. A model that is not there ends the
// run with exit code 1; the data source is only looked for, as the
// stand-in reads no data.
class ApplyRun
{
public:
    explicit ApplyRun(const StandinOptions &options);
    // Returns the exit code: the one asked for, 1 when the model is not
    // there or a note could not be written, 2 when the command is unreadable.
    int exec();

private:
    bool findModel();
    bool findDataSource();
    bool skipScoring();
    bool writeNotes();
    Report notes() const;

    const StandinOptions &options_;
    ProgressPrinter out_;
    ApplyCommand command_;
    QString dataFound_; // where the data source was found, or why not
    QString stem_;      // <model>_appliedOn_<data>
};
