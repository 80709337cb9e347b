// The reader: tokens, elements, attributes, raw sections, entities, and the
// status with its position for every failure a text can produce.

#include "xml_test_support.h"

#include <QtTest>

using xmltest::dump;

class tst_xml_parse : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void status_data();
    void status();
    void nullText();
    void emptyText();
    void attributeWithoutValue();
    void attributeIterator();
    void entities_data();
    void entities();
    void decodeEntitiesDirect();
    void tokens();
    void utf8SizeTableBoundaries();
    void manyChildrenLineAndColumn();
    void deepNesting_data();
    void deepNesting();
};

// Rows: input, tag, expected tree, expected status.
void tst_xml_parse::parse_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<int>("status");

    QTest::newRow("single element") << QByteArray("<a/>") << QByteArray() << QByteArray("a") << 0;
    QTest::newRow("nested") << QByteArray("<a><b>x</b><c/></a>") << QByteArray()
                            << QByteArray("a(b(\"x\") c)") << 0;
    QTest::newRow("quotes optional") << QByteArray("<a b=1 c='2' d=\"3\"/>") << QByteArray()
                                     << QByteArray("a{b=1,c=2,d=3}") << 0;
    QTest::newRow("closing tag in another case")
        << QByteArray("<Abc>t</aBC>") << QByteArray() << QByteArray("Abc(\"t\")") << 0;
    QTest::newRow("closing tag at the very top keeps what was read")
        << QByteArray("<a/></b><c/>") << QByteArray() << QByteArray("a") << 1;
    QTest::newRow("text ends inside an element")
        << QByteArray("<a>\n  <b>x</b>\n  tail") << QByteArray()
        << QByteArray("a(b(\"x\") \"tail\")") << 1;
    QTest::newRow("element closed by its parent's tag")
        << QByteArray("<a><b>x</a>") << QByteArray() << QByteArray("a(b(\"x\"))") << 1;
    QTest::newRow("unknown closing tag travels to the root")
        << QByteArray("<a><b></zz></b></a>") << QByteArray() << QByteArray("-") << 6;
    QTest::newRow("unknown entity drops the tree")
        << QByteArray("<a><b>x &foo; y</b></a>") << QByteArray() << QByteArray("-") << 12;
    QTest::newRow("blank comment kept with its blanks")
        << QByteArray("<a><!--   --></a>") << QByteArray() << QByteArray("a([<!--|   |-->])") << 0;
    QTest::newRow("empty comment adds nothing")
        << QByteArray("<a><!----></a>") << QByteArray() << QByteArray("a") << 0;
    QTest::newRow("only a declaration")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") << QByteArray()
        << QByteArray("?xml{version=1.0,encoding=UTF-8}") << 0;
    QTest::newRow("declaration holds the real root")
        << QByteArray("<?xml version=\"1.0\"?>\n<r a='1'/>\n") << QByteArray()
        << QByteArray("?xml{version=1.0}(r{a=1})") << 0;
    QTest::newRow("declaration, root by tag") << QByteArray("<?xml version=\"1.0\"?>\n<r a='1'/>\n")
                                              << QByteArray("R") << QByteArray("r{a=1}") << 0;
    QTest::newRow("unquoted value in a declaration loses its question mark")
        << QByteArray("<?xml version=1.0?><r/>") << QByteArray()
        << QByteArray("?xml{version=1.0}(r)") << 0;
    QTest::newRow("nested declaration closes at once")
        << QByteArray("<r><?pi a=\"1\"?><x/></r>") << QByteArray() << QByteArray("r(?pi{a=1} x)")
        << 0;
    QTest::newRow("declaration without attributes")
        << QByteArray("<r><?pi?><x/></r>") << QByteArray() << QByteArray("r(?pi x)") << 0;
    QTest::newRow("nested declaration with unquoted value")
        << QByteArray("<r><?pi a=1?><x/></r>") << QByteArray() << QByteArray("r(?pi{a=1} x)") << 0;
    QTest::newRow("root by tag among siblings")
        << QByteArray("<a/><b k=v/><b/>") << QByteArray("B") << QByteArray("b{k=v}") << 0;
    QTest::newRow("root not found")
        << QByteArray("<a/>") << QByteArray("b") << QByteArray("-") << 11;
    QTest::newRow("empty string with tag")
        << QByteArray("") << QByteArray("a") << QByteArray("-") << 11;
    QTest::newRow("two roots stay under the unnamed root")
        << QByteArray("<a/>\n<b/>") << QByteArray() << QByteArray("#root(a b)") << 0;
    QTest::newRow("text without elements")
        << QByteArray("  just text ") << QByteArray() << QByteArray("#root(\"just text\")") << 2;
    QTest::newRow("mixed content keeps its order")
        << QByteArray("<p>one <b>two</b> three<i/>four</p>") << QByteArray()
        << QByteArray("p(\"one\" b(\"two\") \"three\" i \"four\")") << 0;
    QTest::newRow("white space inside a text is kept")
        << QByteArray("<a>  x \t y \r\n</a>") << QByteArray() << QByteArray("a(\"x \t y\")") << 0;
    QTest::newRow("comment between texts joins them")
        << QByteArray("<a>one <!-- c --> two</a>") << QByteArray() << QByteArray("a(\"onetwo\")")
        << 0;
    QTest::newRow("comment after the last text stays")
        << QByteArray("<a>one<!-- c --></a>") << QByteArray()
        << QByteArray("a(\"one\" [<!--| c |-->])") << 0;
    QTest::newRow("comment ahead of the first text stays")
        << QByteArray("<a><!--c-->one</a>") << QByteArray() << QByteArray("a([<!--|c|-->] \"one\")")
        << 0;
    QTest::newRow("CDATA between texts is not merged")
        << QByteArray("<a>x<![CDATA[<y>]]>z</a>") << QByteArray()
        << QByteArray("a(\"x\" [<![CDATA[|<y>|]]>] \"z\")") << 0;
    QTest::newRow("DOCTYPE without subset") << QByteArray("<!DOCTYPE html><r/>") << QByteArray()
                                            << QByteArray("#root([<!DOCTYPE| html|>] r)") << 0;
    QTest::newRow("DOCTYPE with subset")
        << QByteArray("<!DOCTYPE r [ <!ENTITY x \"y\"> ]><r/>") << QByteArray()
        << QByteArray("#root([<!DOCTYPE| r [ <!ENTITY x \"y\"> |]>] r)") << 0;
    QTest::newRow("PRE is raw in capitals")
        << QByteArray("<a><PRE>x<b>&amp;</b></PRE></a>") << QByteArray()
        << QByteArray("a([<PRE>|x<b>&amp;</b>|</PRE>])") << 0;
    QTest::newRow("pre in lower case is an element")
        << QByteArray("<a><pre>x</pre></a>") << QByteArray() << QByteArray("a(pre(\"x\"))") << 0;
    QTest::newRow("lone quote in a body") << QByteArray("<a>it's <b/> fine</a>") << QByteArray()
                                          << QByteArray("a(\"it's\" b \"fine\")") << 0;
    QTest::newRow("quoted value with blanks and slash")
        << QByteArray("<a p='x y/z'/>") << QByteArray() << QByteArray("a{p=x y/z}") << 0;
    QTest::newRow("unquoted value with slash")
        << QByteArray("<a p=x/y q=1/>") << QByteArray() << QByteArray("a{p=x/y,q=1}") << 0;
    // The question mark is only dropped when the tag closes, so here it is
    // a name of its own.
    QTest::newRow("question mark as attribute name")
        << QByteArray("<?pi ?=\"v\" k=1?><r/>") << QByteArray() << QByteArray("?pi{?=v,k=1}(r)")
        << 0;
    QTest::newRow("raw section fails after the element count is known")
        << QByteArray("<!DOCTYPE r [ <!ENTITY x> ") << QByteArray() << QByteArray("#root") << 2;
    QTest::newRow("multi-byte text")
        << QByteArray("<a n=\"\xC3\xA9t\xC3\xA9\">\xE2\x82\xAC</a>") << QByteArray()
        << QByteArray("a{n=\xC3\xA9t\xC3\xA9}(\"\xE2\x82\xAC\")") << 0;
    QTest::newRow("space inside tag delimiters")
        << QByteArray("< a  k = \"v\" >x</ a >") << QByteArray() << QByteArray("a{k=v}(\"x\")")
        << 0;
}

