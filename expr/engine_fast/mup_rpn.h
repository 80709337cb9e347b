#pragma once

#include "expr/engine_fast/mup_token.h"

#include <memory>
#include <vector>

// The reverse-Polish token list of one expression. It owns its tokens; once
// finished, "?" and ":" hold the distances of their jumps and the list knows
// how deep the evaluation stack must be and where the result stands.

namespace mup {

class RPN
{
public:
    // Takes ownership of a token that the list may or may not hold.
    IToken *Keep(std::unique_ptr<IToken> token);
    void Add(IToken *token);
    // Stores the jump distances and the stack size; `argCount` is the final
    // top-level argument count.
    void Finalize(int argCount);

    const std::vector<IToken *> &Tokens() const { return m_list; }
    int GetSize() const { return static_cast<int>(m_list.size()); }
    int GetRequiredStackSize() const { return m_stackSize; }
    int GetResultIndex() const { return m_resultIndex; }

private:
    void storeJumps();
    void computeStackSize();

    std::vector<std::unique_ptr<IToken>> m_owned;
    std::vector<IToken *> m_list;
    int m_stackSize = 0;
    int m_resultIndex = 0;
};

} // namespace mup
