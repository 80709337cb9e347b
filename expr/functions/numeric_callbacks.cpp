#include "expr/functions/numeric_callbacks.h"

#include "expr/functions/numeric_functions.h"

namespace quva {

void assignKept(mup::IValue &ret, const mup::IValue &r)
{
    switch (r.GetType().unicode()) {
    case 'b': {
        const double truth = r.GetBool();
        ret = truth;
        break;
    }
    case 's': {
        const QString text = r.GetString();
        ret = text;
        break;
    }
    case 'v':
        ret = 0;
        break;
    default: {
        const double number = r.GetFloat();
        ret = number;
        break;
    }
    }
}

} // namespace quva

using quva::isStringValue;

namespace {

// Whether the first argument of nvl and nvl2 is missing: a null string, or a
// number with the NULL bits.
bool isNullArgument(const mup::IValue &a)
{
    if (isStringValue(a))
        return a.GetString().isNull();
    return quva::isNull(a.GetFloat());
}

// A function of one number whose result is a number.
void evalUnary(mup::IValue &ret, const mup::IValue *const *args, double (*f)(double))
{
    const double result = f(args[0]->GetFloat());
    ret = result;
}

} // namespace

QUVA_DEFINE_FUNCTION(MuIsNullX, "isNull", 1, "isNull(x) - test if x is null")
void MuIsNullX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    if (isStringValue(*args[0])) {
        const bool result = args[0]->GetString().isNull();
        ret = result;
    } else {
        ret = quva::isNull(args[0]->GetFloat()) ? 1 : 0;
    }
}

QUVA_DEFINE_FUNCTION(MuIsNanX, "isNan", 1, "isNan(x) - test if x is nan")
void MuIsNanX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    if (isStringValue(*args[0]))
        ret = 1;
    else
        ret = quva::isNanBits(args[0]->GetFloat()) ? 1 : 0;
}

QUVA_DEFINE_FUNCTION(MuIsFiniteX, "isFinite", 1, "isFinite(x) - test if x is finite")
void MuIsFiniteX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    if (isStringValue(*args[0]))
        ret = 0;
    else
        ret = quva::isFiniteBits(args[0]->GetFloat()) ? 1 : 0;
}

QUVA_DEFINE_FUNCTION(MuIsMissingX, "isMissing", 1, "isMising(x) - test if x is missing")
void MuIsMissingX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    if (isStringValue(*args[0])) {
        const bool result = args[0]->GetString().isEmpty();
        ret = result;
    } else {
        ret = quva::isNull(args[0]->GetFloat()) ? 1 : 0;
    }
}

QUVA_DEFINE_FUNCTION(MuIsTrue, "isTrue", 1, "isTrue(x) - test if x is true")
void MuIsTrue::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    if (isStringValue(*args[0])) {
        ret = quva::isTrueText(args[0]->GetString()) ? 1 : 0;
    } else {
        const bool result = quva::fnIsTrue(args[0]->GetFloat()) != 0.0;
        ret = result;
    }
}

QUVA_DEFINE_FUNCTION(MuNotX, "not", 1, "not(x) - boolean not")
void MuNotX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double x = args[0]->GetFloat();
    if (quva::isNull(x)) {
        ret = x;
    } else {
        const bool result = x == 0.0;
        ret = result;
    }
}

QUVA_DEFINE_FUNCTION(MuNVLX, "nvl", 2, "nvl(a,b) - if a is null return b, otherwise return a")
void MuNVLX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, isNullArgument(*args[0]) ? *args[1] : *args[0]);
}

QUVA_DEFINE_FUNCTION(MuNVLX2, "nvl2", 3,
                     "nvl2(a,b,c) - if a is null return c, otherwise return b")
void MuNVLX2::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, isNullArgument(*args[0]) ? *args[2] : *args[1]);
}

QUVA_DEFINE_FUNCTION(MuNaNVLX, "nanvl", 2,
                     "nanvl(a,b) - if a is nan return b, otherwise return a")
void MuNaNVLX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, quva::isNaN(args[0]->GetFloat()) ? *args[1] : *args[0]);
}

