#include "expr/engine_fast/mup_parser.h"
#include "expr/null_value.h"

#include "long_texts.h"

#include <QtTest>

#include <cstdlib>
#include <memory>
#include <new>
#include <random>

using namespace mup;

// Every allocation through operator new in this test program is counted, so
// that a test can show that a walk of a numeric expression allocates nothing.
// (Qt's strings allocate with malloc; a numeric walk touches no string.)
static long allocationCount = 0;

void *operator new(std::size_t size)
{
    ++allocationCount;
    if (void *p = std::malloc(size ? size : 1))
        return p;
    throw std::bad_alloc();
}
void operator delete(void *p) noexcept { std::free(p); }
void operator delete(void *p, std::size_t) noexcept { std::free(p); }

namespace {

// Counts its calls: a function with no argument.
class Counter final : public CallbackImpl<Counter, ICallback>
{
public:
    explicit Counter(int *calls) : CallbackImpl(cmFUNC, QStringLiteral("next"), 0), m_calls(calls) {}
    void Eval(IValue &ret, const IValue *const *, int) override { ret = ++*m_calls; }
    QString GetDesc() const override { return QStringLiteral("next() - test"); }

private:
    int *m_calls;
};

// Writes its result from its first argument; the engine must hand it a result
// that is not the literal it reads.
class AddOne final : public CallbackImpl<AddOne, ICallback>
{
public:
    AddOne() : CallbackImpl(cmFUNC, QStringLiteral("add1"), 1) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        ret = args[0]->GetFloat() + 1.0;
    }
    QString GetDesc() const override { return QStringLiteral("add1(x) - test"); }
};

class Average final : public CallbackImpl<Average, IOprtBin>
{
public:
    Average() : CallbackImpl(QStringLiteral("avg"), 9, oaLEFT) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        ret = (args[0]->GetFloat() + args[1]->GetFloat()) / 2.0;
    }
    QString GetDesc() const override { return QStringLiteral("x avg y - test"); }
};

class Twice final : public CallbackImpl<Twice, IOprtInfix>
{
public:
    Twice() : CallbackImpl(QStringLiteral("~")) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        ret = args[0]->GetFloat() * 2.0;
    }
    QString GetDesc() const override { return QStringLiteral("~x - test"); }
};

class Percent final : public CallbackImpl<Percent, IOprtPostfix>
{
public:
    Percent() : CallbackImpl(QStringLiteral("'")) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        ret = args[0]->GetFloat() / 100.0;
    }
    QString GetDesc() const override { return QStringLiteral("x' - test"); }
};

class Shout final : public CallbackImpl<Shout, ICallback>
{
public:
    Shout() : CallbackImpl(cmFUNC, QStringLiteral("toupper"), 1) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        ret = args[0]->GetString() + QStringLiteral("!");
    }
    QString GetDesc() const override { return QStringLiteral("toupper(s) - test"); }
};

double evalOnce(const QString &expr, double a, double b, double c)
{
    Value va(a), vb(b), vc(c);
    ParserX p;
    p.DefineVar(QStringLiteral("a"), Variable(&va));
    p.DefineVar(QStringLiteral("b"), Variable(&vb));
    p.DefineVar(QStringLiteral("c"), Variable(&vc));
    p.SetExpr(expr);
    return p.Eval().GetFloat();
}

QList<int> codesOf(const RPN &rpn)
{
    QList<int> codes;
    for (const IToken *t : rpn.Tokens())
        codes << t->GetCode();
    return codes;
}

QList<int> offsetsOf(const RPN &rpn)
{
    QList<int> offsets;
    for (const IToken *t : rpn.Tokens()) {
        if (t->GetCode() == cmIF || t->GetCode() == cmELSE)
            offsets << static_cast<const TokenIfThenElse *>(t)->GetOffset();
    }
    return offsets;
}

} // namespace

