#include "expr/engine_fast/mup_error.h"

namespace mup {

ParserError::ParserError(const ErrorContext &context)
    : m_context(context)
{
}

ParserError::ParserError(EErrorCodes code, const QString &ident, int pos)
{
    m_context.Errc = code;
    m_context.Ident = ident;
    m_context.Pos = pos;
}

ParserError::ParserError(const QString &message, EErrorCodes code, const QString &ident,
                         int pos)
    : m_customMessage(message.isNull() ? QStringLiteral("") : message)
{
    m_context.Errc = code;
    m_context.Ident = ident;
    m_context.Pos = pos;
}

QString ParserError::fieldText(const QString &field) const
{
    if (field == QLatin1String("EXPR"))
        return m_context.Expr;
    if (field == QLatin1String("IDENT"))
        return m_context.Ident;
    if (field == QLatin1String("POS"))
        return QString::number(m_context.Pos);
    if (field == QLatin1String("ARG"))
        return QString::number(m_context.Arg);
    if (field == QLatin1String("TYPE1"))
        return QString(m_context.Type1);
    if (field == QLatin1String("TYPE2"))
        return QString(m_context.Type2);
    if (field == QLatin1String("HINT"))
        return m_context.Hint;
    return QString();
}

// One pass over the template, so that a field's text that itself holds "$POS$"
// or the like is never replaced again.
QString ParserError::GetMsg() const
{
    const QString pattern =
        m_customMessage.isNull() ? errorTemplate(m_context.Errc) : m_customMessage;
    QString msg;
    int i = 0;
    while (i < pattern.size()) {
        const int close = pattern.at(i) == QLatin1Char('$') ? pattern.indexOf(QLatin1Char('$'), i + 1)
                                                             : -1;
        const QString field = close > i ? pattern.mid(i + 1, close - i - 1) : QString();
        if (close > i && isField(field)) {
            msg += fieldText(field);
            i = close + 1;
        } else {
            msg += pattern.at(i++);
        }
    }
    return msg;
}

bool ParserError::isField(const QString &field)
{
    static const char *const fields[] = {"EXPR", "IDENT", "POS", "ARG", "TYPE1", "TYPE2", "HINT"};
    for (const char *f : fields) {
        if (field == QLatin1String(f))
            return true;
    }
    return false;
}

} // namespace mup
