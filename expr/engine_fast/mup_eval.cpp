#include "expr/engine_fast/mup_eval.h"

#include "expr/engine_fast/mup_callback.h"
#include "expr/engine_fast/mup_error.h"
#include "expr/engine_fast/mup_variable.h"
#include "expr/null_value.h"

#include <algorithm>

namespace mup {

Evaluator::Step Evaluator::stepOf(IToken *token)
{
    Step step{skNothing, 0, nopNone, token, nullptr, nullptr};
    switch (token->GetCode()) {
    case cmVAL:
        step.kind = skValue;
        step.value = static_cast<Value *>(token);
        break;
    case cmVAR:
        // Nothing changes a variable's value during a walk, so its slot can
        // refer to it as it refers to a literal.
        step.kind = skValue;
        step.value = static_cast<Variable *>(token)->GetPtr();
        break;
    case cmIF:
    case cmELSE:
        step.kind = token->GetCode() == cmIF ? skIf : skElse;
        step.offset = static_cast<TokenIfThenElse *>(token)->GetOffset();
        break;
    case cmFUNC:
    case cmOPRT_BIN:
    case cmOPRT_INFIX:
    case cmOPRT_POSTFIX:
        step.callback = static_cast<ICallback *>(token);
        step.offset = step.callback->GetArgsPresent();
        step.op = step.callback->GetNumericOp();
        step.kind = skCallback;
        if (step.op == nopSign && step.offset == 1)
            step.kind = skSign;
        else if (step.op != nopNone && step.op != nopSign && step.offset == 2)
            step.kind = static_cast<StepKind>(skBinary + step.op);
        break;
    default:
        break;
    }
    return step;
}

// A value followed by a built-in binary operator becomes one step, so the
// walk does not push what the operator takes at once. Jumps are moved to the
// steps of the tokens they point at; "?", ":" and the end of a conditional
// always keep a step of their own.
void Evaluator::Prepare(const RPN &rpn)
{
    const std::vector<IToken *> &tokens = rpn.Tokens();
    const int count = static_cast<int>(tokens.size());
    std::vector<int> stepOfToken(static_cast<size_t>(count) + 1);
    std::vector<int> tokenOfJump;
    m_steps.clear();
    m_operands.clear();
    for (int k = 0; k < count; ++k) {
        Step step = stepOf(tokens[k]);
        const IToken *operand = nullptr;
        stepOfToken[k] = static_cast<int>(m_steps.size());
        if (step.kind == skValue && k + 1 < count) {
            Step next = stepOf(tokens[k + 1]);
            if (next.kind > skBinary && next.kind < skBinaryValue) {
                next.kind = static_cast<StepKind>(skBinaryValue + next.op);
                next.value = step.value;
                operand = step.token;
                step = next;
                stepOfToken[++k] = static_cast<int>(m_steps.size());
            }
        }
        if (step.kind == skIf || step.kind == skElse)
            tokenOfJump.push_back(k);
        m_steps.push_back(step);
        m_operands.push_back(operand);
    }
    m_branchTaken.assign(m_steps.size(), 0);
    stepOfToken[count] = static_cast<int>(m_steps.size());
    fixJumps(stepOfToken, tokenOfJump);

    const int size = rpn.GetRequiredStackSize();
    m_store.assign(static_cast<size_t>(size), Value());
    m_slots.resize(static_cast<size_t>(size));
    for (int i = 0; i < size; ++i)
        m_slots[i] = &m_store[i];
    m_origins.assign(static_cast<size_t>(size), nullptr);
    m_resultIndex = rpn.GetResultIndex();
}

void Evaluator::fixJumps(const std::vector<int> &stepOfToken, const std::vector<int> &tokenOfJump)
{
    const int tokenCount = static_cast<int>(stepOfToken.size()) - 1;
    for (int token : tokenOfJump) {
        Step &step = m_steps[stepOfToken[token]];
        const int target = std::min(std::max(token + step.offset, 0), tokenCount);
        step.offset = stepOfToken[target] - stepOfToken[token];
    }
}

namespace {

// Both operands on the stack; the result replaces the left one.
template <ENumericOp Op>
Q_ALWAYS_INLINE void binaryStep(ICallback *callback, IValue **slots, Value *store, int sp)
{
    if (!applyNumericBinary<Op>(store[sp], asValue(slots[sp]), asValue(slots[sp + 1])))
        callback->Eval(store[sp], slots + sp, 2);
    slots[sp] = &store[sp];
}

// The right operand is `right`, which only goes on the stack if the
// operator object is needed.
template <ENumericOp Op>
Q_ALWAYS_INLINE void binaryValueStep(ICallback *callback, Value *right, IValue **slots,
                                     Value *store, int sp)
{
    if (!applyNumericBinary<Op>(store[sp], asValue(slots[sp]), *right)) {
        slots[sp + 1] = right;
        callback->Eval(store[sp], slots + sp, 2);
    }
    slots[sp] = &store[sp];
}

} // namespace

// One case per built-in operator and operand source, so that each is a
// single jump of the dispatch.
#define MUP_BINARY_CASES(op)                                                                   \
    case skBinary + op:                                                                        \
        if (--sp < 0 || sp + 1 >= size)                                                        \
            stackError(step);                                                                  \
        binaryStep<op>(step.callback, slots, store, sp);                                       \
        break;                                                                                 \
    case skBinaryValue + op:                                                                   \
        if (sp < 0 || sp + 1 >= size)                                                          \
            stackError(step);                                                                  \
        binaryValueStep<op>(step.callback, step.value, slots, store, sp);                      \
        break;

// The bounds tests cannot fail for a list that the builder accepted; they
// keep a broken list from touching memory outside the stack.
const Value &Evaluator::Run()
{
    const Step *steps = m_steps.data();
    const int count = static_cast<int>(m_steps.size());
    const int size = static_cast<int>(m_store.size());
    Value *store = m_store.data();
    IValue **slots = m_slots.data();
    char *branchTaken = m_branchTaken.data();
    int sp = -1;
    int i = 0;
    try {
        for (; i < count; ++i) {
            const Step &step = steps[i];
            switch (static_cast<int>(step.kind)) {
            case skValue:
                if (++sp >= size)
                    stackError(step);
                slots[sp] = step.value;
                break;
            case skIf: {
                if (sp < 0)
                    stackError(step);
                const double condition = asValue(slots[sp--]).GetBool();
                const bool jump = quva::isNull(condition) || condition == 0.0;
                branchTaken[i] = jump;
                if (jump)
                    i += step.offset;
                break;
            }
            case skElse:
                i += step.offset;
                break;
            case skNothing:
                break;
            MUP_BINARY_CASES(nopAdd)
            MUP_BINARY_CASES(nopSub)
            MUP_BINARY_CASES(nopMul)
            MUP_BINARY_CASES(nopDiv)
            MUP_BINARY_CASES(nopMod)
            MUP_BINARY_CASES(nopPow)
            MUP_BINARY_CASES(nopEQ)
            MUP_BINARY_CASES(nopNEQ)
            MUP_BINARY_CASES(nopLT)
            MUP_BINARY_CASES(nopGT)
            MUP_BINARY_CASES(nopLE)
            MUP_BINARY_CASES(nopGE)
            MUP_BINARY_CASES(nopLAnd)
            MUP_BINARY_CASES(nopLOr)
            case skSign:
                if (sp < 0 || sp >= size)
                    stackError(step);
                if (asValue(slots[sp]).isNumeric())
                    store[sp] = negateNumber(asValue(slots[sp]).number());
                else
                    step.callback->Eval(store[sp], slots + sp, 1);
                slots[sp] = &store[sp];
                break;
            case skCallback:
                sp += 1 - step.offset;
                if (sp < 0 || sp >= size)
                    stackError(step);
                step.callback->Eval(store[sp], slots + sp,
                                    step.offset);
                slots[sp] = &store[sp];
                break;
            default:
                stackError(step);
            }
        }
    } catch (ParserError &error) {
        if (error.GetValue() && error.GetCode() == ecTYPE_CONFLICT && i < count)
            nameTypeError(error, i);
        error.SetValue(nullptr);
        if (error.GetPos() < 0 && i < count)
            error.SetPos(steps[i].token->GetExprPos());
        throw;
    }
    return asValue(slots[m_resultIndex]);
}

#undef MUP_BINARY_CASES

// Walks the steps before `failing` again without computing anything, along
// the branches that the last walk took, and notes in m_origins which token
// filled each slot: a literal, a variable, or the callback that computed it.
// Returns the stack position at the failing step, or -2 if the list does not
// add up.
int Evaluator::replayOrigins(int failing)
{
    const int size = static_cast<int>(m_origins.size());
    int sp = -1;
    for (int i = 0; i < failing; ++i) {
        const Step &step = m_steps[i];
        switch (static_cast<int>(step.kind)) {
        case skValue:
            ++sp;
            break;
        case skIf:
            --sp;
            if (m_branchTaken[i])
                i += step.offset;
            continue;
        case skElse:
            i += step.offset;
            continue;
        case skNothing:
            continue;
        case skSign:
            break;
        case skCallback:
            sp += 1 - step.offset;
            break;
        default:
            if (step.kind > skBinary && step.kind < skBinaryValue)
                --sp;
            break;
        }
        if (sp < 0 || sp >= size)
            return -2;
        m_origins[sp] = step.token;
    }
    return sp;
}

// A value refused by a type error knows its own name and place only if it is
// a literal or a constant. The walk finds it among the arguments of the
// failing step and names it after the token behind that slot: a variable by
// its name, anything by the token's place. A computed value keeps its printed
// form and takes the place of the operator or function that computed it. The
// argument index, when the reader gave one, tells apart two places that hold
// the same variable; otherwise the first place that holds the value is named.
void Evaluator::nameTypeError(ParserError &error, int failing)
{
    const int sp = replayOrigins(failing);
    if (sp < -1)
        return;
    const Step &step = m_steps[failing];
    int first = sp;
    int count = 1;
    const IValue *extra = nullptr; // the operand that a skBinaryValue step took in
    switch (static_cast<int>(step.kind)) {
    case skIf:
    case skSign:
        break;
    case skCallback:
        count = step.offset;
        first = sp + 1 - count;
        break;
    default:
        if (step.kind > skBinary && step.kind < skBinaryValue) {
            first = sp - 1;
            count = 2;
        } else if (step.kind > skBinaryValue) {
            extra = step.value;
        } else {
            return;
        }
        break;
    }
    const int slotCount = extra ? count + 1 : count;
    if (first < 0 || first + count > static_cast<int>(m_origins.size()))
        return;
    auto valueAt = [&](int k) -> const IValue * {
        return k < count ? m_slots[first + k] : extra;
    };
    auto originAt = [&](int k) -> const IToken * {
        return k < count ? m_origins[first + k] : m_operands[failing];
    };
    int found = -1;
    const int arg = error.GetContext().Arg;
    if (arg >= 1 && arg <= slotCount && valueAt(arg - 1) == error.GetValue())
        found = arg - 1;
    for (int k = 0; found < 0 && k < slotCount; ++k) {
        if (valueAt(k) == error.GetValue())
            found = k;
    }
    const IToken *origin = found >= 0 ? originAt(found) : nullptr;
    if (!origin)
        return;
    if (origin->GetCode() == cmVAR || origin->GetCode() == cmVAL) {
        if (!origin->GetIdent().isEmpty())
            error.SetIdent(origin->GetIdent());
    }
    error.SetPos(origin->GetExprPos());
}

void Evaluator::stackError(const Step &step) const
{
    throw ParserError(QStringLiteral("stack is empty."), ecINTERNAL_ERROR, step.token->GetIdent(),
                      step.token->GetExprPos());
}

} // namespace mup
