#include "expr/engine_fast/mup_package_str.h"
#include "expr/engine_fast/mup_parser.h"
#include "expr/null_value.h"

#include <QtTest>

#include <cmath>

using namespace mup;

namespace {

const double NUL = quva::nullValue();
const double NAN_ = quva::nanValue();

// Variables that every row may use; v holds NULL and w holds _nan.
struct Fixture
{
    Value a{1.0}, b{2.0}, c{3.0}, x{2.5}, z{0.0}, v{NUL}, w{NAN_};
    Value s{"abc"}, e{""}, ns{QString()}, t{true};
    ParserX parser;

    Fixture()
    {
        const std::pair<const char *, Value *> vars[] = {{"a", &a}, {"b", &b}, {"c", &c},
                                                         {"x", &x}, {"z", &z}, {"v", &v},
                                                         {"w", &w}, {"s", &s}, {"e", &e},
                                                         {"ns", &ns}, {"t", &t}};
        for (const auto &var : vars)
            parser.DefineVar(QString::fromLatin1(var.first), Variable(var.second));
        parser.DefineConst(QStringLiteral("_null"), Value(NUL));
        parser.DefineConst(QStringLiteral("_nan"), Value(NAN_));
        parser.DefineConst(QStringLiteral("_infinity"), Value(quva::infinityValue()));
        parser.DefineConst(QStringLiteral("_nullS"), Value(QString()));
    }
};

enum Kind { Number, Text, Error };

void number(const char *expr, QChar type, double value)
{
    QTest::newRow(expr) << QString::fromUtf8(expr) << int(Number) << type << value << QString()
                        << -1 << -1;
}

void text(const char *expr, const QString &value)
{
    QTest::newRow(expr) << QString::fromUtf8(expr) << int(Text) << QChar('s') << 0.0 << value << -1
                        << -1;
}

// `arg` is the 1-based argument of a code 20, or -1.
void error(const char *expr, int code, int arg = -1)
{
    QTest::newRow(expr) << QString::fromUtf8(expr) << int(Error) << QChar() << 0.0 << QString()
                        << code << arg;
}

void addColumns()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QChar>("type");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("arg");
}

const QChar I('i'), F('f'), B('b');

} // namespace

class tst_engine_fast_operators : public QObject
{
    Q_OBJECT

private slots:
    void precedence_data();
    void precedence();
    void arithmetic_data();
    void arithmetic();
    void nullRules_data();
    void nullRules();
    void comparisons_data();
    void comparisons();
    void logic_data();
    void logic();
    void bitsCastsUnits_data();
    void bitsCastsUnits();
    void functions_data();
    void functions();
    void strings_data();
    void strings();
    void log2IsTheQuotient();
    void powersMultiplyOut();
    void strlenDescription();
};

// Each operator against its neighbours in the table, and associativity.
void tst_engine_fast_operators::precedence_data()
{
    addColumns();
    number("2^3^2", I, 512);               // ^ groups to the right
    number("(2^3)^2", I, 64);
    number("2*3^2", I, 18);                // ^ above *
    number("-2^2", I, 4);                  // prefix minus above ^
    number("-a^2", I, 1);
    number("2^-2", F, 0.25);
    number("2--1", I, 3);
    number("8/4*2", I, 4);                 // * / % left to right
    number("7%4*2", I, 6);
    number("2*7%4", I, 2);
    number("12/4%2", I, 1);
    number("1+2*3", I, 7);                 // * above +
    number("2*3+1", I, 7);
    number("1-2+3", I, 2);                 // + - left to right
    number("1-2-3", I, -4);
    number("1<<2+1", I, 8);                // + above <<
    number("16>>2>>1", I, 2);              // << >> left to right
    number("1<<3>>1", I, 4);
    number("1<<2 < 5", B, 1);              // << above <
    number("1 < 2 == 2 > 1", B, 1);        // < above ==
    number("1 == 1 == true", B, 1);        // == left to right
    error("3 & 1 == 1", 20, 2);            // == above &
    number("6 & 3 | 8", I, 10);            // & above |
    number("1 | 2 && 0", B, 0);            // | above &&
    number("1 || 0 && 0", B, 1);           // && above ||
    error("1 == 1 && \"a\" // \"b\" == \"ab\"", 19); // // on the level of &&, applied after it
    error("s // \"x\" == \"abcx\"", 20, 2);            // == above //
    number("0 || 1 ? 5 : 6", I, 5);        // || above ?:
    number("1 ? 2 : 3 ? 4 : 5", I, 2);     // ?: groups to the right
    number("0 ? 2 : 0 ? 4 : 5", I, 5);
    number("0 ? 2 : 1 ? 4 : 5", I, 4);
    number("1 ? 0 ? 7 : 8 : 9", I, 8);
    number("-b*3", I, -6);
    number("2{k}*3", I, 6000);             // postfix on the value before it
    number("2*3{k}", I, 6000);
    number("-2{k}", I, -2000);
    number("(1+2)*3", I, 9);
    number("x = 3", B, 0);                 // = is equality
    number("c = 3", B, 1);
    number("c == 3", B, 1);
}

