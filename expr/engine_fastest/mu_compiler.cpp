#include "expr/engine_fastest/mu_compiler.h"

namespace mu {

int precedenceOf(int code)
{
    switch (code) {
    case cmLE: case cmGE: case cmNEQ: case cmEQ: case cmLT: case cmGT: return 4;
    case cmADD: case cmSUB: return 5;
    case cmMUL: case cmMOD: case cmDIV: return 6;
    case cmPOW: return 7;
    case cmLAND: return 2;
    case cmLOR: return 1;
    case cmIF: case cmELSE: return 0;
    case cmARG_SEP: return -4;
    case cmEND: return -5;
    default: return 0;
    }
}

namespace {

bool isBinaryOperator(int code) { return code >= cmLE && code <= cmLOR; }

// What the compiler knows of a value on the run-time stack: a number, or a
// string literal that only a string function may take.
struct Operand
{
    bool isString;
    int stringIndex;
};

// Operator precedence with two stacks (operators and operands) and a stack
// of argument counts, emitting instructions as operators are applied.
class Compiler
{
public:
    Compiler(const Symbols &symbols, const std::wstring &expression, ExprContext *context,
             Bytecode *out)
        : m_reader(symbols, expression, &out->strings), m_out(out), m_context(context)
    {
    }

    void run()
    {
        for (;;) {
            const Token tok = m_reader.next();
            if (tok.code == cmEND)
                return finish(tok);
            handle(tok);
            m_lastCode = tok.code;
        }
    }

private:
    void handle(const Token &tok)
    {
        switch (tok.code) {
        case cmBO: m_argCounts.push_back(1); m_ops.push_back(tok); break;
        case cmBC: onClose(tok); break;
        case cmARG_SEP: ++m_argCounts.back(); applyRemaining(); break;
        case cmELSE: onElse(tok); break;
        case cmVAR: m_vals.push_back({false, -1}); m_out->addVar(tok.var); break;
        case cmVAL: m_vals.push_back({false, -1}); m_out->addVal(tok.value); break;
        case cmSTRING: m_vals.push_back({true, tok.stringIndex}); break;
        case cmFUNC: case cmFUNC_CTX: case cmFUNC_STR: case cmOPRT_INFIX:
            m_ops.push_back(tok);
            break;
        default:
            if (!isBinaryOperator(tok.code) && tok.code != cmIF)
                fail(ErrorCode::InternalError, tok);
            onOperator(tok);
        }
    }

    int precedence(const Token &tok) const
    {
        return tok.code == cmOPRT_INFIX ? tok.precedence : precedenceOf(tok.code);
    }

    // Whether the operator on top binds before `tok`: '^' groups to the
    // right, all others to the left.
    bool topBindsFirst(const Token &top, const Token &tok) const
    {
        const int a = precedence(top);
        const int b = precedence(tok);
        if (top.code == tok.code)
            return tok.code == cmPOW ? a > b : a >= b;
        return a >= b;
    }

    void onOperator(const Token &tok)
    {
        while (!m_ops.empty() && !isGroupMark(m_ops.back().code)
               && topBindsFirst(m_ops.back(), tok))
            applyTop();
        if (tok.code == cmIF) {
            popNumber(tok);
            m_out->addIf();
            ++m_openIfs;
        }
        m_ops.push_back(tok);
    }

    void onElse(const Token &tok)
    {
        if (--m_openIfs < 0)
            fail(ErrorCode::MisplacedColon, tok);
        applyRemaining();
        if (m_ops.empty() || m_ops.back().code != cmIF)
            fail(ErrorCode::MisplacedColon, tok);
        m_out->addElse();
        m_ops.push_back(tok);
    }

    void onClose(const Token &tok)
    {
        if (m_lastCode == cmBO)
            --m_argCounts.back();
        applyRemaining();
        if (m_ops.empty() || m_ops.back().code != cmBO)
            fail(ErrorCode::MissingElse, tok);
        m_ops.pop_back();
        const int count = m_argCounts.back();
        m_argCounts.pop_back();
        const bool function = !m_ops.empty() && isFunctionCode(m_ops.back().code);
        if (count > 1 && !function)
            fail(ErrorCode::TooManyParams, tok);
        if (function) {
            applyFunction(m_ops.back(), count);
            m_ops.pop_back();
        } else if (!m_ops.empty() && m_ops.back().code == cmOPRT_INFIX) {
            applyTop();
        }
    }

