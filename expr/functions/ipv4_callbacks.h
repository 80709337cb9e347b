#pragma once

#include "expr/functions/function_support.h"

// The IPv4 functions of the Fast parser; every argument address is a string,
// and anything else raises the engine's type error.

QUVA_DECLARE_FUNCTION(IsIP4)
QUVA_DECLARE_FUNCTION(IP4tof)
QUVA_DECLARE_FUNCTION(IP4Part)
QUVA_DECLARE_FUNCTION(IP4RangeLow)
QUVA_DECLARE_FUNCTION(IP4RangeHigh)
