#include "expr/functions/ipv4_callbacks.h"

#include "expr/functions/ipv4_functions.h"

namespace {

void evalAddress(mup::IValue &ret, const mup::IValue *const *args,
                 double (*f)(const QString &))
{
    const double result = f(args[0]->GetString());
    ret = result;
}

} // namespace

QUVA_DEFINE_FUNCTION(IsIP4, "isip4", 1, "isip4(x) - test if x is a TCP-IP v4 address.")
void IsIP4::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = quva::isIp4(args[0]->GetString());
}

QUVA_DEFINE_FUNCTION(IP4tof, "ip4tof", 1, "ip4tof(x) - convert a tcp-ip v4 address to a number.")
void IP4tof::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalAddress(ret, args, quva::ip4ToNumber);
}

QUVA_DEFINE_FUNCTION(IP4Part, "ip4part", 2,
                     "ip4part(ip,pos) - extract one of the 4 parts of a tcp-ip v4 address.")
void IP4Part::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    // With the argument index, as the address and the part may be one variable.
    const QString ip = mup::stringArgument(args, 0);
    const double result = quva::ip4Part(ip, quva::truncToInt32(mup::floatArgument(args, 1)));
    ret = result;
}

QUVA_DEFINE_FUNCTION(IP4RangeLow, "ip4RangeLow", 1,
                     "ip4RangeLow(x) - convert the lower bound of a tcp-ip v4 address-range to a "
                     "number.")
void IP4RangeLow::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalAddress(ret, args, quva::ip4RangeLow);
}

QUVA_DEFINE_FUNCTION(IP4RangeHigh, "ip4RangeHigh", 1,
                     "ip4RangeHigh(x) - convert the upper bound of a tcp-ip v4 address-range to "
                     "a number.")
void IP4RangeHigh::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalAddress(ret, args, quva::ip4RangeHigh);
}
