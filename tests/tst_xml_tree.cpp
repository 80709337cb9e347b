// The tree: lookups, the empty node, reference counting, removal, moving
// nodes, the building operations and the growth of the arrays.

#include "xml_test_support.h"

#include <QtTest>

#include <malloc.h>

using xmltest::dump;

class tst_xml_tree : public QObject
{
    Q_OBJECT

private slots:
    void emptyNodeChains();
    void childAtBeyondTheLast();
    void lookupsIgnoreCase_data();
    void lookupsIgnoreCase();
    void childIterator();
    void childOutlivesParent();
    void copiesShareTheBody();
    void removeFromTreeWithHandlesLeft();
    void removeFromTreeKeepsOrder();
    void addChildNodeMovesWithinParent();
    void addChildNodeTakesARoot();
    void addChildNodeSpreadsUnnamedRoot();
    void addChildNodeAtPosition();
    void addChildNodeRefusesCycles();
    void buildingOperations();
    void removeClearLowersIndexes();
    void growthRuleAndCompaction();
    void parsedArraysAreCompacted();
    void deepTreeReleased();
};

void tst_xml_tree::emptyNodeChains()
{
    const XmlNode empty;
    QVERIFY(empty.isEmpty());
    QVERIFY(xmlEmptyNode.isEmpty());
    QCOMPARE(empty.childNode("a").childAt(3).childNode("b").attribute("c"), nullptr);
    QCOMPARE(empty.name(), nullptr);
    QCOMPARE(empty.childCount(), 0);
    QCOMPARE(empty.namedChildCount("a"), 0);
    QCOMPARE(empty.textAt(0), nullptr);
    QCOMPARE(empty.textCount(), 0);
    QCOMPARE(empty.clearAt(0), nullptr);
    QCOMPARE(empty.attributeName(0), nullptr);
    QVERIFY(empty.parent().isEmpty());
    int it = 5;
    QCOMPARE(empty.attribute("x", &it), nullptr);
    QCOMPARE(it, 5);
    XmlNode e2;
    e2.removeFromTree();
    const XmlNode child = parseXmlText("<c/>", nullptr, nullptr);
    QCOMPARE(e2.addChildNode(child).data(), child.data());
    QVERIFY(e2.isEmpty());
    QVERIFY(XmlNode(child).addChildNode(XmlNode()).isEmpty());
}

void tst_xml_tree::childAtBeyondTheLast()
{
    const XmlNode root = parseXmlText("<r><a k='1'/><b/></r>", nullptr, nullptr);
    QCOMPARE(root.childCount(), 2);
    QVERIFY(!root.childAt(1).isEmpty());
    QVERIFY(root.childAt(2).isEmpty());
    QVERIFY(root.childAt(-1).isEmpty());
    QCOMPARE(root.childAt(2).attribute("k"), nullptr);
    QCOMPARE(root.childAt(0).attribute("k"), "1");
}

void tst_xml_tree::lookupsIgnoreCase_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("same") << QByteArray("grpName");
    QTest::newRow("lower") << QByteArray("grpname");
    QTest::newRow("upper") << QByteArray("GRPNAME");
}

void tst_xml_tree::lookupsIgnoreCase()
{
    QFETCH(QByteArray, name);
    const XmlNode root =
        parseXmlText("<r><grpName grpName='v'/><x/><GRPNAME/></r>", nullptr, nullptr);
    QCOMPARE(root.attribute(name.constData()), nullptr);
    QCOMPARE(root.childNode(name.constData()).attribute(name.constData()), "v");
    QCOMPARE(root.namedChildCount(name.constData()), 2);
    QCOMPARE(root.namedChildCount("x"), 1);
    QCOMPARE(root.namedChildCount("nothing"), 0);
}

void tst_xml_tree::childIterator()
{
    const XmlNode root = parseXmlText("<r><v i=1/><w/><V i=2/><v i=3/></r>", nullptr, nullptr);
    int it = 0;
    QByteArray seen;
    for (XmlNode v = root.childNode("v", &it); !v.isEmpty(); v = root.childNode("v", &it))
        seen += v.attribute("i");
    QCOMPARE(seen, QByteArray("123"));
    QCOMPARE(it, 4);
}

