#pragma once

#include "expr/engine_fast/mup_numeric_ops.h"
#include "expr/engine_fast/mup_value.h"

// Functions and operators of the Fast parser. Each is a callback object that
// the engine clones for every place where it occurs in an expression.

namespace mup {

class ICallback : public IToken
{
public:
    // `argc` is the declared number of arguments; -1 takes any number.
    ICallback(ECmdCode code, const QString &ident, int argc)
        : IToken(code, ident), m_argc(argc)
    {
    }

    ICallback *Clone() const override = 0;

    // `args[0]` to `args[argc - 1]` are the arguments. `ret` may be the very
    // object behind `args[0]`, so read the arguments before writing `ret`.
    virtual void Eval(IValue &ret, const IValue *const *args, int argc) = 0;
    virtual QString GetDesc() const = 0;
    // No callback of this system is volatile; kept as a slot for those that
    // might be.
    virtual bool IsVolatile() const { return false; }

    int GetArgc() const { return m_argc; }
    // The number of arguments at this place of the expression.
    int GetArgsPresent() const { return m_argsPresent; }
    void SetArgsPresent(int n) { m_argsPresent = n; }

    // Raises code 20 for argument `index` (1-based) of type `actual` where
    // `expected` was wanted.
    [[noreturn]] void throwArgTypeError(int index, QChar actual, QChar expected) const;

    // The built-in operation that Eval performs on numbers, which the walk may
    // apply in place; nopNone for every other callback.
    ENumericOp GetNumericOp() const { return m_numericOp; }

protected:
    void SetNumericOp(ENumericOp op) { m_numericOp = op; }

private:
    int m_argc;
    int m_argsPresent = -1;
    ENumericOp m_numericOp = nopNone;
};

class IOprtBin : public ICallback
{
public:
    IOprtBin(const QString &ident, int precedence, EOprtAssociativity associativity)
        : ICallback(cmOPRT_BIN, ident, 2), m_precedence(precedence), m_associativity(associativity)
    {
    }
    int GetPri() const { return m_precedence; }
    EOprtAssociativity GetAssociativity() const { return m_associativity; }

private:
    int m_precedence;
    EOprtAssociativity m_associativity;
};

class IOprtInfix : public ICallback
{
public:
    // The precedence matters only if a binary operator follows a prefix
    // operator directly, which the reader lets through only in broken texts.
    explicit IOprtInfix(const QString &ident, int precedence = prefixPrecedence)
        : ICallback(cmOPRT_INFIX, ident, 1), m_precedence(precedence)
    {
    }
    int GetPri() const { return m_precedence; }
    static constexpr int prefixPrecedence = 12;

private:
    int m_precedence;
};

class IOprtPostfix : public ICallback
{
public:
    explicit IOprtPostfix(const QString &ident) : ICallback(cmOPRT_POSTFIX, ident, 1) {}
};

// Helpers of the built-in operators, which know that every value on the
// engine's stack is a mup::Value.
inline const Value &asValue(const IValue *v) { return *static_cast<const Value *>(v); }
inline Value &asValue(IValue &v) { return static_cast<Value &>(v); }

// The number of argument `index` (1-based) of `callback`, which must be of
// type 'f' or 'i'; code 20 otherwise.
inline double numericArg(const ICallback &callback, const IValue *const *args, int index)
{
    const Value &v = asValue(args[index - 1]);
    if (!v.isNumeric())
        callback.throwArgTypeError(index, v.GetType(), QLatin1Char('f'));
    return v.number();
}

// Argument `index` (0-based, as in `args[index]`) read as GetFloat and
// GetString read it, but a type error also carries the argument's index. A
// callback that reads some arguments as numbers and others as strings uses
// these: when one variable is passed in two places, the error can then name
// the place that was refused rather than the first place where it stands.
inline double floatArgument(const IValue *const *args, int index)
{
    return asValue(args[index]).GetFloatOfArg(index + 1);
}

inline QString stringArgument(const IValue *const *args, int index)
{
    return asValue(args[index]).GetStringOfArg(index + 1);
}

} // namespace mup

namespace mup {

// Gives a callback class its Clone.
template <class Derived, class Base>
class CallbackImpl : public Base
{
public:
    using Base::Base;
    ICallback *Clone() const override { return new Derived(static_cast<const Derived &>(*this)); }
};

} // namespace mup
