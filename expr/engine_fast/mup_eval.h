#pragma once

#include "expr/engine_fast/mup_numeric_ops.h"
#include "expr/engine_fast/mup_rpn.h"
#include "expr/engine_fast/mup_value.h"

#include <vector>

// Walks a finished list on a stack of values made once. A slot refers to a
// literal of the list, to the value behind a variable, or to its own value in
// the store; callbacks always write into the store, so neither literals nor
// the caller's values are ever changed.

namespace mup {

class ICallback;
class ParserError;

class Evaluator
{
public:
    // Prepares the walk of `rpn`, which must outlive the evaluator's use.
    void Prepare(const RPN &rpn);
    const Value &Run();

private:
    enum StepKind : int {
        skValue,       // push the literal (or the variable's value)
        skIf,          // pop; jump by offset if it is 0 or NULL
        skElse,        // jump by offset
        skNothing,     // end of a conditional
        skSign,        // built-in prefix minus: in place on numbers, else its Eval
        skCallback,    // any other callback: Eval with `offset` arguments
        // A built-in binary operator, in place on numbers, else its Eval:
        // skBinary + op takes both operands from the stack, skBinaryValue + op
        // takes the right one from the step's value, which is not pushed.
        skBinary = 16,
        skBinaryValue = 32
    };

    struct Step
    {
        StepKind kind;
        int offset;              // jump distance, or argument count of a callback
        ENumericOp op;           // for the binary kinds
        IToken *token;
        ICallback *callback;     // for the callback kinds
        Value *value;            // for skValue
    };

    static Step stepOf(IToken *token);
    void fixJumps(const std::vector<int> &stepOfToken, const std::vector<int> &tokenOfJump);
    [[noreturn]] void stackError(const Step &step) const;

    // Type errors: the walk knows which token filled each slot, the value
    // refused does not.
    void nameTypeError(ParserError &error, int failing);
    int replayOrigins(int failing);

    std::vector<Step> m_steps;
    std::vector<Value> m_store;
    std::vector<IValue *> m_slots;
    int m_resultIndex = 0;

    // Only for naming the value of a type error, off the hot path: the token
    // of the operand that a skBinaryValue step took in (else null), the way
    // each "?" went in the last walk, and the token behind each slot.
    std::vector<const IToken *> m_operands;
    std::vector<char> m_branchTaken;
    std::vector<const IToken *> m_origins;
};

} // namespace mup
