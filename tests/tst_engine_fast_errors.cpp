#include "expr/engine_fast/mup_parser.h"
#include "expr/null_value.h"

#include <QtTest>

#include <cmath>
#include <memory>

using namespace mup;

namespace {

// A function with a fixed count of two, as the later function library has.
class TwoArgs final : public CallbackImpl<TwoArgs, ICallback>
{
public:
    TwoArgs() : CallbackImpl(cmFUNC, QStringLiteral("atan2"), 2) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        const double y = args[0]->GetFloat();
        const double x = args[1]->GetFloat();
        ret = y - x;
    }
    QString GetDesc() const override { return QStringLiteral("atan2(y,x) - test"); }
};

// Reads a text and then a position, as the string functions of the language
// do, with the argument indexes.
class Pick final : public CallbackImpl<Pick, ICallback>
{
public:
    Pick() : CallbackImpl(cmFUNC, QStringLiteral("pick"), 2) {}
    void Eval(IValue &ret, const IValue *const *args, int) override
    {
        const QString text = stringArgument(args, 0);
        const double at = floatArgument(args, 1);
        ret = text.mid(static_cast<int>(at), 1);
    }
    QString GetDesc() const override { return QStringLiteral("pick(s,i) - test"); }
};

struct Failure
{
    bool thrown = false;
    int code = -1;
    int pos = -2;
    QString token;
    QString message;
};

struct Fixture
{
    Value a{1.0}, b{2.0}, c{3.0}, d{4.0}, s{"abc"}, t{"xy"};
    ParserX parser;

    Fixture()
    {
        parser.DefineVar(QStringLiteral("a"), Variable(&a));
        parser.DefineVar(QStringLiteral("b"), Variable(&b));
        parser.DefineVar(QStringLiteral("c"), Variable(&c));
        parser.DefineVar(QStringLiteral("d"), Variable(&d));
        parser.DefineVar(QStringLiteral("s"), Variable(&s));
        parser.DefineVar(QStringLiteral("t"), Variable(&t));
        parser.DefineConst(QStringLiteral("k"), Value("const"));
        parser.DefineFun(std::make_unique<TwoArgs>());
        parser.DefineFun(std::make_unique<Pick>());
    }
};

Failure failureOf(const QString &expr)
{
    Fixture f;
    Failure result;
    f.parser.SetExpr(expr);
    try {
        f.parser.Eval();
    } catch (const ParserError &e) {
        result.thrown = true;
        result.code = e.GetCode();
        result.pos = e.GetPos();
        result.token = e.GetToken();
        result.message = e.GetMsg();
        if (e.GetExpr() != expr)
            result.message = QStringLiteral("wrong expression in error: ") + e.GetExpr();
    }
    return result;
}

} // namespace

class tst_engine_fast_errors : public QObject
{
    Q_OBJECT

private slots:
    void readerErrors_data();
    void readerErrors();
    void messages_data();
    void messages();
    void allTemplates_data();
    void allTemplates();
    void typeErrors_data();
    void typeErrors();
    void typeErrorOnLaterEvaluation();
    void replacementIsOnePass();
    void definitionErrors();
    void errorIsRaisedAgain();
};

