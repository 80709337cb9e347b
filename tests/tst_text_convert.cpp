#include "text/text_convert.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

std::uint64_t bitsOf(double d)
{
    std::uint64_t b;
    std::memcpy(&b, &d, sizeof b);
    return b;
}

double fromBits(std::uint64_t b)
{
    double d;
    std::memcpy(&d, &b, sizeof d);
    return d;
}

const double nanWord = fromBits(0xFFF8000000000000ull);
const double nullWord = fromBits(0xFFFFFFFFFFFFFFFFull);
const double minNormal = 2.2250738585072014e-308;
const double inf = HUGE_VAL;

// Distance in units in the last place between two finite doubles.
std::int64_t ulpDistance(double a, double b)
{
    auto ordered = [](double d) {
        const std::int64_t i = static_cast<std::int64_t>(bitsOf(d));
        return i < 0 ? std::int64_t(0x8000000000000000ull) - i : i;
    };
    const std::int64_t d = ordered(a) - ordered(b);
    return d < 0 ? -d : d;
}

double strict(const QString &s, bool *ok)
{
    return parseNumberStrict(s.utf16(), ok, s.size());
}

} // namespace

class tst_text_convert : public QObject
{
    Q_OBJECT

private slots:
    void powerTable();
    void strictNumber_data();
    void strictNumber();
    void strictLengthBound();
    void strictFractionZerosBeyondTable();
    void prefixNumber_data();
    void prefixNumber();
    void prefixLongFraction();
    void readersAgreeWithStrtod();
    void numberText_data();
    void numberText();
    void integerText_data();
    void integerText();
    void attributeReaders();
    void trimming_data();
    void trimming();
    void trimKeepsUntouchedText();
    void streamNumberTable_data();
    void streamNumberTable();
    void streamNumberMatchesPrintf();
    void streamNumberAppends();
};

void tst_text_convert::powerTable()
{
    for (int i = 0; i <= 308; ++i) {
        char text[16];
        std::snprintf(text, sizeof text, "1e%d", i);
        QCOMPARE(bitsOf(powerOfTenTable[i]), bitsOf(std::strtod(text, nullptr)));
    }
    QCOMPARE(shiftedPowerOfTen[308], 1.0);
    QCOMPARE(shiftedPowerOfTen[309], 10.0);
    QCOMPARE(shiftedPowerOfTen[324], 1e16);
}

