// The IPv4 functions of the language: the scanner, the values and their
// description texts.

#include "functions_eval.h"

#include "expr/functions/ipv4_callbacks.h"
#include "expr/functions/ipv4_functions.h"

#include <QtTest>

class tst_functions_ipv4 : public QObject
{
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void descriptions_data();
    void descriptions();
    void nonStringIsTypeError_data();
    void nonStringIsTypeError();
    void notInTheCompiledEngine();
};

namespace {

QString address(quint32 a, quint32 b, quint32 c, quint32 d)
{
    return QStringLiteral("i ") + QString::number((a << 24) + (b << 16) + (c << 8) + d);
}

} // namespace

void tst_functions_ipv4::values_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    auto row = [](const char *e, const QString &v) {
        QTest::newRow(e) << QString::fromUtf8(e) << v;
    };
    auto text = [](const char *v) { return QString::fromUtf8(v); };

    row("isip4(\"1.2.3.4\")", text("i 1"));
    row("isip4(\" 1 . 2 . 3 . 4 \")", text("i 1"));
    row("isip4(\"\t1.2.3.4\t\")", text("i 1"));
    row("isip4(\"1.2.3\")", text("i 0"));
    row("isip4(\"1.2.3.256\")", text("i 0"));
    row("isip4(\"1.2.3.255\")", text("i 1"));
    row("isip4(\"1.2.3.4.5\")", text("i 0"));
    row("isip4(\"1.2..4\")", text("i 0"));
    row("isip4(\"1.2.3.4x\")", text("i 0"));
    row("isip4(\"1234.1.1.1\")", text("i 0"));
    row("isip4(\"1.2.3.04\")", text("i 1"));
    row("isip4(\"\")", text("i 0"));
    row("isip4(_nullS)", text("i 0"));
    row("ip4tof(\"1.2.3.4\")", text("i 16909060"));
    row("ip4tof(\"255.255.255.255\")", text("i 4294967295"));
    row("ip4tof(\"128.0.0.0\")", text("i 2147483648"));
    row("ip4tof(\"999.1.1.1\")", text("i 16760504577"));
    row("ip4tof(\"1..3.4\")", text("i 16777988"));
    row("ip4tof(\" 1 . 2 . 3 . 4 \")", text("i 16909060"));
    row("ip4tof(\"1.2.3\")", text("f NULL"));
    row("ip4tof(\"1.2.3x4\")", text("f NULL"));
    row("ip4tof(_nullS)", text("f NULL"));
    row("ip4RangeLow(\"10.1.2.3/8\")", address(10, 0, 0, 0));
    row("ip4RangeHigh(\"10.1.2.3/8\")", address(11, 0, 0, 0));
    row("ip4RangeLow(\"10.1.2.3/32\")", address(10, 1, 2, 3));
    row("ip4RangeHigh(\"10.1.2.3/32\")", address(10, 1, 2, 4));
    row("ip4RangeLow(\"10.1.2.3/ 24 \")", address(10, 1, 2, 0));
    row("ip4RangeLow(\"192.168.7.9/1\")", address(128, 0, 0, 0));
    row("ip4RangeHigh(\"255.255.255.255/1\")", text("i 0"));
    row("ip4RangeHigh(\"255.255.255.255/32\")", text("i 0"));
    row("ip4RangeLow(\"1.256.0.0/32\")", address(2, 0, 0, 0));
    row("ip4RangeLow(\"10.1.2.3\")", text("f NULL"));
    row("ip4RangeLow(\"10.1.2.3/0\")", text("f NULL"));
    row("ip4RangeLow(\"10.1.2.3/33\")", text("f NULL"));
    row("ip4RangeHigh(\"10.1.2.3/33\")", text("f NULL"));
    row("ip4RangeLow(\"10.1.2.3/8x\")", text("f NULL"));
    row("ip4RangeLow(_nullS)", text("f NULL"));
    row("ip4part(\"1.2.3.4\",0)", text("i 1"));
    row("ip4part(\"1.2.3.4\",1)", text("i 2"));
    row("ip4part(\"1.2.3.4\",2)", text("i 3"));
    row("ip4part(\"1.2.3.4\",3)", text("i 4"));
    row("ip4part(\"1.2.3.4\",7)", text("i 4"));
    row("ip4part(\"1.2.3.4\",1.9)", text("i 2"));
    row("ip4part(\" 10 .x.3.4\",0)", text("i 10"));
    row("ip4part(\"1.x.3.4\",1)", text("i 0"));
    row("ip4part(\"1.2.3\",3)", text("f NULL"));
    row("ip4part(\"1.2.3\",2)", text("f NULL"));
    row("ip4part(\"1.2\",1)", text("f NULL"));
    row("ip4part(\"1\",0)", text("f NULL"));
    row("ip4part(_nullS,0)", text("f NULL"));
}

void tst_functions_ipv4::values()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    QCOMPARE(evalFast(expression), expected);
}

void tst_functions_ipv4::descriptions_data()
{
    addDescriptionColumns();
    const auto row = &descriptionRow;
    row(new IsIP4, "isip4", 1, "isip4(x) - test if x is a TCP-IP v4 address.");
    row(new IP4tof, "ip4tof", 1, "ip4tof(x) - convert a tcp-ip v4 address to a number.");
    row(new IP4Part, "ip4part", 2,
        "ip4part(ip,pos) - extract one of the 4 parts of a tcp-ip v4 address.");
    row(new IP4RangeLow, "ip4RangeLow", 1,
        "ip4RangeLow(x) - convert the lower bound of a tcp-ip v4 address-range to a number.");
    row(new IP4RangeHigh, "ip4RangeHigh", 1,
        "ip4RangeHigh(x) - convert the upper bound of a tcp-ip v4 address-range to a number.");
}

void tst_functions_ipv4::descriptions()
{
    checkDescription();
}

void tst_functions_ipv4::nonStringIsTypeError_data()
{
    QTest::addColumn<QString>("expression");
    const char *rows[] = {"isip4(1)", "ip4tof(_null)", "ip4RangeLow(3)", "ip4RangeHigh(true)",
                          "ip4part(1,0)", "ip4part(\"1.2.3.4\",\"0\")"};
    for (const char *e : rows)
        QTest::newRow(e) << QString::fromLatin1(e);
}

void tst_functions_ipv4::nonStringIsTypeError()
{
    QFETCH(QString, expression);
    QCOMPARE(evalFast(expression), QStringLiteral("error 19"));
}

void tst_functions_ipv4::notInTheCompiledEngine()
{
    QCOMPARE(evalFastest(QStringLiteral("isip4(\"1.2.3.4\")")), QStringLiteral("error"));
    QCOMPARE(quva::isIp4(QStringLiteral("1.2.3.4")), 1);
    QCOMPARE(quva::ip4ToNumber(QStringLiteral("0.0.1.0")), 256.0);
    // Blanks are blank, tab, carriage return and line feed.
    QCOMPARE(quva::isIp4(QStringLiteral("\r\n1.2.3.4\n\r")), 1);
    QCOMPARE(quva::isIp4(QStringLiteral("\v1.2.3.4")), 0);
}

QTEST_GUILESS_MAIN(tst_functions_ipv4)
#include "tst_functions_ipv4.moc"
