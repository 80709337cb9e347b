// What the compiled engine refuses, with the code and position of the
// refusal, what instructions it makes, and the functions of codes 28 to 30.

#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/null_value.h"

#include <QtTest>

#include <cwchar>

Q_DECLARE_METATYPE(mu::ErrorCode)

namespace {

int g_calls = 0;

double twice(double a) { return 2 * a; }
double mix3(double a, double b, double c) { return a * 100 + b * 10 + c; }
double counted(double a)
{
    ++g_calls;
    return a + 1;
}
double counted0()
{
    ++g_calls;
    return 7;
}
double product(const double *a, int n)
{
    double r = 1;
    for (int i = 0; i < n; ++i)
        r *= a[i];
    return r;
}
double plusUnit(double a, ExprContext *c) { return a + c->etUnit; }
double unitOnly(ExprContext *c) { return c->etUnit; }
double fourWithContext(double a, double b, double c, double d, ExprContext *ctx)
{
    return a + b + c + d + ctx->etUnit;
}
double textLength(const wchar_t *s, ExprContext *c)
{
    return double(std::wcslen(s)) + 1000 * c->dateFormatKind;
}
double textLengthPlus(const wchar_t *s, double a, ExprContext *)
{
    return double(std::wcslen(s)) + a;
}
// Refuses its argument as the functions of the language do.
double refuses(double) { throw mu::ParserError(L"refused"); }

struct Fixture
{
    ExprContext context;
    double x = 3;
    double y = 4;
    mu::Parser p{&context};

    Fixture()
    {
        context.etUnit = 7;
        context.dateFormatKind = 2;
        p.DefineVar(L"x", &x);
        p.DefineVar(L"y", &y);
        p.DefineConst(L"_null", quva::nullValue());
        p.DefineFun(L"twice", twice);
        p.DefineFun(L"mix3", mix3);
        p.DefineFun(L"counted", counted, false);
        p.DefineFun(L"counted0", counted0, false);
        p.DefineFun(L"product", product);
        p.DefineFun(L"plusUnit", plusUnit);
        p.DefineFun(L"unitOnly", unitOnly, false);
        p.DefineFun(L"four", fourWithContext);
        p.DefineFun(L"toET", textLength);
        p.DefineFun(L"textPlus", textLengthPlus);
        p.DefineFun(L"refuses", refuses);
    }
};

// The instruction list as text, the end left out: codes separated by blanks.
QString codesOf(const mu::Bytecode &bc)
{
    QStringList parts;
    for (const mu::Instr &in : bc.code)
        if (in.code != mu::cmEND)
            parts << QString::fromLatin1(mu::opTable[in.code].name);
    return parts.join(' ');
}

} // namespace

class tst_engine_fastest_compile : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void instructions_data();
    void instructions();
    void fusedForm_data();
    void fusedForm();
    void assignmentCompilesLikeEquality();
    void jumpDistances();
    void functionKinds_data();
    void functionKinds();
    void foldingCallsOnce();
    void notFoldedCallsEachEval();
    void functionErrorPassesThrough();
    void stringEscapes_data();
    void stringEscapes();
    void repeatedEvalFollowsVariables();
    void redefinitionRecompiles();
    void invalidDefinitions_data();
    void invalidDefinitions();
    void variableSharingAFunctionName();
    void stackSizeFollowsExpression();
    void redefinedBuiltInKeepsItsOwnCall();
    void tokenSoupRefusesOrEvaluates();
};

