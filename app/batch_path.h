#pragma once

#include <QStringList>

// The batch path of the program: "quva-cfg-editor cfgfile option [option...]".
// Loads the configuration, applies the options in order and writes the file
// back. Returns the exit code: 0 when the list was applied (even if the
// file could not be written), 99 when the file could not be loaded or an
// option was refused, in which case nothing is written. Expects the C
// library's numeric locale to be "C", as main sets it.
int runBatch(const QStringList &args);

// "--help" and "--version" as the only argument: prints on standard output
// and returns true; returns false for every other argument list.
bool handleInfoOption(const QStringList &args);
