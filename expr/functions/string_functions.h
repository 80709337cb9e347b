#pragma once

#include <QString>

// The text work behind the string functions of the language, on QString.
// Positions count 16-bit characters from 0; every search is case-sensitive.

namespace quva {

// Occurrences of `y` in `x`; each search starts one character behind the
// last hit, so overlapping occurrences count ("aaa", "aa" gives 2).
int countText(const QString &x, const QString &y);

// The last position of `y` in `x`, searched from the end; an empty `y` is
// found behind the last character, at the length of `x`.
int lastIndexOf(const QString &x, const QString &y);

// `y` removed whole from the start as long as `x` starts with it, then from
// the end. An empty `y` leaves `x` as it stands.
QString trim2(const QString &x, const QString &y);

// The UTF-8 bytes: letters, digits and - . _ ~ stay, a blank becomes '+',
// every other byte %XX in upper-case hex.
QString urlEncode(const QString &x);
// "&" and "<" escaped, and a blank at the end and then one at the start
// written as "&#32;". Nothing else.
QString xmlEncode(const QString &x);
// Backslashes doubled, then double quotes escaped. Control characters stay.
QString jsonEncode(const QString &x);

QString utf8ToBase64(const QString &x);     // atob64
QString base64ToUtf8(const QString &x);     // b64toa
QString latin1ToBase64(const QString &x);   // atob642
QString base64ToLatin1(const QString &x);   // b64toa2

// The number tests of the language on a non-null text: "." is the decimal
// point and "," may not follow the integer part. The strict forms accept
// nothing but white space behind the number.
bool isNumberString(const QString &x, bool strict);
bool isIntegerString(const QString &x, bool strict);

} // namespace quva