void tst_engine_fastest_compile::refusals_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<mu::ErrorCode>("code");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("token");

    using E = mu::ErrorCode;
    QTest::newRow("empty") << "" << E::NoValue << 0 << "";
    QTest::newRow("blanks alone") << "   " << E::NoValue << 3 << "";
    QTest::newRow("end after operator") << "1+" << E::UnexpectedEnd << 2 << "";
    QTest::newRow("end after function bracket") << "sqrt(" << E::UnexpectedEnd << 5 << "";
    QTest::newRow("end in brackets") << "(1" << E::MissingParenthesis << 2 << "";
    QTest::newRow("value after value") << "1 2" << E::UnexpectedValue << 2 << "2";
    QTest::newRow("constant after value") << "1 _pi" << E::UnexpectedValue << 2 << "_pi";
    QTest::newRow("variable after variable") << "x y" << E::UnexpectedVariable << 2 << "y";
    QTest::newRow("variable after number") << "2x" << E::UnexpectedVariable << 1 << "x";
    QTest::newRow("closing first") << ")" << E::UnexpectedParenthesis << 0 << ")";
    QTest::newRow("closing too many") << "(1))" << E::UnexpectedParenthesis << 3 << ")";
    QTest::newRow("empty brackets") << "()" << E::UnexpectedParenthesis << 1 << ")";
    QTest::newRow("bracket after value") << "2(1)" << E::UnexpectedParenthesis << 1 << "(";
    QTest::newRow("operator after operator") << "1+*2" << E::UnexpectedOperator << 2 << "*";
    QTest::newRow("operator first") << "*2" << E::UnexpectedOperator << 0 << "*";
    QTest::newRow("plus is no prefix") << "+2" << E::UnexpectedOperator << 0 << "+";
    QTest::newRow("two prefixes") << "--1" << E::UnexpectedOperator << 1 << "-";
    QTest::newRow("assignment twice") << "x = = 3" << E::UnexpectedOperator << 4 << "=";
    QTest::newRow("comma first") << ",1" << E::UnexpectedComma << 0 << ",";
    QTest::newRow("comma twice") << "1,,2" << E::UnexpectedComma << 2 << ",";
    QTest::newRow("comma after bracket") << "sum(,1)" << E::UnexpectedComma << 4 << ",";
    QTest::newRow("unknown name") << "foo" << E::UnknownToken << 0 << "foo";
    QTest::newRow("unknown name later") << "1 + foo*2" << E::UnknownToken << 4 << "foo";
    QTest::newRow("unknown character") << "1 + #2" << E::UnknownToken << 4 << "#2";
    QTest::newRow("lone point") << "1 + ." << E::UnknownToken << 4 << ".";
    QTest::newRow("word nan is no number") << "nan" << E::UnknownToken << 0 << "nan";
    QTest::newRow("boolean literal") << "true" << E::UnknownToken << 0 << "true";
    QTest::newRow("function without bracket") << "sqrt" << E::UnknownToken << 0 << "sqrt";
    QTest::newRow("function after value") << "x sqrt(1)" << E::UnexpectedFunction << 2 << "sqrt";
    QTest::newRow("unterminated string") << "toET(\"abc" << E::UnterminatedString << 5 << "\"";
    QTest::newRow("string result") << "\"abc\"" << E::StringResult << 5 << "";
    QTest::newRow("string after value") << "1 \"a\"" << E::UnexpectedString << 2 << "\"";
    QTest::newRow("string operand") << "\"a\" + 1" << E::StringArgument << 4 << "+";
    QTest::newRow("string before number") << "\"a\", 1" << E::StringResult << 6 << "";
    QTest::newRow("string to number function") << "sqrt(\"4\")" << E::StringArgument << 0 << "sqrt";
    QTest::newRow("number to string function") << "toET(1)" << E::StringArgument << 0 << "toET";
    QTest::newRow("string in condition") << "\"a\" ? 1 : 2" << E::UnexpectedConditional << 4 << "?";
    QTest::newRow("then without else") << "1 ? 2" << E::MissingElse << 5 << "";
    QTest::newRow("else without then") << "1 : 2" << E::MisplacedColon << 2 << ":";
    QTest::newRow("two elses") << "1 ? 2 : 3 : 4" << E::MisplacedColon << 10 << ":";
    QTest::newRow("question first") << "? 1" << E::UnexpectedConditional << 0 << "?";
    QTest::newRow("colon after question") << "1 ? : 2" << E::UnexpectedConditional << 4 << ":";
    QTest::newRow("closing inside then") << "(1 ? 2) : 3" << E::MissingElse << 6 << ")";
    QTest::newRow("colon inside brackets") << "1 ? (2 : 3)" << E::MisplacedColon << 7 << ":";
    QTest::newRow("comma in then") << "1 ? 2, 3 : 4" << E::UnbalancedBranches << -1 << "";
    QTest::newRow("comma in brackets") << "(1,2)" << E::TooManyParams << 4 << ")";
    QTest::newRow("too many arguments") << "sqrt(1,2)" << E::TooManyParams << 0 << "sqrt";
    QTest::newRow("too few arguments") << "atan2(1)" << E::TooFewParams << 0 << "atan2";
    QTest::newRow("no argument") << "sqrt()" << E::TooFewParams << 0 << "sqrt";
    QTest::newRow("string function without string") << "toET()" << E::TooFewParams << 0 << "toET";
    QTest::newRow("string function too many") << "toET(\"a\", 1)" << E::TooManyParams << 0 << "toET";
    QTest::newRow("multi with no argument") << "sum()" << E::FunctionFailure << -1 << "";
}

