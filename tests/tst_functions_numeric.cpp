// The numeric and null functions of the language in both engines, their
// description texts, and the random generator behind rand.

#include "functions_eval.h"

#include "expr/functions/conversion_callbacks.h"
#include "expr/functions/mt19937.h"
#include "expr/functions/numeric_callbacks.h"
#include "expr/functions/numeric_functions.h"

#include <QtTest>

#include <cmath>
#include <memory>

class tst_functions_numeric : public QObject
{
    Q_OBJECT

private slots:
    void fastValues_data();
    void fastValues();
    void fastestValues_data();
    void fastestValues();
    void descriptions_data();
    void descriptions();
    void mt19937ReferenceSequence();
    void mt19937SeedsItselfWhenNeverSeeded();
    void mt19937SeedMinusOneUsesTheClock();
    void randomFunctionsDrawFromTheContext();
    void randomFunctionsAreNotFolded();
    void haversineDistance();
    void nDaysInMonthOutsideItsTable_data();
    void nDaysInMonthOutsideItsTable();
    void fastestKnowsItsNamesOnly_data();
    void fastestKnowsItsNamesOnly();
    void typeErrorNamesTheConversion();
    void typeErrorNamesTheVariable();
};

void tst_functions_numeric::fastValues_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    auto row = [](const char *e, const char *v) { QTest::newRow(e) << QString::fromUtf8(e) << QString::fromUtf8(v); };

    // NULL tests: a string branch giving booleans, a number branch integers.
    row("isNull(\"\")", "b 0");
    row("isNull(_nullS)", "b 1");
    row("isNull(_null)", "i 1");
    row("isNull(_nan)", "i 0");
    row("isNull(1)", "i 0");
    row("isNull(1 == _null)", "i 1");
    row("isMissing(\"\")", "b 1");
    row("isMissing(_nullS)", "b 1");
    row("isMissing(\"a\")", "b 0");
    row("isMissing(_null)", "i 1");
    row("isMissing(_nan)", "i 0");
    row("isNan(_null)", "i 0");
    row("isNan(_nan)", "i 1");
    row("isNan(\"a\")", "i 1");
    row("isNan(2)", "i 0");
    row("isFinite(_null)", "i 0");
    row("isFinite(_nan)", "i 0");
    row("isFinite(_infinity)", "i 0");
    row("isFinite(-_infinity)", "i 0");
    row("isFinite(1.5)", "i 1");
    row("isFinite(\"1\")", "i 0");
    row("isTrue(\"Yes\")", "i 0");
    row("isTrue(\"Y es\")", "i 1");
    row("isTrue(\"y\")", "i 1");
    row("isTrue(\"1\")", "i 1");
    row("isTrue(\"p\\tq\")", "i 0");
    row("isTrue(\"P\tx\")", "i 1"); // a real tab behind the letter
    row("isTrue(\"o\")", "i 1");
    row("isTrue(\"T\")", "i 1");
    row("isTrue(\"x\")", "i 0");
    row("isTrue(\" y\")", "i 0");
    row("isTrue(\"n\")", "i 0");
    row("isTrue(\"\")", "i 0");
    row("isTrue(_nullS)", "i 0");
    row("isTrue(_nan)", "b 1");
    row("isTrue(_null)", "b 0");
    row("isTrue(0)", "b 0");
    row("isTrue(-2)", "b 1");
    row("not(_null)", "f NULL");
    row("not(_nan)", "b 0");
    row("not(0)", "b 1");
    row("not(3)", "b 0");
    row("not(true)", "b 0");
    row("not(\"a\")", "error 19");

    // Choosing a value keeps the kind of the chosen argument.
    row("nvl(_null,5)", "i 5");
    row("nvl(_nan,5)", "f nan");
    row("nvl(3,5)", "i 3");
    row("nvl(_nullS,\"x\")", "s \"x\"");
    row("nvl(\"\",\"x\")", "s \"\"");
    row("nvl(true,3)", "i 1");
    row("nvl(_null,false)", "i 0");
    row("nvl(1 == _null,7)", "i 7");
    row("nvl2(_null,1,2)", "i 2");
    row("nvl2(3,1,2)", "i 1");
    row("nvl2(_nullS,\"a\",\"b\")", "s \"b\"");
    row("nvl2(\"\",\"a\",\"b\")", "s \"a\"");
    row("nanvl(_null,5)", "i 5");
    row("nanvl(_nan,5)", "i 5");
    row("nanvl(2.5,5)", "f 2.5");
    row("nanvl(\"a\",5)", "error 19");
    row("nanvl2(_nan,1,2)", "i 2");
    row("nanvl2(3,1,\"b\")", "i 1");
    row("nanvl2(_null,1,\"b\")", "s \"b\"");
    row("finitevl(_infinity,5)", "i 5");
    row("finitevl(1.5,5)", "f 1.5");
    row("finitevl(_null,\"a\")", "s \"a\"");
    row("finitevl(\"a\",1)", "error 19");
    row("finitevl2(1,2,3)", "i 2");
    row("finitevl2(_nan,2,3)", "i 3");

    // Arithmetic: NULL stays NULL.
    row("sqr(3)", "i 9");
    row("sqr(1.5)", "f 2.25");
    row("sqr(_null)", "f NULL");
    row("sqr(\"a\")", "error 19");
    row("ceil(1.2)", "i 2");
    row("ceil(_null)", "f NULL");
    row("floor(-1.2)", "i -2");
    row("floor(_null)", "f NULL");
    row("round(-0.5)", "i 0");
    row("round(2.5)", "i 3");
    row("round(-2.5)", "i -2");
    row("round(_null)", "f NULL");
    row("floor2(10,4)", "i 8");
    row("floor2(-3,2)", "i -4");
    row("floor2(7.5,2.5)", "f 7.5");
    row("floor2(_null,2)", "f NULL");
    row("floor2(2,_null)", "f NULL");
    row("hdist(1,1,1,1)", "i 0");
    row("hdist(_null,0,0,0)", "f NULL");
    row("hdist(0,0,0,_null)", "f NULL");
    row("atan2(1,2)", "error 17");
    row("atan2(1)", "f NULL");
    row("atan2(\"a\")", "error 19");
    row("nDaysInMonth(2,1900)", "i 29");
    row("nDaysInMonth(2,2100)", "i 29");
    row("nDaysInMonth(2,2001)", "i 28");
    row("nDaysInMonth(2,2000.7)", "i 29");
    row("nDaysInMonth(4.9,2001)", "i 30");
    row("nDaysInMonth(12,2001)", "i 31");
    row("nDaysInMonth(0,2001)", "i 0");
    row("nDaysInMonth(13,2001)", "i 0");
    row("nDaysInMonth(-1,2001)", "i 0");
    row("nDaysInMonth(2,_null)", "f NULL");
    row("nDaysInMonth(_infinity,2000)", "f NULL");
    row("nDaysInMonth(_nan,2000)", "f NULL");

    // Conversions.
    row("ftoa(1234567)", "s \"1.23457e+06\"");
    row("ftoa(0.5)", "s \"0.5\"");
    row("ftoa(_null)", "s nullS");
    row("ftoa(_nan)", "s \"nan\"");
    row("ftoa(_infinity)", "s \"inf\"");
    row("ftoa(-_infinity)", "s \"-inf\"");
    row("ftoa(\"x y\")", "s \"x y\"");
    row("itoa(3.9)", "s \"3\"");
    row("itoa(-3.9)", "s \"-3\"");
    row("itoa(_null)", "s nullS");
    row("itoa(_nan)", "s \"nan\"");
    row("itoa(\"abc\")", "s \"abc\"");
    row("ftoh(255)", "s \"ff\"");
    row("ftoh(255.9)", "s \"ff\"");
    row("ftoh(_infinity)", "s \"inf\"");
    row("ftoh(_null)", "s nullS");
    row("atof(\"12.5\")", "f 12.5");
    row("atof(\" 7 \")", "i 7");
    row("atof(\"\")", "f nan");
    row("atof(\"abc\")", "f nan");
    row("atof(\"null\")", "f NULL");
    row("atof(_nullS)", "f NULL");
    row("atof(3)", "i 3");
    row("htof(\"ff\")", "i 255");
    row("htof(\"7fffffff\")", "i 2147483647");
    row("htof(\"100000000\")", "f nan");
    row("htof(\"zz\")", "f nan");
    row("htof(_nullS)", "f NULL");
    row("htof(12)", "i 12");
    row("htoa(\"4142\")", "s \"AB\"");
    row("htoa(\"4A4a\")", "s \"JJ\"");
    row("htoa(\"414\")", "s \"A\"");
    row("htoa(\"e9\")", "s \"\u00e9\"");
    row("htoa(\"\")", "s \"\"");
    row("htoa(5)", "s nullS");
    row("codepoint(\"ab\")", "i 98");
    row("codepoint(\"\")", "f NULL");
    row("codepoint(_nullS)", "f NULL");
    row("codepoint(1)", "error 19");

    // A plain NaN is no NULL: it passes through the arithmetic of each function.
    row("sqr(_nan)", "f nan");
    row("ceil(_nan)", "f nan");
    row("floor(_nan)", "f nan");
    row("round(_nan)", "f nan");
    row("floor2(_nan,2)", "f nan");
    row("hdist(_nan,0,0,0)", "i 0");
    row("finitevl(_nan,5)", "i 5");
    row("finitevl2(_null,2,3)", "i 3");
    row("nanvl2(_null,1,2)", "i 2");
    row("isNumber(_nan)", "i 1");

    // Every numeric argument goes through GetFloat, so a string is the type
    // error of the engine, whichever argument it is.
    row("ceil(\"a\")", "error 19");
    row("floor(\"a\")", "error 19");
    row("round(\"a\")", "error 19");
    row("floor2(\"a\",2)", "error 19");
    row("floor2(2,\"a\")", "error 19");
    row("hdist(\"a\",0,0,0)", "error 19");
    row("hdist(0,0,0,\"a\")", "error 19");
    row("nDaysInMonth(\"a\",2000)", "error 19");
    row("nDaysInMonth(2,\"a\")", "error 19");
    row("rand(\"a\")", "error 19");
    row("randN(\"a\")", "error 19");
    row("nanvl2(\"a\",1,2)", "error 19");
    row("finitevl2(\"a\",1,2)", "error 19");
    row("isNull(1,2)", "error 17");
    row("nvl(1)", "error 18");

    // The constants.
    row("_null", "f NULL");
    row("_nan", "f nan");
    row("_nullS", "s nullS");
}