void tst_xml_parse::parse()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, tag);
    QFETCH(QByteArray, tree);
    QFETCH(int, status);
    XmlResult result;
    const XmlNode node =
        parseXmlText(input.constData(), tag.isNull() ? nullptr : tag.constData(), &result);
    QCOMPARE(dump(node), tree);
    QCOMPARE(result.status, status);
    if (status == 0) {
        QCOMPARE(result.line, 0);
        QCOMPARE(result.column, 0);
    }
}

// Every status a text can produce, with its position. (3, 10 and 14 belong
// to the file reader and are tested there.)
void tst_xml_parse::status_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("kept");

    QTest::newRow("1 text ends inside an element")
        << QByteArray("<a><b></b>") << QByteArray() << 1 << 1 << 11 << true;
    QTest::newRow("1 wrong closing tag, position behind it")
        << QByteArray("<a>\n<b>\n</a>") << QByteArray() << 1 << 3 << 5 << true;
    QTest::newRow("1 text ends inside, over lines")
        << QByteArray("<a>\n  <b>x</b>\n  tail") << QByteArray() << 1 << 3 << 7 << true;
    QTest::newRow("2 empty string") << QByteArray("") << QByteArray() << 2 << 1 << 1 << true;
    QTest::newRow("2 only text") << QByteArray("just text") << QByteArray() << 2 << 1 << 10 << true;
    QTest::newRow("4 no tag name")
        << QByteArray("<a>\n<></a>") << QByteArray() << 4 << 2 << 3 << false;
    QTest::newRow("4 no declaration name")
        << QByteArray("<a><?=x?></a>") << QByteArray() << 4 << 1 << 7 << false;
    QTest::newRow("5 nothing behind </")
        << QByteArray("<a></ >") << QByteArray() << 5 << 1 << 8 << false;
    QTest::newRow("5 two words in a closing tag")
        << QByteArray("<a></a b>") << QByteArray() << 5 << 1 << 9 << false;
    QTest::newRow("6 closing tag on the only element")
        << QByteArray("<a></b>") << QByteArray() << 6 << 1 << 8 << false;
    QTest::newRow("7 comment without end")
        << QByteArray("<a><!-- x") << QByteArray() << 7 << 1 << 8 << false;
    QTest::newRow("7 CDATA without end")
        << QByteArray("<a>\n<![CDATA[ x ]>") << QByteArray() << 7 << 2 << 10 << false;
    QTest::newRow("7 DOCTYPE subset without end")
        << QByteArray("<a><!DOCTYPE r [ <!ENTITY x> ") << QByteArray() << 7 << 1 << 13 << false;
    QTest::newRow("8 less-than inside a quoted value")
        << QByteArray("<a b=\"x<y\">") << QByteArray() << 8 << 1 << 9 << false;
    QTest::newRow("8 equals without name")
        << QByteArray("<a =1/>") << QByteArray() << 8 << 1 << 5 << false;
    QTest::newRow("8 two equals") << QByteArray("<a b==1/>") << QByteArray() << 8 << 1 << 7
                                  << false;
    QTest::newRow("11 root not found")
        << QByteArray("<a/>") << QByteArray("b") << 11 << 0 << 0 << false;
    QTest::newRow("12 unknown entity")
        << QByteArray("<a>x &foo; y</a>") << QByteArray() << 12 << 1 << 15 << false;
    QTest::newRow("12 numeric entity without semicolon")
        << QByteArray("<a v=\"&#65\"/>") << QByteArray() << 12 << 1 << 12 << false;
    QTest::newRow("12 bad digit") << QByteArray("<a>&#1a;</a>") << QByteArray() << 12 << 1 << 11
                                  << false;
    QTest::newRow("12 entity cut by the end of the value")
        << QByteArray("<a v='&am'/>") << QByteArray() << 12 << 1 << 11 << false;
    QTest::newRow("13 entity above 255")
        << QByteArray("<a v='&#256;'/>") << QByteArray() << 13 << 1 << 14 << false;
    QTest::newRow("13 hexadecimal entity above 255")
        << QByteArray("<a>\n\n&#x100;</a>") << QByteArray() << 13 << 3 << 10 << false;
}