// Expression, code, position, token, and the message after replacement.
void tst_engine_fast_errors::readerErrors_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("token");

    // 0: a binary operator where none may stand, and a refused prefix operator.
    QTest::newRow("0 operator after operator") << "1 * * 2" << 0 << 4 << "*";
    QTest::newRow("0 operator at start") << "* 2" << 0 << 0 << "*";
    QTest::newRow("0 prefix after prefix") << "- -a" << 0 << 2 << "-";
    QTest::newRow("0 comparison after (") << "(<1)" << 0 << 1 << "<";
    // 1: no token at all.
    QTest::newRow("1 unknown name") << "1 + foo" << 1 << 4 << "foo";
    QTest::newRow("1 unknown name first") << "foo" << 1 << 0 << "foo";
    QTest::newRow("1 no name: rest of text") << "1 + @x" << 1 << 4 << "@x";
    QTest::newRow("1 postfix twice") << "1{k}{k}" << 1 << 4 << "{k}";
    QTest::newRow("1 unknown operator") << "a ! b" << 1 << 2 << "! b";
    // 2: the end where it is refused.
    QTest::newRow("2 after binary operator") << "1+" << 2 << 2 << "";
    QTest::newRow("2 after function") << "sin" << 2 << 3 << "";
    QTest::newRow("2 after prefix") << "-" << 2 << 1 << "";
    QTest::newRow("2 after ?") << "a ?" << 2 << 3 << "";
    QTest::newRow("2 empty text") << "" << 2 << 0 << "";
    QTest::newRow("2 blanks only") << "   " << 2 << 3 << "";
    // 3: comma.
    QTest::newRow("3 leading comma") << ",1" << 3 << 0 << ",";
    QTest::newRow("3 comma after (") << "sin(,1)" << 3 << 4 << ",";
    QTest::newRow("3 comma after operator") << "1+,2" << 3 << 2 << ",";
    // 4: value or constant.
    QTest::newRow("4 two numbers") << "1 2" << 4 << 2 << "2";
    QTest::newRow("4 constant after variable") << "a _pi" << 4 << 2 << "_pi";
    QTest::newRow("4 value after function") << "sin 1" << 4 << 4 << "1";
    QTest::newRow("4 string after value") << "1 \"x\"" << 4 << 2 << "\"x\"";
    // 5: variable.
    QTest::newRow("5 two variables") << "a b" << 5 << 2 << "b";
    QTest::newRow("5 variable after value") << "1 a" << 5 << 2 << "a";
    // 6: parentheses.
    QTest::newRow("6 closing first") << ")" << 6 << 0 << ")";
    QTest::newRow("6 too many closing") << "(1))" << 6 << 3 << ")";
    QTest::newRow("6 empty group") << "()" << 6 << 1 << ")";
    QTest::newRow("6 opening after variable") << "a(1)" << 6 << 1 << "(";
    // 8: "?" or ":" refused by the mask.
    QTest::newRow("8 ? first") << "? 1" << 8 << 0 << "?";
    QTest::newRow("8 : first") << ": 1" << 8 << 0 << ":";
    QTest::newRow("8 ? after ?") << "a ? ? b" << 8 << 4 << "?";
    QTest::newRow("8 : after (") << "a ? (: b" << 8 << 5 << ":";
    // 12: open parenthesis at the end, named before the mask is asked.
    QTest::newRow("12 f(") << "sin(" << 12 << 4 << "";
    QTest::newRow("12 f(1") << "sin(1" << 12 << 5 << "";
    QTest::newRow("12 (1+") << "(1+" << 12 << 3 << "";
    // 13: open conditional at the end.
    QTest::newRow("13 a ? b") << "a ? b" << 13 << 5 << "";
    // 14: ":" that the mask lets through but no "?" is open for.
    QTest::newRow("14 a : b") << "a : b" << 14 << 2 << ":";
    QTest::newRow("14 second colon") << "(a ? b : c : d" << 14 << 11 << ":";
    // 15: function.
    QTest::newRow("15 function after value") << "1 sin(2)" << 15 << 2 << "sin";
    QTest::newRow("15 function after variable") << "a sin(2)" << 15 << 2 << "sin";
    // 16: unterminated string.
    QTest::newRow("16 unterminated") << "s // \"ab" << 16 << 5 << "\"ab";
    // 17 and 18: argument counts.
    QTest::newRow("17 sin(1,2)") << "sin(1,2)" << 17 << 0 << "sin";
    QTest::newRow("17 prefix with two") << "-(1,2)" << 17 << 0 << "-";
    QTest::newRow("17 three for two") << "1 + atan2(1,2,3)" << 17 << 4 << "atan2";
    QTest::newRow("18 atan2()") << "atan2()" << 18 << 0 << "atan2";
    QTest::newRow("18 atan2(1)") << "atan2(1)" << 18 << 0 << "atan2";
    QTest::newRow("18 sin()") << "sin()" << 18 << 0 << "sin";
    // 46: a prefix operator left on the stack by ":".
    QTest::newRow("46 prefix before colon") << "1 ? - : 2" << 46 << 4 << "-";
}