class tst_engine_fast_eval : public QObject
{
    Q_OBJECT

private slots:
    void listOfConditional();
    void listOfNestedConditionals();
    void listOfPrefixBeforePower();
    void stackSize();
    void commas_data();
    void commas();
    void branchesNotTaken();
    void nestedConditionals_data();
    void nestedConditionals();
    void repeatedEvalMatchesFreshParsers();
    void literalsStayUnchanged();
    void functionWithoutArguments();
    void userOperators();
    void redefinitionReplaces();
    void definitionAfterSetExprRebuilds();
    void variableChangesType();
    void errorPositionOfComputedValue();
    void longAndDeepExpressions();
    void anyLengthAndDepth_data();
    void anyLengthAndDepth();
    void randomTextsFailCleanly();
    void numericEvalAllocatesNothing();
};

// a ? b : c  ->  a ? b : c endif, "?" jumping to ":" and ":" to the end.
void tst_engine_fast_eval::listOfConditional()
{
    Value a(1.0), b(2.0), c(3.0);
    ParserX p;
    p.DefineVar(QStringLiteral("a"), Variable(&a));
    p.DefineVar(QStringLiteral("b"), Variable(&b));
    p.DefineVar(QStringLiteral("c"), Variable(&c));
    p.SetExpr(QStringLiteral("a ? b : c"));
    const RPN &rpn = p.GetRPN();
    QCOMPARE(codesOf(rpn), (QList<int>{cmVAR, cmIF, cmVAR, cmELSE, cmVAR, cmENDIF}));
    QCOMPARE(offsetsOf(rpn), (QList<int>{2, 2}));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
    a = 0.0;
    QCOMPARE(p.Eval().GetFloat(), 3.0);
    a = quva::nullValue();
    QCOMPARE(p.Eval().GetFloat(), 3.0);
    a = quva::nanValue();
    QCOMPARE(p.Eval().GetFloat(), 2.0);
}

void tst_engine_fast_eval::listOfNestedConditionals()
{
    ParserX p;
    p.SetExpr(QStringLiteral("1 ? 2 : 3 ? 4 : 5"));
    const RPN &rpn = p.GetRPN();
    QCOMPARE(codesOf(rpn), (QList<int>{cmVAL, cmIF, cmVAL, cmELSE, cmVAL, cmIF, cmVAL, cmELSE,
                                       cmVAL, cmENDIF, cmENDIF}));
    QCOMPARE(offsetsOf(rpn), (QList<int>{2, 7, 2, 2}));
    p.SetExpr(QStringLiteral("1 ? 0 ? 7 : 8 : 9"));
    QCOMPARE(offsetsOf(p.GetRPN()), (QList<int>{7, 2, 2, 2}));
    QCOMPARE(p.Eval().GetFloat(), 8.0);
}

// The prefix minus is applied to its value at once, before "^".
void tst_engine_fast_eval::listOfPrefixBeforePower()
{
    ParserX p;
    p.SetExpr(QStringLiteral("-2^2"));
    QCOMPARE(codesOf(p.GetRPN()), (QList<int>{cmVAL, cmOPRT_INFIX, cmVAL, cmOPRT_BIN}));
    p.SetExpr(QStringLiteral("2^-2"));
    QCOMPARE(codesOf(p.GetRPN()), (QList<int>{cmVAL, cmVAL, cmOPRT_INFIX, cmOPRT_BIN}));
    p.SetExpr(QStringLiteral("-sin(0)"));
    QCOMPARE(codesOf(p.GetRPN()), (QList<int>{cmVAL, cmFUNC, cmOPRT_INFIX}));
    p.SetExpr(QStringLiteral("3{k}"));
    QCOMPARE(codesOf(p.GetRPN()), (QList<int>{cmVAL, cmOPRT_POSTFIX}));
}

void tst_engine_fast_eval::stackSize()
{
    ParserX p;
    p.SetExpr(QStringLiteral("1+2*3"));
    QCOMPARE(p.GetRPN().GetRequiredStackSize(), 3);
    p.SetExpr(QStringLiteral("1*2+3"));
    QCOMPARE(p.GetRPN().GetRequiredStackSize(), 2);
    p.SetExpr(QStringLiteral("sum(1,2,3,4)"));
    QCOMPARE(p.GetRPN().GetRequiredStackSize(), 4);
    QCOMPARE(p.GetRPN().GetResultIndex(), 0);
}

