#include "expr/engine_fastest/mu_parser.h"

#include "expr/engine_fastest/mu_compiler.h"

namespace mu {

namespace {

bool isIdentifierChar(wchar_t c)
{
    return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z')
           || c == L'_';
}

// A name must be readable back as one identifier that is no number.
void checkName(const std::wstring &name)
{
    bool valid = !name.empty() && !(name[0] >= L'0' && name[0] <= L'9');
    for (wchar_t c : name)
        valid = valid && isIdentifierChar(c);
    if (!valid)
        throw ParserError(ErrorCode::InvalidName, L"invalid name", -1, name);
}

template <class F>
GenericFun generic(F fun)
{
    return reinterpret_cast<GenericFun>(fun);
}

} // namespace

Parser::Parser(ExprContext *context) : m_context(context)
{
    defineBuiltIns(*this);
}

void Parser::DefineVar(const std::wstring &name, double *address)
{
    checkName(name);
    if (!address)
        throw ParserError(ErrorCode::InvalidPointer, L"invalid variable pointer", -1, name);
    m_symbols.consts.erase(name);
    m_symbols.vars[name] = address;
    m_compiled = false;
}

void Parser::DefineConst(const std::wstring &name, double value)
{
    checkName(name);
    m_symbols.vars.erase(name);
    m_symbols.consts[name] = value;
    m_compiled = false;
}

void Parser::defineCallback(const std::wstring &name, GenericFun fun, CallShape shape, int argc,
                            int code, bool allowFolding)
{
    checkName(name);
    if (!fun)
        throw ParserError(ErrorCode::InvalidPointer, L"invalid function pointer", -1, name);
    Callback cb;
    cb.fun = fun;
    cb.shape = shape;
    cb.argc = argc;
    cb.code = code;
    cb.foldable = allowFolding;
    m_symbols.funs[name] = cb;
    m_compiled = false;
}

#define MU_DEFINE_FUN(Type, shape, argc, code)                                          \
    void Parser::DefineFun(const std::wstring &name, Type fun, bool allowFolding)      \
    {                                                                                  \
        defineCallback(name, generic(fun), CallShape::shape, argc, code, allowFolding); \
    }
MU_DEFINE_FUN(FunType0, Fun0, 0, cmFUNC)
MU_DEFINE_FUN(FunType1, Fun1, 1, cmFUNC)
MU_DEFINE_FUN(FunType2, Fun2, 2, cmFUNC)
MU_DEFINE_FUN(FunType3, Fun3, 3, cmFUNC)
MU_DEFINE_FUN(FunType4, Fun4, 4, cmFUNC)
MU_DEFINE_FUN(FunType5, Fun5, 5, cmFUNC)
MU_DEFINE_FUN(MultiFunType, Multi, -1, cmFUNC)
MU_DEFINE_FUN(CtxFunType0, Ctx0, 0, cmFUNC_CTX)
MU_DEFINE_FUN(CtxFunType1, Ctx1, 1, cmFUNC_CTX)
MU_DEFINE_FUN(CtxFunType2, Ctx2, 2, cmFUNC_CTX)
MU_DEFINE_FUN(CtxFunType3, Ctx3, 3, cmFUNC_CTX)
MU_DEFINE_FUN(CtxFunType4, Ctx4, 4, cmFUNC_CTX)
MU_DEFINE_FUN(StrFunType0, Str0, 0, cmFUNC_STR)
MU_DEFINE_FUN(StrFunType1, Str1, 1, cmFUNC_STR)
MU_DEFINE_FUN(StrFunType2, Str2, 2, cmFUNC_STR)
#undef MU_DEFINE_FUN

void Parser::SetExpr(const std::wstring &expression)
{
    m_expression = expression;
    m_compiled = false;
    compile();
}

void Parser::compile()
{
    m_compiled = false;
    compileExpression(m_symbols, m_expression, m_context, &m_code);
    // Two slots beyond the deepest stack: see runBytecode.
    m_stack.assign(static_cast<size_t>(m_code.stackSize) + 2, 0.0);
    m_compiled = true;
}

double Parser::Eval()
{
    if (!m_compiled)
        compile();
    return runBytecode(m_code, m_stack.data(), m_context);
}

} // namespace mu