void tst_xml_tree::childOutlivesParent()
{
    XmlNode child;
    XmlNode grandChild;
    {
        XmlNode root = parseXmlText("<a><b x='1'>t<c/></b><d/></a>", nullptr, nullptr);
        child = root.childNode("b");
        grandChild = child.childNode("c");
        QCOMPARE(child.data()->refCount, 2);
        QCOMPARE(child.parent().data(), root.data());
    }
    // The parent is gone: the child is a root of its own and still whole.
    QVERIFY(child.parent().isEmpty());
    QCOMPARE(child.data()->refCount, 1);
    QCOMPARE(child.attribute("x"), "1");
    QCOMPARE(dump(child), QByteArray("b{x=1}(\"t\" c)"));
    QCOMPARE(grandChild.parent().data(), child.data());
    child = XmlNode();
    QVERIFY(grandChild.parent().isEmpty());
    QCOMPARE(grandChild.name(), "c");
}

void tst_xml_tree::copiesShareTheBody()
{
    XmlNode a = parseXmlText("<a/>", nullptr, nullptr);
    QCOMPARE(a.data()->refCount, 1);
    XmlNode b = a;
    QCOMPARE(a.data()->refCount, 2);
    XmlNode c(std::move(b));
    QVERIFY(b.isEmpty());
    QCOMPARE(a.data()->refCount, 2);
    c = a;
    QCOMPARE(a.data()->refCount, 2);
    c = XmlNode();
    QCOMPARE(a.data()->refCount, 1);
    a = a;
    QCOMPARE(a.data()->refCount, 1);
}

void tst_xml_tree::removeFromTreeWithHandlesLeft()
{
    XmlNode root = parseXmlText("<a>x<b k='v'><c>t</c></b>y</a>", nullptr, nullptr);
    XmlNode b = root.childNode("b");
    XmlNode c = b.childNode("c");
    XmlNode b2 = b;
    b.removeFromTree();
    QCOMPARE(dump(root), QByteArray("a(\"x\" \"y\")"));
    // The handles keep emptied bodies.
    QVERIFY(!b.isEmpty());
    QCOMPARE(b.data(), b2.data());
    QCOMPARE(b.name(), nullptr);
    QCOMPARE(b.childCount(), 0);
    QCOMPARE(b.attribute("k"), nullptr);
    QVERIFY(b.parent().isEmpty());
    QCOMPARE(b.data()->refCount, 2);
    QCOMPARE(c.name(), nullptr);
    QCOMPARE(c.textCount(), 0);
    QVERIFY(c.parent().isEmpty());
    QCOMPARE(c.data()->refCount, 1);
    b = XmlNode();
    b2 = XmlNode();
    c = XmlNode();
    QCOMPARE(root.data()->refCount, 1);
}

void tst_xml_tree::removeFromTreeKeepsOrder()
{
    XmlNode root = parseXmlText("<a><p/>t1<q/><!--c--><r/>t2</a>", nullptr, nullptr);
    root.childNode("q").removeFromTree();
    QCOMPARE(dump(root), QByteArray("a(p \"t1\" [<!--|c|-->] r \"t2\")"));
    QCOMPARE(root.data()->order[3], 1 * 4 + xmlOrderChild);
    root.childNode("p").removeFromTree();
    root.childNode("r").removeFromTree();
    QCOMPARE(root.data()->children, nullptr);
    QCOMPARE(dump(root), QByteArray("a(\"t1\" [<!--|c|-->] \"t2\")"));
    // Removing a root detaches nothing and empties it.
    root.removeFromTree();
    QCOMPARE(dump(root), QByteArray("#root"));
}

void tst_xml_tree::addChildNodeMovesWithinParent()
{
    XmlNode root = parseXmlText("<r><a/><b/><c/></r>", nullptr, nullptr);
    const XmlNode a = root.childNode("a");
    root.addChildNode(a, -1);
    QCOMPARE(dump(root), QByteArray("r(b c a)"));
    QCOMPARE(a.data()->refCount, 2); // the parent's and this handle's
    // "a" stands before position 3 and is taken out first, so it lands at 2.
    root.addChildNode(root.childNode("b"), 3);
    QCOMPARE(dump(root), QByteArray("r(c a b)"));
}

void tst_xml_tree::addChildNodeTakesARoot()
{
    XmlNode root = parseXmlText("<r>t</r>", nullptr, nullptr);
    XmlNode other = parseXmlText("<o><p/></o>", nullptr, nullptr);
    const XmlNode p = other.childNode("p");
    root.addChildNode(p);
    QCOMPARE(dump(root), QByteArray("r(\"t\" p)"));
    QCOMPARE(dump(other), QByteArray("o"));
    XmlNode fresh = parseXmlText("<f/>", nullptr, nullptr);
    root.addChildNode(fresh);
    QCOMPARE(fresh.data()->refCount, 2);
    QCOMPARE(fresh.parent().data(), root.data());
    root = XmlNode();
    QCOMPARE(fresh.data()->refCount, 1);
    QVERIFY(fresh.parent().isEmpty());
}