void tst_engine_fast_operators::arithmetic_data()
{
    addColumns();
    number("1+2", I, 3);
    number("1.5+1", F, 2.5);
    number("7-10", I, -3);
    number("6*7", I, 42);
    number("1/4", F, 0.25);
    number("1/0", F, quva::infinityValue());
    number("7.9 % 2.9", I, 1);             // both truncated first
    number("-7 % 3", I, -1);               // sign of x
    number("7 % -3", I, 1);
    number("5 % 0", F, NAN_);
    number("5 % z", F, NAN_);
    number("5 % 0.5", F, NAN_);            // a divisor that truncates to 0
    number("_null % 0", F, NAN_);          // zero is tested before NULL
    number("w % 2", F, NAN_);
    number("_infinity % 2", I, 0);
    number("2^10", I, 1024);
    number("2^0", I, 1);
    number("x^3", F, 15.625);
    number("x^-1", F, 0.4);
    number("4^0.5", I, 2);
    number("x^2", F, 6.25);
    number("(-2)^3", I, -8);
    number("2^6", I, 64);
    number("2^-3", F, 0.125);
    number("0^-1", F, quva::infinityValue());
    number("2^2147483648", F, quva::infinityValue());
    number("4^-0.5", F, 0.5);
    error("1 + true", 20, 2);
    error("true + 1", 20, 1);
    error("s * 2", 20, 1);
    error("2 / s", 20, 2);
    error("2 % t", 20, 2);
    error("2 ^ \"a\"", 20, 2);
    error("-s", 20, 1);
    error("-t", 20, 1);
}

// Every NULL rule with a variable holding NULL and with the constant.
void tst_engine_fast_operators::nullRules_data()
{
    addColumns();
    number("_null + 1", F, NUL);
    number("v + 1", F, NUL);
    number("1 - v", F, NUL);
    number("v * 2", F, NUL);
    number("2 / _null", F, NUL);
    // Two NaN operands: the right one for + and *, the left one for - and /.
    number("_null + w", F, NAN_);
    number("w + _null", F, NUL);
    number("v * _nan", F, NAN_);
    number("_nan * v", F, NUL);
    number("_null - w", F, NUL);
    number("w - v", F, NAN_);
    number("v / _nan", F, NUL);
    number("_nan / _null", F, NAN_);
    number("v % 2", F, NUL);
    number("2 % _null", F, NUL);
    number("v ^ 2", F, NUL);
    number("2 ^ _null", F, NUL);
    number("_null ^ 0", F, NUL);
    number("w ^ 0", I, 1);
    number("-v", F, NUL);                  // the prefix minus keeps NULL here
    number("-_null", F, NUL);
    number("-w", F, quva::fromBits(0x7FF8000000000000ull));
    number("v ? 1 : 2", I, 2);
    number("_null ? 1 : 2", I, 2);
    number("_nan ? 1 : 2", I, 1);
    number("w ? 1 : 2", I, 1);
    number("z ? 1 : 2", I, 2);
    error("s ? 1 : 2", 19);
    number("sin(v)", F, NUL);
    number("sqrt(_null)", F, NUL);
    number("abs(v)", F, NUL);
    number("sum(v,1)", F, NUL);
    number("sum(1,v)", F, NUL);
    number("min(v,1)", F, NUL);
    number("min(1,v)", I, 1);
    number("max(1,v)", I, 1);
    number("v{k}", F, NUL);
}

void tst_engine_fast_operators::comparisons_data()
{
    addColumns();
    number("v > 1", B, NUL);
    number("1 <= v", B, NUL);
    number("v != 1", B, NUL);
    number("_null == _null", B, NUL);
    number("v == v", B, NUL);
    number("_null < 1", B, NUL);
    number("w == w", B, 0);
    number("w != w", B, 1);
    number("w < 1", B, 0);
    number("w >= 1", B, 0);
    number("1 < 2", B, 1);
    number("2 <= 2", B, 1);
    number("3 > 2", B, 1);
    number("2 >= 3", B, 0);
    number("2 != 3", B, 1);
    number("2 < 2.5", B, 1);
    number("x == 2.5", B, 1);
    number("1 == 1.0", B, 1);
    number("true == true", B, 1);
    number("true > false", B, 1);
    number("(v > 1) == true", B, NUL);
    number("s == \"abc\"", B, 1);
    number("s < \"abd\"", B, 1);
    number("\"b\" >= \"a\"", B, 1);
    number("s != \"abc\"", B, 0);
    number("e == \"\"", B, 1);
    number("_nullS == \"a\"", B, NUL);
    number("e == _nullS", B, NUL);
    number("ns != s", B, NUL);
    error("\"a\" == 1", 19);
    error("1 == \"a\"", 19);
    error("true == 1", 19);
    error("1 == true", 19);
    error("s < 2", 19);
}

