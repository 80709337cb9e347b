#pragma once

// Start-up steps shared by the program and its window module.

// All number text of the process in the C format, whatever the machine's
// regional settings: Qt's default locale, and the C library's numeric
// locale, which the application object takes from the environment and the
// number readers of the files rely on.
void fixNumberFormat();

// Three or more entries take the batch path, unless entry 0, the program's
// own path, is "-d". Entry 1 is not looked at. The entries are those left
// once an application object has taken its own options, if there is one.
bool takesBatchPath(int argc, char *argv[]);
