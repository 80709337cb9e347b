#pragma once

#include "expr/engine_fastest/mu_bytecode.h"
#include "expr/engine_fastest/mu_reader.h"

#include <string>

struct ExprContext;

namespace mu {

// Turns an expression into the instruction list `out`, raising ParserError
// for anything the engine cannot take. Constant function calls are made here
// already, with `context`.
void compileExpression(const Symbols &symbols, const std::wstring &expression,
                       ExprContext *context, Bytecode *out);

} // namespace mu
