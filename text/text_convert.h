#pragma once

// Conversions between text and values that the whole program stands on:
// typed reading of attributes, the number readers of the expression language,
// Base64, trimming, and the number form of the files.

#include "text/base64.h"
#include "text/number_text.h"
#include "text/stream_number.h"
#include "text/trim.h"

// Typed reading of an attribute's text, which may be null. They use the C
// library, so the number format is that of its locale, which the program
// leaves at "C".

// atoi of the text; the default for a null or empty text.
int chk_atoi(const char *text, int defaultValue);
// atof of the text; the default for a null or empty text.
double chk_atof(const char *text, double defaultValue);
// The low byte of atoi of the text as a truth value ("256" is false); the
// default for a null or empty text.
bool chk_atob(const char *text, bool defaultValue);
// The first byte of the text; the default for a null or empty text.
char chk_char(const char *text, char defaultValue);
// The text itself, even when empty; the default only for a null text.
const char *chk_str(const char *text, const char *defaultValue);