// The result stands at the final argument count minus one; plain
// parentheses are not checked.
void tst_engine_fast_eval::commas_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<double>("result");
    QTest::newRow("1,2") << "1,2" << 2.0;
    QTest::newRow("1,2,3") << "1,2,3" << 3.0;
    QTest::newRow("(1,2)") << "(1,2)" << 1.0;
    QTest::newRow("(1,2),3") << "(1,2),3" << 2.0;
    QTest::newRow("1+1,2*3") << "1+1,2*3" << 6.0;
    QTest::newRow("1?2:3,4") << "1?2:3,4" << 4.0;
}

void tst_engine_fast_eval::commas()
{
    QFETCH(QString, expr);
    QFETCH(double, result);
    ParserX p;
    p.SetExpr(expr);
    QCOMPARE(p.Eval().GetFloat(), result);
}

// The branch that is jumped over is not evaluated, so its type error does
// not happen.
void tst_engine_fast_eval::branchesNotTaken()
{
    Value s("abc");
    ParserX p;
    p.DefineVar(QStringLiteral("s"), Variable(&s));
    p.SetExpr(QStringLiteral("1 ? 2 : sqrt(s)"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
    p.SetExpr(QStringLiteral("0 ? sqrt(s) : 3"));
    QCOMPARE(p.Eval().GetFloat(), 3.0);
    p.SetExpr(QStringLiteral("1 ? sqrt(s) : 3"));
    QVERIFY_EXCEPTION_THROWN(p.Eval(), ParserError);
}

void tst_engine_fast_eval::nestedConditionals_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("c");
    QTest::addColumn<double>("result");
    const double nul = quva::nullValue();
    QTest::newRow("1 1 x") << 1.0 << 1.0 << 0.0 << 1.0;
    QTest::newRow("1 0 x") << 1.0 << 0.0 << 0.0 << 2.0;
    QTest::newRow("0 x 1") << 0.0 << 1.0 << 1.0 << 3.0;
    QTest::newRow("0 x 0") << 0.0 << 1.0 << 0.0 << 4.0;
    QTest::newRow("null x null") << nul << 1.0 << nul << 4.0;
}

void tst_engine_fast_eval::nestedConditionals()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(double, c);
    QFETCH(double, result);
    const QString expr = QStringLiteral("a ? (b ? 1 : 2) : (c ? 3 : 4)");
    QCOMPARE(evalOnce(expr, a, b, c), result);
    const QString bare = QStringLiteral("a ? b ? 1 : 2 : c ? 3 : 4");
    QCOMPARE(evalOnce(bare, a, b, c), result);
    QCOMPARE(evalOnce(QStringLiteral("(a ? b ? 1 : 2 : c ? 3 : 4) * 10 + 1"), a, b, c),
             result * 10 + 1);
}

// One list walked many times with new values gives what a fresh parser gives.
void tst_engine_fast_eval::repeatedEvalMatchesFreshParsers()
{
    const QStringList exprs = {
        QStringLiteral("a*a + 2*b - c/3"),
        QStringLiteral("a > b && b > c || c == 0"),
        QStringLiteral("a > 0 ? sqrt(a) : -a"),
        QStringLiteral("min(a, b, c) + max(a, b) % 3"),
        QStringLiteral("(a - b)^2 + (b - c)^3"),
        QStringLiteral("a ? b : c ? a : b"),
        QStringLiteral("-a^2 + abs(b) * 1{k}"),
    };
    std::mt19937 gen(7);
    std::uniform_int_distribution<int> pick(-5, 5);
    const double nul = quva::nullValue();
    for (const QString &expr : exprs) {
        Value va, vb, vc;
        ParserX p;
        p.DefineVar(QStringLiteral("a"), Variable(&va));
        p.DefineVar(QStringLiteral("b"), Variable(&vb));
        p.DefineVar(QStringLiteral("c"), Variable(&vc));
        p.SetExpr(expr);
        for (int i = 0; i < 200; ++i) {
            const double a = pick(gen) == 5 ? nul : pick(gen) * 0.5;
            const double b = pick(gen);
            const double c = pick(gen) == -5 ? nul : pick(gen) * 1.25;
            va = a;
            vb = b;
            vc = c;
            const Value repeated = p.Eval();
            Value fresh;
            fresh = evalOnce(expr, a, b, c);
            QCOMPARE(quva::toBits(repeated.GetFloat()), quva::toBits(fresh.GetFloat()));
        }
    }
}

