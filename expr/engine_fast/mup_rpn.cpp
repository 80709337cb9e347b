#include "expr/engine_fast/mup_rpn.h"

#include "expr/engine_fast/mup_callback.h"
#include "expr/engine_fast/mup_error.h"

#include <algorithm>

namespace mup {

namespace {

int popIndex(std::vector<int> &stack)
{
    if (stack.empty())
        throw ParserError(ecINTERNAL_ERROR, QString(), -1);
    const int index = stack.back();
    stack.pop_back();
    return index;
}

} // namespace

IToken *RPN::Keep(std::unique_ptr<IToken> token)
{
    m_owned.push_back(std::move(token));
    return m_owned.back().get();
}

void RPN::Add(IToken *token)
{
    m_list.push_back(token);
}

void RPN::Finalize(int argCount)
{
    storeJumps();
    computeStackSize();
    m_resultIndex = argCount - 1;
    // A stack at least as deep as the result index, so the result slot always
    // exists; the walk guards every other access.
    m_stackSize = std::max(m_stackSize, m_resultIndex + 1);
}

// "?" jumps to its ":" when the condition fails, ":" to the end of the
// conditional when the first branch is done.
void RPN::storeJumps()
{
    std::vector<int> ifs;
    std::vector<int> elses;
    for (int i = 0; i < GetSize(); ++i) {
        switch (m_list[i]->GetCode()) {
        case cmIF:
            ifs.push_back(i);
            break;
        case cmELSE: {
            elses.push_back(i);
            const int ifIndex = popIndex(ifs);
            static_cast<TokenIfThenElse *>(m_list[ifIndex])->SetOffset(i - ifIndex);
            break;
        }
        case cmENDIF: {
            const int elseIndex = popIndex(elses);
            static_cast<TokenIfThenElse *>(m_list[elseIndex])->SetOffset(i - elseIndex);
            break;
        }
        default:
            break;
        }
    }
}

// An upper bound: a value or variable adds one, a callback adds one minus its
// argument count, and the pop of "?" is not counted.
void RPN::computeStackSize()
{
    int depth = 0;
    int highest = 0;
    for (const IToken *token : m_list) {
        switch (token->GetCode()) {
        case cmVAL:
        case cmVAR:
            ++depth;
            break;
        case cmFUNC:
        case cmOPRT_BIN:
        case cmOPRT_INFIX:
        case cmOPRT_POSTFIX:
            depth += 1 - static_cast<const ICallback *>(token)->GetArgsPresent();
            break;
        default:
            break;
        }
        highest = std::max(highest, depth);
    }
    m_stackSize = highest;
}

} // namespace mup
