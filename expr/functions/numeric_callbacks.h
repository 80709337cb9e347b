#pragma once

#include "expr/functions/function_support.h"

// The numeric and null functions of the Fast parser. Each class reads its
// arguments through mup::IValue, so a wrong type raises the engine's type
// error by itself; strings get a branch of their own where the function has
// one.

// NULL tests.
QUVA_DECLARE_FUNCTION(MuIsNullX)
QUVA_DECLARE_FUNCTION(MuIsNanX)
QUVA_DECLARE_FUNCTION(MuIsFiniteX)
QUVA_DECLARE_FUNCTION(MuIsMissingX)
QUVA_DECLARE_FUNCTION(MuIsTrue)
QUVA_DECLARE_FUNCTION(MuNotX)

// Choosing a value; the chosen argument keeps its kind.
QUVA_DECLARE_FUNCTION(MuNVLX)
QUVA_DECLARE_FUNCTION(MuNVLX2)
QUVA_DECLARE_FUNCTION(MuNaNVLX)
QUVA_DECLARE_FUNCTION(MuNaNVLX2)
QUVA_DECLARE_FUNCTION(MuFiniteVLX)
QUVA_DECLARE_FUNCTION(MuFiniteVLX2)

// Arithmetic.
QUVA_DECLARE_FUNCTION(MuSQR)
QUVA_DECLARE_FUNCTION(MuHaversineDistance)
// Registered with one argument although it reads two: atan2(y,x) is refused
// here as too many parameters and works in the compiled engine only. Called
// with one argument it gives NULL.
QUVA_DECLARE_FUNCTION(MuAtan2)
QUVA_DECLARE_FUNCTION(NDaysInMonth)
QUVA_DECLARE_FUNCTION(MuCeilX)
QUVA_DECLARE_FUNCTION(MuFloorX)
QUVA_DECLARE_FUNCTION(MuFloor2X)
QUVA_DECLARE_FUNCTION(MuRoundX)

// Random numbers from the generator of the ExprContext.
QUVA_DECLARE_CONTEXT_FUNCTION(MuRand)
QUVA_DECLARE_CONTEXT_FUNCTION(MuRand1)
QUVA_DECLARE_CONTEXT_FUNCTION(MuRandN)

namespace quva {

// Writes `r` into `ret` with its kind kept: a boolean as the number of its
// truth, a number as a number, a string as a string, void as the integer 0.
// `r` may be the object behind `ret`.
void assignKept(mup::IValue &ret, const mup::IValue &r);

inline bool isStringValue(const mup::IValue &v) { return v.GetType() == QLatin1Char('s'); }

} // namespace quva
