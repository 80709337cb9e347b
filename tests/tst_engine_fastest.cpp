// Values of expressions in the compiled engine: operators, precedence, the
// NULL and NaN rules with variables and with constants, built-in functions.

#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/null_value.h"

#include "long_texts.h"

#include <QtTest>

#include <cmath>

namespace {

// The variables every row can use.
struct Vars
{
    double x = 3.0;
    double y = 4.0;
    double z = -2.5;
    double v = quva::nullValue(); // a variable holding NULL
    double n = quva::nanValue();  // a variable holding the plain NaN
    double zero = 0.0;
    double big = 7.9;
    double inf = quva::infinityValue();
};

void bindAll(mu::Parser &p, Vars &vars)
{
    p.DefineVar(L"x", &vars.x);
    p.DefineVar(L"y", &vars.y);
    p.DefineVar(L"z", &vars.z);
    p.DefineVar(L"v", &vars.v);
    p.DefineVar(L"n", &vars.n);
    p.DefineVar(L"zero", &vars.zero);
    p.DefineVar(L"big", &vars.big);
    p.DefineVar(L"inf", &vars.inf);
    // The constants the facade adds on top of the built-in ones.
    p.DefineConst(L"_null", quva::nullValue());
    p.DefineConst(L"_nan", quva::nanValue());
    p.DefineConst(L"_infinity", quva::infinityValue());
}

double evaluate(const QString &expression)
{
    ExprContext context;
    Vars vars;
    mu::Parser p(&context);
    bindAll(p, vars);
    p.SetExpr(expression.toStdWString());
    return p.Eval();
}

const double NUL = quva::nullValue();
const double NAN_BITS = quva::nanValue();
const double INF = quva::infinityValue();
// -NULL: the sign bit flipped, no longer the NULL bits.
const double NEG_NULL = quva::fromBits(0x7FFFFFFFFFFFFFFFull);

QString bitsText(double d)
{
    return QString::number(quva::toBits(d), 16) + " (" + QString::number(d, 'g', 17) + ")";
}

} // namespace

class tst_engine_fastest : public QObject
{
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void nullRules_data();
    void nullRules();
    void precedence_data();
    void precedence();
    void builtIns_data();
    void builtIns();
    void tooFewArguments_data();
    void tooFewArguments();
    void negatedNullLosesItsBits();
    void anyLengthAndDepth_data();
    void anyLengthAndDepth();
};

