#pragma once

#include "expr/engine_fast/mup_types.h"

#include <QString>

// Tokens of the Fast parser: every item of the reverse-Polish list is one.

namespace mup {

class IToken
{
public:
    IToken(ECmdCode code, const QString &ident) : m_ident(ident), m_code(code) {}
    virtual ~IToken() = default;

    // A copy on the heap; the caller owns it.
    virtual IToken *Clone() const = 0;

    ECmdCode GetCode() const { return m_code; }
    const QString &GetIdent() const { return m_ident; }
    void SetIdent(const QString &ident) { m_ident = ident; }
    int GetExprPos() const { return m_pos; }
    void SetExprPos(int pos) { m_pos = pos; }

protected:
    IToken(const IToken &) = default;
    IToken &operator=(const IToken &) = default;

private:
    QString m_ident;
    int m_pos = -1;
    ECmdCode m_code;
};

// "(", ")", "," and the end of the expression.
class GenericToken final : public IToken
{
public:
    GenericToken(ECmdCode code, const QString &ident) : IToken(code, ident) {}
    IToken *Clone() const override { return new GenericToken(*this); }
};

// "?", ":" and the end of a conditional. "?" and ":" carry the distance of
// their jump once the list is finished.
class TokenIfThenElse final : public IToken
{
public:
    explicit TokenIfThenElse(ECmdCode code);
    IToken *Clone() const override { return new TokenIfThenElse(*this); }

    int GetOffset() const { return m_offset; }
    void SetOffset(int offset) { m_offset = offset; }
    // "?" and ":" stand at precedence 0 in the list builder.
    static constexpr int precedence = 0;

private:
    int m_offset = 0;
};

} // namespace mup
