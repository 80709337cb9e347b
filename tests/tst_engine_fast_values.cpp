#include "expr/engine_fast/mup_parser.h"
#include "expr/null_value.h"

#include <QtTest>

using namespace mup;

Q_DECLARE_METATYPE(mup::Value)

class tst_engine_fast_values : public QObject
{
    Q_OBJECT

private slots:
    void typeOfDouble_data();
    void typeOfDouble();
    void assignments();
    void getBool_data();
    void getBool();
    void typeErrors_data();
    void typeErrors();
    void setNull();
    void copyKeepsPayloadOnly();
    void variableReadsThrough();
    void literals_data();
    void literals();
    void literalErrors_data();
    void literalErrors();
};

void tst_engine_fast_values::typeOfDouble_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QChar>("type");
    QTest::newRow("whole") << 3.0 << QChar('i');
    QTest::newRow("negative whole") << -42.0 << QChar('i');
    QTest::newRow("minus zero") << -0.0 << QChar('i');
    QTest::newRow("fraction") << 2.5 << QChar('f');
    QTest::newRow("2^62") << 4611686018427387904.0 << QChar('i');
    QTest::newRow("2^63 is out of range") << 9223372036854775808.0 << QChar('f');
    QTest::newRow("-2^63") << -9223372036854775808.0 << QChar('i');
    QTest::newRow("NULL") << quva::nullValue() << QChar('f');
    QTest::newRow("NaN") << quva::nanValue() << QChar('f');
    QTest::newRow("infinity") << quva::infinityValue() << QChar('f');
    QTest::newRow("-infinity") << -quva::infinityValue() << QChar('f');
}

void tst_engine_fast_values::typeOfDouble()
{
    QFETCH(double, number);
    QFETCH(QChar, type);
    QCOMPARE(Value(number).GetType(), type);
    Value v;
    v = number;
    QCOMPARE(v.GetType(), type);
    QCOMPARE(quva::toBits(v.GetFloat()), quva::toBits(number));
}

void tst_engine_fast_values::assignments()
{
    Value v;
    QCOMPARE(v.GetType(), QChar('v'));
    QCOMPARE(v.flags(), 0);
    QVERIFY(v.cache() == nullptr);
    v = true;
    QCOMPARE(v.GetType(), QChar('b'));
    QCOMPARE(v.GetFloat(), 1.0);
    v = false;
    QCOMPARE(v.GetFloat(), 0.0);
    v = QStringLiteral("abc");
    QCOMPARE(v.GetType(), QChar('s'));
    QCOMPARE(v.GetString(), QStringLiteral("abc"));
    v = 7;
    QCOMPARE(v.GetType(), QChar('i'));
    QCOMPARE(v.GetFloat(), 7.0);
    v = qint64(1) << 40;
    QCOMPARE(v.GetType(), QChar('i'));
    QCOMPARE(v.GetFloat(), 1099511627776.0);
    v = 0.5;
    QCOMPARE(v.GetType(), QChar('f'));
    v = "text";
    QCOMPARE(v.GetType(), QChar('s'));
    QCOMPARE(v.GetString(), QStringLiteral("text"));
    QCOMPARE(Value(3).GetType(), QChar('i'));
    QCOMPARE(Value(true).GetType(), QChar('b'));
    QCOMPARE(Value(QString()).GetType(), QChar('s'));
    QVERIFY(Value(QString()).GetString().isNull());
    QVERIFY(!Value(QStringLiteral("")).GetString().isNull());
}

void tst_engine_fast_values::getBool_data()
{
    QTest::addColumn<mup::Value>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("zero") << Value(0.0) << 0.0;
    QTest::newRow("two") << Value(2) << 1.0;
    QTest::newRow("fraction") << Value(0.25) << 1.0;
    QTest::newRow("NaN") << Value(quva::nanValue()) << 1.0;
    QTest::newRow("NULL") << Value(quva::nullValue()) << quva::nullValue();
    QTest::newRow("true") << Value(true) << 1.0;
    QTest::newRow("false") << Value(false) << 0.0;
    QTest::newRow("void") << Value() << 0.0;
}

void tst_engine_fast_values::getBool()
{
    QFETCH(mup::Value, value);
    QFETCH(double, expected);
    QCOMPARE(quva::toBits(value.GetBool()), quva::toBits(expected));
}

void tst_engine_fast_values::typeErrors_data()
{
    QTest::addColumn<mup::Value>("value");
    QTest::addColumn<int>("getter"); // 0 GetFloat, 1 GetBool, 2 GetString
    QTest::addColumn<QString>("message");
    QTest::newRow("string as float")
        << Value("ab") << 0
        << "Value \"ab\" is of type 's'. There is no implicit conversion to type 'f'";
    QTest::newRow("string as bool")
        << Value("ab") << 1
        << "Value \"ab\" is of type 's'. There is no implicit conversion to type 'b'";
    QTest::newRow("integer as string")
        << Value(12) << 2
        << "Value \"12\" is of type 'i'. There is no implicit conversion to type 's'";
    QTest::newRow("boolean as string")
        << Value(true) << 2
        << "Value \"true\" is of type 'b'. There is no implicit conversion to type 's'";
    QTest::newRow("void as float")
        << Value() << 0
        << "Value \"void\" is of type 'v'. There is no implicit conversion to type 'f'";
}

void tst_engine_fast_values::typeErrors()
{
    QFETCH(mup::Value, value);
    QFETCH(int, getter);
    QFETCH(QString, message);
    try {
        if (getter == 0)
            value.GetFloat();
        else if (getter == 1)
            value.GetBool();
        else
            value.GetString();
        QFAIL("no type error");
    } catch (const ParserError &e) {
        QCOMPARE(e.GetCode(), ecTYPE_CONFLICT);
        QCOMPARE(e.GetMsg(), message);
    }
}