void tst_functions_numeric::fastValues()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(evalFast(expression), expected);
}

void tst_functions_numeric::fastestValues_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    auto row = [](const char *e, const char *v) { QTest::newRow(e) << QString::fromUtf8(e) << QString::fromUtf8(v); };

    row("_null", "d NULL");
    row("_nan", "d nan");
    row("_infinity", "d inf");
    row("isNull(_null)", "d 1");
    row("isNull(_nan)", "d 0");
    row("isMissing(_null)", "d 1");
    row("isMissing(0)", "d 0");
    row("isNan(_null)", "d 0");
    row("isNan(_nan)", "d 1");
    row("isFinite(_null)", "d 0");
    row("isFinite(_infinity)", "d 0");
    row("isFinite(-3)", "d 1");
    row("isTrue(_nan)", "d 1");
    row("isTrue(_null)", "d 0");
    row("isTrue(0)", "d 0");
    row("isTrue(0.1)", "d 1");
    row("not(_null)", "d NULL");
    row("not(_nan)", "d 0");
    row("not(0)", "d 1");
    row("sqr(_null)", "d NULL");
    row("sqr(4)", "d 16");
    row("ceil(1.2)", "d 2");
    row("floor(-1.2)", "d -2");
    row("round(-0.5)", "d 0");
    row("round(2.5)", "d 3");
    row("round(-2.5)", "d -2");
    row("round(_null)", "d NULL");
    row("nvl(_null,5)", "d 5");
    row("nvl(_nan,5)", "d nan");
    row("nvl2(_null,1,2)", "d 2");
    row("nvl2(0,1,2)", "d 1");
    row("nanvl(_null,5)", "d 5");
    row("nanvl(4,5)", "d 4");
    row("nanvl2(_nan,1,2)", "d 2");
    row("finitevl(_infinity,5)", "d 5");
    row("finitevl2(1,2,3)", "d 2");
    row("finitevl2(_null,2,3)", "d 3");
    row("floor2(10,4)", "d 8");
    row("floor2(_null,4)", "d NULL");
    row("nDaysInMonth(2,1900)", "d 29");
    row("nDaysInMonth(13,2000)", "d 0");
    row("nDaysInMonth(2,_null)", "d NULL");
    row("hdist(1,1,1,1)", "d 0");
    row("hdist(_null,1,1,1)", "d NULL");
    row("atan2(_null,1)", "d NULL");
    // Strings exist here only for toET.
    row("isNull(\"a\")", "error");
    row("ceil(\"a\")", "error");
    row("nvl(1)", "error");
}

