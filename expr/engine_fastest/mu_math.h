#pragma once

#include "expr/null_value.h"

#include <cmath>
#include <cstdint>

// The arithmetic of the compiled engine, shared by the running loop and by
// constant folding. NULL is recognised by its 64 bits only.

namespace mu {

inline bool isNullValue(double d) { return quva::isNull(d); }
inline double truth(bool b) { return b ? 1.0 : 0.0; }

// '+' and '*' leave the right operand's NaN when both are NaN, '-' and '/'
// the left one's. The compiler may swap the operands of a commutative
// operation, so the order is pinned down for the two commutative ones.
inline double addOp(double l, double r)
{
#if defined(__x86_64__) || (defined(__i386__) && defined(__SSE2_MATH__))
    __asm__("addsd %1, %0" : "+x"(r) : "x"(l));
    return r;
#else
    return (l != l && r != r) ? r : l + r;
#endif
}

inline double mulOp(double l, double r)
{
#if defined(__x86_64__) || (defined(__i386__) && defined(__SSE2_MATH__))
    __asm__("mulsd %1, %0" : "+x"(r) : "x"(l));
    return r;
#else
    return (l != l && r != r) ? r : l * r;
#endif
}

inline double subOp(double l, double r) { return l - r; }
inline double divOp(double l, double r) { return l / r; }

// Truncation to a 64-bit integer as the processor does it: a NaN, an
// infinity or a value out of range gives the lowest integer instead of
// undefined behaviour.
inline std::int64_t truncToInt64(double d)
{
    if (!(d >= -9223372036854775808.0 && d < 9223372036854775808.0))
        return INT64_MIN;
    return static_cast<std::int64_t>(d);
}

// Integer remainder with the sign of x; a divisor of 0 gives -1.
inline double modTruncated(double x, double y)
{
    const std::int64_t a = truncToInt64(x);
    const std::int64_t b = truncToInt64(y);
    if (b == 0)
        return -1.0;
    if (b == -1) // INT64_MIN % -1 would overflow; every remainder by -1 is 0
        return 0.0;
    return static_cast<double>(a % b);
}

inline double modOp(double x, double y)
{
    if (isNullValue(x) || isNullValue(y))
        return quva::nullValue();
    return modTruncated(x, y);
}

inline double powOp(double x, double y)
{
    if (isNullValue(x) || isNullValue(y))
        return quva::nullValue();
    return std::pow(x, y);
}

// Comparisons: NULL on either side gives NULL, otherwise the floating-point
// comparison, which is false for a NaN except with '!='.
#define MU_COMPARISON(name, op)                                                  \
    inline double name(double x, double y)                                       \
    {                                                                            \
        if (isNullValue(x) || isNullValue(y))                                    \
            return quva::nullValue();                                            \
        return truth(x op y);                                                    \
    }
MU_COMPARISON(leOp, <=)
MU_COMPARISON(geOp, >=)
MU_COMPARISON(neqOp, !=)
MU_COMPARISON(eqOp, ==)
MU_COMPARISON(ltOp, <)
MU_COMPARISON(gtOp, >)
#undef MU_COMPARISON

inline double landOp(double x, double y)
{
    const bool xNull = isNullValue(x);
    const bool yNull = isNullValue(y);
    if (!xNull && !yNull)
        return truth(x != 0.0 && y != 0.0);
    if (xNull)
        return (!yNull && y == 0.0) ? 0.0 : quva::nullValue();
    return x == 0.0 ? 0.0 : quva::nullValue();
}

// A NULL side gives way to the other side's number, not reduced to 1.
inline double lorOp(double x, double y)
{
    const bool xNull = isNullValue(x);
    const bool yNull = isNullValue(y);
    if (!xNull && !yNull)
        return truth(!(x == 0.0 && y == 0.0));
    if (xNull)
        return (!yNull && y == 0.0) ? quva::nullValue() : y;
    return x == 0.0 ? quva::nullValue() : x;
}

// The prefix minus flips the sign bit without a test, so -NULL is a NaN
// without the NULL bits.
inline double negOp(double x)
{
    return quva::fromBits(quva::toBits(x) ^ 0x8000000000000000ull);
}

} // namespace mu
