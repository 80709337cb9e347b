#pragma once

#include "expr/engine_fast/mup_value.h"

// A variable of an expression: a pointer to a value that the caller owns and
// may change between evaluations. Evaluation reads through the pointer.

namespace mup {

class Variable final : public IToken
{
public:
    explicit Variable(Value *value) : IToken(cmVAR, QString()), m_value(value) {}

    IToken *Clone() const override { return new Variable(*this); }

    Value *GetPtr() const { return m_value; }

private:
    Value *m_value;
};

} // namespace mup
