#pragma once

#include "expr/engine_fast/mup_callback.h"

// Arithmetic on real numbers: the operators + - * / % ^, the prefix minus,
// the mathematical functions and the constants _pi and _e.

namespace mup {

class ParserX;

class PackageNonCmplx
{
public:
    static void AddToParser(ParserX &parser);
};

// The six binary arithmetic operators take 'f' and 'i' only (code 20 for
// anything else) and give the float assignment of the result.
class OprtAdd final : public CallbackImpl<OprtAdd, IOprtBin>
{
public:
    OprtAdd();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtSub final : public CallbackImpl<OprtSub, IOprtBin>
{
public:
    OprtSub();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtMul final : public CallbackImpl<OprtMul, IOprtBin>
{
public:
    OprtMul();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtDiv final : public CallbackImpl<OprtDiv, IOprtBin>
{
public:
    OprtDiv();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtModulo final : public CallbackImpl<OprtModulo, IOprtBin>
{
public:
    OprtModulo();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtPow final : public CallbackImpl<OprtPow, IOprtBin>
{
public:
    OprtPow();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// The prefix minus; NULL stays NULL.
class OprtSign final : public CallbackImpl<OprtSign, IOprtInfix>
{
public:
    OprtSign();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// A function of one number: NULL gives NULL before anything else.
class FunMathOne final : public CallbackImpl<FunMathOne, ICallback>
{
public:
    FunMathOne(const QString &ident, double (*function)(double), const QString &desc);
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override { return m_desc; }

private:
    double (*m_function)(double);
    QString m_desc;
};

// sum, min and max of one or more numbers, with no NULL test.
class FunSum final : public CallbackImpl<FunSum, ICallback>
{
public:
    FunSum();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class FunMin final : public CallbackImpl<FunMin, ICallback>
{
public:
    FunMin();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class FunMax final : public CallbackImpl<FunMax, ICallback>
{
public:
    FunMax();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

} // namespace mup
