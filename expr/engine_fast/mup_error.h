#pragma once

#include "expr/engine_fast/mup_types.h"

#include <QChar>
#include <QString>

// The one exception class of the Fast parser. Its message is the template of
// its code with the $...$ fields of the context filled in.

namespace mup {

class IValue;

// The message template of an error code, word for word; an empty text for a
// code outside 0..46.
QString errorTemplate(int code);

struct ErrorContext
{
    EErrorCodes Errc = ecGENERIC;
    int Pos = -1;        // index of the token's first character, from 0
    QString Ident;       // the token's text
    QString Hint;
    int Arg = -1;        // 1-based argument index
    QChar Type1 = QLatin1Char(' ');
    QChar Type2 = QLatin1Char(' ');
    QString Expr;
};

class ParserError
{
public:
    ParserError() = default;
    explicit ParserError(const ErrorContext &context);
    ParserError(EErrorCodes code, const QString &ident, int pos);
    // An error whose text is `message` itself rather than a template.
    ParserError(const QString &message, EErrorCodes code, const QString &ident = QString(),
                int pos = -1);

    QString GetMsg() const;
    QString GetExpr() const { return m_context.Expr; }
    QString GetToken() const { return m_context.Ident; }
    int GetPos() const { return m_context.Pos; }
    EErrorCodes GetCode() const { return m_context.Errc; }
    const ErrorContext &GetContext() const { return m_context; }

    // The engine fills these in when an error raised inside a value or a
    // callback reaches it without them.
    void SetPos(int pos) { m_context.Pos = pos; }
    void SetExpr(const QString &expr) { m_context.Expr = expr; }
    void SetIdent(const QString &ident) { m_context.Ident = ident; }

    // The value whose type a type error refused, so that the evaluation walk
    // can tell which of its slots it is. Only ever compared with the walk's
    // own pointers, never read through: the value may be gone by the time the
    // error is caught elsewhere. The walk clears it.
    const IValue *GetValue() const { return m_value; }
    void SetValue(const IValue *value) { m_value = value; }

private:
    static bool isField(const QString &field);
    QString fieldText(const QString &field) const;

    ErrorContext m_context;
    QString m_customMessage; // used instead of the template when not null
    const IValue *m_value = nullptr;
};

} // namespace mup
