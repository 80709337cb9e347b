#pragma once

#include <QString>

// Trimming for the string functions of the expression language. White space
// is what QChar::isSpace says, and U+0000 too.
//
// These keep two long-standing quirks that saved formulas rely on: a text
// whose only non-blank character is its last one (" a", and "a" itself) trims
// to the empty string in myTrim and myTrimLeft, and myTrimRight never removes
// the first character (a text of blanks keeps one blank).
// An empty argument, and a text with nothing to remove, come back unchanged.

QString myTrim(const QString &text);
QString myTrimLeft(const QString &text);
QString myTrimRight(const QString &text);
