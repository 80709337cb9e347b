#pragma once

#include "expr/engine_fast/mup_token.h"
#include "expr/null_value.h"

#include <QString>
#include <QtGlobal>

// Values of the Fast parser. mup::Value is the one concrete value class:
// a double payload (booleans as 0.0 or 1.0), a string payload and a type
// character: 'b' boolean, 'i' integer, 'f' float, 's' string, 'v' void.

namespace mup {

class IValue : public IToken
{
public:
    // The assignments, in the order of their virtual slots. Each sets the type.
    virtual IValue &operator=(bool value) = 0;
    virtual IValue &operator=(const QString &value) = 0;
    virtual IValue &operator=(double value) = 0;
    virtual IValue &operator=(int value) = 0;

    // Legal for 'f', 'i', 'b' (and 'c', which nothing makes); otherwise the
    // type error, code 19.
    virtual double GetFloat() const = 0;
    // A double so that NULL passes through: NULL stays NULL, 0.0 gives 0.0,
    // anything else (NaN too) 1.0. Type error for a string.
    virtual double GetBool() const = 0;
    // Legal for 's' only.
    virtual QString GetString() const = 0;
    virtual QChar GetType() const = 0;
    // The NULL number, as a boolean.
    virtual void SetNull() = 0;

    // The value as text, for messages.
    virtual QString AsString() const = 0;

    // Conveniences that resolve to the slots above: a C string is a string,
    // a 64-bit integer is an integer.
    IValue &operator=(const char *text) { return *this = QString::fromUtf8(text); }
    IValue &operator=(qint64 value);

protected:
    IValue(ECmdCode code, const QString &ident) : IToken(code, ident) {}
    IValue(const IValue &) = default;
    IValue &operator=(const IValue &) { return *this; }
};

// Type of a value made from a double: 'i' if it equals its truncation to a
// 64-bit integer, 'f' otherwise (NaN, NULL and the infinities included).
inline QChar typeOfDouble(double d)
{
    if (d >= -9223372036854775808.0 && d < 9223372036854775808.0
        && static_cast<double>(static_cast<qint64>(d)) == d)
        return QLatin1Char('i');
    return QLatin1Char('f');
}

class Value final : public IValue
{
public:
    Value(); // void
    Value(double value);
    Value(int value);
    Value(qint64 value);
    Value(bool value);
    Value(const QString &value);
    Value(const char *value);
    Value(const Value &other) = default;
    // Copies the payload and the type, not the token's name or position.
    Value &operator=(const Value &other);

    IToken *Clone() const override { return new Value(*this); }

    Value &operator=(bool value) override
    {
        m_number = value ? 1.0 : 0.0;
        m_type = typeBool;
        return *this;
    }
    Value &operator=(const QString &value) override;
    // 'i' or 'f' by the value; worked out when the type is asked for.
    Value &operator=(double value) override
    {
        m_number = value;
        m_type = typeNumber;
        return *this;
    }
    Value &operator=(int value) override
    {
        m_number = value;
        m_type = QLatin1Char('i');
        return *this;
    }
    Value &operator=(const char *text) { return *this = QString::fromUtf8(text); }
    Value &operator=(qint64 value);

    double GetFloat() const override
    {
        if (hasFloat())
            return m_number;
        throwTypeError(QLatin1Char('f'));
    }
    double GetBool() const override
    {
        if (m_type == typeString)
            throwTypeError(QLatin1Char('b'));
        if (quva::isNull(m_number))
            return m_number;
        return m_number == 0.0 ? 0.0 : 1.0;
    }
    QString GetString() const override;
    QChar GetType() const override
    {
        return m_type == typeNumber ? typeOfDouble(m_number) : m_type;
    }
    void SetNull() override
    {
        m_number = quva::nullValue();
        m_type = typeBool;
    }
    QString AsString() const override;

    // GetFloat and GetString for argument `arg` (1-based) of a callback. A type
    // error then also says which argument failed, which the evaluation walk
    // needs to name the right place when one variable is passed twice.
    double GetFloatOfArg(int arg) const
    {
        if (hasFloat())
            return m_number;
        throwTypeError(QLatin1Char('f'), arg);
    }
    QString GetStringOfArg(int arg) const;

    // 'f' or 'i'.
    bool isNumeric() const
    {
        return m_type == typeNumber || m_type == QLatin1Char('i') || m_type == QLatin1Char('f');
    }
    bool isBool() const { return m_type == typeBool; }
    bool isString() const { return m_type == typeString; }
    // The number as stored, whatever the type; for the engine's own operators,
    // which check the type first.
    double number() const { return m_number; }
    const QString &text() const { return m_text; }
    qint32 flags() const { return m_flags; }
    const void *cache() const { return m_cache; }

    // Code 19 for this value; `arg` is the 1-based argument index when the
    // reader knows it. The error keeps this value's address (see
    // ParserError::GetValue) so that the walk can find where it came from.
    [[noreturn]] void throwTypeError(QChar wanted, int arg = -1) const;

private:
    bool hasFloat() const
    {
        return isNumeric() || m_type == typeBool || m_type == QLatin1Char('c');
    }

    // A float assignment stores this mark instead of 'i' or 'f', so that the
    // hot path of the engine never pays for telling the two apart.
    static constexpr QChar typeNumber = QChar(0x6E); // 'n'
    static constexpr QChar typeBool = QChar(0x62);   // 'b'
    static constexpr QChar typeString = QChar(0x73); // 's'

    double m_number = 0.0;
    QString m_text;
    QChar m_type = QLatin1Char('v');
    qint32 m_flags = 0;
    void *m_cache = nullptr;
};

} // namespace mup
