#pragma once

#include "expr/engine_fast/mup_rpn.h"

#include <memory>
#include <vector>

// Turns the reader's tokens into the reverse-Polish list with three stacks:
// the pending operators, placeholders for the values (only their number
// matters), and the argument counts of the open parentheses.

namespace mup {

class ICallback;

class ListBuilder
{
public:
    explicit ListBuilder(RPN &rpn);

    // Takes the next token; false once the end of the expression was taken.
    bool Add(std::unique_ptr<IToken> token);

private:
    void addOpenParen(IToken *token);
    void addCloseParen();
    void addSeparator(IToken *token);
    void addOperator(IToken *token);
    void addElse(IToken *token);
    void addOperand(IToken *token);
    void addFunction(IToken *token);
    void addPostfix(IToken *token);

    void applyRemaining();
    void applyIfElse();
    void apply(int argCount);
    void checkArgCount(const ICallback &callback, int argCount) const;
    bool stopsBefore(const IToken *top, const IToken *incoming) const;
    void popPlaceholders(int n, const IToken *by);
    IToken *topOperator() const;
    ECmdCode topCode() const;

    RPN &m_rpn;
    std::vector<IToken *> m_operators;
    int m_placeholders = 0;
    std::vector<int> m_argCounts{1};
    int m_lastCode = cmUNKNOWN;
};

} // namespace mup