void tst_engine_fastest::values_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("expected");

    QTest::newRow("literal") << "42" << 42.0;
    QTest::newRow("fraction") << "0.25" << 0.25;
    QTest::newRow("point first") << ".5" << 0.5;
    QTest::newRow("exponent") << "1.5e3" << 1500.0;
    QTest::newRow("blanks") << "  1 +\t2 " << 3.0;
    QTest::newRow("variable") << "x" << 3.0;
    QTest::newRow("assignment is equality") << "x = 3" << 1.0;
    QTest::newRow("equality") << "x == 3" << 1.0;
    QTest::newRow("assignment false") << "x = 4" << 0.0;
    QTest::newRow("prefix minus before power") << "-2^2" << -4.0;
    QTest::newRow("prefix minus of variable before power") << "-x^2" << -9.0;
    QTest::newRow("power of negative exponent") << "2^-2" << 0.25;
    QTest::newRow("minus after operator") << "2*-3" << -6.0;
    QTest::newRow("double minus") << "2--3" << 5.0;
    QTest::newRow("minus bracket") << "-(x+1)" << -4.0;
    QTest::newRow("top-level comma") << "1,2" << 2.0;
    QTest::newRow("top-level comma variables") << "x,y,z" << -2.5;
    QTest::newRow("nan condition takes then") << "_nan ? 1 : 2" << 1.0;
    QTest::newRow("nan variable condition takes then") << "n ? 1 : 2" << 1.0;
    QTest::newRow("modulo by zero variable") << "5 % zero" << -1.0;
    QTest::newRow("modulo by constant zero") << "5 % 0" << -1.0;
    QTest::newRow("modulo by constant truncating to zero") << "x % 0.5" << -1.0;
    QTest::newRow("modulo truncates") << "7.9 % 2.9" << 1.0;
    QTest::newRow("modulo truncates variables") << "big % 2.9" << 1.0;
    QTest::newRow("modulo sign of left") << "-7 % 3" << -1.0;
    QTest::newRow("modulo sign of left variable") << "(0-x-4) % 3" << -1.0;
    QTest::newRow("modulo negative divisor") << "7 % -3" << 1.0;
    QTest::newRow("modulo by minus one") << "x % -1" << 0.0;
    QTest::newRow("conditional") << "x > 2 ? 10 : 20" << 10.0;
    QTest::newRow("conditional else") << "x > 5 ? 10 : 20" << 20.0;
    QTest::newRow("nested conditional in then") << "1 ? 0 ? 5 : 6 : 7" << 6.0;
    QTest::newRow("conditional groups right") << "0 ? 2 : 0 ? 4 : 5" << 5.0;
    QTest::newRow("conditional groups right first") << "1 ? 2 : 3 ? 4 : 5" << 2.0;
    QTest::newRow("conditional in argument") << "sum(x > 1 ? 1 : 2, 10)" << 11.0;
    QTest::newRow("conditional with else sum") << "0 ? 1 : 2 + 3" << 5.0;
    QTest::newRow("conditional of sum") << "x - 3 ? 1 : 2" << 2.0;
    QTest::newRow("conditional bracketed") << "(x ? 1 : 2) + 10" << 11.0;
    QTest::newRow("pi") << "_pi" << 3.141592653589793;
    QTest::newRow("e") << "_e" << 2.718281828459045;
    QTest::newRow("fused linear") << "2*x+1" << 7.0;
    QTest::newRow("fused reverse") << "3-x" << 0.0;
    QTest::newRow("fused chain") << "(x+1)*2-x/1" << 5.0;
    QTest::newRow("fused scale divide") << "(4*x+2)/2" << 7.0;
    QTest::newRow("same variable sum") << "x+x-x*3" << -3.0;
    QTest::newRow("square") << "x*x" << 9.0;
    QTest::newRow("cube") << "x^3" << 27.0;
    QTest::newRow("fourth") << "x^4" << 81.0;
    QTest::newRow("fifth") << "x^5" << 243.0;
    QTest::newRow("negative zero product survives") << "(0-zero)*2" << 0.0;
    QTest::newRow("deep brackets") << QString(200, '(') + "x" + QString(200, ')') << 3.0;
    QTest::newRow("infinity") << "inf - 1" << INF;
    QTest::newRow("division by zero") << "1/zero" << INF;
}

void tst_engine_fastest::values()
{
    QFETCH(QString, expression);
    QFETCH(double, expected);
    const double r = evaluate(expression);
    QCOMPARE(bitsText(r), bitsText(expected));
}

