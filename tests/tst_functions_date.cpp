// The date and Elapsed-Time functions under a fixed UTC format and origin,
// the preparation of the context, and the description texts.

#include "functions_eval.h"

#include "expr/functions/date_callbacks.h"
#include "expr/functions/date_functions.h"

#include <QtTest>


class tst_functions_date : public QObject
{
    Q_OBJECT

private slots:
    void fastValues_data();
    void fastValues();
    void fastestValues_data();
    void fastestValues();
    void timeOfDay_data();
    void timeOfDay();
    void units_data();
    void units();
    void beforeOrigin();
    void invalidDate();
    void emptyFormatReadsNoDate();
    void originElsewhere();
    void dateFirstDayOfYearAloneLeavesTheFormat();
    void prepareDatesFlags_data();
    void prepareDatesFlags();
    void prepareDatesResultCodes();
    void prepareDatesLocaleFormats();
    void prepareDatesSeedsTheGenerator();
    void now();
    void descriptions_data();
    void descriptions();
};

namespace {

// Dates as "yyyy-MM-dd" in UTC, Elapsed Times in days from 1970-01-01.
ExprContext utcDays()
{
    ExprContext c;
    c.useUtc = true;
    c.etUnit = 3;
    c.dateFormatKind = 0;
    c.dateFormatText = QStringLiteral("yyyy-MM-dd");
    c.etOriginText = QStringLiteral("19700101 00:00:00");
    return c;
}

// The check prepares the context before each evaluation; so do these.
QString fast(const QString &expression, ExprContext c = utcDays())
{
    prepareDates(c, expression, c.etOriginText, c.dateFormatText);
    return evalFast(expression, &c);
}

QString fastest(const QString &expression, ExprContext c = utcDays())
{
    prepareDates(c, expression, c.etOriginText, c.dateFormatText);
    return evalFastest(expression, &c);
}

void addRows(std::initializer_list<std::pair<const char *, const char *>> rows)
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    for (const auto &r : rows)
        QTest::newRow(r.first) << QString::fromUtf8(r.first) << QString::fromUtf8(r.second);
}

} // namespace

