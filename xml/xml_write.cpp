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
    void name(const char *s) { length += encodeName(s, buffer ? buffer + length : nullptr); }
};

bool hasContent(const XmlNodeData *node)
{
    return node->childCount + node->textCount + node->clearCount > 0;
}

// The reader steps over white space between '<' and a name, so it may hold
// an element called "/x", "!--" or "PRE" that it read from "< /x", "< !--"
// or "<PRE attribute". Right behind '<', and before the '>' that may follow
// it, such a name would read as a closing tag, a declaration or a raw
// section: it is written with a blank in front.
bool needsBlankBeforeName(const char *name)
{
    if (name[0] == '/' || name[0] == '?')
        return true;
    const size_t length = strlen(name);
    for (const XmlClearTag *row = xmlClearTags; row->opening; ++row) {
        const char *rest = row->opening + 1;
        const size_t n = static_cast<size_t>(row->length - 1);
        if (length >= n ? strncmp(name, rest, n) == 0
                        : length + 1 == n && rest[length] == '>' && strncmp(name, rest, length) == 0)
            return true;
    }
    return false;
}

bool endsInSlash(const char *word)
{
    const size_t length = strlen(word);
    return length > 0 && word[length - 1] == '/';
}

// A '>' right behind a name that ends in '/' would read as "/>": the blank
// in front of it then stays.
void endTagWith(Out &out, char c, const char *lastWord)
{
    if (c == '>' && endsInSlash(lastWord))
        out.put(c);
    else
        out.replaceLast(c);
}

void writeOpeningTag(const XmlNodeData *node, Out &out, int tabs, int format, bool closed)
{
    out.tabs(tabs);
    out.put('<');
    if (node->isDeclaration)
        out.put('?');
    else if (needsBlankBeforeName(node->name))
        out.put(' ');
    out.name(node->name);
    out.put(' ');
    const char *lastWord = node->name; // what stands before the last blank
    for (int i = 0; i < node->attributeCount; ++i) {
        const XmlAttribute &a = node->attributes[i];
        if (a.name == nullptr || a.name[0] == 0)
            continue;
        out.name(a.name);
        lastWord = a.name;
        if (a.value) {
            out.put("=\"", 2);
            out.escaped(a.value);
            out.put('"');
            lastWord = "\"";
        }
        out.put(' ');
    }
    if (node->isDeclaration) {
        out.replaceLast('?');
        if (closed && !hasContent(node))
            out.put('/');
        out.put('>');
        if (format != -1)
            out.put('\n');
    } else if (hasContent(node)) {
        endTagWith(out, '>', lastWord);
        if (format >= 0)
            out.put('\n');
    } else {
        --out.length;
    }
}

// An element being written: its format for the rest of its content, the
// next entry of its order, whether it stands at the top of the text, and
// whether a declaration there must be closed.
//
// A declaration at the top of a text stays open when it is read, and all that
// follows becomes its content. One that the reader closed before other
// entries of the top (with "/>", or with its own end tag) is therefore
// written closed the same way; in every other place a declaration is written
// as it always is, "<?name ...?>" with no end tag.
struct OpenElement
{
    const XmlNodeData *node;
    int format;
    int next;
    bool topLevel;
    bool closed;
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
OpenElement openElement(const XmlNodeData *node, Out &out, int format, bool topLevel,
                        bool followed)
{
    const int tabs = format < 0 ? 0 : format;
    if (format >= 0 && node->textCount == 1 && node->childCount == 0 && node->clearCount == 0 &&
        !node->isDeclaration)
        format = -2; // an element holding one text stays on one line
    const bool closed = node->isDeclaration && topLevel && followed;
    if (node->name)
        writeOpeningTag(node, out, tabs, format, closed);
    return OpenElement{node, format, 0, topLevel, closed};
}

OpenElement openChild(const OpenElement &parent, int entry, Out &out)
{
    const XmlNodeData *node = parent.node;
    const bool followed = entry + 1 < node->childCount + node->textCount + node->clearCount;
    return openElement(node->children[node->order[entry] / 4], out, childFormatOf(parent),
                       parent.topLevel && node->name == nullptr, followed);
}

void closeElement(const OpenElement &e, Out &out)
{
    const XmlNodeData *node = e.node;
    if (node->name == nullptr || (node->isDeclaration && !(e.closed && hasContent(node))))
        return;
    if (!hasContent(node)) {
        out.put("/>", 2);
    } else {
        if (e.format >= 0)
            out.tabs(e.format);
        out.put("</", 2);
        out.name(node->name);
        if (endsInSlash(node->name))
            out.put(' ');
        out.put('>');
    }
    if (e.format != -1)
        out.put('\n');
}

void writeTree(const XmlNodeData *root, Out &out, int format)
{
    std::vector<OpenElement> open{openElement(root, out, format, true, false)};
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
            open.push_back(openChild(e, e.next, out));
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
