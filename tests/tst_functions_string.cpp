// The string functions of the language: values, NULL and type errors, and
// their description texts.

#include "functions_eval.h"

#include "expr/functions/string_callbacks.h"
#include "expr/functions/string_functions.h"

#include <QtTest>

#include <memory>

class tst_functions_string : public QObject
{
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void descriptions_data();
    void descriptions();
    void bothSpellingsAreRegistered_data();
    void bothSpellingsAreRegistered();
    void packageToUpperIsReplaced();
    void typeErrorsComeFromTheEngine();
    void trim2WithEmptyPatternStops();
    void countTextWithEmptyPattern();
};

void tst_functions_string::values_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    auto row = [](const char *e, const char *v) {
        QTest::newRow(e) << QString::fromUtf8(e) << QString::fromUtf8(v);
    };

    row("substr(\"abcd\",1,2)", "s \"bc\"");
    row("substr(\"abcd\",2,100)", "s \"cd\"");
    row("substr(\"abcd\",1,-1)", "s \"bcd\"");
    row("substr(\"abcd\",9,1)", "s nullS"); // QString::mid past the end
    row("substr(\"abcd\",1.9,2.9)", "s \"bc\"");
    row("substring(\"abcd\",1,3)", "s \"bc\"");
    row("substring(\"abcd\",3,3)", "s nullS");
    row("isNull(substring(\"abcd\",3,3))", "b 1");
    row("substring(\"abcd\",3,1)", "s nullS");
    row("substring(\"abcd\",0,100)", "s \"abcd\"");
    row("left(\"ab\",5)", "s \"ab\"");
    row("left(\"abc\",2)", "s \"ab\"");
    row("right(\"abc\",2)", "s \"bc\"");
    row("right(\"ab\",5)", "s \"ab\"");
    row("startsWith(\"abc\",\"B\")", "b 0");
    row("startsWith(\"abc\",\"ab\")", "b 1");
    row("endsWith(\"abc\",\"bc\")", "b 1");
    row("endsWith(\"abc\",\"C\")", "b 0");
    row("replace(\"a-b-c\",\"-\",\"+\")", "s \"a+b+c\"");
    row("replace(\"aaa\",\"a\",\"bb\")", "s \"bbbbbb\"");
    row("indexOf(\"abc\",\"\")", "i 0");
    row("indexOf(\"abcabc\",\"c\")", "i 2");
    row("indexof(\"abc\",\"x\")", "i -1");
    row("indexOf(\"abc\",\"B\")", "i -1");
    row("indexOf2(\"abcabc\",\"c\",3)", "i 5");
    row("indexof2(\"abcabc\",\"a\",1)", "i 3");
    row("lastIndexOf(\"abc\",\"\")", "i 3");
    row("lastIndexOf(\"abcabc\",\"b\")", "i 4");
    row("lastindexof(\"abc\",\"x\")", "i -1");
    row("lastIndexOf2(\"abcabc\",\"b\",3)", "i 1");
    row("lastindexof2(\"abcabc\",\"b\",-3)", "i 1");
    row("contains(\"abc\",\"bc\")", "b 1");
    row("contains(\"abc\",\"cb\")", "b 0");
    row("contains(\"abc\",\"\")", "b 1");
    row("countText(\"aaa\",\"aa\")", "i 2");
    row("countText(\"abcabc\",\"bc\")", "i 2");
    row("countText(\"abc\",\"x\")", "i 0");
    row("tolower(\"AbC\")", "s \"abc\"");
    row("toupper(\"AbC\u00e9\")", "s \"ABC\u00c9\"");
    row("toCaseFolded(\"AbC\")", "s \"abc\"");
    row("toupper(_nullS)", "s nullS");
    row("trim(\"  ab  \")", "s \"ab\"");
    row("ltrim(\"  ab  \")", "s \"ab  \"");
    row("rtrim(\"  ab  \")", "s \"  ab\"");
    row("trim(\"ab\")", "s \"ab\"");
    row("trim2(\"ababcab\",\"ab\")", "s \"c\"");
    row("trim2(\"xxaxx\",\"x\")", "s \"a\"");
    row("trim2(\"abc\",\"\")", "s \"abc\"");
    row("trim2(\"abab\",\"ab\")", "s \"\"");
    row("charAt(\"\",0)", "i -1");
    row("charAt(_nullS,0)", "f NULL");
    row("charAt(\"A\",0)", "i 65");
    row("charAt(\"AB\",1)", "i 66");
    row("charAt(\"AB\",2)", "f NULL");
    row("charAt(\"AB\",-1)", "f NULL");
    row("charAt(2.5,0)", "f 2.5");
    row("charAt(_null,0)", "f NULL");
    row("isNumber(3)", "i 1");
    row("isNumber(_nullS)", "i 1");
    row("isNumber(\"12abc\")", "b 1");
    row("isNumber(\"abc\")", "b 0");
    row("isNumber(\"12,5\")", "b 0");
    row("isNumber(\"   \")", "b 0");
    row("isNumberStrict(\"12abc\")", "b 0");
    row("isNumberStrict(\" 12 \")", "b 1");
    row("isNumberStrict(\"nan\")", "b 1");
    row("isNumberStrict(\"-1.5e3\")", "b 1");
    row("isNumberStrict(\"\u00ad2\")", "b 1");
    row("isNumberStrict(_nullS)", "i 1");
    row("isInteger(\"12\")", "b 1");
    row("isInteger(\"12.00\")", "b 1");
    row("isInteger(\"12.5\")", "b 0");
    row("isInteger(\"12 x\")", "b 1");
    row("isIntegerStrict(\"12 x\")", "b 0");
    row("isIntegerStrict(\" 12 \")", "b 1");
    row("isInteger(7)", "i 1");
    row("isIntegerStrict(_nullS)", "i 1");
    row("urlEncode(\"a b&c\")", "s \"a+b%26c\"");
    row("urlEncode(\"\u00e9\")", "s \"%C3%A9\"");
    row("urlEncode(\"A-z.0_~\")", "s \"A-z.0_~\"");
    row("urlEncode(\"/?\")", "s \"%2F%3F\"");
    row("xmlEncode(\" a<b \")", "s \"&#32;a&lt;b&#32;\"");
    row("xmlEncode(\"a&b>c'\")", "s \"a&amp;b>c'\"");
    row("xmlEncode(\" \")", "s \"&#32;\"");
    row("xmlEncode(\"\")", "s \"\"");
    row("jsonEncode(\"a\\\"b\")", "s \"a\\\"b\"");
    row("jsonEncode(\"a\\\\b\")", "s \"a\\\\b\"");
    row("atob64(\"\u00e9\")", "s \"w6k=\"");
    row("atob642(\"\u00e9\")", "s \"6Q==\"");
    row("b64toa(\"w6k=\")", "s \"\u00e9\"");
    row("b64toa2(\"6Q==\")", "s \"\u00e9\"");
    row("b64toa(atob64(\"abc\u00e9\"))", "s \"abc\u00e9\"");
    row("strlen(\"abc\")", "i 3");

    // A NULL or NaN position truncates to the lowest 32-bit integer, as the
    // processor does, and QString then applies its own rules to it.
    row("left(\"abc\",_null)", "s \"abc\"");
    row("right(\"abc\",_nan)", "s \"abc\"");
    row("substr(\"abcd\",_nan,2)", "s nullS");
    row("substring(\"abcd\",_null,2)", "s \"abcd\"");
    row("indexOf2(\"abc\",\"c\",_null)", "i -1");
    row("charAt(\"abc\",_null)", "f NULL");
}

