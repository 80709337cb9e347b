// The XML reader and writer: parse the bytes, write the tree back, parse that
// again. A tree that was kept must come back the same, and from the tree read
// back on, the written text is a fixed point of reading and writing (the
// first writing drops empty texts, which changes "<a></a>" into "<a/>"). The
// formatted text is held to the same on the tree read back, which has no
// neighbouring texts left for the formatting to put line breaks between.

#include "fuzz_entry.h"
#include "fuzz_trees.h"

#include "xml/xml_node.h"

#include <cstdlib>
#include <cstring>

namespace {

QByteArray written(const XmlNode &node, bool format)
{
    int length = 0;
    char *text = node.xmlText(format, &length);
    fuzzCheck(text == nullptr || static_cast<int>(strlen(text)) <= length, "xmlText measures");
    const QByteArray out = text ? QByteArray(text, length) : QByteArray();
    free(text);
    return out;
}

// The tree read back from the written text of `node`.
XmlNode roundTrip(const XmlNode &node, bool format)
{
    const QByteArray text = written(node, format);
    XmlResult result;
    XmlNode again = parseXmlText(text.constData(), nullptr, &result);
    fuzzCheck(result.status == XmlResult::ok || result.status == XmlResult::noElements,
              "the written text parses");
    fuzzCheck(sameTree(node, again), "the written text gives the same tree");
    return again;
}

// Two round trips; the second writes the text that the first read.
XmlNode twoRoundTrips(const XmlNode &node, bool format)
{
    const XmlNode once = roundTrip(node, format);
    const XmlNode twice = roundTrip(once, format);
    fuzzCheck(written(twice, format) == written(once, format),
              "writing the tree read back gives the same text");
    return twice;
}

} // namespace

int fuzzXml(const uint8_t *data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<int>(size));
    XmlResult result;
    const char *tag = size > 0 && data[0] == 'D' ? "DESCRIPTION" : nullptr;
    const XmlNode node = parseXmlText(text.constData(), tag, &result);
    fuzzCheck(result.line >= 0 && result.column >= 0, "the position is not negative");
    if (node.isEmpty())
        return 0;
    twoRoundTrips(twoRoundTrips(node, false), true);
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzXml)