void tst_xml_parse::status()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, tag);
    QFETCH(int, status);
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(bool, kept);
    XmlResult result;
    const XmlNode node =
        parseXmlText(input.constData(), tag.isNull() ? nullptr : tag.constData(), &result);
    QCOMPARE(result.status, status);
    QCOMPARE(result.line, line);
    QCOMPARE(result.column, column);
    QCOMPARE(!node.isEmpty(), kept);
}

void tst_xml_parse::nullText()
{
    XmlResult result;
    result.status = -1;
    result.line = result.column = 7;
    QVERIFY(parseXmlText(nullptr, nullptr, &result).isEmpty());
    QCOMPARE(result.status, int(XmlResult::noText));
    QCOMPARE(result.line, 0);
    QCOMPARE(result.column, 0);
    QVERIFY(parseXmlText(nullptr, "a", nullptr).isEmpty());
}

// Only a null pointer is "no text": the empty string is a document without
// elements, and its unnamed root is kept.
void tst_xml_parse::emptyText()
{
    XmlResult result;
    const XmlNode node = parseXmlText("", nullptr, &result);
    QCOMPARE(result.status, int(XmlResult::noElements));
    QVERIFY(!node.isEmpty());
    QCOMPARE(node.name(), nullptr);
    QCOMPARE(node.childCount(), 0);
    QCOMPARE(node.textCount(), 0);
    QCOMPARE(node.clearCount(), 0);
    const XmlNode tagged = parseXmlText("", "a", &result);
    QVERIFY(tagged.isEmpty());
    QCOMPARE(result.status, int(XmlResult::rootNotFound));
}

