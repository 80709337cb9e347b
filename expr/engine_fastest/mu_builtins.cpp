#include "expr/engine_fastest/mu_math.h"
#include "expr/engine_fastest/mu_parser.h"

#include <cmath>

namespace mu {

namespace {

// One-argument functions give NULL for NULL before any domain check.
#define MU_UNARY(name, expression)                                                     \
    double name(double x)                                                              \
    {                                                                                  \
        if (isNullValue(x))                                                            \
            return x;                                                                  \
        return expression;                                                             \
    }
MU_UNARY(fSin, std::sin(x))
MU_UNARY(fCos, std::cos(x))
MU_UNARY(fTan, std::tan(x))
MU_UNARY(fAsin, std::asin(x))
MU_UNARY(fAcos, std::acos(x))
MU_UNARY(fAtan, std::atan(x))
MU_UNARY(fSinh, std::sinh(x))
MU_UNARY(fCosh, std::cosh(x))
MU_UNARY(fTanh, std::tanh(x))
MU_UNARY(fAsinh, std::asinh(x))
MU_UNARY(fAcosh, std::acosh(x))
MU_UNARY(fAtanh, std::atanh(x))
MU_UNARY(fLog2, std::log(x) / std::log(2.0))
MU_UNARY(fLog10, std::log10(x))
MU_UNARY(fLn, std::log(x))
MU_UNARY(fExp, std::exp(x))
MU_UNARY(fSqrt, std::sqrt(x))
MU_UNARY(fSign, x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0))
MU_UNARY(fRint, std::floor(x + 0.5))
MU_UNARY(fAbs, std::fabs(x))
#undef MU_UNARY

double fAtan2(double y, double x)
{
    if (isNullValue(y) || isNullValue(x))
        return quva::nullValue();
    return std::atan2(y, x);
}

// The multi-argument functions take their values as they are: no NULL test.
void requireArguments(int n, const wchar_t *message)
{
    if (n < 1)
        throw ParserError(message);
}

double sumOf(const double *a, int n)
{
    double r = a[0];
    for (int i = 1; i < n; ++i)
        r = addOp(r, a[i]);
    return r;
}

double fSum(const double *a, int n)
{
    requireArguments(n, L"too few arguments for function sum.");
    return sumOf(a, n);
}

double fAvg(const double *a, int n)
{
    requireArguments(n, L"too few arguments for function sum.");
    return sumOf(a, n) / n;
}

double fMin(const double *a, int n)
{
    requireArguments(n, L"too few arguments for function min.");
    double r = a[0];
    for (int i = 1; i < n; ++i)
        if (a[i] < r)
            r = a[i];
    return r;
}

double fMax(const double *a, int n)
{
    requireArguments(n, L"too few arguments for function min.");
    double r = a[0];
    for (int i = 1; i < n; ++i)
        if (a[i] > r)
            r = a[i];
    return r;
}

} // namespace

int builtInExecOp(GenericFun fun, int argc)
{
    if (fun == reinterpret_cast<GenericFun>(fAbs))
        return exABS;
    if (fun == reinterpret_cast<GenericFun>(fSqrt))
        return exSQRT;
    if (argc == 2 && fun == reinterpret_cast<GenericFun>(fMin))
        return exMIN2;
    if (argc == 2 && fun == reinterpret_cast<GenericFun>(fMax))
        return exMAX2;
    return -1;
}

void defineBuiltIns(Parser &parser)
{
    const struct
    {
        const wchar_t *name;
        FunType1 fun;
    } unary[] = {
        {L"sin", fSin}, {L"cos", fCos}, {L"tan", fTan}, {L"asin", fAsin}, {L"acos", fAcos},
        {L"atan", fAtan}, {L"sinh", fSinh}, {L"cosh", fCosh}, {L"tanh", fTanh},
        {L"asinh", fAsinh}, {L"acosh", fAcosh}, {L"atanh", fAtanh}, {L"log2", fLog2},
        {L"log10", fLog10}, {L"log", fLog10}, {L"ln", fLn}, {L"exp", fExp}, {L"sqrt", fSqrt},
        {L"sign", fSign}, {L"rint", fRint}, {L"abs", fAbs},
    };
    for (const auto &f : unary)
        parser.DefineFun(f.name, f.fun);
    parser.DefineFun(L"atan2", fAtan2);
    parser.DefineFun(L"sum", fSum);
    parser.DefineFun(L"avg", fAvg);
    parser.DefineFun(L"min", fMin);
    parser.DefineFun(L"max", fMax);
    parser.DefineConst(L"_pi", 3.141592653589793);
    parser.DefineConst(L"_e", 2.718281828459045);
}

} // namespace mu
