#pragma once

// The compiled engine of the expression language: numbers only, compiled
// once into an instruction list that runs on a stack of doubles made once.

#include "expr/engine_fastest/mu_bytecode.h"
#include "expr/engine_fastest/mu_callback.h"
#include "expr/engine_fastest/mu_error.h"
#include "expr/engine_fastest/mu_reader.h"

#include <string>
#include <vector>

struct ExprContext;

namespace mu {

class Parser
{
public:
    // `context` is handed to the functions that ask for it; it may be null
    // when none of them is defined.
    explicit Parser(ExprContext *context = nullptr);
    // The compiled form points at the variables and functions defined here.
    Parser(const Parser &) = delete;
    Parser &operator=(const Parser &) = delete;

    // The variable is read through `address` at every Eval.
    void DefineVar(const std::wstring &name, double *address);
    void DefineConst(const std::wstring &name, double value);

    // Functions of numbers (code 28). `allowFolding` lets the compiler call
    // the function once when all its arguments are constants.
    void DefineFun(const std::wstring &name, FunType0 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, FunType1 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, FunType2 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, FunType3 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, FunType4 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, FunType5 fun, bool allowFolding = true);
    // Any number of arguments, as an array and its length.
    void DefineFun(const std::wstring &name, MultiFunType fun, bool allowFolding = true);
    // Functions that receive the context behind their numbers (code 29).
    void DefineFun(const std::wstring &name, CtxFunType0 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, CtxFunType1 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, CtxFunType2 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, CtxFunType3 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, CtxFunType4 fun, bool allowFolding = true);
    // Functions of a string literal, numbers and the context (code 30).
    void DefineFun(const std::wstring &name, StrFunType0 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, StrFunType1 fun, bool allowFolding = true);
    void DefineFun(const std::wstring &name, StrFunType2 fun, bool allowFolding = true);

    // Compiles the expression; a refusal is thrown here.
    void SetExpr(const std::wstring &expression);
    const std::wstring &GetExpr() const { return m_expression; }

    // Runs the compiled form. Allocates nothing once compiled.
    double Eval();

    // The compiled form, for tests that look at the instructions.
    const Bytecode &GetBytecode() const { return m_code; }

    // What the engine knows by a name, so that a caller can refuse a
    // variable that a constant or a function would shadow.
    bool IsConstDefined(const std::wstring &name) const
    {
        return m_symbols.consts.count(name) != 0;
    }
    bool IsFunDefined(const std::wstring &name) const { return m_symbols.funs.count(name) != 0; }

private:
    void defineCallback(const std::wstring &name, GenericFun fun, CallShape shape, int argc,
                        int code, bool allowFolding);
    void compile();

    ExprContext *m_context;
    Symbols m_symbols;
    std::wstring m_expression;
    Bytecode m_code;
    std::vector<double> m_stack;
    bool m_compiled = false;
};

// Runs a compiled list on `stack`, which holds at least code.stackSize + 2
// doubles.
double runBytecode(const Bytecode &code, double *stack, ExprContext *context);

// The built-in functions and constants of the engine.
void defineBuiltIns(Parser &parser);

// The running loop's own form of a built-in function called with `argc`
// numbers (exABS, exSQRT, exMIN2, exMAX2), or -1. A function defined under
// the same name by the caller is another pointer and keeps the plain call.
int builtInExecOp(GenericFun fun, int argc);

} // namespace mu
