// The writer and the escaping: exact text of the output, and the round trip
// parse -> xmlText -> parse over a set of documents.

#include "xml_test_support.h"

#include <QtTest>

#include <random>

using xmltest::compareTrees;
using xmltest::text;

class tst_xml_write : public QObject
{
    Q_OBJECT

private slots:
    void write_data();
    void write();
    void emptyNode();
    void roundTrip_data();
    void roundTrip();
    void roundTripFiles_data();
    void roundTripFiles();
    void roundTripRandom();
    void escape_data();
    void escape();
    void escapeName_data();
    void escapeName();
    void escapeReusesBuffer();
    void escapeNull();
    void serializeMeasures();
    void formatNeedsStrippedInput();
    void indentationStopsAtTheLimit();
    void deepTreeWritten();
};

void tst_xml_write::write_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("formatted");
    QTest::addColumn<QByteArray>("plain");

    QTest::newRow("element without content")
        << QByteArray("<a></a>") << QByteArray("<a/>\n") << QByteArray("<a/>");
    QTest::newRow("attribute without value")
        << QByteArray("<a b c=1 d/>") << QByteArray("<a b c=\"1\" d/>\n")
        << QByteArray("<a b c=\"1\" d/>");
    QTest::newRow("attributes always in double quotes")
        << QByteArray("<a k='x \"y\"'/>") << QByteArray("<a k=\"x &quot;y&quot;\"/>\n")
        << QByteArray("<a k=\"x &quot;y&quot;\"/>");
    QTest::newRow("one text on one line")
        << QByteArray("<a>x</a>") << QByteArray("<a>x</a>\n") << QByteArray("<a>x</a>");
    QTest::newRow("text, child, text keep their order")
        << QByteArray("<a>x<b/>y</a>") << QByteArray("<a>\n\tx\n\t<b/>\n\ty\n</a>\n")
        << QByteArray("<a>x<b/>y</a>");
    QTest::newRow("depth in tabs")
        << QByteArray("<a><b><c>x</c><d/></b></a>")
        << QByteArray("<a>\n\t<b>\n\t\t<c>x</c>\n\t\t<d/>\n\t</b>\n</a>\n")
        << QByteArray("<a><b><c>x</c><d/></b></a>");
    QTest::newRow("mixed content at depth 1")
        << QByteArray("<r><p>one<b/>two</p></r>")
        << QByteArray("<r>\n\t<p>\n\t\tone\n\t\t<b/>\n\t\ttwo\n\t</p>\n</r>\n")
        << QByteArray("<r><p>one<b/>two</p></r>");
    QTest::newRow("ampersand in text")
        << QByteArray("<a>x &amp; y</a>") << QByteArray("<a>x &amp; y</a>\n")
        << QByteArray("<a>x &amp; y</a>");
    QTest::newRow("byte from an entity above 127 at the end")
        << QByteArray("<a>caf&#233;</a>") << QByteArray("<a>caf_</a>\n")
        << QByteArray("<a>caf_</a>");
    QTest::newRow("line feed passes unchanged")
        << QByteArray("<a v='1\n2'/>") << QByteArray("<a v=\"1\n2\"/>\n")
        << QByteArray("<a v=\"1\n2\"/>");
    QTest::newRow("raw sections keep their delimiters")
        << QByteArray("<a><![CDATA[<x>&]]><!-- c --><PRE>p</PRE></a>")
        << QByteArray("<a>\n\t<![CDATA[<x>&]]>\n\t<!-- c -->\n\t<PRE>p</PRE>\n</a>\n")
        << QByteArray("<a><![CDATA[<x>&]]><!-- c --><PRE>p</PRE></a>");
    QTest::newRow("DOCTYPE with subset keeps ]>")
        << QByteArray("<!DOCTYPE r [ <!ENTITY e \"v\"> ]>\n<r/>")
        << QByteArray("\t<!DOCTYPE r [ <!ENTITY e \"v\"> ]>\n<r/>\n")
        << QByteArray("<!DOCTYPE r [ <!ENTITY e \"v\"> ]><r/>");
    QTest::newRow("DOCTYPE without subset")
        << QByteArray("<!DOCTYPE html><r/>") << QByteArray("\t<!DOCTYPE html>\n<r/>\n")
        << QByteArray("<!DOCTYPE html><r/>");
    QTest::newRow("declaration and root")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r a='1'>t</r>")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r a=\"1\">t</r>\n")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?><r a=\"1\">t</r>");
    QTest::newRow("declaration without attributes")
        << QByteArray("<r><?pi?></r>") << QByteArray("<r>\n\t<?pi?>\n</r>\n")
        << QByteArray("<r><?pi?></r>");
    QTest::newRow("unnamed root with texts")
        << QByteArray("x<a/>y") << QByteArray("\tx\n<a/>\n\ty\n") << QByteArray("x<a/>y");
}