void tst_engine_fastest_compile::refusals()
{
    QFETCH(QString, expression);
    QFETCH(mu::ErrorCode, code);
    QFETCH(int, position);
    QFETCH(QString, token);
    Fixture f;
    try {
        f.p.SetExpr(expression.toStdWString());
        QFAIL(qPrintable("accepted, value " + QString::number(f.p.Eval())));
    } catch (const mu::ParserError &e) {
        QCOMPARE(int(e.GetCode()), int(code));
        QCOMPARE(e.GetPos(), position);
        QCOMPARE(QString::fromStdWString(e.GetToken()), token);
    }
}

void tst_engine_fastest_compile::instructions_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("codes");

    QTest::newRow("variable") << "x" << "var";
    QTest::newRow("square by product") << "x*x" << "var^2";
    QTest::newRow("square by power") << "x^2" << "var^2";
    QTest::newRow("cube") << "x^3" << "var^3";
    QTest::newRow("fourth") << "x^4" << "var^4";
    QTest::newRow("fifth stays") << "x^5" << "var val ^";
    QTest::newRow("power of constant base stays") << "2^x" << "val var ^";
    QTest::newRow("product through one is not a square") << "x*1*x" << "var*f+s var *";
    QTest::newRow("two variables") << "x*y" << "var var *";
    QTest::newRow("two variables added") << "x+y" << "var var +";
    QTest::newRow("linear is one instruction") << "2*x+1" << "var*f+s";
    QTest::newRow("reverse difference") << "3-x" << "var*f+s";
    QTest::newRow("variable divided stays") << "x/2" << "var val /";
    QTest::newRow("fused divided") << "(2*x)/4" << "var*f+s";
    QTest::newRow("constant divided by variable stays") << "2/x" << "val var /";
    QTest::newRow("same variable added") << "x+x" << "var*f+s";
    QTest::newRow("fused squared stays") << "(x+1)^2" << "var*f+s val ^";
    QTest::newRow("folded sum") << "1+2*3" << "val";
    QTest::newRow("folded comparison with null") << "_null > 1" << "val";
    QTest::newRow("comparison with variable") << "x > 1" << "var val >";
    QTest::newRow("folded null equality") << "_null == _null" << "val";
    QTest::newRow("folded and") << "0.5 && 1" << "val";
    QTest::newRow("folded or") << "0.5 || 0" << "val";
    QTest::newRow("folded null power") << "_null ^ 0" << "val";
    QTest::newRow("and with variable stays") << "x && 1" << "var val &&";
    QTest::newRow("modulo by zero not folded") << "5 % 0" << "val val %";
    QTest::newRow("modulo folded") << "5 % 3" << "val";
    QTest::newRow("modulo of variable") << "x % 3" << "var val %";
    QTest::newRow("folded function") << "sqrt(4)" << "val";
    QTest::newRow("function of variable") << "sqrt(x)" << "var func";
    QTest::newRow("not folded on constant") << "counted(1)" << "val func";
    QTest::newRow("context function") << "plusUnit(x)" << "var func_ctx";
    QTest::newRow("string function") << "textPlus(\"ab\", x)" << "var func_str";
    QTest::newRow("prefix on constant folds") << "-3" << "val";
    QTest::newRow("prefix on variable") << "-x" << "var neg";
    QTest::newRow("conditional") << "x ? 1 : 2" << "var ? val : val endif";
    QTest::newRow("constant conditional stays") << "1 ? x : y" << "val ? var : var endif";
    QTest::newRow("and of variables") << "x && y" << "var var &&";
    QTest::newRow("or of variables") << "x || y" << "var var ||";
    QTest::newRow("top-level comma") << "x,y" << "var var";
}

void tst_engine_fastest_compile::instructions()
{
    QFETCH(QString, expression);
    QFETCH(QString, codes);
    Fixture f;
    f.p.SetExpr(expression.toStdWString());
    QCOMPARE(codesOf(f.p.GetBytecode()), codes);
    QCOMPARE(f.p.GetBytecode().code.back().code, int(mu::cmEND));
}

