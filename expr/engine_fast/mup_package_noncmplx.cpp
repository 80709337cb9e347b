#include "expr/engine_fast/mup_package_noncmplx.h"

#include "expr/engine_fast/mup_error.h"
#include "expr/engine_fast/mup_math.h"
#include "expr/engine_fast/mup_parser.h"

#include <cmath>

namespace mup {

namespace {

template <double (*Operation)(double, double)>
void evalArithmetic(const ICallback &callback, IValue &ret, const IValue *const *args)
{
    const double x = numericArg(callback, args, 1);
    const double y = numericArg(callback, args, 2);
    asValue(ret) = Operation(x, y);
}

// The logarithms of the language: log is base 10, ln natural, and log2 is
// ln(x)/ln(2) as written, not the library's log2.
double log10Of(double x) { return std::log10(x); }
double lnOf(double x) { return std::log(x); }
double log2Of(double x) { return std::log(x) / std::log(2.0); }

struct MathFunction
{
    const char *name;
    double (*function)(double);
    const char *desc;
};

double sinOf(double x) { return std::sin(x); }
double cosOf(double x) { return std::cos(x); }
double tanOf(double x) { return std::tan(x); }
double sinhOf(double x) { return std::sinh(x); }
double coshOf(double x) { return std::cosh(x); }
double tanhOf(double x) { return std::tanh(x); }
double asinOf(double x) { return std::asin(x); }
double acosOf(double x) { return std::acos(x); }
double atanOf(double x) { return std::atan(x); }
double asinhOf(double x) { return std::asinh(x); }
double acoshOf(double x) { return std::acosh(x); }
double atanhOf(double x) { return std::atanh(x); }
double expOf(double x) { return std::exp(x); }
double sqrtOf(double x) { return std::sqrt(x); }
double absOf(double x) { return std::fabs(x); }

const MathFunction mathFunctions[] = {
    {"sin", sinOf, "sin(x) - sine function"},
    {"cos", cosOf, "cos(x) - cosine function"},
    {"tan", tanOf, "tan(x) - tangens function"},
    {"sinh", sinhOf, "sinh(x) - hyperbolic sine function"},
    {"cosh", coshOf, "cosh(x) - hyperbolic cosine"},
    {"tanh", tanhOf, "tanh(x) - hyperbolic tangent"},
    {"asin", asinOf, "asin(x) - arcus sine"},
    {"acos", acosOf, "acos(x) - arcus cosine"},
    {"atan", atanOf, "atan(x) - arcus tangens"},
    {"asinh", asinhOf, "asinh(x) - arcus hyperbolic sine"},
    {"acosh", acoshOf, "acosh(x) - arcus hyperbolic cosine"},
    {"atanh", atanhOf, "atanh(x) - arcus hyperbolic tangent"},
    {"log", log10Of, "log(x) - logarithm to the base 10"},
    {"log10", log10Of, "log10(x) - logarithm to the base 10"},
    {"log2", log2Of, "log2(x) - logarithm to the base 2"},
    {"ln", lnOf, "ln(x) - natural logarithm"},
    {"exp", expOf, "exp(x) - e raised to the power of x"},
    {"sqrt", sqrtOf, "sqrt(x) - square root of x"},
    {"abs", absOf, "abs(x) - absolute value of x"},
};

// The numbers of all arguments; code 18 when there is none.
void checkHasArguments(const ICallback &callback, int argc)
{
    if (argc < 1)
        throw ParserError(ecTOO_FEW_PARAMS, callback.GetIdent(), callback.GetExprPos());
}

} // namespace

void PackageNonCmplx::AddToParser(ParserX &parser)
{
    parser.DefineOprt(std::make_unique<OprtAdd>());
    parser.DefineOprt(std::make_unique<OprtSub>());
    parser.DefineOprt(std::make_unique<OprtMul>());
    parser.DefineOprt(std::make_unique<OprtDiv>());
    parser.DefineOprt(std::make_unique<OprtModulo>());
    parser.DefineOprt(std::make_unique<OprtPow>());
    parser.DefineInfixOprt(std::make_unique<OprtSign>());

    for (const MathFunction &f : mathFunctions)
        parser.DefineFun(std::make_unique<FunMathOne>(QString::fromLatin1(f.name), f.function,
                                                      QString::fromLatin1(f.desc)));
    parser.DefineFun(std::make_unique<FunMin>());
    parser.DefineFun(std::make_unique<FunMax>());
    parser.DefineFun(std::make_unique<FunSum>());

    parser.DefineConst(QStringLiteral("_pi"), Value(3.141592653589793));
    parser.DefineConst(QStringLiteral("_e"), Value(2.718281828459045));
}

OprtAdd::OprtAdd() : CallbackImpl(QStringLiteral("+"), 9, oaLEFT) { SetNumericOp(nopAdd); }
void OprtAdd::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<addNumbers>(*this, ret, args);
}
QString OprtAdd::GetDesc() const { return QStringLiteral("x + y - addition"); }

