#include "expr/engine_fast/mup_parser.h"

#include "expr/engine_fast/mup_list_builder.h"
#include "expr/engine_fast/mup_package_common.h"
#include "expr/engine_fast/mup_package_noncmplx.h"
#include "expr/engine_fast/mup_package_str.h"
#include "expr/engine_fast/mup_package_unit.h"
#include "expr/engine_fast/mup_token_reader.h"

namespace mup {

namespace {

// The five tokens that the reader knows by itself.
bool isBuiltInToken(const QString &name)
{
    static const QString builtIns[] = {QStringLiteral("("), QStringLiteral(")"),
                                       QStringLiteral(","), QStringLiteral("?"),
                                       QStringLiteral(":")};
    for (const QString &b : builtIns) {
        if (name == b)
            return true;
    }
    return false;
}

template <class T>
void putCallback(std::map<QString, std::unique_ptr<T>> &map, std::unique_ptr<T> callback)
{
    if (!callback)
        throw ParserError(ecINVALID_FUN_PTR, QString(), -1);
    const QString name = callback->GetIdent();
    map[name] = std::move(callback);
}

} // namespace

ParserX::ParserX(unsigned packages)
{
    if (packages & pckCOMMON)
        PackageCommon::AddToParser(*this);
    if (packages & pckNON_COMPLEX)
        PackageNonCmplx::AddToParser(*this);
    if (packages & pckSTRING)
        PackageStr::AddToParser(*this);
    if (packages & pckUNIT)
        PackageUnit::AddToParser(*this);
}

void ParserX::checkName(const QString &name) const
{
    bool valid = !name.isEmpty();
    for (QChar c : name)
        valid = valid && isIdentChar(c);
    if (!valid)
        throw ParserError(ecINVALID_NAME, name, -1);
}

void ParserX::DefineVar(const QString &name, const Variable &var)
{
    checkName(name);
    if (!var.GetPtr())
        throw ParserError(ecINVALID_VAR_PTR, name, -1);
    if (IsConstDefined(name))
        throw ParserError(ecNAME_CONFLICT, name, -1);
    m_symbols.variables.erase(name);
    m_symbols.variables.emplace(name, var);
    invalidate();
}

void ParserX::DefineConst(const QString &name, const Value &value)
{
    checkName(name);
    if (IsVarDefined(name))
        throw ParserError(ecNAME_CONFLICT, name, -1);
    m_symbols.constants[name] = value;
    invalidate();
}

void ParserX::DefineFun(std::unique_ptr<ICallback> callback)
{
    if (callback)
        checkName(callback->GetIdent());
    putCallback(m_symbols.functions, std::move(callback));
    invalidate();
}

void ParserX::DefineOprt(std::unique_ptr<IOprtBin> oprt)
{
    if (oprt && isBuiltInToken(oprt->GetIdent()))
        throw ParserError(ecBUILTIN_OVERLOAD, oprt->GetIdent(), -1);
    if (oprt && oprt->GetPri() < 0)
        throw ParserError(ecOPT_PRI, oprt->GetIdent(), -1);
    putCallback(m_symbols.binaryOperators, std::move(oprt));
    invalidate();
}

void ParserX::DefineInfixOprt(std::unique_ptr<IOprtInfix> oprt)
{
    putCallback(m_symbols.prefixOperators, std::move(oprt));
    invalidate();
}

void ParserX::DefinePostfixOprt(std::unique_ptr<IOprtPostfix> oprt)
{
    putCallback(m_symbols.postfixOperators, std::move(oprt));
    invalidate();
}

void ParserX::AddValueReader(std::unique_ptr<IValueReader> reader)
{
    if (!reader)
        throw ParserError(ecINVALID_FUN_PTR, QString(), -1);
    m_symbols.valueReaders.push_back(std::move(reader));
    invalidate();
}

void ParserX::SetExpr(const QString &expr)
{
    m_expr = expr;
    invalidate();
}

bool ParserX::IsVarDefined(const QString &name) const
{
    return m_symbols.variables.count(name) != 0;
}

bool ParserX::IsConstDefined(const QString &name) const
{
    return m_symbols.constants.count(name) != 0;
}

bool ParserX::IsFunDefined(const QString &name) const
{
    return m_symbols.functions.count(name) != 0;
}

QStringList ParserX::GetFunNames() const
{
    QStringList names;
    for (const auto &entry : m_symbols.functions)
        names << entry.first;
    return names;
}

QString ParserX::GetFunDesc(const QString &name) const
{
    const auto found = m_symbols.functions.find(name);
    return found == m_symbols.functions.end() ? QString() : found->second->GetDesc();
}

void ParserX::invalidate()
{
    m_rpn.reset();
}

// Reads the whole text token by token into a new list. An expression with no
// token at all (blanks only) has no value and is refused as an unexpected end.
void ParserX::build()
{
    auto rpn = std::make_unique<RPN>();
    try {
        TokenReader reader(m_symbols, m_expr);
        ListBuilder builder(*rpn);
        std::unique_ptr<IToken> token;
        int endPos = 0;
        do {
            token = reader.ReadNextToken();
            endPos = token->GetExprPos();
        } while (builder.Add(std::move(token)));
        if (rpn->GetSize() == 0)
            throw ParserError(ecUNEXPECTED_EOF, QString(), endPos);
    } catch (ParserError &error) {
        error.SetExpr(m_expr);
        throw;
    }
    m_evaluator.Prepare(*rpn);
    m_rpn = std::move(rpn);
}

const RPN &ParserX::GetRPN()
{
    if (!m_rpn)
        build();
    return *m_rpn;
}

const Value &ParserX::Eval()
{
    if (!m_rpn)
        build();
    try {
        return m_evaluator.Run();
    } catch (ParserError &error) {
        error.SetExpr(m_expr);
        throw;
    }
}

} // namespace mup
