#pragma once

#include "expr/functions/function_support.h"

// Conversions between numbers and text, in the Fast parser only. A string
// argument of ftoa, itoa and ftoh comes back as it is; a number argument of
// atof and htof comes back as a number.

QUVA_DECLARE_FUNCTION(MuFToAX)
QUVA_DECLARE_FUNCTION(MuIToAX)
QUVA_DECLARE_FUNCTION(MuFToHX)
QUVA_DECLARE_FUNCTION(MuAToFX)
QUVA_DECLARE_FUNCTION(MuHToFX)
// htoa: a non-string gives the null string.
QUVA_DECLARE_FUNCTION(MuHToFA)
// codepoint: the code of the last 16-bit character; empty gives NULL.
QUVA_DECLARE_FUNCTION(MuAsciiX)