void tst_engine_fast_operators::logic_data()
{
    addColumns();
    number("1 && 2", B, 1);
    number("0 && 1", B, 0);
    number("w && 1", B, 1);                // NaN differs from 0
    number("v && 0", B, 0);
    number("v && 1", B, NUL);
    number("v && v", B, NUL);
    number("0 && v", B, 0);
    number("1 && v", B, NUL);
    number("_null && 0", B, 0);
    number("_null && _null", B, NUL);
    number("(v > 1) && 0", B, 0);
    number("0 || 0", B, 0);
    number("2 || 0", B, 1);
    number("w || 0", B, 1);
    number("v || 1", I, 1);                // the other operand as a number
    number("v || 2.5", F, 2.5);
    number("v || 0", B, NUL);
    number("v || v", F, NUL);
    number("0 || v", B, NUL);
    number("3 || v", I, 3);
    number("_null || 7", I, 7);
    number("true && true", B, 1);
    number("true || v", I, 1);
    error("s && 1", 19);
    error("1 || s", 19);
}

void tst_engine_fast_operators::bitsCastsUnits_data()
{
    addColumns();
    number("6 & 3", I, 2);
    number("6 | 3", I, 7);
    number("1 << 4", I, 16);
    number("-16 >> 2", I, -4);
    number("1 << 64", I, 0);
    number("-1 >> 70", I, -1);
    number("5.9 & 7", I, 5);
    number("v & 1", F, NUL);
    number("w | 1", F, NAN_);
    error("t & 1", 20, 1);
    error("1 << s", 20, 2);
    number("(int)2.7", I, 2);
    number("(int)-2.7", I, -2);
    number("(int)_null", F, NUL);
    number("(int)_infinity", F, quva::infinityValue());
    number("(float)3", I, 3);
    number("(float)true", I, 1);
    number("(float)x", F, 2.5);
    error("(int)s", 19);
    number("2{M}", I, 2e6);
    number("3{n}", F, 3 * 1e-9);
    number("5{mu}", F, 5 * 1e-6);
    number("7{m}", F, 7 * 1e-3);
    number("4{k}", I, 4000);
    number("7{G}", I, 7e9);
    number("x{k}", I, 2500);
    error("s{k}", 20, 1);
    error("t{m}", 20, 1);
}

void tst_engine_fast_operators::functions_data()
{
    addColumns();
    number("sin(0)", I, 0);
    number("cos(0)", I, 1);
    number("tan(0)", I, 0);
    number("sinh(0)", I, 0);
    number("cosh(0)", I, 1);
    number("tanh(0)", I, 0);
    number("asin(0)", I, 0);
    number("acos(1)", I, 0);
    number("atan(0)", I, 0);
    number("asinh(0)", I, 0);
    number("acosh(1)", I, 0);
    number("atanh(0)", I, 0);
    number("log(100)", I, 2);              // base 10
    number("log10(1000)", I, 3);
    number("ln(1)", I, 0);
    number("ln(_e)", I, 1);
    number("exp(0)", I, 1);
    number("sqrt(6.25)", F, 2.5);
    number("abs(-3)", I, 3);
    number("abs(x)", F, 2.5);
    number("sin(true)", F, std::sin(1.0));
    number("sum(1,2,3)", I, 6);
    number("sum(x)", F, 2.5);
    number("min(3,1,2)", I, 1);
    number("max(3,1,2)", I, 3);
    number("max(true,0)", I, 1);
    number("min(x,b)", I, 2);
    number("sin(_pi)", F, std::sin(3.141592653589793));
    number("strlen(\"abc\")", I, 3);
    number("strlen(\"\")", I, 0);
    number("strlen(_nullS)", F, NUL);
    number("strlen(s) + 1", I, 4);
    error("sqrt(s)", 19);
    error("strlen(1)", 20, 1);
    error("sum()", 18);
    error("min()", 18);
    error("max()", 18);
}

