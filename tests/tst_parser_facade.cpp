// The expression check: the two attempts in order, what reaches the value
// edit and the engine label, the failure message, and the widget layer.

#include "functions_eval.h"

#include "expr/functions/mt19937.h"
#include "expr/functions/numeric_functions.h"
#include "panels/check_expression.h"
#include "panels/math_parser_check.h"
#include "shell/gui_reporter.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

class tst_parser_facade : public QObject
{
    Q_OBJECT

private slots:
    void outcomes_data();
    void outcomes();
    void emptyExpressionIsNoFailure();
    void failureMessage();
    void nowConstants();
    void randomSeedMakesChecksRepeatable();
    void numberVariablesAreBoundByAddress();
    void fastRegistersEveryName_data();
    void fastRegistersEveryName();
    void velmorinDirIsTheApplicationDirectory();
    void toStdWString();
    void widgetLayerWritesTheControls();
    void widgetLayerShowsTheFailure();
    void defaultFailureOpensTheCheckDialog();
    void nameClash_data();
    void nameClash();
    void clashingVariableFailsTheCheck();
};

namespace {

// x = 0, n = NULL, k = 3 as numbers; s = "axb" and e = "" as strings.
QVector<InputVar> sampleVars()
{
    QVector<InputVar> vars;
    auto number = [&vars](const char *name, double v) {
        InputVar var;
        var.label = QString::fromLatin1(name);
        var.column = QStringList(var.label);
        var.value = v;
        vars.append(var);
    };
    auto text = [&vars](const char *name, const char *v) {
        InputVar var;
        var.label = QString::fromLatin1(name);
        var.column = QStringList(var.label);
        var.isNumber = false;
        var.stringValue = QString::fromLatin1(v);
        vars.append(var);
    };
    number("x", 0.0);
    number("n", quva::nullValue());
    number("k", 3.0);
    text("s", "axb");
    text("e", "");
    return vars;
}

ExprContext freshContext()
{
    // What the panels hand over: first word cleared, index 625, strings null.
    ExprContext c;
    c.random.words[0] = 0;
    c.random.index = 625;
    return c;
}

QStringList shownMessages;
void recordDialog(QWidget *, const QString &message)
{
    shownMessages.append(message);
}

} // namespace

void tst_parser_facade::outcomes_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<bool>("addN");
    QTest::addColumn<QString>("valueText");
    QTest::addColumn<QString>("engine");
    QTest::addColumn<bool>("failed");
    const QString fastest = QStringLiteral("Fastest parser");
    const QString fast = QStringLiteral("Fast parser");
    const QString none = QStringLiteral("??? parser");

    QTest::newRow("isNull of a NULL number") << "isNull(n)" << false << "true" << fastest << false;
    QTest::newRow("zero") << "x" << false << "false" << fastest << false;
    QTest::newRow("number") << "k * 2" << false << "true" << fastest << false;
    QTest::newRow("NULL is true") << "_null" << false << "true" << fastest << false;
    QTest::newRow("NaN is true") << "_nan" << false << "true" << fastest << false;
    QTest::newRow("NULL variable compared") << "n > 1" << false << "true" << fastest << false;
    QTest::newRow("string literal") << "\"abc\"" << false << "false" << fast << false;
    QTest::newRow("string variable") << "s" << false << "false" << fast << false;
    QTest::newRow("string function") << "indexOf(s,\"x\")" << false << "true" << fast << false;
    QTest::newRow("not found") << "indexOf(s,\"z\") + 1" << false << "false" << fast << false;
    QTest::newRow("boolean") << "\"a\" == \"a\"" << false << "true" << fast << false;
    QTest::newRow("false boolean") << "s == \"b\"" << false << "false" << fast << false;
    QTest::newRow("NULL boolean") << "s == _nullS" << false << "true" << fast << false;
    QTest::newRow("missing empty string") << "isMissing(e)" << false << "true" << fast << false;
    QTest::newRow("indexOf of a number") << "indexOf(k,\"x\")" << false << "" << none << true;
    QTest::newRow("undefined variable") << "y + 1" << false << "" << none << true;
    QTest::newRow("_n_max without addN") << "_n_max" << false << "" << none << true;
    QTest::newRow("_n_max with addN") << "_n_max" << true << "true" << fastest << false;
    QTest::newRow("_n with addN") << "_n" << true << "false" << fastest << false;
    QTest::newRow("_n_min in the Fast parser") << "_n_min // \"\"" << true << "" << none << true;
    QTest::newRow("_n in the Fast parser") << "ftoa(_n_max)" << true << "false" << fast << false;
    QTest::newRow("_now undefined") << "_now" << false << "" << none << true;
    QTest::newRow("_nowS undefined") << "_nowS" << false << "" << none << true;
    QTest::newRow("atan2 in the Fastest parser") << "atan2(1,2)" << false << "true" << fastest
                                                 << false;
    QTest::newRow("atan2 in the Fast parser") << "atan2(1,2) + strlen(\"a\")" << false << ""
                                              << none << true;
    // The fresh context reads no date: toET gives NULL, which shows "true".
    QTest::newRow("date without format") << "toET(\"1970-01-02\")" << false << "true"
                                         << fastest << false;
    QTest::newRow("date string without format") << "dateLT(\"a\",\"b\")" << false << "true"
                                                << fast << false;
    QTest::newRow("blanks alone") << "   " << false << "" << none << true;
    QTest::newRow("syntax error") << "(1" << false << "" << none << true;
}