void tst_xml_tree::addChildNodeSpreadsUnnamedRoot()
{
    XmlNode root = parseXmlText("<r><z/></r>", nullptr, nullptr);
    const XmlNode many = parseXmlText("<x/>text<y/>", nullptr, nullptr);
    QCOMPARE(many.name(), nullptr);
    root.addChildNode(many, 0);
    QCOMPARE(dump(root), QByteArray("r(x y z)"));
    QCOMPARE(dump(many), QByteArray("#root(\"text\")"));
}

void tst_xml_tree::addChildNodeAtPosition()
{
    XmlNode root = parseXmlText("<r>t0<a/>t1<b/></r>", nullptr, nullptr);
    root.addChildNode(parseXmlText("<n/>", nullptr, nullptr), 1);
    QCOMPARE(dump(root), QByteArray("r(\"t0\" n a \"t1\" b)"));
    // A position past the end appends.
    root.addChildNode(parseXmlText("<m/>", nullptr, nullptr), 99);
    QCOMPARE(dump(root), QByteArray("r(\"t0\" n a \"t1\" b m)"));
    QCOMPARE(root.childAt(0).name(), "n");
    QCOMPARE(root.childAt(1).name(), "a");
    root.addChildNode(parseXmlText("<k/>", nullptr, nullptr), 0);
    QCOMPARE(dump(root), QByteArray("r(k \"t0\" n a \"t1\" b m)"));
    QCOMPARE(root.childCount(), 5);
}

void tst_xml_tree::addChildNodeRefusesCycles()
{
    XmlNode root = parseXmlText("<r><a><b/></a></r>", nullptr, nullptr);
    XmlNode b = root.childNode("a").childNode("b");
    b.addChildNode(root);
    b.addChildNode(b);
    QCOMPARE(dump(root), QByteArray("r(a(b))"));
}

void tst_xml_tree::buildingOperations()
{
    XmlNode root = XmlNode::adopt(createNode(nullptr, strdup("r"), false));
    XmlNodeData *r = root.data();
    addText(r, nullptr, -1, xmlGrowthStep);
    addClear(r, nullptr, nullptr, nullptr, -1, xmlGrowthStep);
    addAttribute(r, nullptr, strdup("dropped"), xmlGrowthStep);
    QCOMPARE(dump(root), QByteArray("r"));
    addAttribute(r, strdup("a"), nullptr, xmlGrowthStep);
    addText(r, strdup("t"), -1, xmlGrowthStep);
    addClear(r, strdup("raw"), nullptr, nullptr, -1, xmlGrowthStep);
    XmlNodeData *child = addChild(r, strdup("c"), true, -1, xmlGrowthStep);
    QCOMPARE(child->parent, r);
    QCOMPARE(child->refCount, 1);
    QCOMPARE(dump(root), QByteArray("r{a}(\"t\" [<![CDATA[|raw|]]>] ?c)"));
    QCOMPARE(r->clears[0].opening, xmlClearTags[0].opening);
    addText(r, strdup("first"), 0, xmlGrowthStep);
    QCOMPARE(dump(root), QByteArray("r{a}(\"first\" \"t\" [<![CDATA[|raw|]]>] ?c)"));
    QCOMPARE(r->order[1], 1 * 4 + xmlOrderText);
    compact(r);
    QCOMPARE(dump(root), QByteArray("r{a}(\"first\" \"t\" [<![CDATA[|raw|]]>] ?c)"));
}

void tst_xml_tree::removeClearLowersIndexes()
{
    XmlNode root = parseXmlText("<r><!--1-->a<![CDATA[2]]><x/><![CDATA[3]]></r>", nullptr, nullptr);
    QCOMPARE(root.data()->order[4], 2 * 4 + xmlOrderClear);
    removeClear(root.data(), 0);
    QCOMPARE(dump(root), QByteArray("r(\"a\" [<![CDATA[|2|]]>] x [<![CDATA[|3|]]>])"));
    QCOMPARE(root.data()->order[1], 0 * 4 + xmlOrderClear);
    QCOMPARE(root.data()->order[3], 1 * 4 + xmlOrderClear);
    removeClear(root.data(), 7);
    QCOMPARE(root.clearCount(), 2);
}