QUVA_DEFINE_FUNCTION(MuNaNVLX2, "nanvl2", 3,
                     "nanvl2(a,b,c) -  if a is nan return c, otherwise return b")
void MuNaNVLX2::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, quva::isNaN(args[0]->GetFloat()) ? *args[2] : *args[1]);
}

QUVA_DEFINE_FUNCTION(MuFiniteVLX, "finitevl", 2,
                     "finitevl(a,b) - if a is finite return a, otherwise return b")
void MuFiniteVLX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, quva::isFiniteBits(args[0]->GetFloat()) ? *args[0] : *args[1]);
}

QUVA_DEFINE_FUNCTION(MuFiniteVLX2, "finitevl2", 3,
                     "finitevl2(a,b,c) - if a is finite return b, otherwise return c")
void MuFiniteVLX2::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    quva::assignKept(ret, quva::isFiniteBits(args[0]->GetFloat()) ? *args[1] : *args[2]);
}

QUVA_DEFINE_FUNCTION(MuSQR, "sqr", 1, "sqr(x) - return x\u00B2")
void MuSQR::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalUnary(ret, args, quva::fnSqr);
}

QUVA_DEFINE_FUNCTION(MuHaversineDistance, "hdist", 4,
                     "hdist(lat1,lon1,lat2,long2) - return earth distance")
void MuHaversineDistance::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double result = quva::fnHdist(args[0]->GetFloat(), args[1]->GetFloat(),
                                        args[2]->GetFloat(), args[3]->GetFloat());
    ret = result;
}

QUVA_DEFINE_FUNCTION(MuAtan2, "atan2", 1,
                     "atan2(y,x) - return the angle between (1,0) and (x,y)")
void MuAtan2::Eval(mup::IValue &ret, const mup::IValue *const *args, int argc)
{
    // The declared count of 1 lets only atan2(y) through: there is no x to
    // read then, so the result is NULL.
    if (argc < 2) {
        static_cast<void>(args[0]->GetFloat()); // a string is still a type error
        ret = quva::nullValue();
        return;
    }
    const double result = quva::fnAtan2(args[0]->GetFloat(), args[1]->GetFloat());
    ret = result;
}

QUVA_DEFINE_FUNCTION(NDaysInMonth, "nDaysInMonth", 2,
                     "nDaysInMonth(month,year) - return the number of days in the given month;")
void NDaysInMonth::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double result = quva::fnNDaysInMonth(args[0]->GetFloat(), args[1]->GetFloat());
    ret = result;
}

QUVA_DEFINE_FUNCTION(MuCeilX, "ceil", 1,
                     "ceil(x) - Returns the smallest integral value that is not less than x "
                     "(round up).")
void MuCeilX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalUnary(ret, args, quva::fnCeil);
}

QUVA_DEFINE_FUNCTION(MuFloorX, "floor", 1,
                     "floor(x) - Returns the largest integral value that is not greater than x "
                     "(round down).")
void MuFloorX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalUnary(ret, args, quva::fnFloor);
}

QUVA_DEFINE_FUNCTION(MuFloor2X, "floor2", 2,
                     "floor2(x,y) - Returns the largest multiple of y lower or equal to x")
void MuFloor2X::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double result = quva::fnFloor2(args[0]->GetFloat(), args[1]->GetFloat());
    ret = result;
}

QUVA_DEFINE_FUNCTION(MuRoundX, "round", 1, "round(x) - round to closest integer.")
void MuRoundX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalUnary(ret, args, quva::fnRound);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuRand, "rand", 1, "rand(x) - uniform random number inside [0 x[")
void MuRand::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double result = quva::fnRand(args[0]->GetFloat(), m_context);
    ret = result;
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuRand1, "rand1", 0, "rand1() - uniform random number inside [0 1[")
void MuRand1::Eval(mup::IValue &ret, const mup::IValue *const *, int)
{
    const double result = quva::fnRand1(m_context);
    ret = result;
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuRandN, "randN", 1,
                             "randN(x) - uniform random integer number inside [0 x[")
void MuRandN::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const double result = quva::fnRandN(args[0]->GetFloat(), m_context);
    ret = result;
}