void tst_functions_date::fastValues_data()
{
    addRows({
        {"toET(\"1970-01-02\")", "i 1"},
        {"toET(\"2021-01-01\")", "i 18628"},
        {"toET(\"1969-12-31\")", "f NULL"},
        {"toET(\"garbage\")", "f NULL"},
        {"toET(\"\")", "f NULL"},
        {"toET(_nullS)", "f NULL"},
        {"toET(1)", "error 19"},
        {"toDate(_null)", "s nullS"},
        {"toDate(1)", "s \"1970-01-02\""},
        {"toDate(18628)", "s \"2021-01-01\""},
        {"toDate(1.5)", "s \"1970-01-02\""},
        {"toDate(_infinity)", "s nullS"},
        {"toDate(\"1\")", "error 19"},
        {"toDate(etAdd(toET(\"2021-01-31\"),0,1,0))", "s \"2021-02-28\""},
        {"toDate(etAdd(toET(\"2020-02-29\"),1,0,0))", "s \"2021-02-28\""},
        {"toDate(etAdd(toET(\"2021-01-01\"),1,2,3))", "s \"2022-03-04\""},
        {"toDate(etAdd(toET(\"2021-01-01\"),0,0,1.9))", "s \"2021-01-02\""},
        {"etAdd(_null,1,1,1)", "f NULL"},
        {"etAdd(1,_null,0,0)", "f NULL"},
        {"etAdd(1,0,_nan,0)", "f NULL"},
        {"etAdd(0,0,0,-1)", "f NULL"},
        {"etDiffInMonth(toET(\"2021-01-31\"),toET(\"2021-02-01\"))", "i 1"},
        {"etDiffInMonth(toET(\"2021-03-01\"),toET(\"2020-01-31\"))", "i -14"},
        {"etDiffInMonth(_null,1)", "f NULL"},
        {"etDiffInYear(toET(\"2020-12-31\"),toET(\"2021-01-01\"))", "i 1"},
        {"etDiffInYear(1,_null)", "f NULL"},
        {"dateDiffInMonth(\"2021-01-31\",\"2021-02-01\")", "i 1"},
        {"dateDiffInYear(\"2020-12-31\",\"2021-01-01\")", "i 1"},
        {"dateDiffInDay(\"2021-01-01\",\"2021-03-01\")", "i 59"},
        {"dateDiffInDay(\"2021-03-01\",\"2021-01-01\")", "i -59"},
        {"dateDiffInSecond(\"2021-01-01\",\"2021-01-02\")", "i 86400"},
        {"dateDiffInDay(\"bad\",\"2021-01-01\")", "f NULL"},
        {"dateDiffInMonth(\"2021-01-01\",_nullS)", "f NULL"},
        {"dateDiffInYear(\"2021-01-01\",\"2021-13-01\")", "f NULL"},
        {"dateDiffInSecond(_nullS,\"2021-01-01\")", "f NULL"},
        {"dateDiffInDay(1,\"2021-01-01\")", "error 19"},
        {"etDayOfWeek(toET(\"2021-01-03\"))", "i 6"},
        {"etDayOfWeek(toET(\"2021-01-04\"))", "i 0"},
        {"etDayOfWeek(_null)", "f NULL"},
        {"dateDayOfWeek(\"2021-01-03\")", "i 6"},
        {"dateDayOfWeek(\"bad\")", "f NULL"},
        {"etWeekNumber(toET(\"2021-01-03\"))", "i 53"},
        {"etWeekNumber(toET(\"2021-01-04\"))", "i 1"},
        {"etWeekNumber(_null)", "f NULL"},
        {"dateWeekNumber(\"2021-01-04\")", "i 1"},
        {"dateWeekNumber(_nullS)", "f NULL"},
        {"etFirstDayOfYear(2021,0)", "i 18631"},
        {"etFirstDayOfYear(2021.7,0)", "i 18631"},
        {"etFirstDayOfYear(_null,0)", "f NULL"},
        {"etFirstDayOfYear(1960,0)", "f NULL"},
        {"dateFirstDayOfYear(_null,0)", "s nullS"},
        {"dateAdd(\"2021-01-31\",0,1,0)", "s \"2021-02-28\""},
        {"dateAdd(\"2021-01-01\",1,2,3)", "s \"2022-03-04\""},
        {"dateAdd(\"bad\",0,1,0)", "s nullS"},
        {"dateAdd(_nullS,0,1,0)", "s nullS"},
        {"dateAdd(\"2021-01-01\",0,0,_null)", "s nullS"},
        {"dateAddS(\"2021-01-01\",_null)", "s nullS"},
        {"dateAddS(\"2021-01-01\",86400)", "s \"2021-01-02\""},
        {"dateAddS(\"2021-01-01\",-1)", "s \"2020-12-31\""},
        {"dateAddS(\"bad\",1)", "s nullS"},
        {"datePrint(\"2021-03-04\",\"dd/MM/yyyy\")", "s \"04/03/2021\""},
        {"datePrint(\"bad\",\"yyyy\")", "s nullS"},
        {"datePrint(_nullS,\"yyyy\")", "s nullS"},
        {"datePrint(\"2021-03-04\",1)", "error 19"},
        {"dateLT(\"2021-01-01\",\"2021-01-02\")", "b 1"},
        {"dateLT(\"2021-01-02\",\"2021-01-02\")", "b 0"},
        {"dateLE(\"2021-01-02\",\"2021-01-02\")", "b 1"},
        {"dateLE(\"2021-01-03\",\"2021-01-02\")", "b 0"},
        {"dateLT(\"bad\",\"2021-01-01\")", "b NULL"},
        {"dateTimeLE(\"2021-01-01\",_nullS)", "b NULL"},
        // A wrong type in any argument is the engine's type error.
        {"etAdd(\"a\",0,0,0)", "error 19"},
        {"etAdd(1,0,\"a\",0)", "error 19"},
        {"etDiffInMonth(\"a\",1)", "error 19"},
        {"etDiffInYear(1,\"a\")", "error 19"},
        {"etWeekNumber(\"a\")", "error 19"},
        {"etDayOfWeek(\"a\")", "error 19"},
        {"etFirstDayOfYear(\"a\",0)", "error 19"},
        {"dateFirstDayOfYear(2021,\"a\")", "error 19"},
        {"dateWeekNumber(1)", "error 19"},
        {"dateDayOfWeek(1)", "error 19"},
        {"dateAdd(1,0,0,0)", "error 19"},
        {"dateAdd(\"2021-01-01\",\"a\",0,0)", "error 19"},
        {"dateAddS(1,1)", "error 19"},
        {"dateAddS(\"2021-01-01\",\"a\")", "error 19"},
        {"datePrint(1,\"yyyy\")", "error 19"},
        {"dateDiffInMonth(1,\"2021-01-01\")", "error 19"},
        {"dateDiffInYear(\"2021-01-01\",1)", "error 19"},
        {"dateDiffInSecond(\"2021-01-01\",1)", "error 19"},
        {"dateLT(1,\"2021-01-01\")", "error 19"},
        {"dateLE(\"2021-01-01\",1)", "error 19"},
        {"dateTimeLT(\"2021-01-01\",1)", "error 19"},
        {"dateTimeLE(1,\"2021-01-01\")", "error 19"},
    });
}