void tst_text_convert::strictNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");

    QTest::newRow("empty") << "" << false << 4294967294.0;
    QTest::newRow("blanks") << " \t\r\n " << false << 4294967294.0;
    QTest::newRow("sign alone") << "-" << false << 4294967295.0;
    QTest::newRow("blank then sign alone") << "  +" << false << 4294967295.0;
    QTest::newRow("integer") << "42" << true << 42.0;
    QTest::newRow("leading blanks and minus") << "  -3.25" << true << -3.25;
    QTest::newRow("plus") << "+7" << true << 7.0;
    QTest::newRow("soft hyphen is minus") << QString(QChar(0x00AD)) + "5" << true << -5.0;
    QTest::newRow("comma behind integer fails") << "12,5" << false << 4294967295.0;
    QTest::newRow("comma behind fraction ends") << "12.5,3" << true << 12.5;
    QTest::newRow("begins with point") << ".5" << true << 0.5;
    QTest::newRow("ends with point") << "5." << true << 5.0;
    QTest::newRow("negative ends with point") << "-5." << true << -5.0;
    QTest::newRow("point alone") << "." << false << 0.0;
    QTest::newRow("signed point alone") << "-." << false << 0.0;
    QTest::newRow("point before letter") << ".x" << false << 4294967295.0;
    QTest::newRow("point before exponent") << ".e5" << false << 4294967295.0;
    QTest::newRow("zeros fraction") << "0.000" << true << 0.0;
    QTest::newRow("zeros fraction no integer") << ".000" << true << 0.0;
    QTest::newRow("skipped zeros then digits") << "0.0025" << true << 0.0025;
    QTest::newRow("text behind number") << "12abc" << true << 12.0;
    QTest::newRow("fraction then text") << "1.5kg" << true << 1.5;
    QTest::newRow("exponent") << "1.5e3" << true << 1500.0;
    QTest::newRow("exponent capital plus") << "1.5E+3" << true << 1500.0;
    QTest::newRow("negative exponent") << "2.5e-3" << true << 0.0025;
    QTest::newRow("exponent and fraction") << "123.456e-2" << true << 1.23456;
    QTest::newRow("exponent below fraction") << "1234.5e-1" << true << 123.45;
    QTest::newRow("exponent smaller than fraction") << "0.125e2" << true << 12.5;
    QTest::newRow("empty exponent") << "7e" << true << 7.0;
    QTest::newRow("empty signed exponent") << "7e-" << true << 7.0;
    QTest::newRow("exponent leading zeros") << "1e0002" << true << 100.0;
    QTest::newRow("exponent three digits only") << "1e1234" << true << 1e123;
    QTest::newRow("exponent -400") << "1e-400" << true << minNormal;
    QTest::newRow("exponent -400 negative") << "-1e-400" << true << -minNormal;
    QTest::newRow("exponent 999") << "1e999" << true << DBL_MAX;
    QTest::newRow("exponent 999 negative") << "-2e999" << true << -DBL_MAX;
    QTest::newRow("exponent 309") << "1e309" << true << DBL_MAX;
    QTest::newRow("shifted negative exponent") << "1e-310" << true << 1e-310;
    QTest::newRow("shifted with fraction") << "1.0e-320" << true << 1e-320;
    QTest::newRow("skipped zeros and negative exponent shifted")
        << "0.0001e-306" << true << 1e-310;
    QTest::newRow("nan") << "nan" << true << nanWord;
    QTest::newRow("nan capitals") << "NaN" << true << nanWord;
    QTest::newRow("nan then blank") << "nan x" << true << nanWord;
    QTest::newRow("nan then digit") << "nan1" << true << nanWord;
    QTest::newRow("nan sign ignored") << "-nan" << true << nanWord;
    QTest::newRow("nan then letter fails") << "nanx" << false << 4294967295.0;
    QTest::newRow("inf") << "inf" << true << inf;
    QTest::newRow("inf negative") << "-Inf" << true << -inf;
    QTest::newRow("infinity fails") << "infinity" << false << 4294967295.0;
    QTest::newRow("null capitals") << "NULL" << true << nullWord;
    QTest::newRow("null blanks") << "  null  " << true << nullWord;
    QTest::newRow("null then letter fails") << "nullx" << false << 4294967295.0;
    QTest::newRow("too short for a word") << "na" << false << 4294967295.0;
    QTest::newRow("nul is no word") << "nul" << false << 4294967295.0;
    QTest::newRow("other word") << "abc" << false << 4294967295.0;
    QTest::newRow("18 fraction digits stop before exponent")
        << "0.100000000000000009e5" << true << 0.1;
    QTest::newRow("17 fraction digits stop before exponent")
        << "1.12345678901234567e2" << true << 1.12345678901234567;
    QTest::newRow("16 fraction digits take exponent")
        << "1.1234567890123456e2" << true << 112.34567890123456;
    QTest::newRow("skipped zeros do not count against the limit")
        << "0.00012345678901234567e5" << true << 0.00012345678901234567;
    QTest::newRow("negative zero") << "-0" << true << -0.0;
}

void tst_text_convert::strictNumber()
{
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(double, value);
    bool gotOk = !ok;
    const double got = strict(text, &gotOk);
    QCOMPARE(gotOk, ok);
    QCOMPARE(QString::number(bitsOf(got), 16), QString::number(bitsOf(value), 16));
}

void tst_text_convert::strictLengthBound()
{
    const QString text = QStringLiteral("12345e2");
    bool ok = false;
    QCOMPARE(parseNumberStrict(text.utf16(), &ok, 3), 123.0);
    QVERIFY(ok);
    QCOMPARE(parseNumberStrict(text.utf16(), &ok, 0), 4294967294.0);
    QVERIFY(!ok);
    const QString word = QStringLiteral("nullx");
    QCOMPARE(bitsOf(parseNumberStrict(word.utf16(), &ok, 4)), bitsOf(nullWord));
    QVERIFY(ok);
    QCOMPARE(parseNumberStrict(word.utf16(), &ok, 3), 4294967295.0);
    QVERIFY(!ok);
}