    static bool isGroupMark(int code) { return code == cmBO || code == cmIF || code == cmELSE; }

    // Applies operators down to the next "(" or "?"; a ":" met on the way
    // closes its conditional.
    void applyRemaining()
    {
        while (!m_ops.empty() && m_ops.back().code != cmBO && m_ops.back().code != cmIF) {
            if (m_ops.back().code == cmELSE)
                closeConditional();
            else
                applyTop();
        }
    }

    void closeConditional()
    {
        const Token colon = m_ops.back();
        m_ops.pop_back();
        if (m_ops.empty() || m_ops.back().code != cmIF)
            fail(ErrorCode::MisplacedColon, colon);
        m_ops.pop_back();
        popNumber(colon);
        popNumber(colon);
        m_vals.push_back({false, -1});
        m_out->addEndIf();
    }

    void applyTop()
    {
        const Token top = m_ops.back();
        m_ops.pop_back();
        if (top.code == cmOPRT_INFIX) {
            popNumber(top);
            m_vals.push_back({false, -1});
            m_out->addPrefixMinus();
        } else if (isBinaryOperator(top.code)) {
            popNumber(top);
            popNumber(top);
            m_vals.push_back({false, -1});
            m_out->addBinary(top.code);
        } else {
            fail(ErrorCode::InternalError, top);
        }
    }

    void applyFunction(const Token &tok, int count)
    {
        const Callback &cb = *tok.callback;
        const bool takesString = cb.code == cmFUNC_STR;
        const int numeric = takesString ? count - 1 : count;
        if (cb.argc >= 0 && numeric > cb.argc)
            fail(ErrorCode::TooManyParams, tok);
        if (numeric < (cb.argc >= 0 ? cb.argc : 0))
            fail(ErrorCode::TooFewParams, tok);
        if (static_cast<int>(m_vals.size()) < count)
            fail(ErrorCode::InternalError, tok);
        for (int i = 0; i < numeric; ++i)
            popNumber(tok);
        int stringIndex = -1;
        if (takesString) {
            if (!m_vals.back().isString)
                fail(ErrorCode::StringArgument, tok);
            stringIndex = m_vals.back().stringIndex;
            m_vals.pop_back();
        }
        m_vals.push_back({false, -1});
        m_out->addFunction(cb, numeric, stringIndex, m_context);
    }

    void popNumber(const Token &tok)
    {
        if (m_vals.empty())
            fail(ErrorCode::InternalError, tok);
        if (m_vals.back().isString)
            fail(ErrorCode::StringArgument, tok);
        m_vals.pop_back();
    }

    void finish(const Token &end)
    {
        applyRemaining();
        if (m_openIfs > 0 || !m_ops.empty())
            fail(ErrorCode::MissingElse, end);
        if (m_vals.empty())
            fail(ErrorCode::NoValue, end);
        for (const Operand &v : m_vals)
            if (v.isString)
                fail(ErrorCode::StringResult, end);
        m_out->finish(m_argCounts.back());
    }

    [[noreturn]] void fail(ErrorCode code, const Token &tok) const
    {
        throw ParserError(code, L"cannot compile at position " + std::to_wstring(tok.pos),
                          tok.pos, tok.text);
    }

    TokenReader m_reader;
    Bytecode *m_out;
    ExprContext *m_context;
    std::vector<Token> m_ops;
    std::vector<Operand> m_vals;
    std::vector<int> m_argCounts{1};
    int m_openIfs = 0;
    int m_lastCode = cmEND;
};

} // namespace

void compileExpression(const Symbols &symbols, const std::wstring &expression,
                       ExprContext *context, Bytecode *out)
{
    out->clear();
    Compiler(symbols, expression, context, out).run();
}

} // namespace mu