// Each rule with a variable holding NULL (v) or NaN (n), and with constants,
// which fold without any NULL logic but for the power.
void tst_engine_fastest::nullRules_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("expected");

    QTest::newRow("null plus one") << "_null + 1" << NUL;
    QTest::newRow("v plus one") << "v + 1" << NUL;
    QTest::newRow("one minus v") << "1 - v" << NUL;
    QTest::newRow("v times x") << "v * x" << NUL;
    QTest::newRow("x over v") << "x / v" << NUL;
    QTest::newRow("two nans: plus keeps right") << "v + n" << NAN_BITS;
    QTest::newRow("two nans: plus keeps right 2") << "n + v" << NUL;
    QTest::newRow("two nans: times keeps right") << "v * n" << NAN_BITS;
    QTest::newRow("two nans: times keeps right 2") << "n * v" << NUL;
    QTest::newRow("two nans: minus keeps left") << "v - n" << NUL;
    QTest::newRow("two nans: minus keeps left 2") << "n - v" << NAN_BITS;
    QTest::newRow("two nans: divide keeps left") << "v / n" << NUL;
    QTest::newRow("two nans: divide keeps left 2") << "n / v" << NAN_BITS;
    QTest::newRow("fused form keeps null") << "2*v+1" << NUL;
    QTest::newRow("fused reverse keeps null") << "3-v" << NUL;
    QTest::newRow("square keeps null") << "v^2" << NUL;
    QTest::newRow("v squared by product") << "v*v" << NUL;

    QTest::newRow("v greater") << "v > 1" << NUL;
    QTest::newRow("v less equal") << "1 <= v" << NUL;
    QTest::newRow("v equal") << "v == v" << NUL;
    QTest::newRow("v not equal") << "v != 1" << NUL;
    QTest::newRow("v less") << "v < 1" << NUL;
    QTest::newRow("v greater equal") << "v >= 1" << NUL;
    QTest::newRow("nan compares false") << "n == n" << 0.0;
    QTest::newRow("nan not equal true") << "n != 1" << 1.0;
    QTest::newRow("nan less false") << "n < 1" << 0.0;
    QTest::newRow("null constants fold equal to 0") << "_null == _null" << 0.0;
    QTest::newRow("null constant greater folds to 0") << "_null > 1" << 0.0;
    QTest::newRow("null constant not equal folds to 1") << "_null != 1" << 1.0;
    QTest::newRow("null constant less equal folds to 0") << "1 <= _null" << 0.0;

    QTest::newRow("v and 0") << "v && 0" << 0.0;
    QTest::newRow("v and 1") << "v && 1" << NUL;
    QTest::newRow("v and v") << "v && v" << NUL;
    QTest::newRow("0 and v") << "zero && v" << 0.0;
    QTest::newRow("x and v") << "x && v" << NUL;
    QTest::newRow("x and y") << "x && y" << 1.0;
    QTest::newRow("x and 0") << "x && zero" << 0.0;
    QTest::newRow("nan and 1") << "n && 1" << 1.0;
    QTest::newRow("v or 1") << "v || 1" << 1.0;
    QTest::newRow("v or 0") << "v || 0" << NUL;
    QTest::newRow("v or 5 is 5") << "v || 5" << 5.0;
    QTest::newRow("v or v") << "v || v" << NUL;
    QTest::newRow("x or v is x") << "x || v" << 3.0;
    QTest::newRow("0 or v") << "zero || v" << NUL;
    QTest::newRow("0 or 0") << "zero || zero" << 0.0;
    QTest::newRow("nan or 0") << "n || zero" << 1.0;
    QTest::newRow("folded and truncates") << "0.5 && 1" << 0.0;
    QTest::newRow("folded or truncates") << "0.5 || 0.2" << 0.0;
    QTest::newRow("folded and of null") << "_null && 1" << 1.0;
    QTest::newRow("folded or of null") << "_null || 0" << 1.0;
    QTest::newRow("run-time and does not truncate") << "(x-2.5) && 1" << 1.0;

    QTest::newRow("v condition takes else") << "v ? 1 : 2" << 2.0;
    QTest::newRow("null constant condition takes else") << "_null ? 1 : 2" << 2.0;
    QTest::newRow("zero condition takes else") << "zero ? 1 : 2" << 2.0;

    QTest::newRow("v modulo") << "v % 3" << NUL;
    QTest::newRow("modulo v") << "7 % v" << NUL;
    QTest::newRow("v modulo zero") << "v % 0" << NUL;
    QTest::newRow("nan modulo truncates") << "n % 3" << -2.0;
    QTest::newRow("folded null modulo truncates") << "_null % 3" << -2.0;
    QTest::newRow("v power") << "v ^ y" << NUL;
    QTest::newRow("power v") << "2 ^ v" << NUL;
    QTest::newRow("folded null power") << "_null ^ 0" << NUL;
    QTest::newRow("folded power of null") << "1 ^ _null" << NUL;
    QTest::newRow("nan power zero") << "n ^ zero" << 1.0;

    QTest::newRow("sum keeps null") << "sum(v, 1)" << NUL;
    QTest::newRow("min of null first") << "min(v, 1)" << NUL;
    QTest::newRow("min of null second") << "min(1, v)" << 1.0;
    QTest::newRow("max of null first") << "max(v, 1)" << NUL;
    QTest::newRow("avg keeps null") << "avg(1, v)" << NUL;
}

void tst_engine_fastest::nullRules()
{
    values();
}