void tst_engine_fast_operators::strings_data()
{
    addColumns();
    text("\"a\" // \"b\"", QStringLiteral("ab"));
    text("s // \"x\" // s", QStringLiteral("abcxabc"));
    text("toupper(\"abC\")", QStringLiteral("ABC"));
    text("toupper(s) // e", QStringLiteral("ABC"));
    text("_nullS // \"a\"", QStringLiteral("a"));
    text("\"a\\\"b\"", QStringLiteral("a\"b"));
    text("\"a\\nb\"", QStringLiteral("a\\nb"));
    text("1 ? s : \"no\"", QStringLiteral("abc"));
    text("0 ? s : \"no\"", QStringLiteral("no"));
    error("s // 1", 20, 2);
    error("1 // s", 20, 1);
    error("toupper(2)", 20, 1);
}

// Shared by every data-driven test of this file.
static void checkRow()
{
    QFETCH(QString, expr);
    QFETCH(int, kind);
    QFETCH(QChar, type);
    QFETCH(double, number);
    QFETCH(QString, text);
    QFETCH(int, code);
    QFETCH(int, arg);
    Fixture f;
    f.parser.SetExpr(expr);
    try {
        const Value result = f.parser.Eval();
        QVERIFY2(kind != Error, "expected an error");
        QCOMPARE(result.GetType(), type);
        if (kind == Text) {
            QCOMPARE(result.GetString(), text);
        } else {
            QCOMPARE(QString::number(quva::toBits(result.GetFloat()), 16),
                     QString::number(quva::toBits(number), 16));
        }
    } catch (const ParserError &e) {
        QVERIFY2(kind == Error, qPrintable(e.GetMsg()));
        QCOMPARE(int(e.GetCode()), code);
        if (arg != -1)
            QCOMPARE(e.GetContext().Arg, arg);
        QVERIFY(e.GetPos() >= 0);
    }
}

void tst_engine_fast_operators::precedence() { checkRow(); }
void tst_engine_fast_operators::arithmetic() { checkRow(); }
void tst_engine_fast_operators::nullRules() { checkRow(); }
void tst_engine_fast_operators::comparisons() { checkRow(); }
void tst_engine_fast_operators::logic() { checkRow(); }
void tst_engine_fast_operators::bitsCastsUnits() { checkRow(); }
void tst_engine_fast_operators::functions() { checkRow(); }
void tst_engine_fast_operators::strings() { checkRow(); }

// log2 is ln(x)/ln(2) as the language defines it.
void tst_engine_fast_operators::log2IsTheQuotient()
{
    Fixture f;
    for (double x : {8.0, 10.0, 0.3, 1e10}) {
        f.x = x;
        f.parser.SetExpr(QStringLiteral("log2(x)"));
        QCOMPARE(quva::toBits(f.parser.Eval().GetFloat()),
                 quva::toBits(std::log(x) / std::log(2.0)));
    }
}

// Whole exponents 1 to 5 are multiplied out and others squared, which can
// differ in the last bit from the library's pow (1.3^3 and 1.1^5 do).
void tst_engine_fast_operators::powersMultiplyOut()
{
    Fixture f;
    for (double x : {1.3, 1.1, -0.7}) {
        f.x = x;
        f.parser.SetExpr(QStringLiteral("x^3"));
        QCOMPARE(quva::toBits(f.parser.Eval().GetFloat()), quva::toBits(x * x * x));
        f.parser.SetExpr(QStringLiteral("x^5"));
        QCOMPARE(quva::toBits(f.parser.Eval().GetFloat()), quva::toBits(x * x * x * x * x));
        f.parser.SetExpr(QStringLiteral("x^7"));
        const double square = x * x;
        const double squaring = (x * square) * (square * square);
        QCOMPARE(quva::toBits(f.parser.Eval().GetFloat()), quva::toBits(squaring));
        f.parser.SetExpr(QStringLiteral("x^-2"));
        QCOMPARE(quva::toBits(f.parser.Eval().GetFloat()), quva::toBits(1.0 / square));
    }
}

// The help lists the package's own string functions with these texts.
void tst_engine_fast_operators::strlenDescription()
{
    const FunStrLen strlenFun;
    QCOMPARE(strlenFun.GetIdent(), QStringLiteral("strlen"));
    QCOMPARE(strlenFun.GetArgc(), 1);
    QCOMPARE(strlenFun.GetDesc(), QStringLiteral("strlen(s) - Returns the length of the string s."));
    const FunStrToUpper upper;
    QCOMPARE(upper.GetDesc(),
             QStringLiteral("toupper(s) - Converts the string s to uppercase characters."));
}

QTEST_APPLESS_MAIN(tst_engine_fast_operators)
#include "tst_engine_fast_operators.moc"
