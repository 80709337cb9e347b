#include "expr/engine_fastest/mu_reader.h"

#include "expr/engine_fastest/mu_bytecode.h"

#if __has_include("text/text_convert.h")
#include "text/text_convert.h"
#else
#include "text/number_text.h"
#endif

#include <cwchar>

namespace mu {

namespace {

// Built-in tokens, matched in this order; the index is the token code.
const wchar_t *const builtInTokens[] = {
    L"<=", L">=", L"!=", L"==", L"<", L">", L"+", L"-", L"*", L"%", L"/", L"^",
    L"&&", L"||", L"=", L"(", L")", L"?", L":",
};
constexpr int builtInCount = sizeof(builtInTokens) / sizeof(builtInTokens[0]);
static_assert(builtInCount == cmELSE + 1, "built-in tokens run from code 0 to ':'");

// The one prefix operator: the minus, on the level of '*'.
const wchar_t prefixMinus[] = L"-";
constexpr int prefixMinusPrecedence = 6;

bool isIdentifierChar(wchar_t c)
{
    return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z')
           || c == L'_';
}

bool startsWith(const std::wstring &text, int pos, const wchar_t *name)
{
    return text.compare(pos, std::wcslen(name), name) == 0;
}

} // namespace

TokenReader::TokenReader(const Symbols &symbols, const std::wstring &expression,
                         std::vector<std::wstring> *strings)
    : m_symbols(symbols), m_expr(expression), m_strings(strings)
{
    // One 16-bit unit per character keeps positions aligned; a character
    // beyond 16 bits can be no part of a number anyway.
    m_text.reserve(m_expr.size() + 1);
    for (wchar_t c : m_expr)
        m_text.push_back(static_cast<unsigned>(c) > 0xFFFFu ? ushort(0xFFFF) : ushort(c));
    m_text.push_back(0);
}

Token TokenReader::next()
{
    const int length = static_cast<int>(m_expr.size());
    while (m_pos < length && static_cast<unsigned>(m_expr[m_pos]) <= 32u)
        ++m_pos;
    Token tok;
    tok.pos = m_pos;
    if (readEnd(&tok) || readFunction(&tok) || readBuiltIn(&tok) || readArgSep(&tok)
        || readValue(&tok) || readVariable(&tok) || readString(&tok) || readPrefix(&tok)) {
        m_lastCode = tok.code;
        return tok;
    }
    const int end = identifierEnd(m_pos);
    fail(ErrorCode::UnknownToken, m_pos,
         end > m_pos ? m_expr.substr(m_pos, end - m_pos) : m_expr.substr(m_pos));
}

bool TokenReader::readEnd(Token *tok)
{
    if (m_pos < static_cast<int>(m_expr.size()))
        return false;
    tok->code = cmEND;
    refuseIf(noEND, ErrorCode::UnexpectedEnd, *tok);
    if (m_openBrackets > 0)
        fail(ErrorCode::MissingParenthesis, m_pos, std::wstring());
    m_mask = maskAfterEnd;
    return true;
}

// A name is a function when an opening bracket follows it, so a variable
// may share its name with a function.
bool TokenReader::readFunction(Token *tok)
{
    const int end = identifierEnd(m_pos);
    if (end == m_pos)
        return false;
    const auto it = m_symbols.funs.find(m_expr.substr(m_pos, end - m_pos));
    if (it == m_symbols.funs.end())
        return false;
    int after = end;
    while (after < static_cast<int>(m_expr.size()) && static_cast<unsigned>(m_expr[after]) <= 32u)
        ++after;
    if (after >= static_cast<int>(m_expr.size()) || m_expr[after] != L'(')
        return false;
    tok->code = it->second.code;
    tok->text = it->first;
    tok->callback = &it->second;
    refuseIf(noFUN, ErrorCode::UnexpectedFunction, *tok);
    m_pos = end;
    m_mask = maskAfterFunction;
    return true;
}

bool TokenReader::readBuiltIn(Token *tok)
{
    int code = 0;
    while (code < builtInCount && !startsWith(m_expr, m_pos, builtInTokens[code]))
        ++code;
    if (code == builtInCount)
        return false;
    const int length = static_cast<int>(std::wcslen(builtInTokens[code]));
    tok->text = builtInTokens[code];
    tok->code = code;
    if (code <= cmASSIGN && !acceptOperator(tok))
        return true; // read as a prefix operator
    if (code == cmBO || code == cmBC)
        acceptBracket(tok);
    else if (code == cmIF || code == cmELSE)
        acceptConditional(tok);
    m_pos += length;
    return true;
}

// False when the characters were taken as a prefix operator instead: where
// no binary operator may stand, the same characters may still be one.
bool TokenReader::acceptOperator(Token *tok)
{
    if ((m_mask & noOPT) && matchPrefix(tok))
        return false;
    refuseIf(noOPT, ErrorCode::UnexpectedOperator, *tok);
    if (tok->code == cmASSIGN) { // "=" is handed out as "=="
        tok->code = cmEQ;
        tok->text = builtInTokens[cmEQ];
    }
    m_mask = maskAfterOperator;
    return true;
}

void TokenReader::acceptBracket(Token *tok)
{
    if (tok->code == cmBO) {
        refuseIf(noBO, ErrorCode::UnexpectedParenthesis, *tok);
        ++m_openBrackets;
        m_mask = isFunctionCode(m_lastCode) ? maskAfterFunctionBracket : maskAfterOpeningBracket;
        return;
    }
    refuseIf(noBC, ErrorCode::UnexpectedParenthesis, *tok);
    if (m_openBrackets == 0)
        fail(ErrorCode::UnexpectedParenthesis, m_pos, tok->text);
    --m_openBrackets;
    m_mask = maskAfterClosingBracket;
}

void TokenReader::acceptConditional(Token *tok)
{
    refuseIf(tok->code == cmIF ? noIF : noELSE, ErrorCode::UnexpectedConditional, *tok);
    m_mask = maskAfterConditional;
}

bool TokenReader::readArgSep(Token *tok)
{
    if (m_expr[m_pos] != L',')
        return false;
    tok->code = cmARG_SEP;
    tok->text = L",";
    refuseIf(noARG_SEP, ErrorCode::UnexpectedComma, *tok);
    ++m_pos;
    m_mask = maskAfterComma;
    return true;
}

// A number literal, which starts with a digit or a point (signs are
// operators, and words such as "nan" are names), or a named constant.
bool TokenReader::readValue(Token *tok)
{
    const wchar_t c = m_expr[m_pos];
    int end = m_pos;
    if ((c >= L'0' && c <= L'9') || c == L'.') {
        bool ok = false;
        const ushort *stop = nullptr;
        const double v = parseNumberPrefix(m_text.data() + m_pos, &ok, &stop);
        if (!ok || !stop || stop <= m_text.data() + m_pos)
            return false;
        tok->value = v;
        end = static_cast<int>(stop - m_text.data());
    } else {
        end = identifierEnd(m_pos);
        const auto it = m_symbols.consts.find(m_expr.substr(m_pos, end - m_pos));
        if (end == m_pos || it == m_symbols.consts.end())
            return false;
        tok->value = it->second;
    }
    tok->code = cmVAL;
    tok->text = m_expr.substr(m_pos, end - m_pos);
    refuseIf(noVAL, ErrorCode::UnexpectedValue, *tok);
    m_pos = end;
    m_mask = maskAfterValue;
    return true;
}

bool TokenReader::readVariable(Token *tok)
{
    const int end = identifierEnd(m_pos);
    if (end == m_pos)
        return false;
    const auto it = m_symbols.vars.find(m_expr.substr(m_pos, end - m_pos));
    if (it == m_symbols.vars.end())
        return false;
    tok->code = cmVAR;
    tok->text = it->first;
    tok->var = it->second;
    refuseIf(noVAR, ErrorCode::UnexpectedVariable, *tok);
    m_pos = end;
    m_mask = maskAfterVariable;
    return true;
}

// A string literal; a backslash before a double quote gives the quote, any
// other backslash stays as it is.
bool TokenReader::readString(Token *tok)
{
    if (m_expr[m_pos] != L'"')
        return false;
    tok->code = cmSTRING;
    tok->text = L"\"";
    refuseIf(noSTR, ErrorCode::UnexpectedString, *tok);
    const int length = static_cast<int>(m_expr.size());
    std::wstring text;
    int i = m_pos + 1;
    for (; i < length && m_expr[i] != L'"'; ++i) {
        if (m_expr[i] == L'\\' && i + 1 < length && m_expr[i + 1] == L'"')
            ++i;
        text += m_expr[i];
    }
    if (i >= length)
        fail(ErrorCode::UnterminatedString, m_pos, tok->text);
    tok->stringIndex = static_cast<int>(m_strings->size());
    m_strings->push_back(text);
    tok->text = m_expr.substr(m_pos, i + 1 - m_pos);
    m_pos = i + 1;
    m_mask = maskAfterString;
    return true;
}

bool TokenReader::readPrefix(Token *tok)
{
    return matchPrefix(tok);
}

bool TokenReader::matchPrefix(Token *tok)
{
    if (!startsWith(m_expr, m_pos, prefixMinus))
        return false;
    tok->code = cmOPRT_INFIX;
    tok->text = prefixMinus;
    tok->precedence = prefixMinusPrecedence;
    refuseIf(noINFIXOP, ErrorCode::UnexpectedOperator, *tok);
    m_pos += static_cast<int>(tok->text.size());
    m_mask = maskAfterPrefix;
    return true;
}

int TokenReader::identifierEnd(int from) const
{
    const int length = static_cast<int>(m_expr.size());
    while (from < length && isIdentifierChar(m_expr[from]))
        ++from;
    return from;
}

void TokenReader::refuseIf(int bit, ErrorCode code, const Token &tok) const
{
    if (m_mask & bit)
        fail(code, tok.pos, tok.text);
}

void TokenReader::fail(ErrorCode code, int pos, const std::wstring &token) const
{
    throw ParserError(code, L"syntax error at position " + std::to_wstring(pos), pos, token);
}

} // namespace mu