void tst_engine_fastest::precedence_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("expected");

    // With variables so that nothing folds, and with constants.
    QTest::newRow("* over +") << "x+y*2" << 11.0;
    QTest::newRow("* over + const") << "3+4*2" << 11.0;
    QTest::newRow("^ over *") << "2*x^2" << 18.0;
    QTest::newRow("^ right assoc") << "2^x^2" << 512.0;
    QTest::newRow("^ right assoc const") << "2^3^2" << 512.0;
    QTest::newRow("- left assoc") << "10-x-y" << 3.0;
    QTest::newRow("/ left assoc") << "48/y/x" << 4.0;
    QTest::newRow("% left with *") << "10%y*x" << 6.0;
    QTest::newRow("* left with %") << "y*x%5" << 2.0;
    QTest::newRow("/ and * left") << "12/x*2" << 8.0;
    QTest::newRow("+ and - left") << "x-y+1" << 0.0;
    QTest::newRow("% under ^") << "7%x^2" << 7.0;
    QTest::newRow("+ over <") << "x+1<y+1" << 1.0;
    QTest::newRow("< left assoc") << "y>x>0.5" << 1.0;
    QTest::newRow("< left assoc 2") << "y>x>1" << 0.0;
    QTest::newRow("== after <") << "x<y==1" << 1.0;
    QTest::newRow("<= and >=") << "x<=y>=1" << 1.0;
    QTest::newRow("!= over &&") << "x!=3&&1" << 0.0;
    QTest::newRow("< over &&") << "x<y&&y<x" << 0.0;
    QTest::newRow("&& over ||") << "1||zero&&zero" << 1.0;
    QTest::newRow("&& over || 2") << "zero&&zero||1" << 1.0;
    QTest::newRow("&& over || 3") << "x||zero&&zero" << 1.0;
    QTest::newRow("|| over ?") << "zero||zero ? 5 : 6" << 6.0;
    QTest::newRow("? lowest") << "x-3 ? 1 : 2+10" << 12.0;
    QTest::newRow("prefix over * same level") << "-x*2" << -6.0;
    QTest::newRow("prefix under ^") << "-x^2+1" << -8.0;
    QTest::newRow("prefix of bracket then ^") << "-(x)^2" << 9.0;
    QTest::newRow("brackets") << "(x+y)*2" << 14.0;
    QTest::newRow("comparison of sums") << "x*2 >= y+2" << 1.0;
}

void tst_engine_fastest::precedence()
{
    values();
}

void tst_engine_fastest::builtIns_data()
{
    // Computed at run time by the same library as the engine, not folded by
    // the compiler of this test with its own rounding.
    volatile double half = 0.5;
    const double runtimeHalf = half;
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("expected");

    QTest::newRow("sin") << "sin(x)" << std::sin(3.0);
    QTest::newRow("cos") << "cos(x)" << std::cos(3.0);
    QTest::newRow("tan") << "tan(x)" << std::tan(3.0);
    QTest::newRow("asin") << "asin(0.5)" << std::asin(runtimeHalf);
    QTest::newRow("acos") << "acos(0.5)" << std::acos(runtimeHalf);
    QTest::newRow("atan") << "atan(x)" << std::atan(3.0);
    QTest::newRow("atan2") << "atan2(1, 2)" << std::atan2(runtimeHalf * 2, 2.0);
    QTest::newRow("sinh") << "sinh(x)" << std::sinh(3.0);
    QTest::newRow("cosh") << "cosh(x)" << std::cosh(3.0);
    QTest::newRow("tanh") << "tanh(x)" << std::tanh(3.0);
    QTest::newRow("asinh") << "asinh(x)" << std::asinh(3.0);
    QTest::newRow("acosh") << "acosh(x)" << std::acosh(3.0);
    QTest::newRow("atanh") << "atanh(0.5)" << std::atanh(runtimeHalf);
    QTest::newRow("log2") << "log2(x)" << std::log(3.0) / std::log(2.0);
    QTest::newRow("log10") << "log10(1000)" << 3.0;
    QTest::newRow("log is base 10") << "log(100)" << 2.0;
    QTest::newRow("ln is natural") << "ln(x)" << std::log(3.0);
    QTest::newRow("exp") << "exp(x)" << std::exp(3.0);
    QTest::newRow("sqrt") << "sqrt(y)" << 2.0;
    QTest::newRow("sqrt negative is nan") << "sqrt(z)" << std::sqrt(-2.5);
    QTest::newRow("sign negative") << "sign(z)" << -1.0;
    QTest::newRow("sign zero") << "sign(zero)" << 0.0;
    QTest::newRow("sign positive") << "sign(x)" << 1.0;
    QTest::newRow("sign nan") << "sign(n)" << 0.0;
    QTest::newRow("rint up") << "rint(2.5)" << 3.0;
    QTest::newRow("rint negative") << "rint(z)" << -2.0;
    QTest::newRow("abs") << "abs(z)" << 2.5;
    QTest::newRow("sum") << "sum(x, y, z)" << 4.5;
    QTest::newRow("sum one") << "sum(x)" << 3.0;
    QTest::newRow("avg") << "avg(x, y, 5)" << 4.0;
    QTest::newRow("min") << "min(x, y, z)" << -2.5;
    QTest::newRow("max") << "max(x, y, z)" << 4.0;
    QTest::newRow("nested") << "max(min(x, y), sqrt(y) * 2)" << 4.0;
    QTest::newRow("blank before bracket") << "sqrt (y)" << 2.0;
    // NULL before any domain check: the result is NULL, not a NaN of the
    // function's own.
    const char *unary[] = {"sin", "cos", "tan", "asin", "acos", "atan", "sinh", "cosh",
                           "tanh", "asinh", "acosh", "atanh", "log2", "log10", "log", "ln",
                           "exp", "sqrt", "sign", "rint", "abs"};
    for (const char *f : unary) {
        QTest::newRow(qPrintable(QString("%1 of null").arg(f))) << QString("%1(v)").arg(f) << NUL;
        QTest::newRow(qPrintable(QString("%1 of null constant").arg(f)))
            << QString("%1(_null)").arg(f) << NUL;
    }
    QTest::newRow("atan2 null y") << "atan2(v, 1)" << NUL;
    QTest::newRow("atan2 null x") << "atan2(1, v)" << NUL;
}

