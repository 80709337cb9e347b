#pragma once

#include <QByteArray>

// The 8-bit code page that files without a byte-order mark are taken to be
// in when they are no valid UTF-8: Windows-1252.

// Strict check: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(const char *data, int size);

// Unicode code point of a Windows-1252 byte. The five unassigned bytes map to
// the control characters of the same value.
char32_t windows1252ToUnicode(unsigned char byte);

// Windows-1252 byte of a code point, or '?' when it has none.
char windows1252FromUnicode(char32_t code);

QByteArray windows1252ToUtf8(const char *data, int size);

// Appends the UTF-8 form of `code` (U+FFFD for what is no scalar value).
void appendUtf8(QByteArray &out, char32_t code);