void tst_xml_write::write()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, formatted);
    QFETCH(QByteArray, plain);
    const XmlNode node = parseXmlText(input.constData(), nullptr, nullptr);
    QVERIFY(!node.isEmpty());
    QCOMPARE(text(node, true), formatted);
    QCOMPARE(text(node, false), plain);
    int size = -1;
    char *s = node.xmlText(true, &size);
    QCOMPARE(size, formatted.size());
    QCOMPARE(int(strlen(s)), size);
    free(s);
}

void tst_xml_write::emptyNode()
{
    int size = 77;
    QCOMPARE(XmlNode().xmlText(true, &size), nullptr);
    QCOMPARE(size, 0);
    QCOMPARE(XmlNode().xmlText(false), nullptr);
}

void tst_xml_write::roundTrip_data()
{
    QTest::addColumn<QByteArray>("input");

    QTest::newRow("mixed content") << QByteArray("<p>one <b>two</b> three<i/>four<u>x<v/></u></p>");
    QTest::newRow("comments") << QByteArray("<a><!-- first -->t<!-- mid -->u<b/><!-- last --></a>");
    QTest::newRow("CDATA") << QByteArray("<a>x<![CDATA[ <not> &a tag; ]]>y</a>");
    QTest::newRow("DOCTYPE with subset")
        << QByteArray("<!DOCTYPE r [\n <!ENTITY x \"y\">\n <!ELEMENT r ANY>\n]>\n<r>z</r>");
    QTest::newRow("declaration") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DESCRIPTION><COLS/></DESCRIPTION>");
    QTest::newRow("nested declaration") << QByteArray("<r><?pi a='1'?><x/></r>");
    QTest::newRow("attributes without values") << QByteArray("<a b c=1 d e='x y'><f g/></a>");
    QTest::newRow("entities") << QByteArray(
        "<a v='&lt;&amp;&quot;&apos;&gt;'>&LT;tag&GT; &amp; &#65;&#x42;</a>");
    QTest::newRow("multi-byte") << QByteArray("<a n='\xC3\xA9'>\xE2\x82\xAC \xF0\x9F\x98\x80</a>");
    QTest::newRow("PRE") << QByteArray("<a><PRE>  keep <b> </PRE></a>");
    QTest::newRow("two roots") << QByteArray("<a/><b>t</b>");
    QTest::newRow("description-like")
        << QByteArray("<DESCRIPTION><QUV_Config><datasource utf8='1' path='d.csv'/>"
                      "<Target>y</Target></QUV_Config><COLS><VALUE>"
                      "<COL name='a' label='A' auc='0.7'><LIMITS>AAAAAAAA8D8=</LIMITS>"
                      "<DUMMIES>AQAAAA==</DUMMIES></COL></VALUE></COLS></DESCRIPTION>");
}

void tst_xml_write::roundTrip()
{
    QFETCH(QByteArray, input);
    XmlResult result;
    const XmlNode first = parseXmlText(input.constData(), nullptr, &result);
    QCOMPARE(result.status, 0);
    for (bool format : {false, true}) {
        const QByteArray written = text(first, format);
        const XmlNode second = parseXmlText(written.constData(), nullptr, &result);
        QCOMPARE(result.status, 0);
        const QString diff = compareTrees(first.data(), second.data());
        QVERIFY2(diff.isEmpty(), qPrintable(diff + "\n" + QString::fromUtf8(written)));
        QCOMPARE(text(second, format), written);
    }
}

