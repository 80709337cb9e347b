#include "expr/input_var.h"
#include "expr/null_value.h"
#include "xml/xml_node.h"

#include <QtTest>

#include <cstdlib>
#include <cstring>

namespace {

// The <InputVar> element of a document text.
XmlNode parseElement(const QByteArray &text)
{
    XmlResult result;
    const XmlNode root = parseXmlText(text.constData(), nullptr, &result);
    if (root.name() && std::strcmp(root.name(), "InputVar") == 0)
        return root;
    return root.childNode("InputVar");
}

InputVar numberVar(const QString &column, const QString &label, const QString &label2,
                   QChar meta, double value)
{
    InputVar v(column, meta, value);
    v.label = label;
    v.label2 = label2;
    return v;
}

InputVar stringVar(const QString &column, const QString &label, const QString &label2,
                   QChar meta, const QString &value)
{
    InputVar v(column, meta, value);
    v.label = label;
    v.label2 = label2;
    return v;
}

QByteArray written(const InputVar &var)
{
    QByteArray out;
    appendInputVarXml(out, var);
    return out;
}

} // namespace

Q_DECLARE_METATYPE(InputVar)

class tst_input_var : public QObject
{
    Q_OBJECT

private slots:
    void numberConstruction();
    void stringConstruction();
    void varName_data();
    void varName();
    void write_data();
    void write();
    void writeAppends();
    void readBack_data();
    void readBack();
    void readDefaults_data();
    void readDefaults();
    void nullComesBackAsNaN();
    void emptyNode();
};

void tst_input_var::numberConstruction()
{
    const InputVar v(QStringLiteral("2014 sales"), QLatin1Char('C'), 12.5);
    QCOMPARE(v.column, QStringList(QStringLiteral("2014 sales")));
    QCOMPARE(v.label, QStringLiteral("_2014_sales"));
    QCOMPARE(v.value, 12.5);
    QVERIFY(v.isNumber);
    QCOMPARE(v.meta, QLatin1Char('C'));
    QVERIFY(v.stringValue.isNull());
    QVERIFY(v.label2.isNull());
}

void tst_input_var::stringConstruction()
{
    const InputVar v(QStringLiteral("town"), QLatin1Char('N'), QStringLiteral("Paris"));
    QCOMPARE(v.column, QStringList(QStringLiteral("town")));
    QCOMPARE(v.label, QStringLiteral("town"));
    QCOMPARE(v.stringValue, QStringLiteral("Paris"));
    QCOMPARE(v.value, 0.0);
    QVERIFY(!v.isNumber);
    QCOMPARE(v.meta, QLatin1Char('N'));
}

void tst_input_var::varName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("digits, blanks, brackets, euro")
        << QString::fromUtf8("2014 sales (\xE2\x82\xAC)") << "_2014_sales____";
    QTest::newRow("trimmed") << " a b " << "a_b";
    QTest::newRow("legal") << "Age_2" << "Age_2";
    QTest::newRow("underscore first") << "_9" << "_9";
    QTest::newRow("digit alone") << "9" << "_9";
    QTest::newRow("punctuation") << "a-b.c" << "a_b_c";
    QTest::newRow("accent") << QString::fromUtf8("\xC3\xA9t\xC3\xA9") << "_t_";
    QTest::newRow("tabs trimmed") << "\tx\n" << "x";
    QTest::newRow("empty") << "" << "";
}

void tst_input_var::varName()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(makeVarName(name), expected);
}

void tst_input_var::write_data()
{
    QTest::addColumn<InputVar>("var");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("number, plain")
        << InputVar(QStringLiteral("Age"), QLatin1Char('C'), 42.5)
        << QByteArray("    <InputVar column='Age' meta='C' value='42.5'/>\n");
    QTest::newRow("number, label and label2")
        << numberVar("2014 sales", "_2014_sales", "Sales 2014", 'C', 1e6)
        << QByteArray("    <InputVar column='2014 sales' label='_2014_sales' "
                      "label2='Sales 2014' meta='C' value='1e+006'/>\n");
    QTest::newRow("number, label2 only")
        << numberVar("AGE", "AGE", "Age of client", 'C', 0.85)
        << QByteArray("    <InputVar column='AGE' label2='Age of client' meta='C' "
                      "value='0.85'/>\n");
    QTest::newRow("number, NULL")
        << InputVar(QStringLiteral("x"), QLatin1Char('C'), quva::nullValue())
        << QByteArray("    <InputVar column='x' meta='C' value='nan'/>\n");
    QTest::newRow("string, plain")
        << InputVar(QStringLiteral("town"), QLatin1Char('N'), QStringLiteral("Paris"))
        << QByteArray("    <InputVar column='town' isNumber='0' meta='N' value='Paris'/>\n");
    QTest::newRow("string, label, label2, escaping")
        << stringVar("ville d'été", "ville_d__t_", QString::fromUtf8("Ville <été>"), 'N',
                     "a & 'b'")
        << QByteArray("    <InputVar column='ville d&apos;\xC3\xA9t\xC3\xA9' "
                      "label='ville_d__t_' label2='Ville &lt;\xC3\xA9t\xC3\xA9&gt;' "
                      "isNumber='0' meta='N' value='a &amp; &apos;b&apos;'/>\n");
    QTest::newRow("string, empty value")
        << InputVar(QStringLiteral("c"), QLatin1Char('N'), QString())
        << QByteArray("    <InputVar column='c' isNumber='0' meta='N' value=''/>\n");
    // The letter a file gave may be a quote, which would end the value.
    QTest::newRow("meta escaped")
        << InputVar(QStringLiteral("q"), QLatin1Char('\''), 1.0)
        << QByteArray("    <InputVar column='q' meta='&apos;' value='1'/>\n");
}