OprtSub::OprtSub() : CallbackImpl(QStringLiteral("-"), 9, oaLEFT) { SetNumericOp(nopSub); }
void OprtSub::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<subNumbers>(*this, ret, args);
}
QString OprtSub::GetDesc() const { return QStringLiteral("x - y - subtraction"); }

OprtMul::OprtMul() : CallbackImpl(QStringLiteral("*"), 10, oaLEFT) { SetNumericOp(nopMul); }
void OprtMul::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<mulNumbers>(*this, ret, args);
}
QString OprtMul::GetDesc() const { return QStringLiteral("x * y - multiplication"); }

OprtDiv::OprtDiv() : CallbackImpl(QStringLiteral("/"), 10, oaLEFT) { SetNumericOp(nopDiv); }
void OprtDiv::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<divNumbers>(*this, ret, args);
}
QString OprtDiv::GetDesc() const { return QStringLiteral("x / y - division"); }

OprtModulo::OprtModulo() : CallbackImpl(QStringLiteral("%"), 10, oaLEFT) { SetNumericOp(nopMod); }
void OprtModulo::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<modNumbers>(*this, ret, args);
}
QString OprtModulo::GetDesc() const
{
    return QStringLiteral("x % y - remainder of the integer parts");
}

OprtPow::OprtPow() : CallbackImpl(QStringLiteral("^"), 11, oaRIGHT) { SetNumericOp(nopPow); }
void OprtPow::Eval(IValue &ret, const IValue *const *args, int)
{
    evalArithmetic<powNumbers>(*this, ret, args);
}
QString OprtPow::GetDesc() const { return QStringLiteral("x ^ y - raise x to the power of y"); }

OprtSign::OprtSign() : CallbackImpl(QStringLiteral("-")) { SetNumericOp(nopSign); }
void OprtSign::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = numericArg(*this, args, 1);
    asValue(ret) = negateNumber(x);
}
QString OprtSign::GetDesc() const { return QStringLiteral("-x - negative sign"); }

FunMathOne::FunMathOne(const QString &ident, double (*function)(double), const QString &desc)
    : CallbackImpl(cmFUNC, ident, 1)
    , m_function(function)
    , m_desc(desc)
{
}

void FunMathOne::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = asValue(args[0]).GetFloat();
    asValue(ret) = isNullNumber(x) ? x : m_function(x);
}

FunSum::FunSum() : CallbackImpl(cmFUNC, QStringLiteral("sum"), -1) {}
void FunSum::Eval(IValue &ret, const IValue *const *args, int argc)
{
    checkHasArguments(*this, argc);
    double total = asValue(args[0]).GetFloat();
    for (int i = 1; i < argc; ++i)
        total = addNumbers(total, asValue(args[i]).GetFloat());
    asValue(ret) = total;
}
QString FunSum::GetDesc() const { return QStringLiteral("sum(x,y,...) - sum of all arguments"); }

FunMin::FunMin() : CallbackImpl(cmFUNC, QStringLiteral("min"), -1) {}
void FunMin::Eval(IValue &ret, const IValue *const *args, int argc)
{
    checkHasArguments(*this, argc);
    double lowest = asValue(args[0]).GetFloat();
    for (int i = 1; i < argc; ++i) {
        const double x = asValue(args[i]).GetFloat();
        if (x < lowest)
            lowest = x;
    }
    asValue(ret) = lowest;
}
QString FunMin::GetDesc() const { return QStringLiteral("min(x,y,...) - minimum of all arguments"); }

FunMax::FunMax() : CallbackImpl(cmFUNC, QStringLiteral("max"), -1) {}
void FunMax::Eval(IValue &ret, const IValue *const *args, int argc)
{
    checkHasArguments(*this, argc);
    double highest = asValue(args[0]).GetFloat();
    for (int i = 1; i < argc; ++i) {
        const double x = asValue(args[i]).GetFloat();
        if (x > highest)
            highest = x;
    }
    asValue(ret) = highest;
}
QString FunMax::GetDesc() const { return QStringLiteral("max(x,y,...) - maximum of all arguments"); }

} // namespace mup
