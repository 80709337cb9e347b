#include "expr/engine_fast/mup_token_reader.h"

#include "expr/engine_fast/mup_error.h"

#include <algorithm>

namespace mup {

namespace {

// Length of the longest name of the map: only that much of a run of operator
// characters can decide which operator stands there.
template <class Map> int longestName(const Map &map)
{
    int longest = 0;
    for (const auto &entry : map)
        longest = std::max(longest, static_cast<int>(entry.first.size()));
    return longest;
}

// The operator whose name the run starts with, names tried in descending
// order so that "<=" goes before "<".
template <class Map>
const typename Map::mapped_type::element_type *findOperator(const Map &map, const QString &run)
{
    if (run.isEmpty())
        return nullptr;
    for (auto it = map.rbegin(); it != map.rend(); ++it) {
        if (run.startsWith(it->first))
            return it->second.get();
    }
    return nullptr;
}

} // namespace

TokenReader::TokenReader(const Symbols &symbols, const QString &expr)
    : m_symbols(symbols)
    , m_expr(expr + QLatin1Char(' '))
    , m_length(expr.size())
{
}

// The kinds of token are tried in a fixed order; the first that recognises
// something wins, and a refused operator is only reported once nothing else
// could read the place.
std::unique_ptr<IToken> TokenReader::ReadNextToken()
{
    while (m_pos < m_expr.size() && m_expr.at(m_pos).unicode() <= 32)
        ++m_pos;
    if (auto token = readEnd())
        return token;
    if (!(m_synFlags & noOPT))
        if (auto token = readBinaryOperator())
            return token;
    if (!(m_synFlags & noINFIXOP))
        if (auto token = readPrefixOperator())
            return token;
    if (auto token = readValue())
        return token;
    if (auto token = readBuiltIn())
        return token;
    if (auto token = readVariableOrConstant())
        return token;
    if (auto token = readFunction())
        return token;
    if (!(m_synFlags & noPFX))
        if (auto token = readPostfixOperator())
            return token;
    if (auto token = readRefusedOperator())
        return token;
    raiseUndefinedToken();
}

std::unique_ptr<IToken> TokenReader::accept(IToken *token, int length, int nextFlags)
{
    std::unique_ptr<IToken> owned(token);
    owned->SetExprPos(m_pos);
    m_pos += length;
    m_synFlags = nextFlags;
    m_lastCode = owned->GetCode();
    return owned;
}

void TokenReader::refuseIf(int flag, EErrorCodes code, const QString &ident) const
{
    if (m_synFlags & flag)
        throw ParserError(code, ident, m_pos);
}

QString TokenReader::runOf(bool (*isMember)(QChar), int limit) const
{
    const int stop = static_cast<int>(std::min<qint64>(m_expr.size(), qint64(m_pos) + limit));
    int end = m_pos;
    while (end < stop && isMember(m_expr.at(end)))
        ++end;
    return m_expr.mid(m_pos, end - m_pos);
}

// Operator characters include the letters, so a run of them may go on to
// the end of the text; reading no further than the longest name keeps the
// reader linear in the length of the text.
template <class Map>
const typename Map::mapped_type::element_type *TokenReader::operatorAt(
    const Map &map, bool (*isMember)(QChar)) const
{
    return findOperator(map, runOf(isMember, longestName(map)));
}

// The end stands right behind the text as it was given, not behind the blank
// that the reader appends. An open parenthesis is named before the mask is
// asked, so that "f(" says what is missing rather than that the text ended.
std::unique_ptr<IToken> TokenReader::readEnd()
{
    if (m_pos < m_expr.size())
        return nullptr;
    m_pos = m_length;
    if (m_openParens > 0)
        throw ParserError(ecMISSING_PARENS, QString(), m_pos);
    refuseIf(noEND, ecUNEXPECTED_EOF, QString());
    if (m_openConditionals > 0)
        throw ParserError(ecMISSING_ELSE_CLAUSE, QString(), m_pos);
    std::unique_ptr<IToken> end = accept(new GenericToken(cmEND, QString()), 0, sfAFTER_END);
    m_pos = m_expr.size();
    return end;
}

std::unique_ptr<IToken> TokenReader::readBinaryOperator()
{
    const IOprtBin *op = operatorAt(m_symbols.binaryOperators, isOprtChar);
    if (!op)
        return nullptr;
    return accept(op->Clone(), op->GetIdent().size(), sfAFTER_OPRT_BIN);
}

std::unique_ptr<IToken> TokenReader::readPrefixOperator()
{
    const IOprtInfix *op = operatorAt(m_symbols.prefixOperators, isInfixChar);
    if (!op)
        return nullptr;
    return accept(op->Clone(), op->GetIdent().size(), sfAFTER_OPRT_INFIX);
}

std::unique_ptr<IToken> TokenReader::readValue()
{
    for (const auto &reader : m_symbols.valueReaders) {
        Value value;
        int end = m_pos;
        if (!reader->IsValue(m_expr, end, value))
            continue;
        refuseIf(noVAL, ecUNEXPECTED_VAL, m_expr.mid(m_pos, end - m_pos));
        return accept(value.Clone(), end - m_pos, sfAFTER_VAL);
    }
    return nullptr;
}

std::unique_ptr<IToken> TokenReader::readBuiltIn()
{
    const QChar c = m_expr.at(m_pos);
    const QString text(c);
    if (c == QLatin1Char('(')) {
        refuseIf(noBO, ecUNEXPECTED_PARENS, text);
        ++m_openParens;
        const int next = m_lastCode == cmFUNC ? sfAFTER_BO_OF_FUN : sfAFTER_BO;
        return accept(new GenericToken(cmBO, text), 1, next);
    }
    if (c == QLatin1Char(')')) {
        refuseIf(noBC, ecUNEXPECTED_PARENS, text);
        if (--m_openParens < 0)
            throw ParserError(ecUNEXPECTED_PARENS, text, m_pos);
        return accept(new GenericToken(cmBC, text), 1, sfAFTER_BC);
    }
    if (c == QLatin1Char(',')) {
        refuseIf(noARG_SEP, ecUNEXPECTED_ARG_SEP, text);
        return accept(new GenericToken(cmARG_SEP, text), 1, sfAFTER_ARG_SEP);
    }
    if (c == QLatin1Char('?')) {
        refuseIf(noIF, ecUNEXPECTED_CONDITIONAL, text);
        ++m_openConditionals;
        return accept(new TokenIfThenElse(cmIF), 1, sfAFTER_IF_ELSE);
    }
    if (c == QLatin1Char(':')) {
        refuseIf(noELSE, ecUNEXPECTED_CONDITIONAL, text);
        if (m_openConditionals <= 0)
            throw ParserError(ecMISPLACED_COLON, text, m_pos);
        --m_openConditionals;
        return accept(new TokenIfThenElse(cmELSE), 1, sfAFTER_IF_ELSE);
    }
    return nullptr;
}

std::unique_ptr<IToken> TokenReader::readVariableOrConstant()
{
    const QString name = runOf(isIdentChar);
    if (name.isEmpty())
        return nullptr;
    const auto var = m_symbols.variables.find(name);
    if (var != m_symbols.variables.end()) {
        refuseIf(noVAR, ecUNEXPECTED_VAR, name);
        IToken *token = var->second.Clone();
        token->SetIdent(name);
        return accept(token, name.size(), sfAFTER_VAR);
    }
    const auto constant = m_symbols.constants.find(name);
    if (constant != m_symbols.constants.end()) {
        refuseIf(noVAL, ecUNEXPECTED_VAL, name);
        IToken *token = constant->second.Clone();
        token->SetIdent(name);
        return accept(token, name.size(), sfAFTER_VAL);
    }
    return nullptr;
}

std::unique_ptr<IToken> TokenReader::readFunction()
{
    const QString name = runOf(isIdentChar);
    const auto fun = m_symbols.functions.find(name);
    if (name.isEmpty() || fun == m_symbols.functions.end())
        return nullptr;
    refuseIf(noFUN, ecUNEXPECTED_FUN, name);
    return accept(fun->second->Clone(), name.size(), sfAFTER_FUN);
}

std::unique_ptr<IToken> TokenReader::readPostfixOperator()
{
    const IOprtPostfix *op = operatorAt(m_symbols.postfixOperators, isOprtChar);
    if (!op)
        return nullptr;
    return accept(op->Clone(), op->GetIdent().size(), sfAFTER_OPRT_POSTFIX);
}

// An operator at a place that refuses it: a binary operator may still be a
// prefix operator of the same spelling; otherwise code 0.
std::unique_ptr<IToken> TokenReader::readRefusedOperator()
{
    const IOprtInfix *prefix = operatorAt(m_symbols.prefixOperators, isInfixChar);
    if (m_synFlags & noOPT) {
        const IOprtBin *op = operatorAt(m_symbols.binaryOperators, isOprtChar);
        if (op) {
            if (prefix && !(m_synFlags & noINFIXOP))
                return accept(prefix->Clone(), prefix->GetIdent().size(), sfAFTER_OPRT_INFIX);
            throw ParserError(ecUNEXPECTED_OPERATOR, op->GetIdent(), m_pos);
        }
    }
    if ((m_synFlags & noINFIXOP) && prefix)
        throw ParserError(ecUNEXPECTED_OPERATOR, prefix->GetIdent(), m_pos);
    return nullptr;
}

// The token is the name at this place or, where no name starts, the rest of
// the text as it was given.
void TokenReader::raiseUndefinedToken() const
{
    QString ident = runOf(isIdentChar);
    if (ident.isEmpty())
        ident = m_expr.mid(m_pos, m_length - m_pos);
    throw ParserError(ecUNASSIGNABLE_TOKEN, ident, m_pos);
}

} // namespace mup
