#pragma once

#include "expr/engine_fast/mup_callback.h"

// Strings: the concatenation "//", strlen and toupper.

namespace mup {

class ParserX;

class PackageStr
{
public:
    static void AddToParser(ParserX &parser);
};

// Both operands must be strings (code 20 otherwise).
class OprtStrAdd final : public CallbackImpl<OprtStrAdd, IOprtBin>
{
public:
    OprtStrAdd();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// The number of 16-bit characters; a null string gives NULL.
class FunStrLen final : public CallbackImpl<FunStrLen, ICallback>
{
public:
    FunStrLen();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

// A null string stays null.
class FunStrToUpper final : public CallbackImpl<FunStrToUpper, ICallback>
{
public:
    FunStrToUpper();
    void Eval(IValue &ret, const IValue *const *args, int argc) override;
    QString GetDesc() const override;
};

} // namespace mup
