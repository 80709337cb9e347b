#include "expr/engine_fast/mup_value.h"

#include "expr/engine_fast/mup_error.h"
#include "expr/null_value.h"

namespace mup {

IValue &IValue::operator=(qint64 value)
{
    return *this = static_cast<double>(value);
}

Value::Value()
    : IValue(cmVAL, QString())
{
}

Value::Value(double value)
    : IValue(cmVAL, QString())
    , m_number(value)
    , m_type(typeNumber)
{
}

Value::Value(int value)
    : IValue(cmVAL, QString())
    , m_number(value)
    , m_type(QLatin1Char('i'))
{
}

Value::Value(qint64 value)
    : IValue(cmVAL, QString())
    , m_number(static_cast<double>(value))
    , m_type(QLatin1Char('i'))
{
}

Value::Value(bool value)
    : IValue(cmVAL, QString())
    , m_number(value ? 1.0 : 0.0)
    , m_type(QLatin1Char('b'))
{
}

Value::Value(const QString &value)
    : IValue(cmVAL, QString())
    , m_text(value)
    , m_type(QLatin1Char('s'))
{
}

Value::Value(const char *value)
    : Value(QString::fromUtf8(value))
{
}

Value &Value::operator=(const Value &other)
{
    m_number = other.m_number;
    m_text = other.m_text;
    m_type = other.m_type;
    m_flags = other.m_flags;
    m_cache = other.m_cache;
    return *this;
}

Value &Value::operator=(const QString &value)
{
    m_text = value;
    m_type = QLatin1Char('s');
    return *this;
}

Value &Value::operator=(qint64 value)
{
    m_number = static_cast<double>(value);
    m_type = QLatin1Char('i');
    return *this;
}

QString Value::GetString() const
{
    if (m_type != typeString)
        throwTypeError(QLatin1Char('s'));
    return m_text;
}

QString Value::GetStringOfArg(int arg) const
{
    if (m_type != typeString)
        throwTypeError(QLatin1Char('s'), arg);
    return m_text;
}

QString Value::AsString() const
{
    switch (m_type.unicode()) {
    case 's':
        return m_text;
    case 'b':
        if (quva::isNull(m_number))
            return QStringLiteral("null");
        return m_number != 0.0 ? QStringLiteral("true") : QStringLiteral("false");
    case 'v':
        return QStringLiteral("void");
    default:
        return QString::number(m_number, 'g', 17);
    }
}

// The message names the value by its identifier (a literal's text, a
// constant's name) or, for a computed value, by its printed form. A value
// behind a variable has neither name nor place of its own: the evaluation
// walk puts in the variable's.
void Value::throwTypeError(QChar wanted, int arg) const
{
    ErrorContext context;
    context.Errc = ecTYPE_CONFLICT;
    context.Ident = GetIdent().isEmpty() ? AsString() : GetIdent();
    context.Pos = GetExprPos();
    context.Arg = arg;
    context.Type1 = GetType();
    context.Type2 = wanted;
    ParserError error(context);
    error.SetValue(this);
    throw error;
}

} // namespace mup
