// The writer of the tree: one routine that measures when it has no buffer,
// so that xmlText allocates exactly once.

#include "xml/xml_node.h"

#include <cstdlib>
#include <cstring>

namespace {

struct Out
{
    char *buffer;
    int length = 0;

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
        for (int i = 0; i < n; ++i)
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

void writeNode(const XmlNodeData *node, Out &out, int format);

void writeContent(const XmlNodeData *node, Out &out, int format)
{
    int childFormat = format + 1;
    if (format == -1)
        childFormat = -1;
    else if (node->name == nullptr || node->isDeclaration)
        childFormat = format;
    const int total = node->childCount + node->textCount + node->clearCount;
    for (int j = 0; j < total; ++j) {
        const int index = node->order[j] / 4;
        switch (node->order[j] % 4) {
        case xmlOrderChild:
            writeNode(node->children[index], out, childFormat);
            break;
        case xmlOrderText: {
            const char *text = node->texts[index];
            if (encodeEntities(text, nullptr) == 0)
                break;
            if (format >= 0)
                out.tabs(format + 1);
            out.escaped(text);
            if (format >= 0)
                out.put('\n');
            break;
        }
        case xmlOrderClear: {
            const XmlClear &c = node->clears[index];
            if (format >= 0)
                out.tabs(format + 1);
            out.put(c.opening);
            out.put(c.content);
            out.put(c.closing);
            if (format != -1)
                out.put('\n');
            break;
        }
        default:
            break;
        }
    }
}

void writeNode(const XmlNodeData *node, Out &out, int format)
{
    const int tabs = format < 0 ? 0 : format;
    if (format >= 0 && node->textCount == 1 && node->childCount == 0 && node->clearCount == 0 &&
        !node->isDeclaration)
        format = -2; // an element holding one text stays on one line
    if (node->name)
        writeOpeningTag(node, out, tabs, format);
    writeContent(node, out, format);
    if (node->name == nullptr || node->isDeclaration)
        return;
    if (!hasContent(node)) {
        out.put("/>", 2);
    } else {
        if (format >= 0)
            out.tabs(format);
        out.put("</", 2);
        out.put(node->name);
        out.put('>');
    }
    if (format != -1)
        out.put('\n');
}

} // namespace

int serializeNode(const XmlNodeData *node, char *buffer, int format)
{
    Out out{buffer};
    writeNode(node, out, format);
    return out.length;
}

char *XmlNode::xmlText(bool format, int *size) const
{
    if (size)
        *size = 0;
    if (!d)
        return nullptr;
    const int depth = format && xmlOptions.stripWhitespace ? 0 : -1;
    const int length = serializeNode(d, nullptr, depth);
    char *text = static_cast<char *>(malloc(length + 1));
    serializeNode(d, text, depth);
    text[length] = 0;
    if (size)
        *size = length;
    return text;
}
