// The writer of the tree: one routine that measures when it has no buffer,
// so that xmlText allocates exactly once. Open elements wait on a stack of
// their own, so that any depth of tree is written without recursion.

#include "xml/xml_node.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Out
{
    char *buffer;
    long long length = 0;

    void put(char c)
    {
        if (buffer)
            buffer[length] = c;
        ++length;
    }
    void put(const char *s, int n)
    {
        if (buffer)
            memcpy(buffer + length, s, n);
        length += n;
    }
    void put(const char *s) { put(s, static_cast<int>(strlen(s))); }
    void tabs(int n)
    {
        for (int i = 0; i < n && i < xmlIndentLimit; ++i)
            put('\t');
    }
    void replaceLast(char c)
    {
        if (buffer)
            buffer[length - 1] = c;
    }
    void escaped(const char *s) { length += encodeEntities(s, buffer ? buffer + length : nullptr); }
};

bool hasContent(const XmlNodeData *node)
{
    return node->childCount + node->textCount + node->clearCount > 0;
}

void writeOpeningTag(const XmlNodeData *node, Out &out, int tabs, int format)
{
    out.tabs(tabs);
    out.put('<');
    if (node->isDeclaration)
        out.put('?');
    out.put(node->name);
    out.put(' ');
    for (int i = 0; i < node->attributeCount; ++i) {
        const XmlAttribute &a = node->attributes[i];
        if (a.name == nullptr || a.name[0] == 0)
            continue;
        out.put(a.name);
        if (a.value) {
            out.put("=\"", 2);
            out.escaped(a.value);
            out.put('"');
        }
        out.put(' ');
    }
    if (node->isDeclaration) {
        out.replaceLast('?');
        out.put('>');
        if (format != -1)
            out.put('\n');
    } else if (hasContent(node)) {
        out.replaceLast('>');
        if (format >= 0)
            out.put('\n');
    } else {
        --out.length;
    }
}

// An element being written: its format for the rest of its content, and the
// next entry of its order.
struct OpenElement
{
    const XmlNodeData *node;
    int format;
    int next;
};

int childFormatOf(const OpenElement &e)
{
    if (e.format == -1)
        return -1;
    if (e.node->name == nullptr || e.node->isDeclaration)
        return e.format;
    return e.format + 1;
}

void writeText(const char *text, Out &out, int format)
{
    if (encodeEntities(text, nullptr) == 0)
        return;
    if (format >= 0)
        out.tabs(format + 1);
    out.escaped(text);
    if (format >= 0)
        out.put('\n');
}

void writeClear(const XmlClear &c, Out &out, int format)
{
    if (format >= 0)
        out.tabs(format + 1);
    out.put(c.opening);
    out.put(c.content);
    out.put(c.closing);
    if (format != -1)
        out.put('\n');
}

// Writes the opening tag and gives the element's format for its content.
OpenElement openElement(const XmlNodeData *node, Out &out, int format)
{
    const int tabs = format < 0 ? 0 : format;
    if (format >= 0 && node->textCount == 1 && node->childCount == 0 && node->clearCount == 0 &&
        !node->isDeclaration)
        format = -2; // an element holding one text stays on one line
    if (node->name)
        writeOpeningTag(node, out, tabs, format);
    return OpenElement{node, format, 0};
}

void closeElement(const OpenElement &e, Out &out)
{
    const XmlNodeData *node = e.node;
    if (node->name == nullptr || node->isDeclaration)
        return;
    if (!hasContent(node)) {
        out.put("/>", 2);
    } else {
        if (e.format >= 0)
            out.tabs(e.format);
        out.put("</", 2);
        out.put(node->name);
        out.put('>');
    }
    if (e.format != -1)
        out.put('\n');
}

void writeTree(const XmlNodeData *root, Out &out, int format)
{
    std::vector<OpenElement> open{openElement(root, out, format)};
    while (!open.empty()) {
        const OpenElement e = open.back();
        const XmlNodeData *node = e.node;
        if (e.next == node->childCount + node->textCount + node->clearCount) {
            closeElement(e, out);
            open.pop_back();
            continue;
        }
        ++open.back().next;
        const int entry = node->order[e.next];
        const int index = entry / 4;
        if (entry % 4 == xmlOrderChild)
            open.push_back(openElement(node->children[index], out, childFormatOf(e)));
        else if (entry % 4 == xmlOrderText)
            writeText(node->texts[index], out, e.format);
        else if (entry % 4 == xmlOrderClear)
            writeClear(node->clears[index], out, e.format);
    }
}

} // namespace

long long serializeNode(const XmlNodeData *node, char *buffer, int format)
{
    Out out{buffer};
    writeTree(node, out, format);
    return out.length;
}

char *XmlNode::xmlText(bool format, int *size) const
{
    if (size)
        *size = 0;
    if (!d)
        return nullptr;
    const int depth = format && xmlOptions.stripWhitespace ? 0 : -1;
    const long long length = serializeNode(d, nullptr, depth);
    if (length >= INT_MAX)
        return nullptr; // beyond what an int can measure
    char *text = static_cast<char *>(malloc(length + 1));
    if (text == nullptr)
        return nullptr;
    serializeNode(d, text, depth);
    text[length] = 0;
    if (size)
        *size = static_cast<int>(length);
    return text;
}