void tst_functions_string::values()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(evalFast(expression), expected);
}

void tst_functions_string::descriptions_data()
{
    addDescriptionColumns();
    const auto row = &descriptionRow;
    row(new MuSubstrX, "substr", 3,
        "substr(x,s,l) - extract from the string x a substring starting at character of index "
        "'s' and of length 'l'");
    row(new MuSubStringX, "substring", 3,
        "substring(x,s,e) - extract from the string x a substring starting at character of "
        "index 's' and ending at index 'e'");
    row(new MuLeftX, "left", 2,
        "left(x,l) - returns a substring composed of the first 'l' character of string x");
    row(new MuRightX, "right", 2,
        "right(x,l) - returns a substring composed of the last 'l' character of string x");
    row(new MuStartsWith, "startsWith", 2,
        "startsWith(x,s) - return true if the string x starts with the string s");
    row(new MuEndsWith, "endsWith", 2,
        "endsWith(x,s) - return true if the string x ends with the string s");
    row(new MuStrReplace, "replace", 3,
        "replace(s,before,after) - Replaces every occurrence of the string <before> with the "
        "string <after> and returns result");
    row(new MuIndexOf(QStringLiteral("indexof")), "indexof", 2,
        "indexOf(x,y) - returns the position of y inside x");
    row(new MuIndexOf, "indexOf", 2, "indexOf(x,y) - returns the position of y inside x");
    row(new MuIndexOf2(QStringLiteral("indexof2")), "indexof2", 3,
        "indexOf2(x,y,p) - returns the position of y inside x starting at position p");
    row(new MuIndexOf2, "indexOf2", 3,
        "indexOf2(x,y,p) - returns the position of y inside x starting at position p");
    row(new MuLastIndexOf(QStringLiteral("lastindexof")), "lastindexof", 2,
        "lastindexof(x,y,p) - returns the last position of y inside x");
    row(new MuLastIndexOf, "lastIndexOf", 2,
        "lastindexof(x,y,p) - returns the last position of y inside x");
    row(new MuLastIndexOf2(QStringLiteral("lastindexof2")), "lastindexof2", 3,
        "lastindexof2(x,y,p) - returns the last position of y inside x starting at position p");
    row(new MuLastIndexOf2, "lastIndexOf2", 3,
        "lastindexof2(x,y,p) - returns the last position of y inside x starting at position p");
    row(new MuContains, "contains", 2, "contains(x,y) - Is y contained in x?");
    row(new MuCountText, "countText", 2,
        "countText(x,y) - count the number of occurrences of y in x");
    row(new MuToLowerX, "tolower", 1, "tolower(s) - Converts the string s to lowercase characters.");
    row(new MuToUpperX, "toupper", 1, "toupper(s) - Converts the string s to uppercase characters.");
    row(new MuToCaseFoldedX, "toCaseFolded", 1,
        "toCaseFolded(s) - Converts the string s to CaseFolded characters.");
    row(new MuTrimX, "trim", 1, "trim(x) - returns the string x trimmed");
    row(new MuLTrimX, "ltrim", 1, "ltrim(x) - returns the string x left-trimmed");
    row(new MuRTrimX, "rtrim", 1, "rtrim(x) - returns the string x right-trimmed");
    row(new MuTrim2X, "trim2", 2, "trim(x,y) - returns the string x without y at the end/start");
    row(new MuCharAtX, "charAt", 2, "charAt(x,i) - returns char at position i");
    row(new MuIsNumber, "isNumber", 1, "isNumber(x) - test if the x string contains a number");
    row(new MuIsNumberStrict, "isNumberStrict", 1,
        "isNumberStrict(x) - test if the x string is a number");
    row(new MuIsInteger, "isInteger", 1,
        "isInteger(x) - test if the x string contains an integer number");
    row(new MuIsIntegerStrict, "isIntegerStrict", 1,
        "isIntegerStrict(x) - test if the x string is an integer number");
    row(new MuAToB64X, "atob64", 1, "atob64(x) - encode the utf8 string x to base64");
    row(new MuB64ToAX, "b64toa", 1, "b64toa(x) - decode a base64 to a utf8 string");
    row(new MuAToB642X, "atob642", 1, "atob642(x) - encode the latin1 string x to base64");
    row(new MuB64ToA2X, "b64toa2", 1, "b64toa2(x) - decode a base64 to a latin1 string");
    row(new MuUrlEncode, "urlEncode", 1, "urlEncode(x) - encode the string x to include in a url");
    row(new MuXmlEncode, "xmlEncode", 1, "xmlEncode(x) - encode the string x to include in xml");
    row(new MuJsonEncode, "jsonEncode", 1,
        "jsonEncode(x) - encode the string x to include in json");
}