void tst_functions_numeric::fastestValues()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(evalFastest(expression), expected);
}

void tst_functions_numeric::descriptions_data()
{
    addDescriptionColumns();
    static ExprContext context;
    const auto row = &descriptionRow;
    auto text = [](const char *t) { return QString::fromUtf8(t); };
    row(new MuIsNullX, "isNull", 1, text("isNull(x) - test if x is null"));
    row(new MuIsNanX, "isNan", 1, text("isNan(x) - test if x is nan"));
    row(new MuIsFiniteX, "isFinite", 1, text("isFinite(x) - test if x is finite"));
    row(new MuIsMissingX, "isMissing", 1, text("isMising(x) - test if x is missing"));
    row(new MuIsTrue, "isTrue", 1, text("isTrue(x) - test if x is true"));
    row(new MuNotX, "not", 1, text("not(x) - boolean not"));
    row(new MuSQR, "sqr", 1, text("sqr(x) - return x\xc2\xb2"));
    row(new MuHaversineDistance, "hdist", 4,
        text("hdist(lat1,lon1,lat2,long2) - return earth distance"));
    row(new MuAtan2, "atan2", 1, text("atan2(y,x) - return the angle between (1,0) and (x,y)"));
    row(new NDaysInMonth, "nDaysInMonth", 2,
        text("nDaysInMonth(month,year) - return the number of days in the given month;"));
    row(new MuNVLX, "nvl", 2, text("nvl(a,b) - if a is null return b, otherwise return a"));
    row(new MuNVLX2, "nvl2", 3, text("nvl2(a,b,c) - if a is null return c, otherwise return b"));
    row(new MuNaNVLX, "nanvl", 2, text("nanvl(a,b) - if a is nan return b, otherwise return a"));
    row(new MuNaNVLX2, "nanvl2", 3,
        text("nanvl2(a,b,c) -  if a is nan return c, otherwise return b"));
    row(new MuFiniteVLX, "finitevl", 2,
        text("finitevl(a,b) - if a is finite return a, otherwise return b"));
    row(new MuFiniteVLX2, "finitevl2", 3,
        text("finitevl2(a,b,c) - if a is finite return b, otherwise return c"));
    row(new MuCeilX, "ceil", 1,
        text("ceil(x) - Returns the smallest integral value that is not less than x (round up)."));
    row(new MuFloorX, "floor", 1,
        text("floor(x) - Returns the largest integral value that is not greater than x (round "
             "down)."));
    row(new MuFloor2X, "floor2", 2,
        text("floor2(x,y) - Returns the largest multiple of y lower or equal to x"));
    row(new MuRoundX, "round", 1, text("round(x) - round to closest integer."));
    row(new MuRand(&context), "rand", 1, text("rand(x) - uniform random number inside [0 x["));
    row(new MuRand1(&context), "rand1", 0, text("rand1() - uniform random number inside [0 1["));
    row(new MuRandN(&context), "randN", 1,
        text("randN(x) - uniform random integer number inside [0 x["));
    row(new MuFToAX, "ftoa", 1, text("ftoa(x) - convert x as a floating point number to a string"));
    row(new MuIToAX, "itoa", 1, text("itoa(x) - convert x as an int to a string"));
    row(new MuAToFX, "atof", 1, text("atof(x) - convert x as a string to a double"));
    row(new MuHToFX, "htof", 1, text("htof(x) - convert x as a hexadecimal string to a double"));
    row(new MuHToFA, "htoa", 1,
        text("htoa(x) - convert x as a hexadecimal string to a latin1 string"));
    row(new MuFToHX, "ftoh", 1,
        text("ftoh(x) - convert x as a positive integer number to a hexadecimal string"));
    row(new MuAsciiX, "codepoint", 1,
        text("codepoint(x) - returns the unicode codepoint of the last char of x"));
}