// The configurations and descriptions the other tests use, as real-sized
// documents read the way the application reads its files: each one written
// and read again gives the same tree. Files without an element (broken or
// empty on purpose) have no row.
void tst_xml_write::roundTripFiles_data()
{
    QTest::addColumn<QString>("path");
    const QStringList folders{"core", "batch", "xml"};
    int rows = 0;
    for (const QString &folder : folders) {
        const QDir dir(QStringLiteral(QUVA_TEST_DATA "/") + folder);
        const QStringList files = dir.entryList(QDir::Files, QDir::Name);
        for (const QString &file : files) {
            // An unnamed root without elements is a text without elements,
            // which reads back with its own status.
            const XmlNode tree = readXmlFile(dir.filePath(file), nullptr, nullptr);
            if (tree.isEmpty() || (tree.name() == nullptr && tree.childCount() == 0))
                continue;
            QTest::newRow(qPrintable(folder + "/" + file)) << dir.filePath(file);
            ++rows;
        }
    }
    QVERIFY(rows > 30);
}

void tst_xml_write::roundTripFiles()
{
    QFETCH(QString, path);
    const XmlNode first = readXmlFile(path, nullptr, nullptr);
    QVERIFY(!first.isEmpty());
    for (bool format : {false, true}) {
        const QByteArray written = text(first, format);
        XmlResult result;
        const XmlNode second = parseXmlText(written.constData(), nullptr, &result);
        QCOMPARE(result.status, 0);
        const QString diff = compareTrees(first.data(), second.data());
        QVERIFY2(diff.isEmpty(), qPrintable(diff + "\n" + QString::fromUtf8(written)));
        QCOMPARE(text(second, format), written);
    }
}

namespace {

// Random documents built from the pieces the reader keeps as they are:
// elements, attributes with and without value, texts with entities and
// multi-byte characters, comments, CDATA and nested declarations.
class DocumentMaker
{
public:
    explicit DocumentMaker(unsigned seed) : random(seed) {}

    QByteArray document()
    {
        QByteArray out;
        if (pick(3) == 0)
            out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        element(out, 0);
        return out;
    }

private:
    int pick(int n) { return int(random() % unsigned(n)); }

    QByteArray name()
    {
        static const char *const names[] = {"a", "Var", "COL", "b2", "QUV_Config", "x_y"};
        return names[pick(6)];
    }

    QByteArray word()
    {
        static const char *const words[] = {
            "one", "0.85", "&amp;", "&lt;x&gt;", "&quot;q&quot;", "it&apos;s", "&#65;",
            "\xC3\xA9t\xC3\xA9", "\xE2\x82\xAC", "a/b", "k=v", "?", "'", "\"", "1e+006"};
        return words[pick(15)];
    }

    QByteArray phrase()
    {
        QByteArray out = word();
        for (int n = pick(4); n > 0; --n)
            out += (pick(4) == 0 ? "\t" : " ") + word();
        return out;
    }

    void element(QByteArray &out, int depth)
    {
        const QByteArray tag = name();
        out += "<" + tag;
        for (int n = pick(4); n > 0; --n) {
            out += " " + name() + QByteArray::number(n);
            switch (pick(4)) {
            case 0: break; // no value
            case 1: out += "='" + phrase().replace("'", "&apos;") + "'"; break;
            case 2: out += "=\"" + phrase().replace("\"", "&quot;") + "\""; break;
            default: out += "=v" + QByteArray::number(pick(100)); break;
            }
        }
        const int parts = depth > 3 ? 0 : pick(5);
        if (parts == 0) {
            out += pick(2) ? "/>" : "></" + tag + ">";
            return;
        }
        out += ">";
        for (int i = 0; i < parts; ++i) {
            switch (pick(6)) {
            case 0:
            case 1: element(out, depth + 1); break;
            case 2: out += phrase(); break;
            case 3: out += "<!--" + phrase().replace("-", "") + "-->"; break;
            case 4: out += "<![CDATA[" + phrase() + " <raw> & ]]>"; break;
            default: out += "<?pi k=\"" + QByteArray::number(pick(9)) + "\"?>"; break;
            }
            if (pick(3) == 0)
                out += "\n  ";
        }
        out += "</" + (pick(3) ? tag : tag.toUpper()) + ">";
    }