void tst_functions_date::fastValues()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(fast(expression), expected);
}

void tst_functions_date::fastestValues_data()
{
    addRows({
        {"toET(\"1970-01-02\")", "d 1"},
        {"toET(\"garbage\")", "d NULL"},
        {"toET(\"\")", "d NULL"},
        {"toET(\"1969-12-31\")", "d NULL"},
        {"etAdd(toET(\"2021-01-31\"),0,1,0) - toET(\"2021-01-31\")", "d 28"},
        {"etAdd(_null,0,1,0)", "d NULL"},
        {"etDiffInMonth(toET(\"2021-01-31\"),toET(\"2021-02-01\"))", "d 1"},
        {"etDiffInYear(toET(\"2020-12-31\"),toET(\"2021-01-01\"))", "d 1"},
        {"etDiffInYear(_null,1)", "d NULL"},
        {"etWeekNumber(toET(\"2021-01-03\"))", "d 53"},
        {"etDayOfWeek(toET(\"2021-01-03\"))", "d 6"},
        {"etDayOfWeek(_null)", "d NULL"},
        {"etFirstDayOfYear(2021,0)", "d 18631"},
        {"toDate(1)", "error"},
        {"dateAdd(\"2021-01-01\",1,1,1)", "error"},
    });
}

void tst_functions_date::fastestValues()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(fastest(expression), expected);
}

void tst_functions_date::timeOfDay_data()
{
    addRows({
        {"dateLT(\"2021-01-01 10:00\",\"2021-01-01 11:00\")", "b 0"},
        {"dateTimeLT(\"2021-01-01 10:00\",\"2021-01-01 11:00\")", "b 1"},
        {"dateLE(\"2021-01-01 11:00\",\"2021-01-01 10:00\")", "b 1"},
        {"dateTimeLE(\"2021-01-01 11:00\",\"2021-01-01 10:00\")", "b 0"},
        {"dateTimeLE(\"2021-01-01 10:00\",\"2021-01-01 10:00\")", "b 1"},
        {"dateDiffInSecond(\"2021-01-01 10:00\",\"2021-01-01 11:01\")", "i 3660"},
        {"dateDiffInDay(\"2021-01-01 23:00\",\"2021-01-02 01:00\")", "i 1"},
        {"dateAddS(\"2021-01-01 23:30\",1800)", "s \"2021-01-02 00:00\""},
    });
}

void tst_functions_date::timeOfDay()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    ExprContext c = utcDays();
    c.dateFormatText = QStringLiteral("yyyy-MM-dd hh:mm");
    QCOMPARE(fast(expression, c), expected);
}