void tst_functions_numeric::descriptions()
{
    checkDescription();
}

void tst_functions_numeric::mt19937ReferenceSequence()
{
    ExprRandomState state;
    seedRandom(state, 5489);
    QCOMPARE(nextRandom(state), 3499211612u);
    QCOMPARE(nextRandom(state), 581869302u);
    for (int i = 3; i < 10000; ++i)
        nextRandom(state);
    QCOMPARE(nextRandom(state), 4123659995u);

    seedRandom(state, 1);
    QCOMPARE(nextRandom(state), 1791095845u);
}

void tst_functions_numeric::mt19937SeedsItselfWhenNeverSeeded()
{
    ExprRandomState state;
    QCOMPARE(state.index, 625u);
    QCOMPARE(nextRandom(state), 3499211612u);
    // The panels' fresh context: first word cleared, index 625.
    ExprContext context;
    context.random.words[0] = 0;
    context.random.index = 625;
    QCOMPARE(nextRandom(context.random), 3499211612u);
}

void tst_functions_numeric::mt19937SeedMinusOneUsesTheClock()
{
    ExprRandomState state;
    seedRandom(state, -1);
    QVERIFY(state.words[0] <= 999u);
    QCOMPARE(state.index, 624u);
}

void tst_functions_numeric::randomFunctionsDrawFromTheContext()
{
    ExprRandomState reference;
    seedRandom(reference, 42);
    const quint32 r1 = nextRandom(reference);
    const quint32 r2 = nextRandom(reference);
    const quint32 r3 = nextRandom(reference);
    const double scale = 2.3283064365386963e-10;

    ExprContext context;
    seedRandom(context.random, 42);
    QCOMPARE(quva::fnRand(10.0, &context), r1 * scale * 10.0);
    QCOMPARE(quva::fnRand1(&context), r2 * scale);
    QCOMPARE(quva::fnRandN(10.0, &context), std::floor(r3 * scale * 10.0));

    // The same draws through the Fast parser's objects.
    seedRandom(context.random, 42);
    QCOMPARE(evalFast(QStringLiteral("rand(10)"), &context),
             QStringLiteral("f ") + describeNumber(r1 * scale * 10.0));
    QCOMPARE(evalFast(QStringLiteral("rand1()"), &context),
             QStringLiteral("f ") + describeNumber(r2 * scale));
    QCOMPARE(evalFast(QStringLiteral("randN(10)"), &context),
             QStringLiteral("i ") + describeNumber(std::floor(r3 * scale * 10.0)));
    // No NULL test in rand.
    QCOMPARE(evalFast(QStringLiteral("rand(_null)"), &context), QStringLiteral("f NULL"));
}

