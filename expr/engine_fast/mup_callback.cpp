#include "expr/engine_fast/mup_callback.h"

#include "expr/engine_fast/mup_error.h"

namespace mup {

void ICallback::throwArgTypeError(int index, QChar actual, QChar expected) const
{
    ErrorContext context;
    context.Errc = ecTYPE_CONFLICT_FUN;
    context.Ident = GetIdent();
    context.Pos = GetExprPos();
    context.Arg = index;
    context.Type1 = actual;
    context.Type2 = expected;
    throw ParserError(context);
}

} // namespace mup
