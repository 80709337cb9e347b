#pragma once

#include "tools/engine_standin/standin_options.h"

// The report converter "xml2html <name>_analysisReport.xml" as the stand-in
// does it, in the run folder: it reads the XML report with the program's
// own XML reader and writes <name>_analysisReport.html beside it, showing
// the charts that lie there. Returns the exit code: 1 when the report
// cannot be read or the page not written.
int convertReport(const StandinOptions &options);