void tst_xml_parse::attributeWithoutValue()
{
    const XmlNode node = parseXmlText("<a b c=1 d/>", nullptr, nullptr);
    QCOMPARE(node.attributeCount(), 3);
    QCOMPARE(node.attributeName(0), "b");
    QCOMPARE(node.attribute("b"), nullptr);
    QCOMPARE(node.attribute("missing"), nullptr);
    QCOMPARE(node.attribute("c"), "1");
    QCOMPARE(node.attributeName(2), "d");
    QCOMPARE(node.attributeValue(2), nullptr);
}

void tst_xml_parse::attributeIterator()
{
    const XmlNode node = parseXmlText("<a k=1 x=0 K=2 k=3/>", nullptr, nullptr);
    int it = 0;
    QByteArray seen;
    while (const char *v = node.attribute("k", &it))
        seen += v;
    QCOMPARE(seen, QByteArray("123"));
    QCOMPARE(it, 4);
}

void tst_xml_parse::entities_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("the five") << QByteArray("&amp;&lt;&gt;&quot;&apos;") << QByteArray("&<>\"'");
    QTest::newRow("capitals") << QByteArray("&AMP;&Lt;&GT;&QUOT;&Apos;") << QByteArray("&<>\"'");
    QTest::newRow("decimal") << QByteArray("x&#65;y") << QByteArray("xAy");
    QTest::newRow("hexadecimal") << QByteArray("&#x41;&#X4a;&#x6A;") << QByteArray("AJj");
    QTest::newRow("233 is one byte") << QByteArray("caf&#233;") << QByteArray("caf\xE9");
    QTest::newRow("255") << QByteArray("&#255;") << QByteArray("\xFF");
    QTest::newRow("no digits give byte 0") << QByteArray("ab&#;cd") << QByteArray("ab");
    QTest::newRow("in a value") << QByteArray("a &amp; b") << QByteArray("a & b");
}

void tst_xml_parse::entities()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, text);
    const QByteArray doc = "<a v=\"" + input + "\">" + input + "</a>";
    XmlResult result;
    const XmlNode node = parseXmlText(doc.constData(), nullptr, &result);
    QCOMPARE(result.status, 0);
    QCOMPARE(QByteArray(node.textAt(0)), text);
    QCOMPARE(QByteArray(node.attribute("v")), text);
}

void tst_xml_parse::decodeEntitiesDirect()
{
    XmlParseState state;
    char *s = decodeEntities("a&lt;b<rest", 6, &state);
    QCOMPARE(QByteArray(s), QByteArray("a<b"));
    free(s);
    s = decodeEntities("abc\0def", 7, &state);
    QCOMPARE(QByteArray(s), QByteArray("abc"));
    free(s);
    // A multi-byte character cut by the length is cut too: nothing past the
    // run is ever copied.
    s = decodeEntities("x\xC3\xA9", 2, &state);
    QCOMPARE(QByteArray(s), QByteArray("x\xC3"));
    free(s);
    QCOMPARE(state.status, 0);
    QCOMPARE(decodeEntities("&bogus;", 7, &state), nullptr);
    QCOMPARE(state.status, int(XmlResult::badEntity));
    state.status = 0;
    QCOMPARE(decodeEntities("&#300;", 6, &state), nullptr);
    QCOMPARE(state.status, int(XmlResult::entityOutOfRange));
    QCOMPARE(decodeEntities("&#", 2, nullptr), nullptr);
}