// Arrays start with xmlGrowthStep entries while an element is open, double
// when full and shrink to their counts when it closes. Nothing records a
// capacity, so the sizes are read back from the allocator, which may round
// a request up by a few bytes.
void tst_xml_tree::growthRuleAndCompaction()
{
    XmlNode root = XmlNode::adopt(createNode(nullptr, strdup("r"), false));
    XmlNodeData *r = root.data();
    const size_t pointer = sizeof(XmlNodeData *);
    const size_t slack = 16;
    auto holds = [&](int children) {
        const size_t size = malloc_usable_size(r->children);
        return size >= children * pointer && size < children * pointer + slack;
    };
    QCOMPARE(xmlGrowthStep, 4);
    addChild(r, strdup("c"), false, -1, xmlGrowthStep);
    QVERIFY(holds(4));
    QVERIFY(malloc_usable_size(r->order) >= 12 * sizeof(int));
    QVERIFY(malloc_usable_size(r->order) < 12 * sizeof(int) + slack);
    for (int i = 1; i < 4; ++i)
        addChild(r, strdup("c"), false, -1, xmlGrowthStep);
    QVERIFY(holds(4)); // full, not grown yet
    addChild(r, strdup("c"), false, -1, xmlGrowthStep);
    QVERIFY(holds(8));
    for (int i = 5; i < 65; ++i)
        addChild(r, strdup("c"), false, -1, xmlGrowthStep);
    QVERIFY(holds(128)); // 4 doubled five times
    for (int i = 65; i < 120; ++i)
        addChild(r, strdup("c"), false, -1, xmlGrowthStep);
    QCOMPARE(r->childCount, 120);
    QVERIFY(holds(128));
    QVERIFY(malloc_usable_size(r->order) >= 192 * sizeof(int)); // 12 doubled four times
    compact(r);
    QVERIFY(malloc_usable_size(r->children) >= 120 * pointer);
    QVERIFY(malloc_usable_size(r->children) < 130 * pointer);
    QVERIFY(malloc_usable_size(r->order) < 130 * sizeof(int));
    for (int i = 0; i < 120; ++i) {
        QCOMPARE(r->order[i], i * 4 + xmlOrderChild);
        QCOMPARE(r->children[i]->parent, r);
    }
    // Step 0, the rule of finished nodes: one more entry at each insertion.
    root.addChildNode(parseXmlText("<n/>", nullptr, nullptr));
    QVERIFY(malloc_usable_size(r->children) < 131 * pointer);
    QCOMPARE(root.childCount(), 121);
}

void tst_xml_tree::parsedArraysAreCompacted()
{
    QByteArray doc = "<r>";
    for (int i = 0; i < 120; ++i)
        doc += "<c i='" + QByteArray::number(i) + "'/>";
    doc += "</r>";
    const XmlNode root = parseXmlText(doc.constData(), nullptr, nullptr);
    QCOMPARE(root.childCount(), 120);
    QCOMPARE(root.childAt(119).attribute("i"), "119");
    QVERIFY(malloc_usable_size(root.data()->children) < 130 * sizeof(XmlNodeData *));
    QVERIFY(malloc_usable_size(root.data()->order) < 130 * sizeof(int));
    QVERIFY(malloc_usable_size(root.childAt(0).data()->attributes) < 5 * sizeof(XmlAttribute));
}

// A million levels are released and removed without recursion. A handle on
// a body in the middle keeps it alive as a root when the top half goes.
void tst_xml_tree::deepTreeReleased()
{
    const int depth = 1000000;
    XmlNode root = XmlNode::adopt(createNode(nullptr, strdup("a"), false));
    XmlNodeData *n = root.data();
    XmlNodeData *middle = nullptr;
    for (int i = 1; i < depth; ++i) {
        n = addChild(n, strdup("a"), false, -1, xmlGrowthStep);
        if (i == depth / 2)
            middle = n;
    }
    const XmlNode kept(middle);
    XmlNode below = kept.childAt(0);
    root = XmlNode();
    QVERIFY(kept.parent().isEmpty());
    QCOMPARE(kept.childCount(), 1);
    below.removeFromTree();
    QCOMPARE(kept.childCount(), 0);
    QVERIFY(below.name() == nullptr);
    QCOMPARE(below.childCount(), 0);
}

QTEST_GUILESS_MAIN(tst_xml_tree)
#include "tst_xml_tree.moc"