void tst_functions_string::descriptions()
{
    checkDescription();
}

void tst_functions_string::bothSpellingsAreRegistered_data()
{
    QTest::addColumn<QString>("name");
    const char *names[] = {"indexof", "indexOf", "indexof2", "indexOf2", "lastindexof",
                           "lastIndexOf", "lastindexof2", "lastIndexOf2"};
    for (const char *n : names)
        QTest::newRow(n) << QString::fromLatin1(n);
}

void tst_functions_string::bothSpellingsAreRegistered()
{
    QFETCH(QString, name);
    ExprContext context;
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    QVERIFY(!parser.IsFunDefined(name));
    registerFastFunctions(parser, &context);
    QVERIFY(parser.IsFunDefined(name));
}

void tst_functions_string::packageToUpperIsReplaced()
{
    // The package's toupper keeps a null string null; so does the
    // language's, but only the language's answers with this description.
    ExprContext context;
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    registerFastFunctions(parser, &context);
    parser.SetExpr(QStringLiteral("toupper(\"ab\")"));
    QCOMPARE(parser.Eval().GetString(), QStringLiteral("AB"));
    QCOMPARE(evalFast(QStringLiteral("toupper(1)")), QStringLiteral("error 19"));
}

void tst_functions_string::typeErrorsComeFromTheEngine()
{
    const char *wrong[] = {"substr(1,1,1)", "substr(\"a\",\"b\",1)", "left(\"a\",\"b\")",
                           "startsWith(1,\"a\")", "replace(\"a\",1,\"b\")", "indexOf(1,\"a\")",
                           "countText(\"a\",1)", "trim(1)", "trim2(\"a\",1)", "charAt(\"a\",\"b\")",
                           "urlEncode(1)", "xmlEncode(1)", "jsonEncode(1)", "atob64(1)",
                           "b64toa(1)", "tolower(1)", "toCaseFolded(1)",
                           "substring(\"a\",0,\"b\")", "substr(\"a\",0,\"b\")",
                           "right(\"a\",\"b\")", "endsWith(\"a\",1)", "indexof(1,\"a\")",
                           "indexOf2(\"a\",\"a\",\"b\")", "indexof2(1,\"a\",0)",
                           "lastIndexOf(1,\"a\")", "lastindexof(\"a\",1)",
                           "lastIndexOf2(\"a\",\"a\",\"b\")", "lastindexof2(1,\"a\",0)",
                           "contains(1,\"a\")", "contains(\"a\",1)", "ltrim(1)", "rtrim(1)",
                           "atob642(1)", "b64toa2(1)", "replace(1,\"a\",\"b\")",
                           "replace(\"a\",\"a\",1)", "trim2(1,\"a\")"};
    for (const char *e : wrong) {
        QString message;
        const QString got = evalFast(QString::fromLatin1(e), nullptr, &message);
        QVERIFY2(got == QLatin1String("error 19"), qPrintable(QString::fromLatin1(e) + " gives " + got));
        QVERIFY2(message.contains(QLatin1String("There is no implicit conversion to type")),
                 e);
    }
}

void tst_functions_string::trim2WithEmptyPatternStops()
{
    QCOMPARE(quva::trim2(QStringLiteral("abc"), QString()), QStringLiteral("abc"));
    QCOMPARE(quva::trim2(QString(), QStringLiteral("a")), QString());
    QCOMPARE(quva::trim2(QStringLiteral("aaaa"), QStringLiteral("aa")), QString(""));
}

void tst_functions_string::countTextWithEmptyPattern()
{
    // Found at every position and behind the last character.
    QCOMPARE(quva::countText(QStringLiteral("abc"), QString()), 4);
    QCOMPARE(quva::countText(QString(), QStringLiteral("a")), 0);
}

QTEST_GUILESS_MAIN(tst_functions_string)
#include "tst_functions_string.moc"