void tst_functions_date::units_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("expected");
    QTest::newRow("second") << 0 << "1970-01-02" << "i 86400";
    QTest::newRow("minute") << 1 << "1970-01-02" << "i 1440";
    QTest::newRow("hour") << 2 << "1970-01-02" << "i 24";
    QTest::newRow("day") << 3 << "1970-01-02" << "i 1";
    QTest::newRow("week, 14 days") << 4 << "1970-01-15" << "i 2";
    QTest::newRow("week, 13 days truncated") << 4 << "1970-01-14" << "i 1";
    QTest::newRow("outside the table") << 7 << "1970-01-02" << "f NULL";
    QTest::newRow("negative unit") << -1 << "1970-01-02" << "f NULL";
}

void tst_functions_date::units()
{
    QFETCH(int, unit);
    QFETCH(QString, date);
    QFETCH(QString, expected);
    ExprContext c = utcDays();
    c.etUnit = unit;
    QCOMPARE(fast(QStringLiteral("toET(\"%1\")").arg(date), c), expected);
    // And back, where the unit is known.
    if (expected.startsWith(QLatin1String("i "))) {
        const QString back = QStringLiteral("toDate(%1)").arg(expected.mid(2));
        QCOMPARE(fast(back, c), QStringLiteral("s \"%1\"").arg(date == QLatin1String("1970-01-14") ? QStringLiteral("1970-01-08") : date));
    } else {
        QCOMPARE(fast(QStringLiteral("toDate(1)"), c), QStringLiteral("s nullS"));
    }
}

void tst_functions_date::beforeOrigin()
{
    ExprContext c = utcDays();
    QCOMPARE(fast(QStringLiteral("toET(\"1969-12-31\")"), c), QStringLiteral("f NULL"));
    c.beforeOriginIsZero = 1;
    QCOMPARE(fast(QStringLiteral("toET(\"1969-12-31\")"), c), QStringLiteral("i 0"));
    QCOMPARE(fastest(QStringLiteral("toET(\"1969-12-31\")"), c), QStringLiteral("d 0"));
    QCOMPARE(fast(QStringLiteral("etAdd(0,0,0,-1)"), c), QStringLiteral("i 0"));
    // A unit outside the table falls under the same rule.
    c.etUnit = 9;
    QCOMPARE(fast(QStringLiteral("toET(\"1970-01-02\")"), c), QStringLiteral("i 0"));
}

void tst_functions_date::invalidDate()
{
    ExprContext c = utcDays();
    c.invalidDateIsZero = 1;
    QCOMPARE(fast(QStringLiteral("toET(\"garbage\")"), c), QStringLiteral("i 0"));
    QCOMPARE(fast(QStringLiteral("toET(_nullS)"), c), QStringLiteral("i 0"));
    QCOMPARE(fastest(QStringLiteral("toET(\"\")"), c), QStringLiteral("d 0"));
    QCOMPARE(fastest(QStringLiteral("toET(\"garbage\")"), c), QStringLiteral("d 0"));
    // Only toET knows the zero; the others stay NULL or the null string.
    QCOMPARE(fast(QStringLiteral("dateDiffInDay(\"bad\",\"2021-01-01\")"), c),
             QStringLiteral("f NULL"));
    QCOMPARE(fast(QStringLiteral("dateAdd(\"bad\",0,0,1)"), c), QStringLiteral("s nullS"));
}

void tst_functions_date::emptyFormatReadsNoDate()
{
    ExprContext c = utcDays();
    c.dateFormatText.clear();
    QCOMPARE(fast(QStringLiteral("toET(\"1970-01-02\")"), c), QStringLiteral("f NULL"));
    QCOMPARE(fast(QStringLiteral("toET(\"\")"), c), QStringLiteral("f NULL"));
    QCOMPARE(fastest(QStringLiteral("toET(\"1970-01-02\")"), c), QStringLiteral("d NULL"));
    QCOMPARE(fast(QStringLiteral("dateLT(\"1970-01-02\",\"1970-01-03\")"), c),
             QStringLiteral("b NULL"));
}

