#pragma once

#include <QString>

// The numbered folder of a run, <dir>/<name>_NNN beside <dir>/<name>.CfgXML,
// where the editor looks for the newest run with latestOutputPrefix.

// The name part of a configuration's path: the file name cut at its last
// ".CfgXML", as the editor cuts it.
QString configurationBaseName(const QString &cfgPath);

// Makes the folder that follows the highest number in use (001 when there
// is none, 003 after 002) and returns its path; numbers are found in any
// case of the name, as the editor finds them. Empty when the folder could
// not be made or 999 is taken; *why then tells the reason.
QString makeNextOutputFolder(const QString &cfgPath, QString *why);
