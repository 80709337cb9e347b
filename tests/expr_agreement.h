#pragma once

// The two engines on the same numeric expressions, and a generator of
// expressions on which the language says they must give the very same bits.
// Shared by the differential test, which draws its choices from a seeded
// generator, and the fuzz target, which draws them from the fuzzer's bytes.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/null_value.h"

#include <QString>

#include <random>

namespace agreement {

inline const char *const varNames[] = {"a", "b", "c", "d", "e"};
constexpr int varCount = 5;

// Both engines bound to the same five variables and the three constants the
// facade adds.
struct Engines
{
    ExprContext context;
    double numbers[varCount] = {};
    mup::Value values[varCount];
    mu::Parser fastest{&context};
    mup::ParserX fast{mup::pckALL_NON_COMPLEX};

    Engines()
    {
        const struct
        {
            const char *name;
            double value;
        } constants[] = {{"_null", quva::nullValue()},
                         {"_nan", quva::nanValue()},
                         {"_infinity", quva::infinityValue()}};
        for (const auto &c : constants) {
            fastest.DefineConst(QString(c.name).toStdWString(), c.value);
            fast.DefineConst(c.name, mup::Value(c.value));
        }
        for (int i = 0; i < varCount; ++i) {
            fastest.DefineVar(QString(varNames[i]).toStdWString(), &numbers[i]);
            values[i] = numbers[i];
            fast.DefineVar(varNames[i], mup::Variable(&values[i]));
        }
    }

    void set(const double *row)
    {
        for (int i = 0; i < varCount; ++i) {
            numbers[i] = row[i];
            values[i] = row[i];
        }
    }

    void setExpr(const QString &expression)
    {
        fastest.SetExpr(expression.toStdWString());
        fast.SetExpr(expression);
    }

    double evalFastest() { return fastest.Eval(); }
    double evalFast() { return fast.Eval().GetFloat(); }
};

inline QString bitsText(double d)
{
    return QString::number(quva::toBits(d), 16) + " (" + QString::number(d, 'g', 17) + ")";
}

// Random numeric expressions. Values are kept exactly representable (small
// integers and halves) so that the compiled engine's fused forms, which
// regroup a variable's factor and summand, and its power by repeated
// multiplication, give the same bits as the other engine's step-by-step
// arithmetic; functions that round are never given constants alone, whose
// folded value would be regrouped. Known differences are kept out: no prefix
// minus, no constant NULL, no power of a plain NaN, '%' only on the integer
// variable e by a constant from 1 to 9, '&&' and '||' always on at least one
// side with a variable, so nothing folds with truncation. The other engine does no arithmetic on booleans, so
// comparisons and logic only meet logic, conditions and the result.
//
// `Choices` gives `int pick(int lo, int hi)`, a number from lo to hi.
template <class Choices> class Generator
{
public:
    explicit Generator(Choices choices) : m_choices(choices) {}

    QString expression() { return pick(0, 1) ? number(pick(2, 5), false) : logic(pick(2, 5), false); }

    void row(double *out)
    {
        static const double pool[] = {-4, -3, -2, -1, 0, 1, 2, 3, 5, 9, 0.5, -1.5, 2.5,
                                      quva::nullValue(), quva::nanValue()};
        static const double intPool[] = {-7, -5, -3, -1, 0, 1, 2, 4, 6, 7,
                                         quva::nullValue()};
        for (int i = 0; i < varCount - 1; ++i)
            out[i] = pool[pick(0, int(sizeof pool / sizeof pool[0]) - 1)];
        out[varCount - 1] = intPool[pick(0, int(sizeof intPool / sizeof intPool[0]) - 1)];
    }

private:
    int pick(int lo, int hi) { return m_choices.pick(lo, hi); }

    QString variable() { return varNames[pick(0, varCount - 1)]; }
    QString constant() { return QString::number(pick(0, 9)); }

    QString leaf(bool needVar)
    {
        return needVar || pick(0, 2) > 0 ? variable() : constant();
    }

    // A condition: a number or a truth value.
    QString condition(int depth, bool needVar)
    {
        return pick(0, 1) ? number(depth, needVar) : logic(depth, needVar);
    }

    QString logic(int depth, bool needVar)
    {
        const int d = depth - 1;
        if (depth <= 0 || pick(0, 1)) {
            static const char *ops[] = {"<", "<=", ">", ">=", "==", "!=", "="};
            return "(" + number(d, needVar) + ops[pick(0, 6)] + number(d, false) + ")";
        }
        const QString op = pick(0, 1) ? "&&" : "||";
        return "(" + condition(d, true) + op + condition(d, false) + ")";
    }

    QString number(int depth, bool needVar)
    {
        if (depth <= 0)
            return leaf(needVar);
        const int d = depth - 1;
        switch (pick(0, 10)) {
        case 0: case 1: {
            static const char *ops[] = {"+", "-", "*"};
            return "(" + number(d, needVar) + ops[pick(0, 2)] + number(d, false) + ")";
        }
        case 2: {
            static const char *divisors[] = {"1", "2", "4", "8"};
            const QString right = pick(0, 1) ? QString(divisors[pick(0, 3)]) : variable();
            return "(" + number(d, needVar) + "/" + right + ")";
        }
        case 3:
            return "(" + condition(d, needVar) + " ? " + number(d, false) + " : "
                   + number(d, false) + ")";
        case 4: {
            static const char *funs[] = {"min", "max", "sum"};
            QString call = QString(funs[pick(0, 2)]) + "(" + number(d, needVar);
            for (int i = pick(0, 2); i > 0; --i)
                call += "," + number(d, false);
            return call + ")";
        }
        case 5: {
            // With a variable inside: an inexact constant would be regrouped
            // into a fused form with other rounding.
            static const char *funs[] = {"sqrt", "abs", "sin", "ln", "log", "exp"};
            return QString(funs[pick(0, 5)]) + "(" + number(d, true) + ")";
        }
        case 6: {
            // A plain NaN base is left out: the library power returns its own
            // NaN where multiplying out keeps the base's (a known difference).
            const QString base = pick(0, 1) ? "e" : "(e+" + constant() + ")";
            return base + "^" + QString::number(pick(0, 5));
        }
        case 7:
            return "(e%" + QString::number(pick(1, 9)) + ")";
        case 8: {
            // Linear forms of one variable, which the compiled engine fuses.
            const QString v = variable();
            return "(" + constant() + "*" + v + "+" + constant() + "-" + v + "*" + constant() + ")";
        }
        default:
            return leaf(needVar);
        }
    }

    Choices m_choices;
};

// Choices of a seeded generator, as the differential test draws them.
struct SeededChoices
{
    std::mt19937 rng;
    explicit SeededChoices(quint32 seed) : rng(seed) {}
    int pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); }
};

// Bit for bit, but for the sign of a zero: the fused forms scale a summand
// with the factor, so 0*(2*a+1) is +0 where step-by-step arithmetic gives
// -0 for a negative a (a known difference, asserted on its own). A signed
// zero cannot grow into more here, as no generated divisor is computed.
inline bool sameResult(double a, double b)
{
    return quva::toBits(a) == quva::toBits(b) || (a == 0.0 && b == 0.0);
}

} // namespace agreement
