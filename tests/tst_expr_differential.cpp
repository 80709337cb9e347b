// The two engines on the same numeric expressions: random expressions over
// variables must give the very same bits in both, and each place where the
// language lets them differ is pinned down on its own.

#include "expr_agreement.h"

#include <QtTest>

using agreement::bitsText;
using agreement::Engines;
using agreement::sameResult;
using agreement::SeededChoices;
using agreement::varCount;
using agreement::varNames;
using Generator = agreement::Generator<SeededChoices>;

class tst_expr_differential : public QObject
{
    Q_OBJECT

private slots:
    void randomExpressionsAgree();
    void repeatedEvalMatchesFreshParsers();
    void knownDifferences_data();
    void knownDifferences();
    void bracketedCommaOnlyInFastParser();
};

void tst_expr_differential::randomExpressionsAgree()
{
    Generator gen(SeededChoices(20261121));
    int compared = 0;
    int numbers = 0;
    int nulls = 0;
    QStringList mismatches;
    for (int i = 0; i < 3000; ++i) {
        const QString expression = gen.expression();
        Engines eng;
        for (int r = 0; r < 12; ++r) {
            double row[varCount];
            gen.row(row);
            eng.set(row);
            double a = 0, b = 0;
            try {
                if (r == 0)
                    eng.setExpr(expression);
                a = eng.evalFastest();
                b = eng.evalFast();
            } catch (const mu::ParserError &e) {
                QFAIL(qPrintable(expression + ": fastest refused, "
                                 + QString::fromStdWString(e.GetMsg())));
            } catch (const mup::ParserError &e) {
                QFAIL(qPrintable(expression + ": fast refused, " + e.GetMsg()));
            }
            ++compared;
            numbers += quva::isNaN(a) ? 0 : 1;
            nulls += quva::isNull(a) ? 1 : 0;
            if (!sameResult(a, b) && mismatches.size() < 10) {
                QStringList vars;
                for (int k = 0; k < varCount; ++k)
                    vars << QString("%1=%2").arg(varNames[k]).arg(bitsText(row[k]));
                mismatches << QString("%1 with %2: fastest %3, fast %4")
                                  .arg(expression, vars.join(' '), bitsText(a), bitsText(b));
            }
        }
    }
    QVERIFY2(mismatches.isEmpty(), qPrintable(mismatches.join('\n')));
    QCOMPARE(compared, 3000 * 12);
    // The rows must exercise both ordinary results and NULL.
    QVERIFY2(numbers > compared / 3, qPrintable(QString::number(numbers)));
    QVERIFY2(nulls > compared / 20, qPrintable(QString::number(nulls)));
    qInfo("%d rows compared, %d numbers, %d NULL", compared, numbers, nulls);
}

// One compiled expression evaluated over changing values gives what fresh
// parsers of both engines give for each row.
void tst_expr_differential::repeatedEvalMatchesFreshParsers()
{
    Generator gen(SeededChoices(7));
    for (int i = 0; i < 200; ++i) {
        const QString expression = gen.expression();
        Engines compiled;
        compiled.setExpr(expression);
        for (int r = 0; r < 8; ++r) {
            double row[varCount];
            gen.row(row);
            compiled.set(row);
            const quint64 fastest = quva::toBits(compiled.evalFastest());
            const quint64 fast = quva::toBits(compiled.evalFast());
            Engines fresh;
            fresh.set(row);
            fresh.setExpr(expression);
            QCOMPARE(fastest, quva::toBits(fresh.evalFastest()));
            QCOMPARE(fast, quva::toBits(fresh.evalFast()));
        }
    }
}

void tst_expr_differential::knownDifferences_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("fastest");
    QTest::addColumn<double>("fast");

    const double nul = quva::nullValue();
    const double nan = quva::nanValue();
    const double negNull = quva::fromBits(0x7FFFFFFFFFFFFFFFull);
    // The prefix minus binds under '^' in the compiled engine, over it in the
    // other.
    QTest::newRow("minus before power") << "-2^2" << 0.0 << -4.0 << 4.0;
    QTest::newRow("minus of variable before power") << "-a^2" << 3.0 << -9.0 << 9.0;
    QTest::newRow("power of minus agrees") << "2^-2" << 0.0 << 0.25 << 0.25;
    // The compiled engine flips the sign bit of NULL, the other keeps NULL.
    QTest::newRow("minus of null") << "-a" << nul << negNull << nul;
    // '%' by zero: -1 against _nan; a _nan operand: truncated against _nan.
    QTest::newRow("modulo by zero variable") << "5 % a" << 0.0 << -1.0 << nan;
    QTest::newRow("modulo by zero constant") << "5 % 0" << 0.0 << -1.0 << nan;
    QTest::newRow("modulo of nan") << "a % 3" << nan << -2.0 << nan;
    QTest::newRow("modulo agrees otherwise") << "a % 3" << -7.0 << -1.0 << -1.0;
    QTest::newRow("modulo of null agrees") << "a % 3" << nul << nul << nul;
    // Comparisons of two constants fold without NULL logic.
    QTest::newRow("folded null equality") << "_null == _null" << 0.0 << 0.0 << nul;
    QTest::newRow("folded null comparison") << "_null > 1" << 0.0 << 0.0 << nul;
    QTest::newRow("folded null inequality") << "_null != 1" << 0.0 << 1.0 << nul;
    QTest::newRow("variable null comparison agrees") << "a > 1" << nul << nul << nul;
    // '&&' and '||' of two constants fold on truncated integers.
    QTest::newRow("folded and truncates") << "0.5 && 1" << 0.0 << 0.0 << 1.0;
    QTest::newRow("run-time and agrees") << "a && 1" << 0.5 << 1.0 << 1.0;
    // The power of a plain NaN by a whole exponent 1 to 5: the library power
    // gives its own NaN, multiplying out keeps the operand's. Squares, cubes
    // and fourth powers of a variable are multiplied out in both.
    QTest::newRow("power of nan") << "(a+0)^1" << nan << quva::fromBits(0x7FF8000000000000ull) << nan;
    // Scaling a fused form by zero scales its summand too: +0 against -0.
    QTest::newRow("zero times fused form") << "0*(2*a+1)" << -1.0 << 0.0 << -0.0;
    QTest::newRow("zero times fused form agrees") << "0*(2*a+1)" << 1.0 << 0.0 << 0.0;
    QTest::newRow("square of nan variable agrees") << "a^2" << nan << nan << nan;
    QTest::newRow("power of null agrees") << "(a+1)^1" << nul << nul << nul;
}

void tst_expr_differential::knownDifferences()
{
    QFETCH(QString, expression);
    QFETCH(double, a);
    QFETCH(double, fastest);
    QFETCH(double, fast);
    Engines eng;
    const double row[varCount] = {a, 0, 0, 0, 0};
    eng.set(row);
    eng.setExpr(expression);
    QCOMPARE(bitsText(eng.evalFastest()), bitsText(fastest));
    QCOMPARE(bitsText(eng.evalFast()), bitsText(fast));
}

void tst_expr_differential::bracketedCommaOnlyInFastParser()
{
    Engines eng;
    QVERIFY_EXCEPTION_THROWN(eng.fastest.SetExpr(L"(1,2)"), mu::ParserError);
    eng.fast.SetExpr("(1,2)");
    QCOMPARE(eng.evalFast(), 1.0);
    eng.setExpr("1,2");
    QCOMPARE(eng.evalFastest(), 2.0);
    QCOMPARE(eng.evalFast(), 2.0);
}

QTEST_APPLESS_MAIN(tst_expr_differential)
#include "tst_expr_differential.moc"
