#include "expr/engine_fast/mup_token.h"

namespace mup {

namespace {

QString ifThenElseText(ECmdCode code)
{
    switch (code) {
    case cmIF:
        return QStringLiteral("?");
    case cmELSE:
        return QStringLiteral(":");
    default:
        return QStringLiteral("endif");
    }
}

} // namespace

TokenIfThenElse::TokenIfThenElse(ECmdCode code)
    : IToken(code, ifThenElseText(code))
{
}

} // namespace mup
