#include "expr/engine_fast/mup_package_common.h"

#include "expr/engine_fast/mup_math.h"
#include "expr/engine_fast/mup_parser.h"

namespace mup {

namespace {

// 'n' for the two numeric types; every other type is its own kind.
QChar compareKind(const Value &v)
{
    return v.isNumeric() ? QLatin1Char('n') : v.GetType();
}

// A comparison of two kinds: the right operand cannot become the left one's
// type, unless the left one is no comparable value at all.
[[noreturn]] void throwKindMismatch(const Value &a, const Value &b)
{
    const QChar kind = compareKind(a);
    if (kind == QLatin1Char('n') || kind == QLatin1Char('b') || kind == QLatin1Char('s'))
        b.throwTypeError(a.GetType(), 2);
    a.throwTypeError(b.GetType(), 1);
}

// The raw number of logical operand `arg` (1-based): a boolean's 0, 1 or
// NULL, or the number itself. A string is the type error.
double logicalOperand(const Value &v, int arg)
{
    if (v.GetType() == QLatin1Char('s'))
        v.throwTypeError(QLatin1Char('b'), arg);
    return v.number();
}

} // namespace

void PackageCommon::AddToParser(ParserX &parser)
{
    parser.AddValueReader(std::make_unique<StrValReader>());
    parser.AddValueReader(std::make_unique<HexValReader>());
    parser.AddValueReader(std::make_unique<DblValReader>());
    parser.AddValueReader(std::make_unique<BoolValReader>());
    parser.AddValueReader(std::make_unique<BinValReader>());

    parser.DefineOprt(std::make_unique<OprtLE>());
    parser.DefineOprt(std::make_unique<OprtGE>());
    parser.DefineOprt(std::make_unique<OprtLT>());
    parser.DefineOprt(std::make_unique<OprtGT>());
    parser.DefineOprt(std::make_unique<OprtEQ>(QStringLiteral("=")));
    parser.DefineOprt(std::make_unique<OprtEQ>(QStringLiteral("==")));
    parser.DefineOprt(std::make_unique<OprtNEQ>());
    parser.DefineOprt(std::make_unique<OprtLAnd>());
    parser.DefineOprt(std::make_unique<OprtLOr>());
    parser.DefineOprt(std::make_unique<OprtAnd>());
    parser.DefineOprt(std::make_unique<OprtOr>());
    parser.DefineOprt(std::make_unique<OprtShl>());
    parser.DefineOprt(std::make_unique<OprtShr>());

    parser.DefineInfixOprt(std::make_unique<OprtCastToFloat>());
    parser.DefineInfixOprt(std::make_unique<OprtCastToInt>());
}

OprtCompare::OprtCompare(const QString &ident, int precedence, ENumericOp op)
    : IOprtBin(ident, precedence, oaLEFT)
{
    SetNumericOp(op);
}

void OprtCompare::Eval(IValue &ret, const IValue *const *args, int)
{
    const Value &a = asValue(args[0]);
    const Value &b = asValue(args[1]);
    const QChar kind = compareKind(a);
    if (kind != compareKind(b))
        throwKindMismatch(a, b);
    Value &result = asValue(ret);
    if (kind == QLatin1Char('s')) {
        if (a.text().isNull() || b.text().isNull())
            result.SetNull();
        else
            result = compareBy(GetNumericOp(), a.text(), b.text());
        return;
    }
    if (kind != QLatin1Char('n') && kind != QLatin1Char('b'))
        a.GetFloatOfArg(1); // a void value: the type error
    // Numbers compare their value, booleans their truth (which keeps NULL).
    const double x = kind == QLatin1Char('n') ? a.number() : a.GetBool();
    const double y = kind == QLatin1Char('n') ? b.number() : b.GetBool();
    setComparison(result, GetNumericOp(), x, y);
}

QString OprtCompare::GetDesc() const
{
    return QStringLiteral("x %1 y - comparison; NULL on either side gives NULL").arg(GetIdent());
}

OprtEQ::OprtEQ(const QString &ident) : CallbackImpl(ident, 5, nopEQ) {}
OprtNEQ::OprtNEQ() : CallbackImpl(QStringLiteral("!="), 5, nopNEQ) {}
OprtLT::OprtLT() : CallbackImpl(QStringLiteral("<"), 6, nopLT) {}
OprtGT::OprtGT() : CallbackImpl(QStringLiteral(">"), 6, nopGT) {}
OprtLE::OprtLE() : CallbackImpl(QStringLiteral("<="), 6, nopLE) {}
OprtGE::OprtGE() : CallbackImpl(QStringLiteral(">="), 6, nopGE) {}

OprtLAnd::OprtLAnd() : CallbackImpl(QStringLiteral("&&"), 2, oaLEFT) { SetNumericOp(nopLAnd); }

void OprtLAnd::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = logicalOperand(asValue(args[0]), 1);
    const double y = logicalOperand(asValue(args[1]), 2);
    setLogicalAnd(asValue(ret), x, y);
}

QString OprtLAnd::GetDesc() const
{
    return QStringLiteral("x && y - logical and");
}

OprtLOr::OprtLOr() : CallbackImpl(QStringLiteral("||"), 1, oaLEFT) { SetNumericOp(nopLOr); }

void OprtLOr::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = logicalOperand(asValue(args[0]), 1);
    const double y = logicalOperand(asValue(args[1]), 2);
    setLogicalOr(asValue(ret), x, y);
}

QString OprtLOr::GetDesc() const
{
    return QStringLiteral("x || y - logical or");
}

OprtBits::OprtBits(const QString &ident, int precedence, double (*operation)(double, double),
                   const QString &desc)
    : IOprtBin(ident, precedence, oaLEFT)
    , m_operation(operation)
    , m_desc(desc)
{
}

void OprtBits::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = numericArg(*this, args, 1);
    const double y = numericArg(*this, args, 2);
    asValue(ret) = m_operation(x, y);
}

OprtAnd::OprtAnd()
    : CallbackImpl(QStringLiteral("&"), 4, bitAndNumbers, QStringLiteral("x & y - bitwise and"))
{
}
OprtOr::OprtOr()
    : CallbackImpl(QStringLiteral("|"), 3, bitOrNumbers, QStringLiteral("x | y - bitwise or"))
{
}
OprtShl::OprtShl()
    : CallbackImpl(QStringLiteral("<<"), 7, shiftLeftNumbers,
                   QStringLiteral("x << n - shift x left by n bits"))
{
}
OprtShr::OprtShr()
    : CallbackImpl(QStringLiteral(">>"), 7, shiftRightNumbers,
                   QStringLiteral("x >> n - shift x right by n bits"))
{
}

OprtCastToFloat::OprtCastToFloat() : CallbackImpl(QStringLiteral("(float)")) {}

void OprtCastToFloat::Eval(IValue &ret, const IValue *const *args, int)
{
    asValue(ret) = asValue(args[0]).GetFloat();
}

QString OprtCastToFloat::GetDesc() const
{
    return QStringLiteral("(float)x - the number of x");
}

OprtCastToInt::OprtCastToInt() : CallbackImpl(QStringLiteral("(int)")) {}

void OprtCastToInt::Eval(IValue &ret, const IValue *const *args, int)
{
    const double x = asValue(args[0]).GetFloat();
    asValue(ret) = std::isfinite(x) ? std::trunc(x) : x;
}

QString OprtCastToInt::GetDesc() const
{
    return QStringLiteral("(int)x - x truncated towards zero");
}

} // namespace mup
