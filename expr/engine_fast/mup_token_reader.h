#pragma once

#include "expr/engine_fast/mup_symbols.h"

#include <climits>
#include <memory>

// Cuts an expression into tokens. A mask of what may come next decides which
// tokens are refused, with the error code of each kind; every token that is
// handed out is a fresh copy whose position is its first character.

namespace mup {

class TokenReader
{
public:
    TokenReader(const Symbols &symbols, const QString &expr);

    std::unique_ptr<IToken> ReadNextToken();

    int GetPos() const { return m_pos; }
    int GetSynFlags() const { return m_synFlags; }

private:
    std::unique_ptr<IToken> readEnd();
    std::unique_ptr<IToken> readBinaryOperator();
    std::unique_ptr<IToken> readPrefixOperator();
    std::unique_ptr<IToken> readValue();
    std::unique_ptr<IToken> readBuiltIn();
    std::unique_ptr<IToken> readVariableOrConstant();
    std::unique_ptr<IToken> readFunction();
    std::unique_ptr<IToken> readPostfixOperator();
    std::unique_ptr<IToken> readRefusedOperator();
    [[noreturn]] void raiseUndefinedToken() const;

    std::unique_ptr<IToken> accept(IToken *token, int length, int nextFlags);
    void refuseIf(int flag, EErrorCodes code, const QString &ident) const;
    // The run of characters from the cursor that belong to the class, at
    // most `limit` of them.
    QString runOf(bool (*isMember)(QChar), int limit = INT_MAX) const;
    template <class Map>
    const typename Map::mapped_type::element_type *operatorAt(const Map &map,
                                                              bool (*isMember)(QChar)) const;

    const Symbols &m_symbols;
    QString m_expr;         // the text with one blank appended
    int m_length;           // length of the text as given
    int m_pos = 0;
    int m_openParens = 0;
    int m_openConditionals = 0;
    int m_synFlags = sfSTART;
    int m_lastCode = cmUNKNOWN;
};

} // namespace mup
