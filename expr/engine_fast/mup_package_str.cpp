#include "expr/engine_fast/mup_package_str.h"

#include "expr/engine_fast/mup_parser.h"
#include "expr/null_value.h"

namespace mup {

namespace {

const QString &stringArg(const ICallback &callback, const IValue *const *args, int index)
{
    const Value &v = asValue(args[index - 1]);
    if (v.GetType() != QLatin1Char('s'))
        callback.throwArgTypeError(index, v.GetType(), QLatin1Char('s'));
    return v.text();
}

} // namespace

void PackageStr::AddToParser(ParserX &parser)
{
    parser.DefineOprt(std::make_unique<OprtStrAdd>());
    parser.DefineFun(std::make_unique<FunStrLen>());
    parser.DefineFun(std::make_unique<FunStrToUpper>());
}

OprtStrAdd::OprtStrAdd() : CallbackImpl(QStringLiteral("//"), 2, oaLEFT) {}

void OprtStrAdd::Eval(IValue &ret, const IValue *const *args, int)
{
    const QString joined = stringArg(*this, args, 1) + stringArg(*this, args, 2);
    asValue(ret) = joined;
}

QString OprtStrAdd::GetDesc() const
{
    return QStringLiteral("a // b - concatenation of the strings a and b");
}

FunStrLen::FunStrLen() : CallbackImpl(cmFUNC, QStringLiteral("strlen"), 1) {}

void FunStrLen::Eval(IValue &ret, const IValue *const *args, int)
{
    const QString &s = stringArg(*this, args, 1);
    if (s.isNull())
        asValue(ret) = quva::nullValue();
    else
        asValue(ret) = s.size();
}

QString FunStrLen::GetDesc() const
{
    return QStringLiteral("strlen(s) - Returns the length of the string s.");
}

FunStrToUpper::FunStrToUpper() : CallbackImpl(cmFUNC, QStringLiteral("toupper"), 1) {}

void FunStrToUpper::Eval(IValue &ret, const IValue *const *args, int)
{
    const QString upper = stringArg(*this, args, 1).toUpper();
    asValue(ret) = upper;
}

QString FunStrToUpper::GetDesc() const
{
    return QStringLiteral("toupper(s) - Converts the string s to uppercase characters.");
}

} // namespace mup