void tst_text_convert::strictFractionZerosBeyondTable()
{
    // 320 zeros then a digit: the division goes through the shifted table.
    const QString text = QStringLiteral("0.") + QString(320, QLatin1Char('0')) + QStringLiteral("5");
    bool ok = false;
    const double got = strict(text, &ok);
    QVERIFY(ok);
    QVERIFY(ulpDistance(got, 5e-321) <= 1);

    // The same with a small positive exponent: 10^-318 through the shifted table.
    const QString withExponent = QStringLiteral("0.") + QString(320, QLatin1Char('0'))
                                 + QStringLiteral("5e3");
    QVERIFY(ulpDistance(strict(withExponent, &ok), 5e-318) <= 1);
    QVERIFY(ok);
    // Far below that: the smallest normal double, not 0.
    const QString tooSmall = QStringLiteral("0.") + QString(320, QLatin1Char('0'))
                             + QStringLiteral("5e-9");
    QCOMPARE(strict(tooSmall, &ok), minNormal);
}

void tst_text_convert::prefixNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("end");

    QTest::newRow("integer") << "42+1" << true << 42.0 << 2;
    QTest::newRow("fraction") << "3.25)" << true << 3.25 << 4;
    QTest::newRow("leading point") << ".5*2" << true << 0.5 << 2;
    QTest::newRow("trailing point") << "5.+1" << true << 5.0 << 2;
    QTest::newRow("point alone") << "." << false << 0.0 << 1;
    QTest::newRow("point before letter") << ".x" << false << 0.0 << 1;
    QTest::newRow("comma means nothing") << "1,5" << true << 1.0 << 1;
    QTest::newRow("exponent 00 not taken") << "2e00" << true << 2.0 << 1;
    QTest::newRow("bare e not taken") << "2e" << true << 2.0 << 1;
    QTest::newRow("e then sign not taken") << "2e+x" << true << 2.0 << 1;
    QTest::newRow("e then letter not taken") << "2exp(1)" << true << 2.0 << 1;
    QTest::newRow("exponent with zeros") << "2e05" << true << 2e5 << 4;
    QTest::newRow("negative exponent") << "25e-1," << true << 2.5 << 5;
    QTest::newRow("fourth exponent digit skipped") << "1e1234+" << true << 1e123 << 6;
    QTest::newRow("exponent -400") << "1e-400" << true << minNormal << 6;
    QTest::newRow("exponent 999") << "1e999" << true << DBL_MAX << 5;
    QTest::newRow("long fraction read whole")
        << "0.12345678901234567890123e1;" << true << 1.2345678901234567 << 27;
    QTest::newRow("nan") << "nan+1" << true << nanWord << 3;
    QTest::newRow("inf") << "inf*2" << true << inf << 3;
    QTest::newRow("nan then letter") << "nana" << false << 0.0 << 0;
    QTest::newRow("null unknown") << "null" << false << 0.0 << 0;
    QTest::newRow("too short") << "in" << false << 0.0 << 0;
    QTest::newRow("letters") << "abc" << false << 0.0 << 0;
    QTest::newRow("empty") << "" << false << 0.0 << 0;
}

void tst_text_convert::prefixNumber()
{
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(double, value);
    QFETCH(int, end);
    bool gotOk = !ok;
    const ushort *gotEnd = nullptr;
    const double got = parseNumberPrefix(text.utf16(), &gotOk, &gotEnd);
    QCOMPARE(gotOk, ok);
    QCOMPARE(int(gotEnd - text.utf16()), end);
    if (ok)
        QVERIFY2(bitsOf(got) == bitsOf(value) || ulpDistance(got, value) <= 1,
                 qPrintable(QString::number(got, 'g', 17)));
}

void tst_text_convert::prefixLongFraction()
{
    // Digits past the 308th are read over without changing the value.
    const QString text = QStringLiteral("0.") + QString(300, QLatin1Char('0'))
                         + QStringLiteral("5") + QString(50, QLatin1Char('7')) + QStringLiteral("x");
    bool ok = false;
    const ushort *end = nullptr;
    const double got = parseNumberPrefix(text.utf16(), &ok, &end);
    QVERIFY(ok);
    QCOMPARE(int(end - text.utf16()), text.size() - 1);
    QVERIFY(ulpDistance(got, 5.7777777e-301) <= 1);
}