void tst_functions_numeric::randomFunctionsAreNotFolded()
{
    // Folded at compile time, rand1() would give the same number twice.
    ExprContext context;
    seedRandom(context.random, 7);
    mu::Parser parser(&context);
    registerFastestFunctions(parser, &context);
    parser.SetExpr(L"rand1()");
    const double first = parser.Eval();
    const double second = parser.Eval();
    QVERIFY(first != second);
    parser.SetExpr(L"randN(1000) + rand(1)");
    QVERIFY(parser.Eval() != parser.Eval());
}

void tst_functions_numeric::haversineDistance()
{
    const double half = quva::fnHdist(0, 0, 0, 180);
    QVERIFY(std::fabs(half - 20015.08) < 0.01);
    // Paris to London, about 344 km.
    const double d = quva::fnHdist(48.8566, 2.3522, 51.5074, -0.1278);
    QVERIFY(d > 340.0 && d < 348.0);
    QCOMPARE(evalFast(QStringLiteral("hdist(48.8566,2.3522,51.5074,-0.1278)")),
             QStringLiteral("f ") + describeNumber(d));
    QCOMPARE(evalFastest(QStringLiteral("hdist(48.8566,2.3522,51.5074,-0.1278)")),
             QStringLiteral("d ") + describeNumber(d));
    // A NaN that is not NULL takes the branch of a not above 0.
    QCOMPARE(quva::fnHdist(quva::nanValue(), 0, 0, 0), 0.0);
}