    std::mt19937 random;
};

} // namespace

void tst_xml_write::roundTripRandom()
{
    DocumentMaker maker(20261121);
    for (int i = 0; i < 3000; ++i) {
        const QByteArray input = maker.document();
        XmlResult result;
        const XmlNode first = parseXmlText(input.constData(), nullptr, &result);
        QVERIFY2(result.status == 0, input.constData());
        for (bool format : {false, true}) {
            const QByteArray written = text(first, format);
            const XmlNode second = parseXmlText(written.constData(), nullptr, &result);
            QVERIFY2(result.status == 0, written.constData());
            const QString diff = compareTrees(first.data(), second.data());
            QVERIFY2(diff.isEmpty(), qPrintable(diff + "\ninput:\n" + QString::fromUtf8(input)
                                                + "\nwritten:\n" + QString::fromUtf8(written)));
            QCOMPARE(text(second, format), written);
        }
    }
}

void tst_xml_write::escape_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("escaped");

    QTest::newRow("plain") << QByteArray("abc") << QByteArray("abc");
    QTest::newRow("the five") << QByteArray("&<>\"'") << QByteArray("&amp;&lt;&gt;&quot;&apos;");
    QTest::newRow("controls pass") << QByteArray("a\nb\tc\x01") << QByteArray("a\nb\tc\x01");
    QTest::newRow("whole characters")
        << QByteArray("\xC3\xA9\xE2\x82\xAC") << QByteArray("\xC3\xA9\xE2\x82\xAC");
    QTest::newRow("cut at the end") << QByteArray("ab\xC3") << QByteArray("ab_");
    QTest::newRow("cut three-byte") << QByteArray("\xE2\x82") << QByteArray("_\x82");
    QTest::newRow("lone continuation") << QByteArray("\x80x") << QByteArray("\x80x");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    // A lead byte, as "&#231;" leaves it in a tree, before bytes that
    // continue no character: each is written on its own.
    QTest::newRow("false character") << QByteArray("\xE7</") << QByteArray("&#231;&lt;/");
    QTest::newRow("false character, last")
        << QByteArray("a\xC3'b") << QByteArray("a&#195;&apos;b");
}

// Names have no entities: a false character in a name goes whole.
void tst_xml_write::escapeName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("written");

    QTest::newRow("plain") << QByteArray("a-b.c") << QByteArray("a-b.c");
    QTest::newRow("whole characters") << QByteArray("\xC3\xA9t\xC3\xA9") << QByteArray("\xC3\xA9t\xC3\xA9");
    QTest::newRow("false character") << QByteArray("a\xE7</b") << QByteArray("a_b");
    QTest::newRow("cut at the end") << QByteArray("ab\xE2\x82") << QByteArray("ab_");
    QTest::newRow("lone quote first") << QByteArray("\"v") << QByteArray("_v");
    QTest::newRow("quote later") << QByteArray("v\"") << QByteArray("v\"");
}

void tst_xml_write::escapeName()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, written);
    QByteArray out(encodeName(name.constData(), nullptr), 0);
    encodeName(name.constData(), out.data());
    QCOMPARE(out, written);
}

void tst_xml_write::escape()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, escaped);
    XmlEscapeBuffer buffer;
    QCOMPARE(QByteArray(xmlEscape(&buffer, input.constData())), escaped);
    QVERIFY(buffer.capacity >= escaped.size() + 1);
    QCOMPARE(encodeEntities(input.constData(), nullptr), escaped.size());
    freeEscapeBuffer(&buffer);
    QCOMPARE(buffer.buffer, nullptr);
    QCOMPARE(buffer.capacity, 0);
}