void tst_engine_fastest_compile::fusedForm_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("summand");

    QTest::newRow("times constant") << "x*5" << 5.0 << -0.0;
    QTest::newRow("constant times") << "5*x" << 5.0 << -0.0;
    QTest::newRow("linear") << "2*x+1" << 2.0 << 1.0;
    QTest::newRow("reverse difference") << "3-x" << -1.0 << 3.0;
    QTest::newRow("minus constant") << "x-3" << 1.0 << -3.0;
    QTest::newRow("scaled") << "(x+1)*3" << 3.0 << 3.0;
    QTest::newRow("scaled before") << "3*(x+1)" << 3.0 << 3.0;
    QTest::newRow("divided") << "(4*x+2)/2" << 2.0 << 1.0;
    QTest::newRow("same variable") << "x+x" << 2.0 << -0.0;
    QTest::newRow("same variable difference") << "(2*x+5)-(x+1)" << 1.0 << 4.0;
}

void tst_engine_fastest_compile::fusedForm()
{
    QFETCH(QString, expression);
    QFETCH(double, factor);
    QFETCH(double, summand);
    Fixture f;
    f.p.SetExpr(expression.toStdWString());
    const mu::Instr &in = f.p.GetBytecode().code.front();
    QCOMPARE(codesOf(f.p.GetBytecode()), QString("var*f+s"));
    QCOMPARE(in.var, &f.x);
    QCOMPARE(in.factor, factor);
    QCOMPARE(quva::toBits(in.summand), quva::toBits(summand));
}

void tst_engine_fastest_compile::assignmentCompilesLikeEquality()
{
    Fixture a, b;
    a.p.SetExpr(L"x = 3");
    b.p.SetExpr(L"x == 3");
    QCOMPARE(codesOf(a.p.GetBytecode()), QString("var val =="));
    QCOMPARE(codesOf(a.p.GetBytecode()), codesOf(b.p.GetBytecode()));
    QCOMPARE(a.p.Eval(), 1.0);
}

void tst_engine_fastest_compile::jumpDistances()
{
    Fixture f;
    f.p.SetExpr(L"x ? y + 1 : 2 * y - 1");
    // 0 var x, 1 ?, 2 fused y+1, 3 :, 4 fused 2*y-1, 5 endif, 6 end
    const auto &code = f.p.GetBytecode().code;
    QCOMPARE(codesOf(f.p.GetBytecode()), QString("var ? var*f+s : var*f+s endif"));
    QCOMPARE(code[1].argc, 2); // "?" lands on ":" and goes on behind it
    QCOMPARE(code[3].argc, 2); // ":" lands on the end of the conditional
    QCOMPARE(f.p.Eval(), 5.0);
    f.x = 0;
    QCOMPARE(f.p.Eval(), 7.0);
    f.x = quva::nullValue();
    QCOMPARE(f.p.Eval(), 7.0);
}

void tst_engine_fastest_compile::functionKinds_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("expected");

    QTest::newRow("one argument") << "twice(x)" << 6.0;
    QTest::newRow("three arguments") << "mix3(1, x, y)" << 134.0;
    QTest::newRow("three arguments folded") << "mix3(1, 2, 3)" << 123.0;
    QTest::newRow("no argument") << "counted0()" << 7.0;
    QTest::newRow("any number") << "product(x, y, 2)" << 24.0;
    QTest::newRow("any number, one") << "product(x)" << 3.0;
    QTest::newRow("any number, none") << "product()" << 1.0;
    QTest::newRow("context last") << "plusUnit(x)" << 10.0;
    QTest::newRow("context only") << "unitOnly()" << 7.0;
    QTest::newRow("context behind four") << "four(x, y, 1, 2)" << 17.0;
    QTest::newRow("string literal") << "toET(\"20200101\")" << 2008.0;
    QTest::newRow("string and number") << "textPlus(\"abc\", x)" << 6.0;
    QTest::newRow("string function in expression") << "x + toET(\"ab\") * 2" << 4007.0;
    QTest::newRow("nested calls") << "twice(mix3(0, twice(x), 1))" << 122.0;
}

void tst_engine_fastest_compile::functionKinds()
{
    QFETCH(QString, expression);
    QFETCH(double, expected);
    Fixture f;
    f.p.SetExpr(expression.toStdWString());
    QCOMPARE(f.p.Eval(), expected);
    QCOMPARE(f.p.Eval(), expected);
}

