#pragma once

#include <QString>

// The editors that the server can start, and its journal.

// The program that edits `fileOrKind` (a file, or an extension alone such
// as ".CfgXML"), beside the server in the application directory; empty for
// a kind this family has no editor for here.
QString editorFor(const QString &fileOrKind);

// Whether `fileOrKind` is an extension alone, which asks for a new window.
bool isKindOnly(const QString &fileOrKind);

// Starts `program` detached: with `file` as its one argument in the file's
// folder, or with none in the home folder. The process id, or 0.
qint64 startEditor(const QString &program, const QString &file);

// One line on standard error for each window started or brought forward.
void journal(const QString &line);