void tst_text_convert::readersAgreeWithStrtod()
{
    std::mt19937_64 random(20261121);
    char text[64];
    ushort wide[64];
    int worstStrict = 0;
    int worstPrefix = 0;
    int notExact = 0;
    const int count = 1000000;
    for (int i = 0; i < count; ++i) {
        const int digits = 1 + int(random() % 17);
        const int fraction = int(random() % (digits + 1));
        const bool withExponent = fraction < 17 && random() % 2;
        int len = 0;
        if (random() % 4 == 0)
            text[len++] = '-';
        for (int d = 0; d < digits; ++d) {
            if (d == digits - fraction) {
                // Now and then a fraction behind zeros, which are read over
                // and do not count against the digit limit.
                if (d == 0 && random() % 2) {
                    text[len++] = '0';
                    text[len++] = '.';
                    for (int z = int(random() % 6); z > 0; --z)
                        text[len++] = '0';
                } else {
                    text[len++] = '.';
                }
            }
            text[len++] = char('0' + (d == 0 ? 1 + random() % 9 : random() % 10));
        }
        // The prefix reader leaves an exponent of 0 unread, at the 'e'.
        int expectedEnd = -1;
        if (withExponent) {
            const int exponent = int(random() % 561) - 280;
            if (exponent == 0)
                expectedEnd = len;
            len += std::snprintf(text + len, sizeof text - len, "e%d", exponent);
        }
        if (expectedEnd < 0)
            expectedEnd = len;
        text[len] = 0;
        for (int k = 0; k <= len; ++k)
            wide[k] = ushort(text[k]);

        const double expected = std::strtod(text, nullptr);
        bool ok = false;
        const double a = parseNumberStrict(wide, &ok, len);
        QVERIFY2(ok, text);
        const ushort *end = nullptr;
        const double b = parseNumberPrefix(wide, &ok, &end);
        QVERIFY2(ok, text);
        QVERIFY2(end == wide + expectedEnd, text);
        const int da = int(ulpDistance(a, expected));
        const int db = int(ulpDistance(b, expected));
        QVERIFY2(da <= 1, qPrintable(QString("%1 strict %2 ulp").arg(text).arg(da)));
        QVERIFY2(db <= 1, qPrintable(QString("%1 prefix %2 ulp").arg(text).arg(db)));
        worstStrict = qMax(worstStrict, da);
        worstPrefix = qMax(worstPrefix, db);
        if (da != 0)
            ++notExact;
    }
    qInfo("worst distance: strict %d ulp, prefix %d ulp; %d of %d not correctly rounded",
          worstStrict, worstPrefix, notExact, count);
}

void tst_text_convert::numberText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("strict");
    QTest::addColumn<bool>("expected");

    QTest::newRow("empty") << "" << false << false;
    QTest::newRow("blank") << "   " << false << false;
    QTest::newRow("sign alone") << " -" << false << false;
    QTest::newRow("integer") << "12" << true << true;
    QTest::newRow("integer blanks strict") << " 12 " << true << true;
    QTest::newRow("soft hyphen") << QString(QChar(0x00AD)) + "3" << true << true;
    QTest::newRow("letters behind strict") << "12x" << true << false;
    QTest::newRow("letters behind loose") << "12x" << false << true;
    QTest::newRow("separator strict") << "12,5" << true << false;
    QTest::newRow("separator loose") << "12,5" << false << false;
    QTest::newRow("fraction") << "1.5" << true << true;
    QTest::newRow("leading point") << ".5" << true << true;
    QTest::newRow("point alone") << "." << false << false;
    QTest::newRow("point then letter") << ".x" << false << false;
    QTest::newRow("trailing point") << "5." << true << true;
    QTest::newRow("separator behind fraction strict") << "1.5,2" << true << false;
    QTest::newRow("separator behind fraction loose") << "1.5,2" << false << true;
    QTest::newRow("nan") << "nan" << true << true;
    QTest::newRow("nan blank strict") << "NaN  " << true << true;
    QTest::newRow("nan letter") << "nanx" << false << false;
    QTest::newRow("null") << "-NULL" << true << true;
    QTest::newRow("inf then text strict") << "inf x" << true << false;
    QTest::newRow("inf then text loose") << "inf x" << false << true;
    QTest::newRow("word") << "abc" << false << false;
    QTest::newRow("exponent") << "1e5" << true << true;
    QTest::newRow("exponent blank strict") << "1.5E-5 " << true << true;
    QTest::newRow("empty exponent strict") << "1e" << true << false;
    QTest::newRow("empty exponent loose") << "1e" << false << true;
    QTest::newRow("signed empty exponent strict") << "1e+" << true << false;
    QTest::newRow("exponent letter strict") << "1ex" << true << false;
    QTest::newRow("four exponent digits strict") << "1e1234" << true << false;
    QTest::newRow("four exponent digits loose") << "1e1234" << false << true;
    QTest::newRow("two points strict") << "1.5.5" << true << false;
    QTest::newRow("two points loose") << "1.5.5" << false << true;
}

