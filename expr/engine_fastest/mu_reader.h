#pragma once

#include "expr/engine_fastest/mu_callback.h"
#include "expr/engine_fastest/mu_error.h"
#include "expr/engine_fastest/mu_tokens.h"

#include <QtGlobal>

#include <map>
#include <string>
#include <vector>

namespace mu {

// Names the reader knows, as the parser defined them.
struct Symbols
{
    std::map<std::wstring, double *> vars;
    std::map<std::wstring, double> consts;
    std::map<std::wstring, Callback> funs;
};

struct Token
{
    int code = cmEND;
    int pos = 0;            // index of the token's first character
    std::wstring text;      // the token as written
    double value = 0.0;     // cmVAL
    double *var = nullptr;  // cmVAR
    const Callback *callback = nullptr; // functions
    int stringIndex = -1;   // cmSTRING
    int precedence = 0;     // cmOPRT_INFIX
};

// Splits an expression into tokens. A mask of the kinds of token that may
// follow is kept from one token to the next, and a token that the mask
// refuses raises a ParserError with its position.
class TokenReader
{
public:
    TokenReader(const Symbols &symbols, const std::wstring &expression,
                std::vector<std::wstring> *strings);
    Token next();

private:
    bool readEnd(Token *tok);
    bool readFunction(Token *tok);
    bool readBuiltIn(Token *tok);
    bool acceptOperator(Token *tok);
    void acceptBracket(Token *tok);
    void acceptConditional(Token *tok);
    bool readArgSep(Token *tok);
    bool readValue(Token *tok);
    bool readVariable(Token *tok);
    bool readString(Token *tok);
    bool readPrefix(Token *tok);
    bool matchPrefix(Token *tok);
    int identifierEnd(int from) const;
    void refuseIf(int bit, ErrorCode code, const Token &tok) const;
    [[noreturn]] void fail(ErrorCode code, int pos, const std::wstring &token) const;

    const Symbols &m_symbols;
    std::wstring m_expr;
    std::vector<ushort> m_text; // the expression as the number reader takes it
    std::vector<std::wstring> *m_strings;
    int m_pos = 0;
    int m_mask = maskStart;
    int m_openBrackets = 0;
    int m_lastCode = cmEND;
};

} // namespace mu
