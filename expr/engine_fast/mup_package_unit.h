#pragma once

#include "expr/engine_fast/mup_callback.h"

// Postfix units that multiply a number by a power of ten.

namespace mup {

class ParserX;

class PackageUnit
{
public:
    static void AddToParser(ParserX &parser);
};

// Takes 'f' and 'i' only (code 20 otherwise); NULL stays NULL.
class OprtUnit : public IOprtPostfix
{
public:
    OprtUnit(const QString &ident, double factor);
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;

private:
    double m_factor;
};

class OprtNano final : public CallbackImpl<OprtNano, OprtUnit>
{
public:
    OprtNano();
};
class OprtMicro final : public CallbackImpl<OprtMicro, OprtUnit>
{
public:
    OprtMicro();
};
class OprtMilli final : public CallbackImpl<OprtMilli, OprtUnit>
{
public:
    OprtMilli();
};
class OprtKilo final : public CallbackImpl<OprtKilo, OprtUnit>
{
public:
    OprtKilo();
};
class OprtMega final : public CallbackImpl<OprtMega, OprtUnit>
{
public:
    OprtMega();
};
class OprtGiga final : public CallbackImpl<OprtGiga, OprtUnit>
{
public:
    OprtGiga();
};

} // namespace mup
