// The language as the help page lists it: its sections and rows, the
// comments the help fixes, and the comments that follow the registration of
// the functions, so that the list never drifts from what the engines know.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/functions/register_functions.h"
#include "expr/language_help.h"

#include <QSet>
#include <QtTest>

class tst_language_help : public QObject
{
    Q_OBJECT

private slots:
    void sectionsInOrder();
    void fixedComments_data();
    void fixedComments();
    void commentsFollowTheRegistration();
    void everyFunctionIsListed();
    void listedFunctionsExist();
    void callFormHelpers();
};

namespace {

QHash<QString, QString> commentsByCall()
{
    QHash<QString, QString> comments;
    for (const HelpSection &section : languageHelp()) {
        for (const HelpRow &row : section.rows)
            comments.insert(row.call, row.comment);
    }
    return comments;
}

QSet<QString> listedNames()
{
    QSet<QString> names;
    for (const HelpSection &section : languageHelp()) {
        for (const HelpRow &row : section.rows)
            names.insert(functionNameOfCall(row.call));
    }
    return names;
}

} // namespace

void tst_language_help::sectionsInOrder()
{
    const QVector<HelpSection> sections = languageHelp();
    const QStringList titles{"On Numbers",          "On Strings", "String Encode/Decode",
                             "On Dates",            "On IP's",    "Operators",
                             "Predefined Constants", "Postfix operators", "Special"};
    const QVector<int> counts{37, 26, 13, 22, 5, 11, 13, 6, 8};
    QCOMPARE(sections.size(), titles.size());
    for (int i = 0; i < sections.size(); ++i) {
        QCOMPARE(sections.at(i).title, titles.at(i));
        QCOMPARE(sections.at(i).rows.size(), counts.at(i));
    }
    QCOMPARE(sections.first().rows.first().call, QStringLiteral("abs(x)"));
    QCOMPARE(sections.first().rows.last().call, QStringLiteral("isFinite(x)"));
    QCOMPARE(sections.at(2).rows.at(3).call, QStringLiteral("urlEncode"));
    QCOMPARE(sections.at(5).rows.at(9).call, QStringLiteral("&, |, <<, >>"));
    QCOMPARE(sections.last().rows.at(5).call, QStringLiteral("load(filename)"));
    QCOMPARE(sections.last().rows.last().call, QStringLiteral("hdist(lat1,lon1,lat2,lon2)"));
    for (const HelpSection &section : sections) {
        for (const HelpRow &row : section.rows)
            QVERIFY2(!row.comment.isEmpty(), qPrintable(row.call));
    }
}

void tst_language_help::fixedComments_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("comment");
    // The shared help swaps the two hyperbolic comments and the two units.
    QTest::newRow("cosh") << "cosh(x)" << "hyperbolic sine";
    QTest::newRow("sinh") << "sinh(x)" << "hyperbolic cosine";
    QTest::newRow("log") << "log(x)" << "Logarithm base 10";
    QTest::newRow("log10") << "log10(x)" << "Logarithm base 10";
    QTest::newRow("sqr") << "sqr(x)" << QStringLiteral("x\u00B2");
    QTest::newRow("rand") << "rand(x)" << "uniform random number inside [0 x[";
    QTest::newRow("week") << "dateWeekNumber(date)" << "the week number (1 to 53, 0 if error)";
    QTest::newRow("day") << "etDayOfWeek(ET)" << "the Day of Week(0=monday; 6=sunday)";
    QTest::newRow("codepoint") << "codepoint(x)"
                               << "returns the unicode codepoint of the first char of x";
    QTest::newRow("isTrue") << "isTrue(x)"
                            << "return 1 if x is TRUE (1,Y,y,T,t,O,o,P,p), otherwise return 0";
    QTest::newRow("nanvl") << "nanvl(x,y)" << "if x is nan or NULL return y, otherwise return x";
    QTest::newRow("float") << "(float)" << "convert to float (from boolean or integer)";
    QTest::newRow("bits") << "&, |, <<, >>"
                          << "Bit manipulation (Bit-wise AND, Bit-wise OR, shift left, shift "
                             "right)";
    QTest::newRow("concat") << "//" << "String concatenation";
    QTest::newRow("pi") << "_pi" << "3.141592653589793238462643";
    QTest::newRow("null") << "_null"
                          << "the NULL value (meta-type is \"number\") - cannot be used inside "
                             "any binary operator";
    QTest::newRow("nullS") << "_nullS"
                           << "the NULL string (meta-type is \"string\")- cannot be used inside "
                              "any binary operator";
    QTest::newRow("nan") << "_nan" << "Not-a-Number  (meta-type is \"number\")";
    QTest::newRow("unique") << "_uniqueID" << "an ID that is guaranteed to be unique";
    QTest::newRow("k") << "{k}" << "kilo (1e3)";
    QTest::newRow("G") << "{G}" << "giga (1e6)";
    QTest::newRow("M") << "{M}" << "mega (1e9)";
    QTest::newRow("load") << "load(filename)" << "load the number contained in the file";
    QTest::newRow("hdist") << "hdist(lat1,lon1,lat2,lon2)"
                           << "return the earth distance using Haversine Formula (all coord. "
                              "in decimal degree)";
}