void tst_text_convert::numberText()
{
    QFETCH(QString, text);
    QFETCH(bool, strict);
    QFETCH(bool, expected);
    QCOMPARE(isNumberText(text.utf16(), text.size(), strict, '.', ','), expected);
}

void tst_text_convert::integerText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("strict");
    QTest::addColumn<bool>("expected");

    QTest::newRow("empty") << "" << false << false;
    QTest::newRow("blank") << "  " << false << false;
    QTest::newRow("digits") << "12" << true << true;
    QTest::newRow("signed") << " -7" << true << true;
    QTest::newRow("fraction of zeros") << "12.000" << true << true;
    QTest::newRow("fraction of zeros blank") << "12.00 " << true << true;
    QTest::newRow("trailing point") << "12." << true << true;
    QTest::newRow("other fraction digit") << "12.010" << false << false;
    QTest::newRow("fraction") << "1.5" << false << false;
    QTest::newRow("zeros then small e") << "12.00e3" << false << false;
    QTest::newRow("zeros then capital E loose") << "12.00E3" << false << true;
    QTest::newRow("zeros then capital E strict") << "12.00E3" << true << false;
    QTest::newRow("letters strict") << "12abc" << true << false;
    QTest::newRow("letters loose") << "12abc" << false << true;
    QTest::newRow("null") << "null" << true << true;
    QTest::newRow("null capitals blank") << " NULL " << true << true;
    QTest::newRow("null letter") << "nullx" << false << false;
    QTest::newRow("null then text strict") << "null 1" << true << false;
    QTest::newRow("nan") << "nan" << false << false;
    QTest::newRow("inf") << "inf" << false << false;
    QTest::newRow("leading point") << ".0" << false << false;
}

void tst_text_convert::integerText()
{
    QFETCH(QString, text);
    QFETCH(bool, strict);
    QFETCH(bool, expected);
    QCOMPARE(isIntegerText(text.utf16(), text.size(), strict), expected);
}

void tst_text_convert::attributeReaders()
{
    QCOMPARE(chk_atoi("12abc", 5), 12);
    QCOMPARE(chk_atoi("", 5), 5);
    QCOMPARE(chk_atoi(nullptr, 5), 5);
    QCOMPARE(chk_atoi("-3", 5), -3);
    QCOMPARE(chk_atof("2.5", 1.0), 2.5);
    QCOMPARE(chk_atof("", 1.5), 1.5);
    QCOMPARE(chk_atof(nullptr, 1.5), 1.5);
    QCOMPARE(chk_atob("256", true), false);
    QCOMPARE(chk_atob("257", false), true);
    QCOMPARE(chk_atob("1", false), true);
    QCOMPARE(chk_atob("0", true), false);
    QCOMPARE(chk_atob("", true), true);
    QCOMPARE(chk_atob(nullptr, false), false);
    QCOMPARE(chk_char("xyz", 'a'), 'x');
    QCOMPARE(chk_char("", 'a'), 'a');
    QCOMPARE(chk_char(nullptr, 'b'), 'b');
    const char *empty = "";
    QCOMPARE(static_cast<const void *>(chk_str(empty, "d")), static_cast<const void *>(empty));
    QCOMPARE(chk_str(nullptr, "d"), "d");
    QCOMPARE(chk_str("v", "d"), "v");
}

void tst_text_convert::trimming_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("both");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");

    const QString nul(QChar(0));
    QTest::newRow("empty") << "" << "" << "" << "";
    QTest::newRow("both sides") << "  ab  " << "ab" << "ab  " << "  ab";
    QTest::newRow("nothing to trim") << "ab" << "ab" << "ab" << "ab";
    QTest::newRow("blanks then one letter") << "   a" << "" << "" << "   a";
    QTest::newRow("one letter") << "a" << "a" << "a" << "a";
    QTest::newRow("one letter, blank behind") << "a " << "a" << "a " << "a";
    QTest::newRow("letter then blanks") << "a  " << "a" << "a  " << "a";
    QTest::newRow("blanks only") << "   " << "" << "" << " ";
    QTest::newRow("one blank") << " " << "" << "" << " ";
    QTest::newRow("tabs and line ends") << "\t a b\r\n" << "a b" << "a b\r\n" << "\t a b";
    QTest::newRow("nul counts as white") << nul + "xy" + nul << "xy" << "xy" + nul << nul + "xy";
    QTest::newRow("no-break space") << QString(QChar(0xA0)) + "xy" << "xy" << "xy"
                                    << QString(QChar(0xA0)) + "xy";
    QTest::newRow("blanks then two letters") << "  ab" << "ab" << "ab" << "  ab";
}