void tst_engine_fast_eval::literalsStayUnchanged()
{
    ParserX p;
    p.DefineFun(std::make_unique<AddOne>());
    p.SetExpr(QStringLiteral("add1(5)"));
    QCOMPARE(p.Eval().GetFloat(), 6.0);
    QCOMPARE(p.Eval().GetFloat(), 6.0);
    p.SetExpr(QStringLiteral("add1(add1(5)) + add1(1)"));
    QCOMPARE(p.Eval().GetFloat(), 9.0);
    QCOMPARE(p.Eval().GetFloat(), 9.0);
}

// "f()" is accepted for a function, and each Eval calls it again.
void tst_engine_fast_eval::functionWithoutArguments()
{
    int calls = 0;
    ParserX p;
    p.DefineFun(std::make_unique<Counter>(&calls));
    p.SetExpr(QStringLiteral("next() * 10"));
    QCOMPARE(p.Eval().GetFloat(), 10.0);
    QCOMPARE(p.Eval().GetFloat(), 20.0);
    QCOMPARE(calls, 2);
    p.SetExpr(QStringLiteral("next(1)"));
    try {
        p.Eval();
        QFAIL("no error");
    } catch (const ParserError &e) {
        QCOMPARE(e.GetCode(), ecTOO_MANY_PARAMS);
    }
}