void tst_engine_fast_errors::readerErrors()
{
    QFETCH(QString, expr);
    QFETCH(int, code);
    QFETCH(int, pos);
    QFETCH(QString, token);
    const Failure f = failureOf(expr);
    QVERIFY(f.thrown);
    QCOMPARE(f.code, code);
    QCOMPARE(f.pos, pos);
    QCOMPARE(f.token, token);
    QVERIFY2(!f.message.startsWith(QStringLiteral("wrong")), qPrintable(f.message));
}

// The full text the user reads for some of them.
void tst_engine_fast_errors::messages_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<QString>("message");
    QTest::newRow("undefined") << "1 + foo" << "Undefined token \"foo\" found at position 4";
    QTest::newRow("operator") << "1 * * 2" << "Unexpected operator \"*\" found at position 4";
    QTest::newRow("eof") << "1+" << "Unexpected end of expression at position 2";
    QTest::newRow("comma") << ",1" << "Unexpected comma at position 0";
    QTest::newRow("value") << "1 2" << "Unexpected value \"2\" found at position 2";
    QTest::newRow("variable") << "a b" << "Unexpected variable \"b\" found at position 2";
    QTest::newRow("parenthesis") << ")" << "Unexpected parenthesis \")\" at position 0";
    QTest::newRow("conditional") << "? 1"
                                 << "The \"?\" operator must be preceeded by a closing bracket";
    QTest::newRow("missing parenthesis") << "sin(" << "Missing parenthesis";
    QTest::newRow("else") << "a ? b" << "If-then-else operator is missing an else clause";
    QTest::newRow("colon") << "a : b" << "Misplaced colon at position 2";
    QTest::newRow("function") << "1 sin(2)" << "Unexpected function \"sin\" at position 2";
    QTest::newRow("too many") << "sin(1,2)" << "Too many parameters for function \"sin\"";
    QTest::newRow("too few") << "atan2()" << "Too few parameters for function \"atan2\"";
    QTest::newRow("stack") << "-?1:2" << "stack is empty.";
    QTest::newRow("type") << "\"a\" == 1"
                          << "Value \"1\" is of type 'i'. There is no implicit conversion to type 's'";
    QTest::newRow("argument type")
        << "1 + true"
        << "Argument 2 of function/operator \"+\" is of type 'b' whereas type 'f' was expected";
}

void tst_engine_fast_errors::messages()
{
    QFETCH(QString, expr);
    QFETCH(QString, message);
    const Failure f = failureOf(expr);
    QVERIFY(f.thrown);
    QCOMPARE(f.message, message);
}