void tst_engine_fastest_compile::foldingCallsOnce()
{
    Fixture f;
    int calls = 0;
    // A foldable function of constants runs once, at compile time.
    f.p.DefineFun(L"counted", counted, true);
    g_calls = 0;
    f.p.SetExpr(L"counted(1) + x");
    QCOMPARE(g_calls, 1);
    calls = g_calls;
    QCOMPARE(f.p.Eval(), 5.0);
    QCOMPARE(f.p.Eval(), 5.0);
    QCOMPARE(g_calls, calls);
}

void tst_engine_fastest_compile::notFoldedCallsEachEval()
{
    Fixture f;
    g_calls = 0;
    f.p.SetExpr(L"counted(1) + counted0()");
    QCOMPARE(g_calls, 0);
    QCOMPARE(f.p.Eval(), 9.0);
    QCOMPARE(f.p.Eval(), 9.0);
    QCOMPARE(g_calls, 4);
}

void tst_engine_fastest_compile::functionErrorPassesThrough()
{
    Fixture f;
    f.p.SetExpr(L"refuses(x)");
    try {
        f.p.Eval();
        QFAIL("no error");
    } catch (const mu::ParserError &e) {
        QCOMPARE(QString::fromStdWString(e.GetMsg()), QString("refused"));
    }
    // With a constant the refusal comes at compile time.
    QVERIFY_EXCEPTION_THROWN(f.p.SetExpr(L"refuses(1)"), mu::ParserError);
}

void tst_engine_fastest_compile::stringEscapes_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("length");
    QTest::newRow("plain") << "toET(\"abc\")" << 2003.0;
    QTest::newRow("escaped quote") << "toET(\"a\\\"b\")" << 2003.0;
    QTest::newRow("other backslash stays") << "toET(\"a\\nb\")" << 2004.0;
    QTest::newRow("empty") << "toET(\"\")" << 2000.0;
    QTest::newRow("blanks kept") << "toET(\" a \")" << 2003.0;
}

void tst_engine_fastest_compile::stringEscapes()
{
    QFETCH(QString, expression);
    QFETCH(double, length);
    Fixture f;
    f.p.SetExpr(expression.toStdWString());
    QCOMPARE(f.p.Eval(), length);
}

void tst_engine_fastest_compile::repeatedEvalFollowsVariables()
{
    const wchar_t *expressions[] = {L"2*x+1", L"x > y ? x % 3 : y^2", L"x && y || x == 2",
                                    L"min(x, y) + sqrt(abs(x))", L"x^3 - x*x + (y-1)/4"};
    const double values[] = {0, 1, -2, 3.5, 7, quva::nullValue(), quva::nanValue(), -0.5};
    for (const wchar_t *expression : expressions) {
        Fixture compiled;
        compiled.p.SetExpr(expression);
        for (double a : values) {
            for (double b : values) {
                compiled.x = a;
                compiled.y = b;
                Fixture fresh;
                fresh.x = a;
                fresh.y = b;
                fresh.p.SetExpr(expression);
                QCOMPARE(quva::toBits(compiled.p.Eval()), quva::toBits(fresh.p.Eval()));
            }
        }
    }
}

void tst_engine_fastest_compile::redefinitionRecompiles()
{
    Fixture f;
    double other = 10;
    f.p.SetExpr(L"x + 1");
    QCOMPARE(f.p.Eval(), 4.0);
    f.p.DefineVar(L"x", &other);
    QCOMPARE(f.p.Eval(), 11.0);
    f.p.DefineConst(L"x", 100);
    QCOMPARE(f.p.Eval(), 101.0);
    QCOMPARE(codesOf(f.p.GetBytecode()), QString("val"));
}

void tst_engine_fastest_compile::invalidDefinitions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("nullPointer");
    QTest::addColumn<mu::ErrorCode>("code");
    QTest::newRow("empty") << "" << false << mu::ErrorCode::InvalidName;
    QTest::newRow("digit first") << "1x" << false << mu::ErrorCode::InvalidName;
    QTest::newRow("blank") << "a b" << false << mu::ErrorCode::InvalidName;
    QTest::newRow("operator") << "a+b" << false << mu::ErrorCode::InvalidName;
    QTest::newRow("null pointer") << "ok" << true << mu::ErrorCode::InvalidPointer;
}