void tst_language_help::fixedComments()
{
    QFETCH(QString, call);
    QFETCH(QString, comment);
    QCOMPARE(commentsByCall().value(call), comment);
}

// Where the help fixes no text, a function's comment is its own description.
void tst_language_help::commentsFollowTheRegistration()
{
    ExprContext context;
    mup::ParserX parser;
    registerFastFunctions(parser, &context);
    const QHash<QString, QString> comments = commentsByCall();
    QCOMPARE(comments.value("strlen(s)"), QStringLiteral("Returns the length of the string s."));
    QCOMPARE(comments.value("trim(s)"), QStringLiteral("returns the string x trimmed"));
    QCOMPARE(comments.value("contains(x,y)"), QStringLiteral("Is y contained in x?"));
    QCOMPARE(comments.value("tan(x)"),
             descriptionTail(parser.GetFunDesc(QStringLiteral("tan"))));
    QCOMPARE(comments.value("isip4(x)"),
             descriptionTail(parser.GetFunDesc(QStringLiteral("isip4"))));
}

// Every function of the general engine has a row, but for the lower-case
// second spellings, charAt and isMissing, which the shared help leaves out.
void tst_language_help::everyFunctionIsListed()
{
    ExprContext context;
    mup::ParserX parser;
    registerFastFunctions(parser, &context);
    const QSet<QString> left{"indexof", "indexof2", "lastindexof", "lastindexof2", "charAt",
                             "isMissing"};
    const QSet<QString> listed = listedNames();
    for (const QString &name : parser.GetFunNames()) {
        if (!left.contains(name))
            QVERIFY2(listed.contains(name), qPrintable(name));
    }
}

// Every function row names a function of one of the engines, but load,
// which only the companion data tool knows.
void tst_language_help::listedFunctionsExist()
{
    ExprContext context;
    mup::ParserX fast;
    registerFastFunctions(fast, &context);
    mu::Parser fastest(&context);
    registerFastestFunctions(fastest, &context);
    const QVector<HelpSection> sections = languageHelp();
    for (const HelpSection &section : sections) {
        if (section.title == "Operators" || section.title == "Predefined Constants"
            || section.title == "Postfix operators")
            continue;
        for (const HelpRow &row : section.rows) {
            const QString name = functionNameOfCall(row.call);
            if (name == QLatin1String("load"))
                continue;
            QVERIFY2(fast.IsFunDefined(name)
                         || fastest.IsFunDefined(name.toStdWString()),
                     qPrintable(name));
        }
    }
}

void tst_language_help::callFormHelpers()
{
    QCOMPARE(functionNameOfCall(QStringLiteral("substr(x,b,l)")), QStringLiteral("substr"));
    QCOMPARE(functionNameOfCall(QStringLiteral("urlEncode")), QStringLiteral("urlEncode"));
    QCOMPARE(descriptionTail(QStringLiteral("trim(x) - returns x")), QStringLiteral("returns x"));
    QCOMPARE(descriptionTail(QStringLiteral("no call form")), QStringLiteral("no call form"));
}

QTEST_MAIN(tst_language_help)
#include "tst_language_help.moc"
