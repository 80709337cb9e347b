#pragma once

#include "expr/engine_fast/mup_callback.h"
#include "expr/null_value.h"

#include <QString>

#include <cmath>
#include <cstdint>

struct ExprContext;

// Helpers shared by the function families of the language.

namespace quva {

// Finite means an exponent field that is not all ones: NULL, NaN and both
// infinities are not finite.
inline bool isFiniteBits(double d)
{
    return (toBits(d) & infinityBits) != infinityBits;
}

// Truncation as the processor does it: a NaN, an infinity or a value out of
// range gives the lowest integer instead of undefined behaviour.
inline std::int64_t truncToInt64(double d)
{
    if (!(d >= -9223372036854775808.0 && d < 9223372036854775808.0))
        return INT64_MIN;
    return static_cast<std::int64_t>(d);
}

inline int truncToInt32(double d)
{
    if (!(d > -2147483649.0 && d < 2147483648.0))
        return INT32_MIN;
    return static_cast<int>(d);
}

// The text of a QString as the number readers take it.
inline const ushort *utf16Of(const QString &text)
{
    return reinterpret_cast<const ushort *>(text.utf16());
}

} // namespace quva

// A function class of the Fast parser: a name, a fixed argument count, an
// Eval and a description. Classes that serve two spellings take the name at
// construction; the others are made with their one name.
#define QUVA_DECLARE_FUNCTION(Class)                                                   \
    class Class final : public mup::CallbackImpl<Class, mup::ICallback>                \
    {                                                                                  \
    public:                                                                            \
        explicit Class(const QString &name = QString());                              \
        void Eval(mup::IValue &ret, const mup::IValue *const *args, int argc) override; \
        QString GetDesc() const override;                                              \
    };

// The same for a function that reads or changes the ExprContext of the check.
#define QUVA_DECLARE_CONTEXT_FUNCTION(Class)                                           \
    class Class final : public mup::CallbackImpl<Class, mup::ICallback>                \
    {                                                                                  \
    public:                                                                            \
        explicit Class(ExprContext *context);                                          \
        void Eval(mup::IValue &ret, const mup::IValue *const *args, int argc) override; \
        QString GetDesc() const override;                                              \
                                                                                       \
    private:                                                                           \
        ExprContext *m_context;                                                        \
    };

// Constructor and description of a class declared above. `defaultName` is the
// name in the language when none is given.
#define QUVA_DEFINE_FUNCTION(Class, defaultName, argc, description)                    \
    Class::Class(const QString &name)                                                  \
        : CallbackImpl(mup::cmFUNC, name.isEmpty() ? QStringLiteral(defaultName) : name, argc) \
    {                                                                                  \
    }                                                                                  \
    QString Class::GetDesc() const { return QStringLiteral(description); }

#define QUVA_DEFINE_CONTEXT_FUNCTION(Class, name, argc, description)                  \
    Class::Class(ExprContext *context)                                                 \
        : CallbackImpl(mup::cmFUNC, QStringLiteral(name), argc), m_context(context)     \
    {                                                                                  \
    }                                                                                  \
    QString Class::GetDesc() const { return QStringLiteral(description); }