void tst_xml_write::escapeReusesBuffer()
{
    const char *first = xmlEscape(&xmlEscapeBuffer, "a very long text & more, long enough");
    const QByteArray kept(first);
    const int capacity = xmlEscapeBuffer.capacity;
    const char *second = xmlEscape(&xmlEscapeBuffer, "<b>");
    QCOMPARE(second, first);
    QCOMPARE(QByteArray(first), QByteArray("&lt;b&gt;"));
    QVERIFY(kept != QByteArray(first));
    QCOMPARE(xmlEscapeBuffer.capacity, capacity); // the buffer never shrinks
}

void tst_xml_write::escapeNull()
{
    XmlEscapeBuffer buffer;
    QCOMPARE(QByteArray(xmlEscape(&buffer, nullptr)), QByteArray(""));
    QVERIFY(buffer.capacity >= 1);
    freeEscapeBuffer(&buffer);
}

void tst_xml_write::serializeMeasures()
{
    const XmlNode node = parseXmlText("<a k='&amp;'><b>t</b>u<!--c--></a>", nullptr, nullptr);
    for (int format : {-1, 0, 3}) {
        const int length = serializeNode(node.data(), nullptr, format);
        QByteArray buffer(length + 8, '#');
        QCOMPARE(serializeNode(node.data(), buffer.data(), format), length);
        QCOMPARE(buffer.mid(length), QByteArray(8, '#')); // nothing written past the length
    }
    QByteArray deep(64, 0);
    const XmlNode b = node.childNode("b");
    const int n = serializeNode(b.data(), deep.data(), 2);
    QCOMPARE(deep.left(n), QByteArray("\t\t<b>t</b>\n"));
}

// Formatting adds white space that only a stripping reader removes again.
void tst_xml_write::formatNeedsStrippedInput()
{
    const XmlNode node = parseXmlText("<a><b/></a>", nullptr, nullptr);
    xmlOptions.stripWhitespace = false;
    const QByteArray written = text(node, true);
    xmlOptions.stripWhitespace = true;
    QCOMPARE(written, QByteArray("<a><b/></a>"));
    QCOMPARE(text(node, true), QByteArray("<a>\n\t<b/>\n</a>\n"));
}

// Deeper elements keep the indentation of the limit.
void tst_xml_write::indentationStopsAtTheLimit()
{
    const int depth = xmlIndentLimit + 8;
    const QByteArray input = QByteArray("<a>").repeated(depth) + "x";
    const XmlNode node = parseXmlText(input.constData(), nullptr, nullptr);
    const QList<QByteArray> lines = text(node, true).split('\n');
    QCOMPARE(lines.size(), 2 * depth); // the last line break ends an empty line
    for (int k = 0; k < depth; ++k) {
        const QByteArray tabs(qMin(k, xmlIndentLimit), '\t');
        const QByteArray expected = k + 1 < depth ? tabs + "<a>" : tabs + "<a>x</a>";
        QCOMPARE(lines.at(k), expected);
        if (k + 1 < depth)
            QCOMPARE(lines.at(2 * depth - 2 - k), tabs + "</a>");
    }
}

// A tree far deeper than the machine's stack allows for recursion is
// written whole, and formatted in a text linear in its depth.
void tst_xml_write::deepTreeWritten()
{
    const int depth = 200000;
    const QByteArray input = QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    const XmlNode node = parseXmlText(input.constData(), nullptr, nullptr);
    QCOMPARE(text(node, false),
             QByteArray("<a>").repeated(depth - 1) + "<a/>" + QByteArray("</a>").repeated(depth - 1));
    // Every element with a child: an opening and a closing line; the last
    // one a single line.
    qint64 expected = qMin(depth - 1, xmlIndentLimit) + 5;
    for (int k = 0; k + 1 < depth; ++k)
        expected += 2 * qMin(k, xmlIndentLimit) + 9;
    QCOMPARE(qint64(text(node, true).size()), expected);
}

QTEST_GUILESS_MAIN(tst_xml_write)
#include "tst_xml_write.moc"