void tst_xml_parse::tokens()
{
    QByteArray input = "  \"q v\" 'x<y' /> </ <? <![CDATA[ = > word/x=  <";
    XmlParseState state;
    state.text = input.data();
    const struct
    {
        XmlTokenKind kind;
        const char *text;
    } expected[] = {
        {XmlTokenKind::quoted, "\"q v\""}, {XmlTokenKind::text, "'x"},
        {XmlTokenKind::open, "<"},         {XmlTokenKind::text, "y'"},
        {XmlTokenKind::shortClose, "/>"},  {XmlTokenKind::closeStart, "</"},
        {XmlTokenKind::declStart, "<?"},   {XmlTokenKind::clear, "<![CDATA["},
        {XmlTokenKind::equals, "="},       {XmlTokenKind::close, ">"},
        {XmlTokenKind::text, "word/x"},    {XmlTokenKind::equals, "="},
        {XmlTokenKind::open, "<"},         {XmlTokenKind::end, ""},
    };
    for (const auto &e : expected) {
        const XmlToken t = nextToken(&state);
        QCOMPARE(int(t.kind), int(e.kind));
        QCOMPARE(QByteArray(t.start, t.length), QByteArray(e.text));
    }
    QCOMPARE(nextToken(&state).kind, XmlTokenKind::end);
}

void tst_xml_parse::utf8SizeTableBoundaries()
{
    QCOMPARE(int(utf8SizeTable[0x00]), 0);
    QCOMPARE(int(utf8SizeTable[0x01]), 1);
    QCOMPARE(int(utf8SizeTable[0x80]), 1);
    QCOMPARE(int(utf8SizeTable[0xC1]), 1);
    QCOMPARE(int(utf8SizeTable[0xC2]), 2);
    QCOMPARE(int(utf8SizeTable[0xDF]), 2);
    QCOMPARE(int(utf8SizeTable[0xE0]), 3);
    QCOMPARE(int(utf8SizeTable[0xEF]), 3);
    QCOMPARE(int(utf8SizeTable[0xF0]), 4);
    QCOMPARE(int(utf8SizeTable[0xF4]), 4);
    QCOMPARE(int(utf8SizeTable[0xF5]), 1);
    QCOMPARE(int(utf8SizeTable[0xFF]), 1);
    // A character cut by the end of the text never steps over the NUL.
    QCOMPARE(xmlCharSize("\xE2\x82"), 2);
    QCOMPARE(xmlCharSize("\xF0"), 1);
    XmlResult result;
    const XmlNode node = parseXmlText("<a>x\xE2", nullptr, &result);
    QCOMPARE(result.status, int(XmlResult::missingEndTag));
    QCOMPARE(QByteArray(node.textAt(0)), QByteArray("x\xE2"));
}

// Columns count characters, not bytes.
void tst_xml_parse::manyChildrenLineAndColumn()
{
    XmlResult result;
    parseXmlText("<a>\n\xC3\xA9\xE2\x82\xAC</b>", nullptr, &result);
    QCOMPARE(result.status, int(XmlResult::unmatchedEndTag));
    QCOMPARE(result.line, 2);
    QCOMPARE(result.column, 7);
}

// Far deeper than the machine's stack allowed when elements were read by
// recursion (about 30,800 levels): open elements wait on the reader's own
// stack, and the tree is released the same way.
void tst_xml_parse::deepNesting_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("closed");

    QTest::newRow("200000 levels closed") << 200000 << true;
    QTest::newRow("200000 levels left open") << 200000 << false;
}

void tst_xml_parse::deepNesting()
{
    QFETCH(int, depth);
    QFETCH(bool, closed);
    QByteArray text = QByteArray("<a>").repeated(depth) + "x";
    if (closed)
        text += QByteArray("</a>").repeated(depth);
    XmlResult result;
    const XmlNode node = parseXmlText(text.constData(), nullptr, &result);
    QCOMPARE(result.status, closed ? 0 : int(XmlResult::missingEndTag));
    QCOMPARE(result.line, closed ? 0 : 1);
    QCOMPARE(result.column, closed ? 0 : text.size() + 1);
    int levels = 0;
    XmlNode last;
    for (XmlNode n = node; !n.isEmpty(); n = n.childAt(0)) {
        QCOMPARE(n.childCount() + n.textCount(), 1);
        last = n;
        ++levels;
    }
    QCOMPARE(levels, depth);
    QCOMPARE(QByteArray(last.textAt(0)), QByteArray("x"));
}

QTEST_GUILESS_MAIN(tst_xml_parse)
#include "tst_xml_parse.moc"