// The type errors of evaluation name the value that has the wrong type: a
// variable or a constant by its name, a literal by its text, a computed value
// by its printed form; the position is where that value stands in the text, or
// where the operator or function that computed it stands. Code 20 names the
// operator at its own place.
void tst_engine_fast_errors::typeErrors_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("token");
    QTest::addColumn<QString>("message");
    auto row = [](const char *expr, int code, int pos, const char *token, const char *message) {
        QTest::newRow(expr) << QString::fromUtf8(expr) << code << pos << QString::fromUtf8(token)
                            << QString::fromUtf8(message);
    };
    const char *sToF = "Value \"s\" is of type 's'. There is no implicit conversion to type 'f'";
    const char *sToB = "Value \"s\" is of type 's'. There is no implicit conversion to type 'b'";

    // A variable as a function's argument.
    row("sqrt(s)", 19, 5, "s", sToF);
    row("1 + sqrt(s)", 19, 9, "s", sToF);
    row("sqrt( s )", 19, 6, "s", sToF);
    row("atan2(1, s)", 19, 9, "s", sToF);
    row("atan2(s, 1)", 19, 6, "s", sToF);
    row("atan2(a, t)", 19, 9, "t",
        "Value \"t\" is of type 's'. There is no implicit conversion to type 'f'");
    // The same variable twice: the first argument that is read fails.
    row("atan2(s, s)", 19, 6, "s", sToF);
    row("sqrt(s) + sqrt(s)", 19, 5, "s", sToF);
    row("0 ? sqrt(s) : sqrt(s)", 19, 19, "s", sToF);
    // One variable read as a text and as a number: the number is refused.
    row("pick(s, s)", 19, 8, "s", sToF);
    row("pick(s, 1 ? s : a)", 19, 12, "s", sToF);
    row("pick(a, a)", 19, 5, "a",
        "Value \"a\" is of type 'i'. There is no implicit conversion to type 's'");
    // A variable chosen by a conditional keeps its own place.
    row("sqrt(a > 0 ? s : 1)", 19, 13, "s", sToF);
    row("sqrt(a < 0 ? 1 : s)", 19, 17, "s", sToF);
    row("sqrt(a < 0 ? t : s)", 19, 17, "s", sToF);
    row("sqrt(a > 0 ? t : s)", 19, 13, "t",
        "Value \"t\" is of type 's'. There is no implicit conversion to type 'f'");
    // A variable as an operand.
    row("s ? 1 : 2", 19, 0, "s", sToB);
    row("a + 1 > 0 && (s ? 1 : 2)", 19, 14, "s", sToB);
    row("s && 1", 19, 0, "s", sToB);
    row("1 || s", 19, 5, "s", sToB);
    row("a || s", 19, 5, "s", sToB);
    row("(int)s", 19, 5, "s", sToF);
    row("(float)s", 19, 7, "s", sToF);
    row("a == s", 19, 5, "s",
        "Value \"s\" is of type 's'. There is no implicit conversion to type 'i'");
    row("2 < s", 19, 4, "s",
        "Value \"s\" is of type 's'. There is no implicit conversion to type 'i'");
    row("1.5 < s", 19, 6, "s",
        "Value \"s\" is of type 's'. There is no implicit conversion to type 'f'");
    row("s < a", 19, 4, "a",
        "Value \"a\" is of type 'i'. There is no implicit conversion to type 's'");
    row("s < 2", 19, 4, "2",
        "Value \"2\" is of type 'i'. There is no implicit conversion to type 's'");
    // A constant by its name, a literal by its text, at their places.
    row("sqrt(k)", 19, 5, "k",
        "Value \"k\" is of type 's'. There is no implicit conversion to type 'f'");
    row("1 + sqrt(\"ab\")", 19, 9, "ab",
        "Value \"ab\" is of type 's'. There is no implicit conversion to type 'f'");
    row("\"ab\" ? 1 : 2", 19, 0, "ab",
        "Value \"ab\" is of type 's'. There is no implicit conversion to type 'b'");
    row("a < 0 || \"x\" == 1", 19, 16, "1",
        "Value \"1\" is of type 'i'. There is no implicit conversion to type 's'");
    // A computed value by its printed form, at the place of what computed it.
    row("sqrt(s // \"x\")", 19, 7, "abcx",
        "Value \"abcx\" is of type 's'. There is no implicit conversion to type 'f'");
    row("(s // t) && 1", 19, 3, "abcxy",
        "Value \"abcxy\" is of type 's'. There is no implicit conversion to type 'b'");
    row("sqrt(a > 0 ? s // t : 1)", 19, 15, "abcxy",
        "Value \"abcxy\" is of type 's'. There is no implicit conversion to type 'f'");
    row("(a > 0) < s", 19, 10, "s",
        "Value \"s\" is of type 's'. There is no implicit conversion to type 'b'");
    row("s < (a > 0)", 19, 7, "true",
        "Value \"true\" is of type 'b'. There is no implicit conversion to type 's'");
    // Code 20 names the operator or function, at its place.
    row("s + 1", 20, 2, "+",
        "Argument 1 of function/operator \"+\" is of type 's' whereas type 'f' was expected");
    row("1 + s", 20, 2, "+",
        "Argument 2 of function/operator \"+\" is of type 's' whereas type 'f' was expected");
    row("a * (1 - s)", 20, 7, "-",
        "Argument 2 of function/operator \"-\" is of type 's' whereas type 'f' was expected");
    row("-s", 20, 0, "-",
        "Argument 1 of function/operator \"-\" is of type 's' whereas type 'f' was expected");
    row("s{k}", 20, 1, "{k}",
        "Argument 1 of function/operator \"{k}\" is of type 's' whereas type 'f' was expected");
    row("a // s", 20, 2, "//",
        "Argument 1 of function/operator \"//\" is of type 'i' whereas type 's' was expected");
}