void tst_functions_numeric::nDaysInMonthOutsideItsTable_data()
{
    QTest::addColumn<double>("month");
    QTest::addColumn<double>("expected");
    QTest::newRow("-1") << -1.0 << 0.0;
    QTest::newRow("-0.5 truncates to 0") << -0.5 << 0.0;
    QTest::newRow("13") << 13.0 << 0.0;
    QTest::newRow("1e300") << 1e300 << 0.0;
    QTest::newRow("11") << 11.0 << 30.0;
}

void tst_functions_numeric::nDaysInMonthOutsideItsTable()
{
    QFETCH(double, month);
    QFETCH(double, expected);
    QCOMPARE(quva::fnNDaysInMonth(month, 2001.0), expected);
}

void tst_functions_numeric::fastestKnowsItsNamesOnly_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<bool>("accepted");
    const char *known[] = {"isNull(1)", "isNan(1)", "isFinite(1)", "isMissing(1)", "sqr(1)",
                           "not(1)", "ceil(1)", "floor(1)", "round(1)", "isTrue(1)", "randN(1)",
                           "rand(1)", "etWeekNumber(1)", "etDayOfWeek(1)", "nvl(1,2)",
                           "nanvl(1,2)", "finitevl(1,2)", "floor2(1,2)", "nDaysInMonth(1,2)",
                           "etDiffInMonth(1,2)", "etDiffInYear(1,2)", "etFirstDayOfYear(1,2)",
                           "nvl2(1,2,3)", "nanvl2(1,2,3)", "finitevl2(1,2,3)", "hdist(1,2,3,4)",
                           "etAdd(1,2,3,4)", "rand1()", "toET(\"x\")", "_null", "_nan",
                           "_infinity"};
    for (const char *e : known)
        QTest::newRow(e) << QString::fromLatin1(e) << true;
    const char *unknown[] = {"ftoa(1)", "itoa(1)", "atof(1)", "htof(1)", "ftoh(1)",
                             "codepoint(1)", "toDate(1)", "dateAdd(1,2,3,4)", "_nullS",
                             "velmorinDir", "isip4(1)", "nvl(1)", "rand1(1)"};
    for (const char *e : unknown)
        QTest::newRow(e) << QString::fromLatin1(e) << false;
}

void tst_functions_numeric::fastestKnowsItsNamesOnly()
{
    QFETCH(QString, expression);
    QFETCH(bool, accepted);
    QCOMPARE(evalFastest(expression) != QLatin1String("error"), accepted);
}

void tst_functions_numeric::typeErrorNamesTheConversion()
{
    QString message;
    QCOMPARE(evalFast(QStringLiteral("sqr(\"a\")"), nullptr, &message), QStringLiteral("error 19"));
    QVERIFY2(message.contains(QLatin1String("There is no implicit conversion to type 'f'")),
             qPrintable(message));
}

// A variable of the wrong type is named in the message, with its own place in
// the text, whichever argument it is.
void tst_functions_numeric::typeErrorNamesTheVariable()
{
    mup::Value s(QStringLiteral("abc"));
    ExprContext context;
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    registerFastFunctions(parser, &context);
    parser.DefineVar(QStringLiteral("s"), mup::Variable(&s));
    const struct
    {
        const char *expression;
        int pos;
    } rows[] = {{"sqr(s)", 4}, {"1 + sqr(s)", 8}, {"hdist(0, 0, 0, s)", 15}, {"floor2(s, s)", 7}};
    for (const auto &row : rows) {
        parser.SetExpr(QString::fromLatin1(row.expression));
        try {
            parser.Eval();
            QFAIL(row.expression);
        } catch (const mup::ParserError &e) {
            QCOMPARE(int(e.GetCode()), 19);
            QCOMPARE(e.GetToken(), QStringLiteral("s"));
            QCOMPARE(e.GetPos(), row.pos);
            QCOMPARE(e.GetMsg(), QStringLiteral("Value \"s\" is of type 's'. There is no implicit "
                                                "conversion to type 'f'"));
        }
    }
}

QTEST_GUILESS_MAIN(tst_functions_numeric)
#include "tst_functions_numeric.moc"
