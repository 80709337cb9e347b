#pragma once

#include "expr/engine_fast/mup_callback.h"

// The literal readers, the comparisons, the logical and bit operators and the
// two casts.

namespace mup {

class ParserX;

class PackageCommon
{
public:
    static void AddToParser(ParserX &parser);
};

// The six comparisons share one rule: both operands of one kind (numbers,
// booleans or strings), NULL or a null string on either side gives NULL.
class OprtCompare : public IOprtBin
{
public:
    // `op` is one of nopEQ, nopNEQ, nopLT, nopGT, nopLE, nopGE.
    OprtCompare(const QString &ident, int precedence, ENumericOp op);
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;

private:
};

// "=" and "==" are the same operator under two names.
class OprtEQ final : public CallbackImpl<OprtEQ, OprtCompare>
{
public:
    explicit OprtEQ(const QString &ident = QStringLiteral("=="));
};
class OprtNEQ final : public CallbackImpl<OprtNEQ, OprtCompare>
{
public:
    OprtNEQ();
};
class OprtLT final : public CallbackImpl<OprtLT, OprtCompare>
{
public:
    OprtLT();
};
class OprtGT final : public CallbackImpl<OprtGT, OprtCompare>
{
public:
    OprtGT();
};
class OprtLE final : public CallbackImpl<OprtLE, OprtCompare>
{
public:
    OprtLE();
};
class OprtGE final : public CallbackImpl<OprtGE, OprtCompare>
{
public:
    OprtGE();
};

class OprtLAnd final : public CallbackImpl<OprtLAnd, IOprtBin>
{
public:
    OprtLAnd();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

class OprtLOr final : public CallbackImpl<OprtLOr, IOprtBin>
{
public:
    OprtLOr();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// "&", "|", "<<" and ">>" on the operands truncated to 64-bit integers.
class OprtBits : public IOprtBin
{
public:
    OprtBits(const QString &ident, int precedence, double (*operation)(double, double),
             const QString &desc);
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override { return m_desc; }

private:
    double (*m_operation)(double, double);
    QString m_desc;
};

class OprtAnd final : public CallbackImpl<OprtAnd, OprtBits>
{
public:
    OprtAnd();
};
class OprtOr final : public CallbackImpl<OprtOr, OprtBits>
{
public:
    OprtOr();
};
class OprtShl final : public CallbackImpl<OprtShl, OprtBits>
{
public:
    OprtShl();
};
class OprtShr final : public CallbackImpl<OprtShr, OprtBits>
{
public:
    OprtShr();
};

// "(float)": the number of a number or boolean.
class OprtCastToFloat final : public CallbackImpl<OprtCastToFloat, IOprtInfix>
{
public:
    OprtCastToFloat();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// "(int)": truncation towards zero; NULL, NaN and the infinities pass through.
class OprtCastToInt final : public CallbackImpl<OprtCastToInt, IOprtInfix>
{
public:
    OprtCastToInt();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

} // namespace mup