void tst_engine_fastest::builtIns()
{
    values();
}

void tst_engine_fastest::tooFewArguments_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("message");
    QTest::newRow("sum") << "sum()" << "too few arguments for function sum.";
    QTest::newRow("avg") << "avg()" << "too few arguments for function sum.";
    QTest::newRow("min") << "min()" << "too few arguments for function min.";
    QTest::newRow("max") << "max()" << "too few arguments for function min.";
    QTest::newRow("inside") << "1 + sum()" << "too few arguments for function sum.";
}

void tst_engine_fastest::tooFewArguments()
{
    QFETCH(QString, expression);
    QFETCH(QString, message);
    try {
        evaluate(expression);
        QFAIL("no error raised");
    } catch (const mu::ParserError &e) {
        QCOMPARE(QString::fromStdWString(e.GetMsg()), message);
        QCOMPARE(int(e.GetCode()), int(mu::ErrorCode::FunctionFailure));
    }
}

void tst_engine_fastest::negatedNullLosesItsBits()
{
    const double r = evaluate("-v");
    QCOMPARE(bitsText(r), bitsText(NEG_NULL));
    QVERIFY(!quva::isNull(r));
    QVERIFY(quva::isNaN(r));
    QCOMPARE(bitsText(evaluate("-_null")), bitsText(NEG_NULL));
}

// Far beyond what an analyst types: a value or a refusal, in time linear in
// the length of the text (bench/expr_read shows the times).
void tst_engine_fastest::anyLengthAndDepth_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("position"); // of the refusal; -2 for none

    QTest::newRow("1000000 terms") << longtext::sumOf(1000000, "x") << 3e6 << -2;
    QTest::newRow("100000 parentheses") << longtext::nested(100000, "x") << 3.0 << -2;
    QTest::newRow("100000 conditionals") << longtext::nestedConditionals(100000, "x") << 1.0 << -2;
    QTest::newRow("100000 functions")
        << QStringLiteral("abs(").repeated(100000) + "z" + QString(100000, ')') << 2.5 << -2;
    QTest::newRow("1000000 open parentheses") << QString(1000000, '(') << 0.0 << 1000000;
    QTest::newRow("1000000 closing parentheses") << QString(1000000, ')') << 0.0 << 0;
}

void tst_engine_fastest::anyLengthAndDepth()
{
    QFETCH(QString, expression);
    QFETCH(double, value);
    QFETCH(int, position);
    Vars vars;
    ExprContext context;
    mu::Parser p(&context);
    bindAll(p, vars);
    try {
        p.SetExpr(expression.toStdWString());
        QCOMPARE(p.Eval(), value);
        QCOMPARE(position, -2);
    } catch (const mu::ParserError &e) {
        QCOMPARE(e.GetPos(), position);
    }
}

QTEST_APPLESS_MAIN(tst_engine_fastest)
#include "tst_engine_fastest.moc"
