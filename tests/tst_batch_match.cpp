#include "core/batch_match.h"

#include <QtTest>

class tst_batch_match : public QObject
{
    Q_OBJECT

private slots:
    void wildcardWalk_data();
    void wildcardWalk();
    void wildcardMatch_data();
    void wildcardMatch();
    void wildcardEveryCharacter();
    void wildcardRandom();
};

void tst_batch_match::wildcardWalk_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<bool>("firstHitOnly");
    QTest::addColumn<QVector<int>>("hits");

    const QStringList names{"VALUE.RTT.Age", "VALUE.Dummy.Age.missing", "NOMINAL.RTT.Region",
                            "NOMINAL.Dummy.Region.North", "BINARY.RTT.Default",
                            "BINARY.RTT.DEFAULT"};
    QTest::newRow("all, last first") << names << "*.Dummy.*" << true << false
                                     << QVector<int>{3, 1};
    QTest::newRow("sensitive misses") << names << "*.dummy.*" << true << false << QVector<int>();
    QTest::newRow("insensitive hits") << names << "*.dummy.*" << false << false
                                      << QVector<int>{3, 1};
    QTest::newRow("whole name only") << names << "RTT" << false << false << QVector<int>();
    QTest::newRow("question mark") << names << "VALUE.RTT.Ag?" << true << false
                                   << QVector<int>{0};
    QTest::newRow("set") << names << "[NB]*.RTT.*" << true << false << QVector<int>{5, 4, 2};
    QTest::newRow("first hit is the last name") << names << "binary.rtt.default" << false
                                                << true << QVector<int>{5};
    QTest::newRow("first hit, sensitive") << names << "BINARY.RTT.Default" << true << true
                                          << QVector<int>{4};
    QTest::newRow("empty pattern") << names << "" << false << false << QVector<int>();
    QTest::newRow("no names") << QStringList() << "*" << false << false << QVector<int>();
}

void tst_batch_match::wildcardWalk()
{
    QFETCH(QStringList, names);
    QFETCH(QString, pattern);
    QFETCH(bool, caseSensitive);
    QFETCH(bool, firstHitOnly);
    QFETCH(QVector<int>, hits);
    const WildcardPattern wildcard(pattern,
                                 caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    const QVector<int> got = matchFromLast(
        names.size(), [&names](int i) { return names.at(i); }, wildcard, firstHitOnly);
    QCOMPARE(got, hits);
}

// Each answer is checked against a fixed value and against QRegExp itself,
// whose wildcard syntax the options promise.
void tst_batch_match::wildcardMatch_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<bool>("matches");

    QTest::newRow("literal") << "abc" << "abc" << true << true;
    QTest::newRow("literal, other case") << "abc" << "aBc" << true << false;
    QTest::newRow("literal, any case") << "abc" << "aBc" << false << true;
    QTest::newRow("prefix is not whole") << "ab" << "abc" << false << false;
    QTest::newRow("star") << "*" << "anything" << true << true;
    QTest::newRow("star on empty") << "*" << "" << true << true;
    QTest::newRow("empty on empty") << "" << "" << true << true;
    QTest::newRow("empty on text") << "" << "a" << true << false;
    QTest::newRow("stars") << "**a**" << "xxaxx" << true << true;
    QTest::newRow("backtrack") << "*ab*ab" << "xabyabab" << true << true;
    QTest::newRow("backtrack fails") << "*ab*abc" << "xabyabab" << true << false;
    QTest::newRow("question") << "a?c" << "abc" << true << true;
    QTest::newRow("question needs one") << "a?c" << "ac" << true << false;
    QTest::newRow("star question") << "*?" << "" << true << false;
    QTest::newRow("dots are plain") << "a.b" << "axb" << true << false;
    QTest::newRow("plus is plain") << "a+b" << "a+b" << true << true;
    QTest::newRow("dollar, caret") << "$^(x)|" << "$^(x)|" << true << true;
    QTest::newRow("blanks and <") << "*18 <x<= 30" << "VALUE.Dummy.Age.18 <x<= 30" << true
                                  << true;
    QTest::newRow("set") << "[ab]x" << "bx" << true << true;
    QTest::newRow("set misses") << "[ab]x" << "cx" << true << false;
    QTest::newRow("set any case") << "[AB]x" << "bX" << false << true;
    QTest::newRow("range") << "v[0-9]" << "v7" << true << true;
    QTest::newRow("negated set") << "[^a]*" << "bcd" << true << true;
    QTest::newRow("negated set misses") << "[^a]*" << "abc" << true << false;
    // Backslashes and lone brackets keep QRegExp's own reading.
    QTest::newRow("backslash") << "a\\b" << "a\\b" << true << false;
    QTest::newRow("lone bracket") << "a]" << "a]" << true << false;
    QTest::newRow("unicode any case") << QString::fromUtf8("\xc3\x89t\xc3\xa9")
                                      << QString::fromUtf8("\xc3\xa9T\xc3\x89") << false << true;
}

void tst_batch_match::wildcardMatch()
{
    QFETCH(QString, pattern);
    QFETCH(QString, name);
    QFETCH(bool, caseSensitive);
    QFETCH(bool, matches);
    const Qt::CaseSensitivity cs = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    QCOMPARE(WildcardPattern(pattern, cs).exactMatch(name), matches);
    QCOMPARE(QRegExp(pattern, cs, QRegExp::Wildcard).exactMatch(name), matches);
}

// Every UTF-16 unit as a one-character pattern, against the unit itself and
// its case forms: the quick path folds case exactly as QRegExp does.
void tst_batch_match::wildcardEveryCharacter()
{
    int differences = 0;
    for (int u = 0; u <= 0xFFFF; ++u) {
        const QChar c(u);
        if (QStringLiteral("*?[]\\").contains(c))
            continue;
        const QString pattern(c);
        const QChar forms[] = {c, c.toUpper(), c.toLower(), c.toTitleCase(), c.toCaseFolded()};
        for (Qt::CaseSensitivity cs : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
            const WildcardPattern quick(pattern, cs);
            const QRegExp reference(pattern, cs, QRegExp::Wildcard);
            for (const QChar form : forms) {
                const QString name(form);
                if (quick.exactMatch(name) != reference.exactMatch(name) && ++differences < 10)
                    qWarning("U+%04X against U+%04X differs", u, form.unicode());
            }
        }
    }
    QCOMPARE(differences, 0);
}

void tst_batch_match::wildcardRandom()
{
    const QString patternChars = QStringLiteral("aAbB.*?");
    const QString nameChars = QStringLiteral("aAbB.");
    QRandomGenerator random(20261121);
    auto randomText = [&random](const QString &chars) {
        QString text;
        const int n = random.bounded(9);
        for (int i = 0; i < n; ++i)
            text += chars.at(random.bounded(chars.size()));
        return text;
    };
    int matches = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString pattern = randomText(patternChars);
        const QString name = randomText(nameChars);
        const Qt::CaseSensitivity cs = i % 2 ? Qt::CaseSensitive : Qt::CaseInsensitive;
        const bool expected = QRegExp(pattern, cs, QRegExp::Wildcard).exactMatch(name);
        QVERIFY2(WildcardPattern(pattern, cs).exactMatch(name) == expected,
                 qPrintable(pattern + " on " + name));
        matches += expected;
    }
    // Both answers occur often enough for the comparison to mean something.
    QVERIFY(matches > 1000);
    QVERIFY(matches < 19000);
}

QTEST_GUILESS_MAIN(tst_batch_match)
#include "tst_batch_match.moc"