void tst_engine_fast_eval::userOperators()
{
    ParserX p;
    p.DefineOprt(std::make_unique<Average>());
    p.DefineInfixOprt(std::make_unique<Twice>());
    p.DefinePostfixOprt(std::make_unique<Percent>());
    p.SetExpr(QStringLiteral("2 avg 4 * 2"));
    QCOMPARE(p.Eval().GetFloat(), 5.0);
    p.SetExpr(QStringLiteral("~3 + 1"));
    QCOMPARE(p.Eval().GetFloat(), 7.0);
    p.SetExpr(QStringLiteral("50' * 4"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
}

void tst_engine_fast_eval::redefinitionReplaces()
{
    ParserX p;
    p.SetExpr(QStringLiteral("toupper(\"a\")"));
    QCOMPARE(p.Eval().GetString(), QStringLiteral("A"));
    p.DefineFun(std::make_unique<Shout>());
    QCOMPARE(p.Eval().GetString(), QStringLiteral("a!"));
    p.DefineConst(QStringLiteral("k"), Value(1));
    p.DefineConst(QStringLiteral("k"), Value(2));
    p.SetExpr(QStringLiteral("k"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
}

void tst_engine_fast_eval::definitionAfterSetExprRebuilds()
{
    Value q(4.0);
    ParserX p;
    p.SetExpr(QStringLiteral("q + 1"));
    QVERIFY_EXCEPTION_THROWN(p.Eval(), ParserError);
    p.DefineVar(QStringLiteral("q"), Variable(&q));
    QCOMPARE(p.Eval().GetFloat(), 5.0);
}

void tst_engine_fast_eval::variableChangesType()
{
    Value u("ab");
    ParserX p;
    p.DefineVar(QStringLiteral("u"), Variable(&u));
    p.SetExpr(QStringLiteral("u"));
    QCOMPARE(p.Eval().GetString(), QStringLiteral("ab"));
    u = 3;
    QCOMPARE(p.Eval().GetType(), QChar('i'));
    QCOMPARE(p.Eval().GetFloat(), 3.0);
    p.SetExpr(QStringLiteral("u // \"c\""));
    u = QStringLiteral("x");
    QCOMPARE(p.Eval().GetString(), QStringLiteral("xc"));
    u = true;
    QVERIFY_EXCEPTION_THROWN(p.Eval(), ParserError);
}

// A value that a variable brought in is named after the variable, at the
// variable's place in the text, even inside a larger expression.
void tst_engine_fast_eval::errorPositionOfComputedValue()
{
    Value s("abc");
    ParserX p;
    p.DefineVar(QStringLiteral("s"), Variable(&s));
    p.SetExpr(QStringLiteral("1 + sqrt(s)"));
    try {
        p.Eval();
        QFAIL("no error");
    } catch (const ParserError &e) {
        QCOMPARE(e.GetCode(), ecTYPE_CONFLICT);
        QCOMPARE(e.GetPos(), 9);
        QCOMPARE(e.GetMsg(),
                 QStringLiteral("Value \"s\" is of type 's'. There is no implicit conversion "
                                "to type 'f'"));
        QCOMPARE(e.GetExpr(), QStringLiteral("1 + sqrt(s)"));
    }
    p.SetExpr(QStringLiteral("2 * \"x\""));
    try {
        p.Eval();
        QFAIL("no error");
    } catch (const ParserError &e) {
        QCOMPARE(e.GetCode(), ecTYPE_CONFLICT_FUN);
        QCOMPARE(e.GetPos(), 2);
        QCOMPARE(e.GetToken(), QStringLiteral("*"));
    }
}

void tst_engine_fast_eval::longAndDeepExpressions()
{
    QString sum = QStringLiteral("1");
    for (int i = 0; i < 20000; ++i)
        sum += QStringLiteral("+1");
    ParserX p;
    p.SetExpr(sum);
    QCOMPARE(p.Eval().GetFloat(), 20001.0);
    const QString deep = QString(2000, QLatin1Char('(')) + QStringLiteral("7")
                         + QString(2000, QLatin1Char(')'));
    p.SetExpr(deep);
    QCOMPARE(p.Eval().GetFloat(), 7.0);
}

// Far beyond what an analyst types: a value or the engine's error, read in
// time linear in the length of the text (bench/expr_read shows the times).
void tst_engine_fast_eval::anyLengthAndDepth_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("code"); // -1: no error
    QTest::addColumn<int>("position");

    QTest::newRow("1000000 terms") << longtext::sumOf(1000000) << 1e6 << -1 << 0;
    QTest::newRow("1000000 operator letters")
        << longtext::sumOf(1000000, QStringLiteral("a")).replace('+', QLatin1String("&&"))
        << 1.0 << -1 << 0;
    QTest::newRow("100000 parentheses") << longtext::nested(100000) << 1.0 << -1 << 0;
    QTest::newRow("100000 conditionals") << longtext::nestedConditionals(100000) << 1.0 << -1 << 0;
    QTest::newRow("1000000 open parentheses")
        << QString(1000000, QLatin1Char('(')) << 0.0 << int(ecMISSING_PARENS) << 1000000;
    QTest::newRow("unknown name of 1000000 letters")
        << QString(1000000, QLatin1Char('b')) << 0.0 << int(ecUNASSIGNABLE_TOKEN) << 0;
}

void tst_engine_fast_eval::anyLengthAndDepth()
{
    QFETCH(QString, expression);
    QFETCH(double, value);
    QFETCH(int, code);
    QFETCH(int, position);
    Value a(1.0);
    ParserX p;
    p.DefineVar(QStringLiteral("a"), Variable(&a));
    try {
        p.SetExpr(expression);
        QCOMPARE(p.Eval().GetFloat(), value);
        QCOMPARE(code, -1);
    } catch (const ParserError &e) {
        QCOMPARE(int(e.GetCode()), code);
        QCOMPARE(e.GetPos(), position);
    }
}

// Texts made of random pieces: each either gives a value or a ParserError
// with a known code and a position inside the text; run under the sanitizers
// this also shows that no text makes the engine touch memory it does not own.
void tst_engine_fast_eval::randomTextsFailCleanly()
{
    const QStringList pieces = {
        QStringLiteral("a"), QStringLiteral("1"), QStringLiteral("2.5"), QStringLiteral("("),
        QStringLiteral(")"), QStringLiteral(","), QStringLiteral("?"), QStringLiteral(":"),
        QStringLiteral("+"), QStringLiteral("-"), QStringLiteral("*"), QStringLiteral("^"),
        QStringLiteral("%"), QStringLiteral("//"), QStringLiteral("\"x\""), QStringLiteral("sin"),
        QStringLiteral("sum"), QStringLiteral("{k}"), QStringLiteral("(int)"),
        QStringLiteral("true"), QStringLiteral("#1"), QStringLiteral("&&"), QStringLiteral("||"),
        QStringLiteral(" "), QStringLiteral("_pi"), QStringLiteral("=="), QStringLiteral("<"),
        QStringLiteral("next"), QStringLiteral("\""), QStringLiteral("@")};
    std::mt19937 gen(12345);
    std::uniform_int_distribution<int> pick(0, pieces.size() - 1);
    std::uniform_int_distribution<int> length(0, 12);
    int values = 0;
    int errors = 0;
    int calls = 0;
    Value a(1.5);
    ParserX p;
    p.DefineVar(QStringLiteral("a"), Variable(&a));
    p.DefineFun(std::make_unique<Counter>(&calls));
    for (int n = 0; n < 20000; ++n) {
        QString expr;
        for (int k = length(gen); k > 0; --k)
            expr += pieces.at(pick(gen));
        p.SetExpr(expr);
        try {
            const Value v = p.Eval();
            QVERIFY(QStringLiteral("bifs").contains(v.GetType()));
            ++values;
        } catch (const ParserError &e) {
            QVERIFY2(e.GetCode() >= 0 && e.GetCode() < ecCOUNT, qPrintable(expr));
            QVERIFY2(e.GetPos() >= -1 && e.GetPos() <= expr.size(), qPrintable(expr));
            QVERIFY(!e.GetMsg().isEmpty());
            ++errors;
        }
    }
    QVERIFY(values > 100);
    QVERIFY(errors > 100);
}

void tst_engine_fast_eval::numericEvalAllocatesNothing()
{
    const QStringList exprs = {
        QStringLiteral("3*a^2 + 2*a + 1"),
        QStringLiteral("a > 0.5 && b < 3 || c == 3"),
        QStringLiteral("a > b ? a - b : b - a"),
        QStringLiteral("sqrt(a*a + b*b) + min(a, b, c) - max(c, 1)"),
        QStringLiteral("c % 7 == 3 ? -a : (int)b{k}"),
        QStringLiteral("sum(a, b, c)/3 >= 2 && (a || b)"),
        QStringLiteral("a != a ? 1 : 2, a"),
    };
    const double values[] = {1.5, -2.0, 0.0, quva::nullValue(), 7.0, quva::nanValue()};
    for (const QString &expr : exprs) {
        Value a, b, c;
        ParserX p;
        p.DefineVar(QStringLiteral("a"), Variable(&a));
        p.DefineVar(QStringLiteral("b"), Variable(&b));
        p.DefineVar(QStringLiteral("c"), Variable(&c));
        p.SetExpr(expr);
        a = 1.0;
        b = 2.0;
        c = 3.0;
        p.Eval(); // builds the list
        const long before = allocationCount;
        double sink = 0.0;
        for (int i = 0; i < 1000; ++i) {
            a = values[i % 6];
            b = values[(i / 6) % 6];
            c = i % 11;
            sink += p.Eval().GetFloat();
        }
        QVERIFY2(allocationCount == before, qPrintable(expr));
        QVERIFY(sink == sink || sink != sink);
    }
    // The counter does see the engine's allocations: building a list makes
    // its tokens.
    ParserX p;
    p.SetExpr(QStringLiteral("1 + 2"));
    const long before = allocationCount;
    p.Eval();
    QVERIFY(allocationCount > before);
}

QTEST_APPLESS_MAIN(tst_engine_fast_eval)
#include "tst_engine_fast_eval.moc"
