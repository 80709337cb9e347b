#pragma once

#include <QStringList>

// The batch path of the program: "quva-cfg-editor cfgfile option [option...]".
// Loads the configuration, applies the options in order and writes the file
// back. Returns the exit code: 0 when the list was applied (even if the
// file could not be written), 99 when the file could not be loaded or an
// option was refused, in which case nothing is written. Its messages go to
// the reporter in force (standard error unless the caller installs another).
// Expects the numbers of the process in the C format (fixNumberFormat()).
int runBatch(const QStringList &args);

// "--help" and "--version" as the only argument: prints on standard output
// and returns true; returns false for every other argument list.
bool handleInfoOption(const QStringList &args);
