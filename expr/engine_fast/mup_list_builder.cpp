#include "expr/engine_fast/mup_list_builder.h"

#include "expr/engine_fast/mup_callback.h"
#include "expr/engine_fast/mup_error.h"

namespace mup {

namespace {

int precedenceOf(const IToken *token)
{
    switch (token->GetCode()) {
    case cmOPRT_BIN:
        return static_cast<const IOprtBin *>(token)->GetPri();
    case cmOPRT_INFIX:
        return static_cast<const IOprtInfix *>(token)->GetPri();
    case cmIF:
    case cmELSE:
        return TokenIfThenElse::precedence;
    default:
        return IOprtInfix::prefixPrecedence;
    }
}

bool isRightAssociative(const IToken *token)
{
    return token->GetCode() == cmOPRT_BIN
           && static_cast<const IOprtBin *>(token)->GetAssociativity() == oaRIGHT;
}

bool isCallback(ECmdCode code)
{
    return code == cmFUNC || code == cmOPRT_INFIX;
}

} // namespace

ListBuilder::ListBuilder(RPN &rpn)
    : m_rpn(rpn)
{
}

bool ListBuilder::Add(std::unique_ptr<IToken> owned)
{
    const ECmdCode code = owned->GetCode();
    IToken *token = m_rpn.Keep(std::move(owned));
    switch (code) {
    case cmBO: addOpenParen(token); break;
    case cmBC: addCloseParen(); break;
    case cmARG_SEP: addSeparator(token); break;
    case cmIF:
    case cmOPRT_BIN: addOperator(token); break;
    case cmELSE: addElse(token); break;
    case cmVAL:
    case cmVAR: addOperand(token); break;
    case cmFUNC:
    case cmOPRT_INFIX: addFunction(token); break;
    case cmOPRT_POSTFIX: addPostfix(token); break;
    case cmEND:
        applyRemaining();
        m_rpn.Finalize(m_argCounts.back());
        return false;
    default:
        throw ParserError(ecINTERNAL_ERROR, token->GetIdent(), token->GetExprPos());
    }
    m_lastCode = code;
    return true;
}

void ListBuilder::addOpenParen(IToken *token)
{
    m_argCounts.push_back(1);
    m_operators.push_back(token);
}

// Closes a group; a function or prefix operator before it takes the group's
// count as its number of arguments.
void ListBuilder::addCloseParen()
{
    if (m_lastCode == cmBO)
        --m_argCounts.back();
    applyRemaining();
    if (topCode() != cmBO)
        return;
    const int argCount = m_argCounts.back();
    m_argCounts.pop_back();
    m_operators.pop_back();
    if (isCallback(topCode())) {
        checkArgCount(*static_cast<const ICallback *>(topOperator()), argCount);
        apply(argCount);
    }
    if (topCode() == cmOPRT_INFIX)
        apply(1);
}

void ListBuilder::addSeparator(IToken *token)
{
    if (m_argCounts.empty())
        throw ParserError(ecUNEXPECTED_ARG_SEP, token->GetIdent(), token->GetExprPos());
    ++m_argCounts.back();
    applyRemaining();
}

void ListBuilder::addOperator(IToken *token)
{
    while (!m_operators.empty() && topCode() != cmBO && topCode() != cmELSE && topCode() != cmIF) {
        if (stopsBefore(topOperator(), token))
            break;
        apply(2);
    }
    if (token->GetCode() == cmIF)
        m_rpn.Add(token);
    m_operators.push_back(token);
}

// Whether `incoming` binds tighter than the operator on top of the stack.
bool ListBuilder::stopsBefore(const IToken *top, const IToken *incoming) const
{
    const int a = precedenceOf(top);
    const int b = precedenceOf(incoming);
    if (top->GetIdent() == incoming->GetIdent())
        return isRightAssociative(top) ? a <= b : a < b;
    return a < b;
}

void ListBuilder::addElse(IToken *token)
{
    applyRemaining();
    m_rpn.Add(token);
    m_operators.push_back(token);
}

void ListBuilder::addOperand(IToken *token)
{
    ++m_placeholders;
    m_rpn.Add(token);
    if (topCode() == cmOPRT_INFIX)
        apply(1);
}

void ListBuilder::addFunction(IToken *token)
{
    if (topCode() == cmFUNC) {
        const int declared = static_cast<const ICallback *>(topOperator())->GetArgc();
        if (declared != -1 && declared < m_argCounts.back())
            throw ParserError(ecTOO_MANY_PARAMS, topOperator()->GetIdent(),
                              topOperator()->GetExprPos());
    }
    m_operators.push_back(token);
}

void ListBuilder::addPostfix(IToken *token)
{
    popPlaceholders(1, token);
    ++m_placeholders;
    static_cast<ICallback *>(token)->SetArgsPresent(1);
    m_rpn.Add(token);
}

void ListBuilder::applyRemaining()
{
    while (!m_operators.empty()) {
        switch (topCode()) {
        case cmBO:
        case cmIF:
            return;
        case cmELSE:
            applyIfElse();
            break;
        case cmOPRT_BIN:
            apply(2);
            break;
        default:
            throw ParserError(ecINTERNAL_ERROR, topOperator()->GetIdent(),
                              topOperator()->GetExprPos());
        }
    }
}

void ListBuilder::applyIfElse()
{
    const IToken *colon = topOperator();
    popPlaceholders(3, colon);
    ++m_placeholders;
    m_operators.pop_back();
    if (topCode() != cmIF)
        throw ParserError(ecMISPLACED_COLON, colon->GetIdent(), colon->GetExprPos());
    m_operators.pop_back();
    m_rpn.Add(m_rpn.Keep(std::make_unique<TokenIfThenElse>(cmENDIF)));
}

void ListBuilder::apply(int argCount)
{
    IToken *token = topOperator();
    m_operators.pop_back();
    if (argCount == 0)
        ++m_placeholders;
    popPlaceholders(argCount, token);
    ++m_placeholders;
    static_cast<ICallback *>(token)->SetArgsPresent(argCount);
    m_rpn.Add(token);
}

void ListBuilder::checkArgCount(const ICallback &callback, int argCount) const
{
    const int declared = callback.GetArgc();
    if (declared != -1 && declared < argCount)
        throw ParserError(ecTOO_MANY_PARAMS, callback.GetIdent(), callback.GetExprPos());
    if (argCount < declared)
        throw ParserError(ecTOO_FEW_PARAMS, callback.GetIdent(), callback.GetExprPos());
}

void ListBuilder::popPlaceholders(int n, const IToken *by)
{
    if (m_placeholders < n)
        throw ParserError(QStringLiteral("stack is empty."), ecINTERNAL_ERROR, by->GetIdent(),
                          by->GetExprPos());
    m_placeholders -= n;
}

IToken *ListBuilder::topOperator() const
{
    return m_operators.empty() ? nullptr : m_operators.back();
}

ECmdCode ListBuilder::topCode() const
{
    return m_operators.empty() ? cmUNKNOWN : m_operators.back()->GetCode();
}

} // namespace mup