void tst_engine_fast_errors::typeErrors()
{
    QFETCH(QString, expr);
    QFETCH(int, code);
    QFETCH(int, pos);
    QFETCH(QString, token);
    QFETCH(QString, message);
    const Failure f = failureOf(expr);
    QVERIFY(f.thrown);
    QCOMPARE(f.message, message);
    QCOMPARE(f.code, code);
    QCOMPARE(f.pos, pos);
    QCOMPARE(f.token, token);
}

// A list that evaluated once names the variable the same way when its value
// later takes a wrong type, and evaluates again once the type is right.
void tst_engine_fast_errors::typeErrorOnLaterEvaluation()
{
    Fixture f;
    f.parser.SetExpr(QStringLiteral("a > 1 ? sqrt(b) : 2 * sqrt(b)"));
    QCOMPARE(f.parser.Eval().GetFloat(), 2.0 * std::sqrt(2.0));
    f.b = QStringLiteral("text");
    for (int i = 0; i < 2; ++i) {
        try {
            f.parser.Eval();
            QFAIL("no error");
        } catch (const ParserError &e) {
            QCOMPARE(e.GetCode(), ecTYPE_CONFLICT);
            QCOMPARE(e.GetToken(), QStringLiteral("b"));
            QCOMPARE(e.GetPos(), 27);
            QCOMPARE(e.GetMsg(), QStringLiteral("Value \"b\" is of type 's'. There is no "
                                                "implicit conversion to type 'f'"));
        }
        f.a = 5.0;
        try {
            f.parser.Eval();
            QFAIL("no error");
        } catch (const ParserError &e) {
            QCOMPARE(e.GetToken(), QStringLiteral("b"));
            QCOMPARE(e.GetPos(), 13);
        }
        f.a = 1.0;
    }
    f.b = 4.0;
    QCOMPARE(f.parser.Eval().GetFloat(), 4.0);
}

void tst_engine_fast_errors::allTemplates_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("message");
    const QStringList texts = {
        "Unexpected operator \"tok\" found at position 7",
        "Undefined token \"tok\" found at position 7",
        "Unexpected end of expression at position 7",
        "Unexpected comma at position 7",
        "Unexpected value \"tok\" found at position 7",
        "Unexpected variable \"tok\" found at position 7",
        "Unexpected parenthesis \"tok\" at position 7",
        "Unexpected string token found at position 7",
        "The \"tok\" operator must be preceeded by a closing bracket",
        "Unexprected newline",
        "String function called with a non string type of argument",
        "Numerical function called with a non value type of argument",
        "Missing parenthesis",
        "If-then-else operator is missing an else clause",
        "Misplaced colon at position 7",
        "Unexpected function \"tok\" at position 7",
        "Unterminated string starting at position 7",
        "Too many parameters for function \"tok\"",
        "Too few parameters for function \"tok\"",
        "Value \"tok\" is of type 's'. There is no implicit conversion to type 'f'",
        "Argument 2 of function/operator \"tok\" is of type 's' whereas type 'f' was expected",
        "Index to \"tok\" must be a positive integer value. 's' is not an acceptable type.",
        "Invalid argument type",
        "Value type conversion from type 's' to 'f' is not supported!",
        "Array size mismatch",
        "Using the index operator on the scalar variable \"tok\" is not allowed",
        "Unexpected \"]\"",
        "Invalid variable name: \"tok\".",
        "Binary operator identifier conflicts with a built in operator",
        "Invalid pointer to callback function",
        "Invalid pointer to variable",
        "Parameter 2 of function \"tok\" is invalid",
        "Invalid number of function arguments",
        "Name conflict",
        "Invalid value for operator priority (must be greater or equal to zero)",
        "Assignment operator \"tok\" can't be used in this context",
        "Domain error",
        "Divide by zero",
        "Parser error",
        "Invalid prototype (use something like: \"f:fff\")",
        "Not an array",
        "Invalid matrix dimensions",
        "Index to variable \"tok\" is out of bounds",
        "Index operator dimension error",
        "Missing \"]\"",
        "Can't evaluate function/operator \"tok\": some hint",
        "Internal error",
    };
    QCOMPARE(texts.size(), 47);
    for (int code = 0; code < texts.size(); ++code)
        QTest::addRow("code %d", code) << code << texts.at(code);
}

