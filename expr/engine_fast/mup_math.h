#pragma once

#include "expr/null_value.h"

#include <QtGlobal>

#include <cmath>
#include <limits>

// The arithmetic of the Fast parser's operators. NULL is recognised by its
// 64 bits only; the order in which two NaN operands win is pinned down here
// rather than left to the compiler's choice of operand order.

namespace mup {

inline bool isNullNumber(double d) { return quva::isNull(d); }
inline bool isNaNNumber(double d) { return d != d; }

// With two NaN operands, '+' and '*' give the right one.
inline double addNumbers(double x, double y)
{
    return (isNaNNumber(x) && isNaNNumber(y)) ? y : x + y;
}
inline double mulNumbers(double x, double y)
{
    return (isNaNNumber(x) && isNaNNumber(y)) ? y : x * y;
}
// With two NaN operands, '-' and '/' give the left one.
inline double subNumbers(double x, double y)
{
    return (isNaNNumber(x) && isNaNNumber(y)) ? x : x - y;
}
inline double divNumbers(double x, double y)
{
    return (isNaNNumber(x) && isNaNNumber(y)) ? x : x / y;
}

// Truncation to a 64-bit integer as the processor does it: an infinity or a
// value out of range gives the lowest integer instead of undefined behaviour.
inline qint64 truncToInt64(double d)
{
    if (!(d >= -9223372036854775808.0 && d < 9223372036854775808.0))
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(d);
}

// y equal to 0 gives _nan before NULL is looked at; a NaN operand that is not
// NULL gives _nan; a divisor that truncates to 0 gives _nan as well.
double modNumbers(double x, double y);
double intPower(double x, qint64 n);

// NULL on either side gives NULL; whole exponents 1 to 5 are multiplied out,
// other whole exponents that fit an int go through repeated squaring.
inline double powNumbers(double x, double y)
{
    if (isNullNumber(x) || isNullNumber(y))
        return quva::nullValue();
    if (std::trunc(y) != y || std::fabs(y) > 2147483647.0)
        return std::pow(x, y);
    switch (static_cast<int>(y)) {
    case 1:
        return x;
    case 2:
        return x * x;
    case 3:
        return x * x * x;
    case 4:
        return x * x * x * x;
    case 5:
        return x * x * x * x * x;
    default:
        return intPower(x, static_cast<qint64>(y));
    }
}

// Bit operators on the operands truncated to 64-bit integers. NULL on either
// side gives NULL, another NaN gives _nan. A shift count outside 0..63 shifts
// every bit out: 0, or -1 for a negative value shifted right.
double bitAndNumbers(double x, double y);
double bitOrNumbers(double x, double y);
double shiftLeftNumbers(double x, double y);
double shiftRightNumbers(double x, double y);

} // namespace mup