void tst_input_var::write()
{
    QFETCH(InputVar, var);
    QFETCH(QByteArray, text);
    QCOMPARE(written(var), text);
}

void tst_input_var::writeAppends()
{
    QByteArray out("<LineSelected>\n");
    appendInputVarXml(out, InputVar(QStringLiteral("a"), QLatin1Char('C'), 1.0));
    appendInputVarXml(out, InputVar(QStringLiteral("b"), QLatin1Char('C'), 2.0));
    QCOMPARE(out, QByteArray("<LineSelected>\n"
                             "    <InputVar column='a' meta='C' value='1'/>\n"
                             "    <InputVar column='b' meta='C' value='2'/>\n"));
}

void tst_input_var::readBack_data()
{
    QTest::addColumn<InputVar>("var");

    QTest::newRow("number, plain") << InputVar(QStringLiteral("Age"), QLatin1Char('C'), 42.5);
    QTest::newRow("number, label and label2")
        << numberVar("2014 sales", "_2014_sales", "Sales 2014", 'C', 1e6);
    QTest::newRow("number, negative small") << numberVar("v", "v", "", 'C', -1.5e-7);
    QTest::newRow("string, plain")
        << InputVar(QStringLiteral("town"), QLatin1Char('N'), QStringLiteral("Paris"));
    QTest::newRow("string, escaping")
        << stringVar("ville d'été", "ville_d__t_", "Ville <été>", 'N', "a & 'b'");
    QTest::newRow("string, looks like a number")
        << InputVar(QStringLiteral("zip"), QLatin1Char('N'), QStringLiteral("01234"));
}

void tst_input_var::readBack()
{
    QFETCH(InputVar, var);
    const QByteArray text = written(var);
    const XmlNode element = parseElement(text);
    QVERIFY2(!element.isEmpty(), text.constData());
    const InputVar back(element);
    QCOMPARE(back.column, var.column);
    QCOMPARE(back.label, var.label);
    QCOMPARE(back.label2, var.label2);
    QCOMPARE(back.isNumber, var.isNumber);
    QCOMPARE(back.meta, var.meta);
    QCOMPARE(back.value, var.value);
    QCOMPARE(back.stringValue, var.stringValue);
    // Written again, the element is the same bytes.
    QCOMPARE(written(back), text);
}

void tst_input_var::readDefaults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("label2Null");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QChar>("meta");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("stringValue");

    QTest::newRow("label missing keeps an illegal name")
        << QByteArray("<InputVar column='2014 sales (x)'/>") << "2014 sales (x)"
        << "2014 sales (x)" << true << true << QChar('U') << 0.0 << QString();
    QTest::newRow("empty label is the column")
        << QByteArray("<InputVar column='c' label='' value='3'/>") << "c" << "c" << true << true
        << QChar('U') << 3.0 << QString();
    QTest::newRow("label used as it stands")
        << QByteArray("<InputVar column='c' label='my var' meta='N' value='1e+006'/>") << "c"
        << "my var" << true << true << QChar('N') << 1e6 << QString();
    QTest::newRow("label2 empty is not null")
        << QByteArray("<InputVar column='c' label2='' value='2'/>") << "c" << "c" << false
        << true << QChar('U') << 2.0 << QString();
    QTest::newRow("string without value")
        << QByteArray("<InputVar column='c' isNumber='0' meta='N'/>") << "c" << "c" << true
        << false << QChar('N') << 0.0 << "";
    QTest::newRow("isNumber other than 0 is true")
        << QByteArray("<InputVar column='c' isNumber='2' meta='Cx' value='-4'/>") << "c" << "c"
        << true << true << QChar('C') << -4.0 << QString();
    QTest::newRow("column missing")
        << QByteArray("<InputVar value='1'/>") << "" << "" << true << true << QChar('U') << 1.0
        << QString();
    QTest::newRow("number that is no number reads 0")
        << QByteArray("<InputVar column='c' value='abc'/>") << "c" << "c" << true << true
        << QChar('U') << 0.0 << QString();
}

void tst_input_var::readDefaults()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, column);
    QFETCH(QString, label);
    QFETCH(bool, label2Null);
    QFETCH(bool, isNumber);
    QFETCH(QChar, meta);
    QFETCH(double, value);
    QFETCH(QString, stringValue);
    const XmlNode element = parseElement(text);
    QVERIFY(!element.isEmpty());
    const InputVar v(element);
    QCOMPARE(v.column, QStringList(column));
    QCOMPARE(v.label, label);
    QCOMPARE(v.label2.isNull(), label2Null);
    QCOMPARE(v.isNumber, isNumber);
    QCOMPARE(v.meta, meta);
    QCOMPARE(v.value, value);
    QCOMPARE(v.stringValue, stringValue);
    QCOMPARE(v.stringValue.isNull(), stringValue.isNull());
}

void tst_input_var::nullComesBackAsNaN()
{
    const InputVar original(QStringLiteral("x"), QLatin1Char('C'), quva::nullValue());
    QVERIFY(quva::isNull(original.value));
    const InputVar back(parseElement(written(original)));
    QVERIFY(back.isNumber);
    QVERIFY(quva::isNaN(back.value));
    QVERIFY(!quva::isNull(back.value));
}

void tst_input_var::emptyNode()
{
    const InputVar v{XmlNode()};
    QCOMPARE(v.column, QStringList(QString()));
    QVERIFY(v.label.isEmpty());
    QVERIFY(v.isNumber);
    QCOMPARE(v.meta, QLatin1Char('U'));
    QCOMPARE(v.value, 0.0);
}

QTEST_APPLESS_MAIN(tst_input_var)
#include "tst_input_var.moc"