void tst_functions_date::originElsewhere()
{
    ExprContext c = utcDays();
    c.etOriginText = QStringLiteral("20000101 12:00:00");
    QCOMPARE(fast(QStringLiteral("toET(\"2000-01-03\")"), c), QStringLiteral("i 1"));
    QCOMPARE(fast(QStringLiteral("toET(\"2000-01-01\")"), c), QStringLiteral("f NULL"));
    c.etUnit = 2;
    QCOMPARE(fast(QStringLiteral("toET(\"2000-01-02\")"), c), QStringLiteral("i 12"));
    QCOMPARE(fast(QStringLiteral("toDate(12)"), c), QStringLiteral("s \"2000-01-02\""));
    // An origin that cannot be read counts from 1970.
    c.etOriginText = QStringLiteral("2000-01-01");
    QCOMPARE(fast(QStringLiteral("toET(\"1970-01-02\")"), c), QStringLiteral("i 24"));
}

void tst_functions_date::dateFirstDayOfYearAloneLeavesTheFormat()
{
    // Its name does not set dateFormat, so on its own it prints with what the
    // context held: an empty format, which prints no text, in a fresh check.
    ExprContext c = utcDays();
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,0)"), c), QStringLiteral("s nullS"));
    // With a format left by an earlier check, or set by a date function of
    // the same expression, it prints the first such weekday on or after
    // January 1.
    c.dateFormat = QStringLiteral("yyyy-MM-dd");
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,0)"), c), QStringLiteral("s \"2021-01-04\""));
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,4)"), c), QStringLiteral("s \"2021-01-01\""));
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,3)"), c), QStringLiteral("s \"2021-01-07\""));
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,6)"), c), QStringLiteral("s \"2021-01-03\""));
    QCOMPARE(fast(QStringLiteral("dateFirstDayOfYear(2021,0) // toDate(0)")),
             QStringLiteral("s \"2021-01-041970-01-01\""));
}

void tst_functions_date::prepareDatesFlags_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<bool>("elapsedTime");
    QTest::addColumn<bool>("date");
    QTest::newRow("nothing") << "1+1" << false << false;
    QTest::newRow("toET") << "toET(x)" << true << true;
    QTest::newRow("toDate") << "toDate(x)" << true << true;
    QTest::newRow("etAdd") << "etAdd(x,1,1,1)" << true << false;
    QTest::newRow("etDiffInMonth") << "etDiffInMonth(a,b)" << true << false;
    QTest::newRow("etDiffInYear") << "etDiffInYear(a,b)" << true << false;
    QTest::newRow("etWeekNumber") << "etWeekNumber(a)" << true << false;
    QTest::newRow("etDayOfWeek") << "etDayOfWeek(a)" << true << false;
    QTest::newRow("etFirstDayOfYear") << "etFirstDayOfYear(a,b)" << true << false;
    QTest::newRow("dateFirstDayOfYear") << "dateFirstDayOfYear(a,b)" << true << false;
    QTest::newRow("dateAdd") << "dateAdd(a,1,1,1)" << false << true;
    QTest::newRow("dateAddS") << "dateAddS(a,1)" << false << true;
    QTest::newRow("datePrint") << "datePrint(a,b)" << false << true;
    QTest::newRow("dateDiffInMonth") << "dateDiffInMonth(a,b)" << false << true;
    QTest::newRow("dateDiffInYear") << "dateDiffInYear(a,b)" << false << true;
    QTest::newRow("dateDiffInDay") << "dateDiffInDay(a,b)" << false << true;
    QTest::newRow("dateDiffInSecond") << "dateDiffInSecond(a,b)" << false << true;
    QTest::newRow("dateTimeLT") << "dateTimeLT(a,b)" << false << true;
    QTest::newRow("dateTimeLE") << "dateTimeLE(a,b)" << false << true;
    QTest::newRow("dateLT") << "dateLT(a,b)" << false << true;
    QTest::newRow("dateLE") << "dateLE(a,b)" << false << true;
    QTest::newRow("dateWeekNumber") << "dateWeekNumber(a)" << false << true;
    QTest::newRow("dateDayOfWeek") << "dateDayOfWeek(a)" << false << true;
    QTest::newRow("inside a literal") << "\"toET(\" // s" << true << true;
    QTest::newRow("case-sensitive") << "TOET(x)" << false << false;
    QTest::newRow("name without bracket") << "toET" << false << false;
}