void tst_engine_fast_errors::allTemplates()
{
    QFETCH(int, code);
    QFETCH(QString, message);
    ErrorContext context;
    context.Errc = static_cast<EErrorCodes>(code);
    context.Ident = QStringLiteral("tok");
    context.Pos = 7;
    context.Arg = 2;
    context.Type1 = QLatin1Char('s');
    context.Type2 = QLatin1Char('f');
    context.Hint = QStringLiteral("some hint");
    context.Expr = QStringLiteral("1+tok");
    const ParserError error(context);
    QCOMPARE(error.GetMsg(), message);
    QCOMPARE(error.GetCode(), context.Errc);
    QCOMPARE(error.GetPos(), 7);
    QCOMPARE(error.GetToken(), QStringLiteral("tok"));
    QCOMPARE(error.GetExpr(), QStringLiteral("1+tok"));
    QCOMPARE(errorTemplate(code).isEmpty(), false);
}

// A token whose text looks like a field is not replaced a second time.
void tst_engine_fast_errors::replacementIsOnePass()
{
    const ParserError error(ecUNASSIGNABLE_TOKEN, QStringLiteral("$POS$"), 3);
    QCOMPARE(error.GetMsg(), QStringLiteral("Undefined token \"$POS$\" found at position 3"));
    QVERIFY(errorTemplate(47).isEmpty());
    QVERIFY(errorTemplate(-1).isEmpty());
}

void tst_engine_fast_errors::definitionErrors()
{
    ParserX p;
    Value v(1.0);
    auto codeOf = [](auto &&define) {
        try {
            define();
        } catch (const ParserError &e) {
            return static_cast<int>(e.GetCode());
        }
        return -1;
    };
    QCOMPARE(codeOf([&] { p.DefineVar(QStringLiteral("a b"), Variable(&v)); }), 27);
    QCOMPARE(codeOf([&] { p.DefineVar(QString(), Variable(&v)); }), 27);
    QCOMPARE(codeOf([&] { p.DefineConst(QStringLiteral("x-y"), Value(1)); }), 27);
    QCOMPARE(codeOf([&] { p.DefineVar(QStringLiteral("p"), Variable(nullptr)); }), 30);
    QCOMPARE(codeOf([&] { p.DefineFun(nullptr); }), 29);
    QCOMPARE(codeOf([&] { p.DefineVar(QStringLiteral("_pi"), Variable(&v)); }), 33);
    p.DefineVar(QStringLiteral("w"), Variable(&v));
    QCOMPARE(codeOf([&] { p.DefineConst(QStringLiteral("w"), Value(1)); }), 33);
    QCOMPARE(codeOf([&] { p.DefineOprt(std::make_unique<OprtEQ>(QStringLiteral("?"))); }), 28);
    QCOMPARE(codeOf([&] { p.DefineOprt(std::make_unique<OprtEQ>(QStringLiteral(","))); }), 28);
    // A definition that worked leaves the parser usable.
    p.SetExpr(QStringLiteral("w + 1"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
}

// A failed build leaves no list behind: the next Eval fails the same way.
void tst_engine_fast_errors::errorIsRaisedAgain()
{
    ParserX p;
    p.SetExpr(QStringLiteral("1 +"));
    for (int i = 0; i < 2; ++i) {
        try {
            p.Eval();
            QFAIL("no error");
        } catch (const ParserError &e) {
            QCOMPARE(e.GetCode(), ecUNEXPECTED_EOF);
            QCOMPARE(e.GetPos(), 3);
        }
    }
    p.SetExpr(QStringLiteral("1 + 1"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
}

QTEST_APPLESS_MAIN(tst_engine_fast_errors)
#include "tst_engine_fast_errors.moc"