void tst_parser_facade::outcomes()
{
    QFETCH(QString, expression);
    QFETCH(bool, addN);
    QFETCH(QString, valueText);
    QFETCH(QString, engine);
    QFETCH(bool, failed);
    QVector<InputVar> vars = sampleVars();
    ExprContext context = freshContext();
    const ExpressionCheck check = checkExpressionCore(expression, addN, context, &vars);
    QCOMPARE(check.valueText, valueText);
    QCOMPARE(check.engineLabel, engine);
    QCOMPARE(check.failed, failed);
    QCOMPARE(check.message.isEmpty(), !failed);
}

void tst_parser_facade::emptyExpressionIsNoFailure()
{
    ExprContext context = freshContext();
    const ExpressionCheck check = checkExpressionCore(QString(), false, context, nullptr);
    QVERIFY(!check.failed);
    QCOMPARE(check.valueText, QString());
    QCOMPARE(check.engineLabel, QStringLiteral("??? parser"));
    QCOMPARE(check.valueType, QChar(QLatin1Char(' ')));
}

void tst_parser_facade::failureMessage()
{
    QVector<InputVar> vars = sampleVars();
    ExprContext context = freshContext();
    ExpressionCheck check = checkExpressionCore(QStringLiteral("k + yy"), false, context, &vars);
    QVERIFY(check.failed);
    QCOMPARE(check.message, QStringLiteral("Undefined token \"yy\" found at position 4\n"
                                           "  Error Token:yy\n  Error at position:4"));
    // An unknown function name is an undefined token of the second engine.
    check = checkExpressionCore(QStringLiteral("load(\"f\")"), false, context, &vars);
    QVERIFY(check.message.startsWith(QLatin1String("Undefined token \"load\"")));
    // A type error names the conversion, which the error dialog looks for.
    check = checkExpressionCore(QStringLiteral("sqr(s)"), false, context, &vars);
    QVERIFY2(check.message.contains(QLatin1String("There is no implicit conversion to type 'f'")),
             qPrintable(check.message));
    QVERIFY(check.message.contains(QLatin1String("\n  Error Token:")));
    QVERIFY(check.message.contains(QLatin1String("\n  Error at position:")));
    check = checkExpressionCore(QStringLiteral("atan2(1,2) + strlen(\"a\")"), false, context,
                                &vars);
    QVERIFY(check.message.startsWith(QLatin1String("Too many parameters for function \"atan2\"")));
}