void tst_functions_date::prepareDatesFlags()
{
    QFETCH(QString, expression);
    QFETCH(bool, elapsedTime);
    QFETCH(bool, date);
    ExprContext c;
    c.etOriginMs = 12345;
    c.dateFormat = QStringLiteral("untouched");
    const int code = prepareDates(c, expression, QStringLiteral("20000101 00:00:00"),
                                  QStringLiteral("yyyy"));
    QCOMPARE(code, 0);
    QCOMPARE(c.etOriginMs != 12345, elapsedTime);
    if (elapsedTime)
        QCOMPARE(c.etOriginMs, qint64(946684800000) - QDateTime(QDate(2000, 1, 1), QTime(0, 0)).offsetFromUtc() * qint64(1000));
    QCOMPARE(c.dateFormat == QLatin1String("yyyy"), date);
    QCOMPARE(c.dateFormat == QLatin1String("untouched"), !date);
    // The flags of the context count as uses too, and are not changed.
    ExprContext n;
    n.usesNow = true;
    n.usesNowS = true;
    n.useUtc = true;
    QCOMPARE(prepareDates(n, QStringLiteral("1"), QStringLiteral("20000101 00:00:00"),
                          QStringLiteral("yyyy")),
             0);
    QCOMPARE(n.etOriginMs, qint64(946684800000));
    QCOMPARE(n.dateFormat, QStringLiteral("yyyy"));
    QVERIFY(n.usesNow && n.usesNowS);
}

void tst_functions_date::prepareDatesResultCodes()
{
    ExprContext c;
    c.etOriginMs = 99;
    QCOMPARE(prepareDates(c, QStringLiteral("etAdd(1,1,1,1)"), QString(), QString()), 1);
    QCOMPARE(c.etOriginMs, qint64(0));
    QCOMPARE(prepareDates(c, QStringLiteral("dateAdd(a,1,1,1)"), QString(), QString()), 2);
    QVERIFY(c.dateFormat.isEmpty());
    // A kind beyond the table leaves the format as it was.
    c.dateFormatKind = 7;
    c.dateFormat = QStringLiteral("kept");
    QCOMPARE(prepareDates(c, QStringLiteral("dateAdd(a,1,1,1)"), QString(), QString()), 0);
    QCOMPARE(c.dateFormat, QStringLiteral("kept"));
}

void tst_functions_date::prepareDatesLocaleFormats()
{
    const QLocale system = QLocale::system();
    const QString expected[7] = {QString(),
                                 system.dateFormat(QLocale::ShortFormat),
                                 system.dateFormat(QLocale::LongFormat),
                                 system.timeFormat(QLocale::ShortFormat),
                                 system.timeFormat(QLocale::LongFormat),
                                 system.dateTimeFormat(QLocale::ShortFormat),
                                 system.dateTimeFormat(QLocale::LongFormat)};
    for (int kind = 1; kind <= 6; ++kind) {
        ExprContext c;
        c.dateFormatKind = kind;
        QCOMPARE(prepareDates(c, QStringLiteral("toDate(1)"), QString(), QStringLiteral("x")),
                 1);
        QCOMPARE(c.dateFormat, expected[kind]);
    }
}

void tst_functions_date::prepareDatesSeedsTheGenerator()
{
    ExprContext c;
    c.randomSeed = 5489;
    prepareDates(c, QStringLiteral("1"), QString(), QString());
    QCOMPARE(c.random.index, 624u);
    QCOMPARE(c.random.words[0], 5489u);
}

