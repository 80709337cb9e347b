#pragma once

#include "expr/engine_fast/mup_math.h"
#include "expr/engine_fast/mup_value.h"

// The built-in operators on numbers, shared by the operator objects and by
// the evaluation walk, which applies them in place when both operands are of
// a type the operator takes without conversion. Anything else goes to the
// operator object, which raises the type errors.

namespace mup {

enum ENumericOp : int {
    nopNone = 0,
    nopAdd,
    nopSub,
    nopMul,
    nopDiv,
    nopMod,
    nopPow,
    nopEQ,
    nopNEQ,
    nopLT,
    nopGT,
    nopLE,
    nopGE,
    nopLAnd,
    nopLOr,
    nopSign
};

// The six comparisons, for numbers and for strings alike.
template <typename T>
Q_ALWAYS_INLINE bool compareBy(ENumericOp op, const T &x, const T &y)
{
    switch (op) {
    case nopEQ: return x == y;
    case nopNEQ: return x != y;
    case nopLT: return x < y;
    case nopGT: return x > y;
    case nopLE: return x <= y;
    case nopGE: return x >= y;
    default: return false;
    }
}

// NULL on either side gives NULL, otherwise the floating-point comparison.
Q_ALWAYS_INLINE void setComparison(Value &result, ENumericOp op, double x, double y)
{
    if (isNullNumber(x) || isNullNumber(y))
        result.SetNull();
    else
        result = compareBy(op, x, y);
}

// NULL and false is false; NULL and anything else is NULL.
inline void setLogicalAnd(Value &result, double x, double y)
{
    const bool xNull = isNullNumber(x);
    const bool yNull = isNullNumber(y);
    if (!xNull && !yNull)
        result = (x != 0.0 && y != 0.0);
    else if ((xNull && !yNull && y == 0.0) || (yNull && !xNull && x == 0.0))
        result = false;
    else
        result.SetNull();
}

// NULL or false is NULL; NULL or anything else is that other operand's
// number, not reduced to 1.
inline void setLogicalOr(Value &result, double x, double y)
{
    const bool xNull = isNullNumber(x);
    const bool yNull = isNullNumber(y);
    if (!xNull && !yNull)
        result = !(x == 0.0 && y == 0.0);
    else if ((xNull && !yNull && y == 0.0) || (yNull && x == 0.0))
        result.SetNull();
    else
        result = xNull ? y : x;
}

inline double negateNumber(double x)
{
    return isNullNumber(x) ? x : -x;
}

template <ENumericOp Op>
Q_ALWAYS_INLINE double arithmetic(double x, double y)
{
    if constexpr (Op == nopAdd)
        return addNumbers(x, y);
    else if constexpr (Op == nopSub)
        return subNumbers(x, y);
    else if constexpr (Op == nopMul)
        return mulNumbers(x, y);
    else if constexpr (Op == nopDiv)
        return divNumbers(x, y);
    else if constexpr (Op == nopMod)
        return modNumbers(x, y);
    else
        return powNumbers(x, y);
}

// Applies Op to x and y into `result` if their types need no conversion;
// false leaves everything untouched. `result` may be x itself.
template <ENumericOp Op>
Q_ALWAYS_INLINE bool applyNumericBinary(Value &result, const Value &x, const Value &y)
{
    if constexpr (Op == nopLAnd || Op == nopLOr) {
        if (x.isString() || y.isString())
            return false;
        if constexpr (Op == nopLAnd)
            setLogicalAnd(result, x.number(), y.number());
        else
            setLogicalOr(result, x.number(), y.number());
        return true;
    } else if constexpr (Op >= nopEQ && Op <= nopGE) {
        // A boolean's number is its truth: 0, 1 or NULL.
        if (!(x.isNumeric() && y.isNumeric()) && !(x.isBool() && y.isBool()))
            return false;
        setComparison(result, Op, x.number(), y.number());
        return true;
    } else {
        static_assert(Op >= nopAdd && Op <= nopPow, "a binary operator");
        if (!(x.isNumeric() && y.isNumeric()))
            return false;
        result = arithmetic<Op>(x.number(), y.number());
        return true;
    }
}

} // namespace mup