void tst_parser_facade::nowConstants()
{
    ExprContext context = freshContext();
    context.usesNow = true;
    context.etUnit = 3;
    ExpressionCheck check = checkExpressionCore(QStringLiteral("_now"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fastest parser"));
    const double days = QDateTime::currentMSecsSinceEpoch() / 86400000;
    QVERIFY(std::fabs(check.number - days) <= 1.0);
    // _nowS needs its own flag.
    check = checkExpressionCore(QStringLiteral("_nowS"), false, context, nullptr);
    QVERIFY(check.failed);
    context.usesNowS = true;
    context.useUtc = true;
    context.dateFormatText = QStringLiteral("yyyy");
    check = checkExpressionCore(QStringLiteral("_nowS"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.valueText, QStringLiteral("false"));
    QCOMPARE(check.text, QString::number(QDateTime::currentDateTimeUtc().date().year()));
    // _now is the same in the second engine.
    check = checkExpressionCore(QStringLiteral("ftoa(_now)"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QVERIFY(std::fabs(check.text.toDouble() - days) <= 1.0);
}

void tst_parser_facade::randomSeedMakesChecksRepeatable()
{
    const double scale = 2.3283064365386963e-10;
    ExprRandomState reference;
    seedRandom(reference, 77);
    const quint32 first = nextRandom(reference);
    const quint32 second = nextRandom(reference);

    ExprContext context = freshContext();
    context.randomSeed = 77;
    ExpressionCheck check = checkExpressionCore(QStringLiteral("rand1()"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fastest parser"));
    QCOMPARE(check.number, first * scale);
    check = checkExpressionCore(QStringLiteral("rand1()"), false, context, nullptr);
    QCOMPARE(check.number, first * scale);
    // The second engine reseeds and throws one number away.
    check = checkExpressionCore(QStringLiteral("ftoa(rand1())"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.text, quva::numberToText(second * scale));
}

void tst_parser_facade::numberVariablesAreBoundByAddress()
{
    // Both attempts see the values as they stand in the list.
    QVector<InputVar> vars = sampleVars();
    ExprContext context = freshContext();
    vars[2].value = 0.0;
    ExpressionCheck check = checkExpressionCore(QStringLiteral("k"), false, context, &vars);
    QCOMPARE(check.valueText, QStringLiteral("false"));
    vars[2].value = 5.0;
    check = checkExpressionCore(QStringLiteral("k + strlen(s) == 8"), false, context, &vars);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.valueText, QStringLiteral("true"));
    // A string variable is left out of the first engine even with a number text.
    vars[3].stringValue = QStringLiteral("1");
    check = checkExpressionCore(QStringLiteral("s"), false, context, &vars);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.valueText, QStringLiteral("false"));
}

void tst_parser_facade::fastRegistersEveryName_data()
{
    QTest::addColumn<QString>("name");
    const char *names[] = {
        "isNull", "isNan", "isFinite", "isMissing", "codepoint", "not", "sqr", "hdist", "atan2",
        "nvl", "nvl2", "nanvl", "nanvl2", "finitevl", "finitevl2", "ftoa", "itoa", "atof",
        "htof", "ftoh", "htoa", "isNumber", "isInteger", "isNumberStrict", "isIntegerStrict",
        "nDaysInMonth", "substr", "substring", "startsWith", "endsWith", "left", "right",
        "tolower", "toupper", "toCaseFolded", "trim", "ltrim", "rtrim", "trim2", "ceil", "floor",
        "floor2", "round", "contains", "indexof", "indexOf", "indexof2", "indexOf2",
        "lastindexof", "lastIndexOf", "lastindexof2", "lastIndexOf2", "countText", "charAt",
        "replace", "isTrue", "isip4", "ip4tof", "ip4part", "ip4RangeLow", "ip4RangeHigh",
        "atob64", "b64toa", "atob642", "b64toa2", "urlEncode", "xmlEncode", "jsonEncode", "rand",
        "rand1", "randN", "toET", "toDate", "etWeekNumber", "dateWeekNumber", "etDayOfWeek",
        "dateDayOfWeek", "etFirstDayOfYear", "dateFirstDayOfYear", "etAdd", "dateAdd",
        "dateAddS", "datePrint", "etDiffInMonth", "etDiffInYear", "dateDiffInMonth",
        "dateDiffInYear", "dateDiffInDay", "dateDiffInSecond", "dateLT", "dateLE", "dateTimeLT",
        "dateTimeLE"};
    for (const char *n : names)
        QTest::newRow(n) << QString::fromLatin1(n);
}

void tst_parser_facade::fastRegistersEveryName()
{
    QFETCH(QString, name);
    ExprContext context;
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    registerFastFunctions(parser, &context);
    QVERIFY(parser.IsFunDefined(name));
    for (const char *c : {"_null", "_nan", "_infinity", "_nullS", "velmorinDir"})
        QVERIFY2(parser.IsConstDefined(QString::fromLatin1(c)), c);
}

void tst_parser_facade::velmorinDirIsTheApplicationDirectory()
{
    ExprContext context = freshContext();
    const ExpressionCheck check =
        checkExpressionCore(QStringLiteral("velmorinDir"), false, context, nullptr);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.text, QCoreApplication::applicationDirPath());
}

void tst_parser_facade::toStdWString()
{
    QCOMPARE(::toStdWString(QStringLiteral("a\u00e9b")), std::wstring(L"a\u00e9b"));
    QCOMPARE(::toStdWString(QString()), std::wstring());
}

void tst_parser_facade::widgetLayerWritesTheControls()
{
    QLineEdit edit;
    QLabel label;
    QVector<InputVar> vars = sampleVars();
    ExprContext context = freshContext();
    edit.setText(QStringLiteral("old"));
    QVERIFY(!checkExpression(true, QStringLiteral("isNull(n)"), false, context, nullptr, &vars,
                             nullptr, &edit, &label));
    QCOMPARE(edit.text(), QStringLiteral("true"));
    QCOMPARE(label.text(), QStringLiteral("Fastest parser"));
    QVERIFY(!checkExpression(true, QStringLiteral("\"abc\""), false, context, nullptr, &vars,
                             nullptr, &edit, &label));
    QCOMPARE(edit.text(), QStringLiteral("false"));
    QCOMPARE(label.text(), QStringLiteral("Fast parser"));
    QVERIFY(!checkExpression(true, QString(), false, context, nullptr, &vars, nullptr, &edit,
                             &label));
    QCOMPARE(edit.text(), QString());
    QCOMPARE(label.text(), QStringLiteral("??? parser"));
}

void tst_parser_facade::widgetLayerShowsTheFailure()
{
    QLineEdit edit;
    QLabel label;
    QVector<InputVar> vars = sampleVars();
    ExprContext context = freshContext();
    shownMessages.clear();
    setExpressionErrorDialog(recordDialog);
    edit.setText(QStringLiteral("true"));
    QVERIFY(checkExpression(true, QStringLiteral("y"), false, context, nullptr, &vars, nullptr,
                            &edit, &label));
    QCOMPARE(edit.text(), QString());
    QCOMPARE(label.text(), QStringLiteral("??? parser"));
    QCOMPARE(shownMessages.size(), 1);
    QCOMPARE(shownMessages.first(), QStringLiteral("Undefined token \"y\" found at position 0\n"
                                                   "  Error Token:y\n  Error at position:0"));
    // Without showDialog nothing is shown, and the result is the same.
    QVERIFY(checkExpression(false, QStringLiteral("y"), false, context, nullptr, &vars, nullptr,
                            &edit, &label));
    QCOMPARE(shownMessages.size(), 1);
    // A string that only the second engine takes is no failure: no dialog.
    QVERIFY(!checkExpression(true, QStringLiteral("\"abc\""), false, context, nullptr, &vars,
                             nullptr, &edit, &label));
    QCOMPARE(edit.text(), QStringLiteral("false"));
    QCOMPARE(label.text(), QStringLiteral("Fast parser"));
    QCOMPARE(shownMessages.size(), 1);
    // An absent variable further in: the dialog names it with its position.
    QVERIFY(checkExpression(true, QStringLiteral("k + absent"), false, context, nullptr, &vars,
                            nullptr, &edit, &label));
    QCOMPARE(shownMessages.size(), 2);
    QVERIFY(shownMessages.last().startsWith(
        QLatin1String("Undefined token \"absent\" found at position 4")));
    QVERIFY(shownMessages.last().endsWith(QLatin1String("\n  Error at position:4")));
    setExpressionErrorDialog(nullptr);
}

// The failure of a check opens the error dialog modally, through the hook
// that answers every dialog of the program in tests.
void tst_parser_facade::defaultFailureOpensTheCheckDialog()
{
    QStringList names;
    QString shown;
    QString hint;
    setModalDialogHook([&](QDialog *dialog) {
        names << dialog->objectName();
        shown = dialog->findChild<QLabel *>(QStringLiteral("labelErrorMessage"))->text();
        hint = static_cast<Interface_MathParserCheck *>(dialog)->hintPicture();
        return int(QDialog::Accepted);
    });
    QLineEdit edit;
    QLabel label;
    ExprContext context = freshContext();
    const bool failed = checkExpression(true, QStringLiteral("1 + nothere"), false, context,
                                        nullptr, nullptr, nullptr, &edit, &label);
    setModalDialogHook(nullptr);
    QVERIFY(failed);
    QCOMPARE(names, QStringList{QStringLiteral("Interface_MathParserCheck")});
    QCOMPARE(shown, QStringLiteral("Undefined token \"nothere\" found at position 4\n"
                                   "  Error Token:nothere\n  Error at position:4"));
    QCOMPARE(hint, QStringLiteral(":/VelmorinMathParser/undefinedToken.png"));
}

void tst_parser_facade::nameClash_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("addN");
    QTest::addColumn<QString>("kind");
    QTest::newRow("function of both") << "sin" << false << "function";
    QTest::newRow("function of the compiled engine only") << "sign" << false << "function";
    QTest::newRow("function of the general engine only") << "charAt" << false << "function";
    QTest::newRow("replaced toupper") << "toupper" << false << "function";
    QTest::newRow("constant of both") << "_pi" << false << "constant";
    QTest::newRow("constant of the language") << "_null" << false << "constant";
    QTest::newRow("constant of the general engine") << "velmorinDir" << false << "constant";
    QTest::newRow("_n with addN") << "_n_max" << true << "constant";
    QTest::newRow("_n without addN") << "_n_max" << false << "";
    QTest::newRow("_now without usesNow") << "_now" << false << "";
    QTest::newRow("boolean literal") << "true" << false << "value";
    QTest::newRow("free name") << "income" << false << "";
    QTest::newRow("case counts") << "Sin" << false << "";
}

void tst_parser_facade::nameClash()
{
    QFETCH(QString, label);
    QFETCH(bool, addN);
    QFETCH(QString, kind);
    QVector<InputVar> vars = sampleVars();
    vars[1].label = label;
    ExprContext context = freshContext();
    const QString message = inputVarNameClash(vars, addN, context);
    if (kind.isEmpty()) {
        QCOMPARE(message, QString());
        return;
    }
    QCOMPARE(message, QStringLiteral("The input variable \"%1\" has the name of a %2 of the "
                                     "language.\nRename it in the column \"Expression "
                                     "Var.Name\".")
                          .arg(label, kind));
}

// A clash fails the check even where the expression does not name the
// variable, with no engine label and no value; renaming makes it pass.
void tst_parser_facade::clashingVariableFailsTheCheck()
{
    QVector<InputVar> vars = sampleVars();
    vars[2].label = QStringLiteral("_e");
    ExprContext context = freshContext();
    ExpressionCheck check = checkExpressionCore(QStringLiteral("x == 0"), false, context, &vars);
    QVERIFY(check.failed);
    QCOMPARE(check.valueText, QString());
    QCOMPARE(check.engineLabel, QStringLiteral("??? parser"));
    QVERIFY(check.message.contains(QLatin1String("\"_e\" has the name of a constant")));
    vars[2].label = QStringLiteral("e2");
    check = checkExpressionCore(QStringLiteral("x == 0"), false, context, &vars);
    QVERIFY(!check.failed);
    QCOMPARE(check.valueText, QStringLiteral("true"));
}

QTEST_MAIN(tst_parser_facade)
#include "tst_parser_facade.moc"