void tst_functions_date::now()
{
    ExprContext c = utcDays();
    prepareDates(c, QStringLiteral("toET(x)"), c.etOriginText, c.dateFormatText);
    const qint64 before = QDateTime::currentMSecsSinceEpoch() / 86400000;
    const qint64 et = nowAsElapsedTime(c);
    const qint64 after = QDateTime::currentMSecsSinceEpoch() / 86400000;
    QVERIFY(et >= before && et <= after);
    c.etUnit = 5;
    QCOMPARE(nowAsElapsedTime(c), qint64(0));
    c.dateFormat = QStringLiteral("yyyy");
    QCOMPARE(nowAsString(c), QString::number(QDateTime::currentDateTimeUtc().date().year()));
}

void tst_functions_date::descriptions_data()
{
    addDescriptionColumns();
    static ExprContext context;
    ExprContext *c = &context;
    const auto row = &descriptionRow;
    row(new MuToET(c), "toET", 1, "toET(date) - convert a date (as a string) to an Elapsed Time");
    row(new MuToDate(c), "toDate", 1,
        "toDate(ET) - convert a date (as an Elapsed Time) to a string");
    row(new MuETAdd(c), "etAdd", 4,
        "etAdd(ET,y,M,d) - add a duration (in year, month and days) to an Elapsed Time");
    row(new MuDateAdd(c), "dateAdd", 4,
        "dateAdd(date,y,M,d) - add a duration (in year, month and days) to a date");
    row(new MuDateTimeAdd(c), "dateAddS", 2,
        "dateAddS(date,s) - add a duration (in seconds) to a date");
    row(new MuDatePrint(c), "datePrint", 2, "datePrint(date,format) - reformat a date");
    row(new MuETDiffInMonth(c), "etDiffInMonth", 2,
        "etDiffInMonth(x,y) - number of months between x and y");
    row(new MuETDiffInYear(c), "etDiffInYear", 2,
        "etDiffInYear(x,y) - number of years between x and y");
    row(new MuDateDiffInMonth(c), "dateDiffInMonth", 2,
        "dateDiffInMonth(x,y) - number of months between x and y");
    row(new MuDateDiffInYear(c), "dateDiffInYear", 2,
        "dateDiffInYear(x,y) - number of years between x and y");
    row(new MuDateDiffInDay(c), "dateDiffInDay", 2,
        "dateDiffInDay(x,y) - number of days between x and y");
    row(new MuDateDiffInSecond(c), "dateDiffInSecond", 2,
        "dateDiffInSecond(x,y) - number of seconds between x and y");
    row(new MuETWeekNumber(c), "etWeekNumber", 1,
        "etWeekNumber(x) - Returns the week number (1 to 53)");
    row(new MuDateWeekNumber(c), "dateWeekNumber", 1,
        "dateWeekNumber(date) - Returns the week number (1 to 53)");
    row(new MuETDayOfWeek(c), "etDayOfWeek", 1,
        "etDayOfWeek(et) - Returns the Day of Week(0=monday; 6=sunday)");
    row(new MuDateDayOfWeek(c), "dateDayOfWeek", 1,
        "dateDayOfWeek(date) - Returns the Day of Week(0=monday; 6=sunday)");
    row(new MuETFirstDayOfYear(c), "etFirstDayOfYear", 2,
        "etFirstDayOfYear(y,dow) - et of the first DayOfWeek(dow) of the year(y)");
    row(new MuDateFirstDayOfYear(c), "dateFirstDayOfYear", 2,
        "dateFirstDayOfYear(y,dow) - date of the first DayOfWeek(dow) of the year(y)");
    row(new MuDateBefore(c), "dateLT", 2, "dateLT(x,y) - returns date(x)<date(y)");
    row(new MuDateBeforeEqual(c), "dateLE", 2, "dateLE(x,y) - returns date(x)<=date(y)");
    row(new MuDateTimeBefore(c), "dateTimeLT", 2, "dateTimeLT(x,y) - returns x<y");
    row(new MuDateTimeBeforeEqual(c), "dateTimeLE", 2, "dateTimeLE(x,y) - returns x<=y");
}

void tst_functions_date::descriptions()
{
    checkDescription();
}

QTEST_GUILESS_MAIN(tst_functions_date)
#include "tst_functions_date.moc"
