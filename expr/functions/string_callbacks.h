#pragma once

#include "expr/functions/function_support.h"

// The string functions of the Fast parser. Text arguments are read with
// GetString and numbers with GetFloat truncated to 32 bits, so a wrong type
// is the engine's type error. Texts come back as strings, positions and
// counts as integers, tests as booleans.

QUVA_DECLARE_FUNCTION(MuSubstrX)
// substring(x,s,e): the null string when e is not above s.
QUVA_DECLARE_FUNCTION(MuSubStringX)
QUVA_DECLARE_FUNCTION(MuLeftX)
QUVA_DECLARE_FUNCTION(MuRightX)
QUVA_DECLARE_FUNCTION(MuStartsWith)
QUVA_DECLARE_FUNCTION(MuEndsWith)
QUVA_DECLARE_FUNCTION(MuStrReplace)
// Each of the next four serves two spellings of its name.
QUVA_DECLARE_FUNCTION(MuIndexOf)
QUVA_DECLARE_FUNCTION(MuIndexOf2)
QUVA_DECLARE_FUNCTION(MuLastIndexOf)
QUVA_DECLARE_FUNCTION(MuLastIndexOf2)
QUVA_DECLARE_FUNCTION(MuContains)
QUVA_DECLARE_FUNCTION(MuCountText)
QUVA_DECLARE_FUNCTION(MuToLowerX)
QUVA_DECLARE_FUNCTION(MuToUpperX)
QUVA_DECLARE_FUNCTION(MuToCaseFoldedX)
QUVA_DECLARE_FUNCTION(MuTrimX)
QUVA_DECLARE_FUNCTION(MuLTrimX)
QUVA_DECLARE_FUNCTION(MuRTrimX)
QUVA_DECLARE_FUNCTION(MuTrim2X)
// charAt(x,i): a number, the code of a character. A non-string comes back as
// a number, the null string gives NULL, the empty string -1, and a position
// outside the text NULL.
QUVA_DECLARE_FUNCTION(MuCharAtX)
// The number tests: a non-string or the null string gives the integer 1.
QUVA_DECLARE_FUNCTION(MuIsNumber)
QUVA_DECLARE_FUNCTION(MuIsNumberStrict)
QUVA_DECLARE_FUNCTION(MuIsInteger)
QUVA_DECLARE_FUNCTION(MuIsIntegerStrict)
// Encodings.
QUVA_DECLARE_FUNCTION(MuAToB64X)
QUVA_DECLARE_FUNCTION(MuB64ToAX)
QUVA_DECLARE_FUNCTION(MuAToB642X)
QUVA_DECLARE_FUNCTION(MuB64ToA2X)
QUVA_DECLARE_FUNCTION(MuUrlEncode)
QUVA_DECLARE_FUNCTION(MuXmlEncode)
QUVA_DECLARE_FUNCTION(MuJsonEncode)