void tst_engine_fastest_compile::invalidDefinitions()
{
    QFETCH(QString, name);
    QFETCH(bool, nullPointer);
    QFETCH(mu::ErrorCode, code);
    Fixture f;
    double d = 0;
    try {
        f.p.DefineVar(name.toStdWString(), nullPointer ? nullptr : &d);
        QFAIL("accepted");
    } catch (const mu::ParserError &e) {
        QCOMPARE(int(e.GetCode()), int(code));
    }
}

void tst_engine_fastest_compile::variableSharingAFunctionName()
{
    Fixture f;
    double min = 5;
    f.p.DefineVar(L"min", &min);
    f.p.SetExpr(L"min + min(1, 2)");
    QCOMPARE(f.p.Eval(), 6.0);
}

void tst_engine_fastest_compile::stackSizeFollowsExpression()
{
    Fixture f;
    f.p.SetExpr(L"x");
    QCOMPARE(f.p.GetBytecode().stackSize, 1);
    f.p.SetExpr(L"x * (y + (x - (y * (x + y))))");
    QCOMPARE(f.p.GetBytecode().stackSize, 6);
    QCOMPARE(f.p.Eval(), 3.0 * (4 + (3 - (4 * 7.0))));
    // A long chain that folds nothing still runs on a small stack.
    QString chain = "x";
    for (int i = 0; i < 500; ++i)
        chain += " + y*x";
    f.p.SetExpr(chain.toStdWString());
    QCOMPARE(f.p.GetBytecode().stackSize, 3);
    QCOMPARE(f.p.Eval(), 3.0 + 500 * 12.0);
}

void tst_engine_fastest_compile::redefinedBuiltInKeepsItsOwnCall()
{
    Fixture f;
    f.p.SetExpr(L"abs(0 - x) + min(x, y)");
    QCOMPARE(f.p.Eval(), 6.0);
    f.p.DefineFun(L"abs", twice);
    f.p.DefineFun(L"min", mix3);
    QVERIFY_EXCEPTION_THROWN(f.p.SetExpr(L"min(x, y)"), mu::ParserError);
    f.p.SetExpr(L"abs(0 - x) + min(x, y, 1)");
    QCOMPARE(f.p.Eval(), -6.0 + 341.0);
}

// Random strings of tokens: each is refused with a ParserError or gives a
// value, and nothing reads or writes outside its memory (run under the
// sanitizers as well).
void tst_engine_fastest_compile::tokenSoupRefusesOrEvaluates()
{
    static const char *const pieces[] = {
        "x", "y", "1", "2.5", "_null", "(", ")", ",", "?", ":", "+", "-", "*", "/", "%",
        "^", "&&", "||", "<", "<=", "==", "=", "!=", "sum(", "min(", "sqrt(", "atan2(",
        "counted0(", "toET(", "\"s\"", "\"", " ", "foo", "#", "mix3(", "product(", "four(",
    };
    const int count = int(sizeof pieces / sizeof pieces[0]);
    quint32 seed = 12345;
    auto next = [&seed](int n) {
        seed = seed * 1103515245u + 12345u;
        return int((seed >> 16) % quint32(n));
    };
    int accepted = 0;
    int refused = 0;
    for (int i = 0; i < 20000; ++i) {
        // Mostly an operand after an operator and the reverse, so that
        // many texts get far into the compiler; now and then any piece.
        static const char *const operands[] = {"x", "y", "1", "_null", "(x", "sum(x,", "y)"};
        static const char *const operators[] = {"+", "*", "^", "&&", "<", "?", ":", ",", "%"};
        QString text;
        for (int k = 1 + next(12); k > 0; --k) {
            if (next(4) == 0)
                text += pieces[next(count)];
            else
                text += k % 2 ? operands[next(7)] : operators[next(9)];
        }
        Fixture f;
        try {
            f.p.SetExpr(text.toStdWString());
            f.p.Eval();
            f.x = quva::nullValue();
            f.p.Eval();
            ++accepted;
        } catch (const mu::ParserError &) {
            ++refused;
        }
    }
    qInfo("%d accepted, %d refused", accepted, refused);
    QCOMPARE(accepted + refused, 20000);
    QVERIFY(accepted > 500);
    QVERIFY(refused > 500);
}

QTEST_APPLESS_MAIN(tst_engine_fastest_compile)
#include "tst_engine_fastest_compile.moc"
