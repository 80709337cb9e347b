#include "expr/engine_fast/mup_package_unit.h"

#include "expr/engine_fast/mup_math.h"
#include "expr/engine_fast/mup_parser.h"

namespace mup {

void PackageUnit::AddToParser(ParserX &parser)
{
    parser.DefinePostfixOprt(std::make_unique<OprtNano>());
    parser.DefinePostfixOprt(std::make_unique<OprtMicro>());
    parser.DefinePostfixOprt(std::make_unique<OprtMilli>());
    parser.DefinePostfixOprt(std::make_unique<OprtKilo>());
    parser.DefinePostfixOprt(std::make_unique<OprtMega>());
    parser.DefinePostfixOprt(std::make_unique<OprtGiga>());
}

OprtUnit::OprtUnit(const QString &ident, double factor)
    : IOprtPostfix(ident)
    , m_factor(factor)
{
}

void OprtUnit::Eval(IValue &ret, const IValue *const *args, int)
{
    asValue(ret) = mulNumbers(numericArg(*this, args, 1), m_factor);
}

QString OprtUnit::GetDesc() const
{
    return QStringLiteral("x%1 - x times %2").arg(GetIdent()).arg(m_factor);
}

OprtNano::OprtNano() : CallbackImpl(QStringLiteral("{n}"), 1e-9) {}
OprtMicro::OprtMicro() : CallbackImpl(QStringLiteral("{mu}"), 1e-6) {}
OprtMilli::OprtMilli() : CallbackImpl(QStringLiteral("{m}"), 1e-3) {}
OprtKilo::OprtKilo() : CallbackImpl(QStringLiteral("{k}"), 1e3) {}
OprtMega::OprtMega() : CallbackImpl(QStringLiteral("{M}"), 1e6) {}
OprtGiga::OprtGiga() : CallbackImpl(QStringLiteral("{G}"), 1e9) {}

} // namespace mup
