// The clause that the modality panel writes for chosen modalities.

#include "expr/modality_clause.h"
#include "expr/parser_facade.h"

#include <QtTest>

class tst_modality_clause : public QObject
{
    Q_OBJECT

private slots:
    void clauses_data();
    void clauses();
    void quoting_data();
    void quoting();
    void clauseOfValuesEvaluates();
};

namespace {

const QStringList values{QStringLiteral("missing"), QStringLiteral("a"), QStringLiteral("b"),
                         QStringLiteral("c")};

} // namespace

void tst_modality_clause::clauses_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<bool>("different");
    QTest::addColumn<QString>("clause");
    QTest::newRow("missing alone, no bracket") << QVector<int>{0} << false << "isMissing(v)";
    QTest::newRow("missing alone, different") << QVector<int>{0} << true << "not(isMissing(v))";
    QTest::newRow("one value") << QVector<int>{2} << false << "(v==\"b\")";
    QTest::newRow("one value, different") << QVector<int>{2} << true << "(v!=\"b\")";
    QTest::newRow("two values") << QVector<int>{1, 2} << false << "((v==\"a\")||(v==\"b\"))";
    QTest::newRow("missing and a value") << QVector<int>{0, 2} << false
                                         << "(isMissing(v)||(v==\"b\"))";
    QTest::newRow("missing and a value, different")
        << QVector<int>{0, 2} << true << "(not(isMissing(v))&&(v!=\"b\"))";
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3} << false
                         << "(isMissing(v)||(v==\"a\")||(v==\"b\")||(v==\"c\"))";
}

void tst_modality_clause::clauses()
{
    QFETCH(QVector<int>, rows);
    QFETCH(bool, different);
    QFETCH(QString, clause);
    QCOMPARE(modalityClause(QStringLiteral("v"), values, rows, different), clause);
}

void tst_modality_clause::quoting_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("clause");
    // The double quote becomes a backslash: the clause changes the value.
    QTest::newRow("quote") << "a\"b" << "(v==\"a\\b\")";
    QTest::newRow("two quotes") << "\"x\"" << "(v==\"\\x\\\")";
    QTest::newRow("backslash stays") << "a\\b" << "(v==\"a\\b\")";
    QTest::newRow("non-ASCII letters") << QStringLiteral("Z\u00fcrich \u00e9t\u00e9")
                                       << QStringLiteral("(v==\"Z\u00fcrich \u00e9t\u00e9\")");
    QTest::newRow("blank and apostrophe") << "l'an 2" << "(v==\"l'an 2\")";
}

void tst_modality_clause::quoting()
{
    QFETCH(QString, value);
    QFETCH(QString, clause);
    const QStringList list{QStringLiteral("missing"), value};
    QCOMPARE(modalityClause(QStringLiteral("v"), list, {1}, false), clause);
}

// The clause is an expression of the general engine: true for a chosen
// value, false for another, and the missing row alone suits the compiled one.
void tst_modality_clause::clauseOfValuesEvaluates()
{
    QVector<InputVar> vars{InputVar(QStringLiteral("v"), QLatin1Char('N'),
                                    QStringLiteral("Z\u00fcrich"))};
    const QStringList list{QStringLiteral("missing"), QStringLiteral("Z\u00fcrich"),
                           QStringLiteral("Bern")};
    ExprContext context;
    ExpressionCheck check =
        checkExpressionCore(modalityClause(QStringLiteral("v"), list, {1, 2}, false), false,
                            context, &vars);
    QCOMPARE(check.engineLabel, QStringLiteral("Fast parser"));
    QCOMPARE(check.valueText, QStringLiteral("true"));
    check = checkExpressionCore(modalityClause(QStringLiteral("v"), list, {2}, false), false,
                                context, &vars);
    QCOMPARE(check.valueText, QStringLiteral("false"));
    QVector<InputVar> number{InputVar(QStringLiteral("v"), QLatin1Char('N'), 1.0)};
    check = checkExpressionCore(modalityClause(QStringLiteral("v"), list, {0}, false), false,
                                context, &number);
    QCOMPARE(check.engineLabel, QStringLiteral("Fastest parser"));
    QCOMPARE(check.valueText, QStringLiteral("false"));
}

QTEST_MAIN(tst_modality_clause)
#include "tst_modality_clause.moc"
