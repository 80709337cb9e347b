#pragma once

struct ExprContext;

namespace mu {
class Parser;
}
namespace mup {
class ParserX;
}

// Puts the functions and constants of the language into the two engines.
// The context is the one of the check; the functions that need it keep the
// pointer for the life of the engine.

// The numeric members of the language, as plain functions: the constants
// _null, _nan and _infinity, the NULL tests, the value choosers, the rounding
// and random functions and the Elapsed-Time functions. rand, rand1 and randN
// are never folded at compile time.
void registerFastestFunctions(mu::Parser &parser, ExprContext *context);

// Every function of the language as a callback object, in a fixed order,
// with the constants _null, _nan, _infinity, _nullS and velmorinDir. The
// package's toupper is replaced by the language's own.
void registerFastFunctions(mup::ParserX &parser, ExprContext *context);
