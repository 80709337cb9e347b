#pragma once

#include "expr/engine_fast/mup_callback.h"
#include "expr/engine_fast/mup_error.h"
#include "expr/engine_fast/mup_eval.h"
#include "expr/engine_fast/mup_package_common.h"
#include "expr/engine_fast/mup_package_noncmplx.h"
#include "expr/engine_fast/mup_package_str.h"
#include "expr/engine_fast/mup_package_unit.h"
#include "expr/engine_fast/mup_rpn.h"
#include "expr/engine_fast/mup_symbols.h"
#include "expr/engine_fast/mup_value.h"
#include "expr/engine_fast/mup_value_reader.h"
#include "expr/engine_fast/mup_variable.h"

#include <QString>
#include <QStringList>

#include <memory>

// The Fast parser: numbers, booleans and strings, read into a reverse-Polish
// token list and walked on a stack of values. Every failure is a thrown
// mup::ParserError whose position and token point into the expression.
//
// The list is built on the first Eval after SetExpr (or after a definition
// changed); later evaluations only walk it, so changing the values behind the
// variables and calling Eval again allocates nothing for numeric expressions.

namespace mup {

class ParserX
{
public:
    // `packages` is a combination of EPackages.
    explicit ParserX(unsigned packages = pckALL_NON_COMPLEX);
    ParserX(const ParserX &) = delete;
    ParserX &operator=(const ParserX &) = delete;

    // `var` points to a value that the caller owns and keeps alive.
    void DefineVar(const QString &name, const Variable &var);
    void DefineConst(const QString &name, const Value &value);
    // A function of an existing name replaces it.
    void DefineFun(std::unique_ptr<ICallback> callback);
    void DefineOprt(std::unique_ptr<IOprtBin> oprt);
    void DefineInfixOprt(std::unique_ptr<IOprtInfix> oprt);
    void DefinePostfixOprt(std::unique_ptr<IOprtPostfix> oprt);
    // Readers are tried in the order in which they were added.
    void AddValueReader(std::unique_ptr<IValueReader> reader);

    void SetExpr(const QString &expr);
    const QString &GetExpr() const { return m_expr; }

    // The value stays valid until the next Eval, SetExpr or definition.
    const Value &Eval();

    // The finished list of the current expression (built if need be).
    const RPN &GetRPN();

    bool IsVarDefined(const QString &name) const;
    bool IsConstDefined(const QString &name) const;
    bool IsFunDefined(const QString &name) const;
    // The names of the functions, sorted, and the description of one (empty
    // for a name that is no function).
    QStringList GetFunNames() const;
    QString GetFunDesc(const QString &name) const;

private:
    void checkName(const QString &name) const;
    void invalidate();
    void build();

    Symbols m_symbols;
    QString m_expr;
    std::unique_ptr<RPN> m_rpn;
    Evaluator m_evaluator;
};

} // namespace mup