void tst_text_convert::trimming()
{
    QFETCH(QString, text);
    QFETCH(QString, both);
    QFETCH(QString, left);
    QFETCH(QString, right);
    QCOMPARE(myTrim(text), both);
    QCOMPARE(myTrimLeft(text), left);
    QCOMPARE(myTrimRight(text), right);
}

void tst_text_convert::trimKeepsUntouchedText()
{
    const QString text = QStringLiteral("abc");
    QCOMPARE(myTrim(text).constData(), text.constData());
    QCOMPARE(myTrimLeft(text).constData(), text.constData());
    QCOMPARE(myTrimRight(text).constData(), text.constData());
    const QString null;
    QVERIFY(myTrim(null).isNull());
    QVERIFY(myTrimRight(null).isNull());
}

void tst_text_convert::streamNumberTable_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("0.85") << 0.85 << QByteArray("0.85");
    QTest::newRow("0.02") << 0.02 << QByteArray("0.02");
    QTest::newRow("1e6") << 1e6 << QByteArray("1e+006");
    QTest::newRow("123456789") << 123456789.0 << QByteArray("1.23457e+008");
    QTest::newRow("1e-5") << 1e-5 << QByteArray("1e-005");
    QTest::newRow("1.5e-7") << 1.5e-7 << QByteArray("1.5e-007");
    QTest::newRow("0.0001") << 0.0001 << QByteArray("0.0001");
    QTest::newRow("-1") << -1.0 << QByteArray("-1");
    QTest::newRow("100") << 100.0 << QByteArray("100");
    QTest::newRow("0") << 0.0 << QByteArray("0");
    QTest::newRow("4000") << 4000.0 << QByteArray("4000");
    QTest::newRow("123456") << 123456.0 << QByteArray("123456");
    QTest::newRow("999999.5 rounds up") << 999999.5 << QByteArray("1e+006");
    QTest::newRow("1234567") << 1234567.0 << QByteArray("1.23457e+006");
    QTest::newRow("0.000123456789") << 0.000123456789 << QByteArray("0.000123457");
    QTest::newRow("-2.5e-10") << -2.5e-10 << QByteArray("-2.5e-010");
    QTest::newRow("1e300") << 1e300 << QByteArray("1e+300");
    QTest::newRow("1/3") << 1.0 / 3 << QByteArray("0.333333");
    QTest::newRow("nan") << nanWord << QByteArray("nan");
    QTest::newRow("positive nan") << fromBits(0x7FF8000000000000ull) << QByteArray("nan");
    QTest::newRow("NULL") << nullWord << QByteArray("nan");
    QTest::newRow("inf") << inf << QByteArray("inf");
    QTest::newRow("-inf") << -inf << QByteArray("-inf");
}

void tst_text_convert::streamNumberTable()
{
    QFETCH(double, value);
    QFETCH(QByteArray, text);
    QCOMPARE(streamNumber(value), text);
}

void tst_text_convert::streamNumberMatchesPrintf()
{
    // printf's %g with its exponent widened to three digits.
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    for (int i = 0; i < 200000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, int(random() % 80) - 40);
        char text[64];
        std::snprintf(text, sizeof text, "%g", value);
        QByteArray expected(text);
        const int e = expected.indexOf('e');
        if (e >= 0 && expected.size() - e - 2 < 3)
            expected.insert(e + 2, QByteArray(3 - (expected.size() - e - 2), '0'));
        QCOMPARE(streamNumber(value), expected);
    }
}

void tst_text_convert::streamNumberAppends()
{
    QByteArray out("x='");
    appendStreamNumber(out, 0.5);
    out.append('\'');
    appendStreamNumber(out, 1e7);
    QCOMPARE(out, QByteArray("x='0.5'1e+007"));
}

QTEST_APPLESS_MAIN(tst_text_convert)
#include "tst_text_convert.moc"