void tst_engine_fast_values::setNull()
{
    Value v(5.5);
    v.SetNull();
    QCOMPARE(v.GetType(), QChar('b'));
    QVERIFY(quva::isNull(v.GetFloat()));
    QVERIFY(quva::isNull(v.GetBool()));
}

void tst_engine_fast_values::copyKeepsPayloadOnly()
{
    Value named(2.5);
    named.SetIdent(QStringLiteral("x"));
    named.SetExprPos(4);
    Value target("old");
    target.SetIdent(QStringLiteral("t"));
    target = named;
    QCOMPARE(target.GetType(), QChar('f'));
    QCOMPARE(target.GetFloat(), 2.5);
    QCOMPARE(target.GetIdent(), QStringLiteral("t"));
    const Value copy(named);
    QCOMPARE(copy.GetIdent(), QStringLiteral("x"));
    QCOMPARE(copy.GetExprPos(), 4);
}

void tst_engine_fast_values::variableReadsThrough()
{
    Value x(1.0);
    ParserX p;
    p.DefineVar(QStringLiteral("x"), Variable(&x));
    p.SetExpr(QStringLiteral("x*2"));
    QCOMPARE(p.Eval().GetFloat(), 2.0);
    x = 21;
    QCOMPARE(p.Eval().GetFloat(), 42.0);
    x = QStringLiteral("s");
    p.SetExpr(QStringLiteral("x"));
    QCOMPARE(p.Eval().GetString(), QStringLiteral("s"));
}

// Literal text, then the type and the number or string it must give.
void tst_engine_fast_values::literals_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<QChar>("type");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("string") << "\"abc\"" << QChar('s') << 0.0 << "abc";
    QTest::newRow("empty string") << "\"\"" << QChar('s') << 0.0 << "";
    QTest::newRow("escaped quote") << "\"a\\\"b\"" << QChar('s') << 0.0 << "a\"b";
    QTest::newRow("escaped backslash") << "\"a\\\\b\"" << QChar('s') << 0.0 << "a\\b";
    QTest::newRow("backslash n stays") << "\"a\\nb\"" << QChar('s') << 0.0 << "a\\nb";
    QTest::newRow("trailing backslash pair") << "\"a\\\\\"" << QChar('s') << 0.0 << "a\\";
    QTest::newRow("hex") << "0x1F" << QChar('i') << 31.0 << "";
    QTest::newRow("hex lower") << "0xff" << QChar('i') << 255.0 << "";
    QTest::newRow("integer") << "42" << QChar('i') << 42.0 << "";
    QTest::newRow("decimal") << "2.5" << QChar('f') << 2.5 << "";
    QTest::newRow("whole decimal") << "2.0" << QChar('i') << 2.0 << "";
    QTest::newRow("exponent") << "1e3" << QChar('i') << 1000.0 << "";
    QTest::newRow("leading point") << ".5" << QChar('f') << 0.5 << "";
    QTest::newRow("true") << "true" << QChar('b') << 1.0 << "";
    QTest::newRow("false") << "false" << QChar('b') << 0.0 << "";
    QTest::newRow("binary 101") << "#101" << QChar('i') << 5.0 << "";
    QTest::newRow("binary 31 digits") << "#" + QString(31, '1') << QChar('i') << 2147483647.0 << "";
    QTest::newRow("binary zero") << "#0" << QChar('i') << 0.0 << "";
    QTest::newRow("pi") << "_pi" << QChar('f') << 3.141592653589793 << "";
    QTest::newRow("e") << "_e" << QChar('f') << 2.718281828459045 << "";
    QTest::newRow("blanks around") << " \t 7 \n" << QChar('i') << 7.0 << "";
    QTest::newRow("nan word") << "nan" << QChar('f') << quva::nanValue() << "";
}

void tst_engine_fast_values::literals()
{
    QFETCH(QString, expr);
    QFETCH(QChar, type);
    QFETCH(double, number);
    QFETCH(QString, text);
    ParserX p;
    p.SetExpr(expr);
    const Value v = p.Eval();
    QCOMPARE(v.GetType(), type);
    if (type == QLatin1Char('s')) {
        QCOMPARE(v.GetString(), text);
        QCOMPARE(v.GetString().size(), text.size());
        QVERIFY(!v.GetString().isNull());
    } else {
        QCOMPARE(quva::toBits(v.GetFloat()), quva::toBits(number));
    }
}

void tst_engine_fast_values::literalErrors_data()
{
    QTest::addColumn<QString>("expr");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("pos");
    QTest::newRow("unterminated") << "1 // \"abc" << "Unterminated string starting at position 5"
                                  << 5;
    QTest::newRow("escaped closing quote") << "\"ab\\\"" << "Unterminated string starting at position 0"
                                           << 0;
    QTest::newRow("binary 32 digits") << "#" + QString(32, '1')
                                      << "Binary to integer conversion error (overflow)." << 0;
    // "#" with no digit is no literal, and nothing else reads it.
    QTest::newRow("lone #") << "#" << "Undefined token \"#\" found at position 0" << 0;
}

void tst_engine_fast_values::literalErrors()
{
    QFETCH(QString, expr);
    QFETCH(QString, message);
    QFETCH(int, pos);
    ParserX p;
    p.SetExpr(expr);
    try {
        p.Eval();
        QFAIL("no error");
    } catch (const ParserError &e) {
        QCOMPARE(e.GetMsg(), message);
        QCOMPARE(e.GetPos(), pos);
        QCOMPARE(e.GetExpr(), expr);
    }
}

QTEST_APPLESS_MAIN(tst_engine_fast_values)
#include "tst_engine_fast_values.moc"
