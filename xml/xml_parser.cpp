// Tables, tokens and entities of the XML reader.

#include "xml/xml_node.h"

#include <cstdlib>
#include <cstring>
#include <strings.h>

XmlOptions xmlOptions;

const XmlClearTag xmlClearTags[5] = {
    {"<![CDATA[", 9, "]]>"}, {"<!DOCTYPE", 9, ">"}, {"<!--", 4, "-->"},
    {"<PRE>", 5, "</PRE>"},  {nullptr, 0, nullptr},
};

const char xmlDoctypeSubsetClosing[] = "]>";

const char *xmlCommentOpening()
{
    return xmlClearTags[2].opening;
}

const XmlEntity xmlEntities[5] = {
    {"&amp;", 5, '&'}, {"&lt;", 4, '<'}, {"&gt;", 4, '>'}, {"&quot;", 6, '"'}, {"&apos;", 6, '\''},
};

namespace {

inline unsigned char byteAt(const char *p)
{
    return static_cast<unsigned char>(*p);
}

// End of a text token: the next white space, "/>", '<', '>' or '='.
const char *scanText(const char *p)
{
    for (;;) {
        while (!(xmlCharClass[byteAt(p)] & xmlTextStop))
            ++p;
        const unsigned char b = byteAt(p);
        if (b >= 0x80) {
            p += xmlCharSize(p);
        } else if (b == '/') {
            if (p[1] == '>')
                return p;
            ++p;
        } else {
            return p;
        }
    }
}

// Closing quote matching *open, or null when '<' or the end comes first.
const char *scanQuote(const char *open)
{
    const char quote = *open;
    const char *p = open + 1;
    for (;;) {
        while (!(xmlCharClass[byteAt(p)] & xmlQuoteStop))
            ++p;
        const unsigned char b = byteAt(p);
        if (b >= 0x80)
            p += xmlCharSize(p);
        else if (b == static_cast<unsigned char>(quote))
            return p;
        else if (b == '<' || b == 0)
            return nullptr;
        else
            ++p;
    }
}

const XmlClearTag *matchClearTag(const char *p)
{
    // Every opening of the table starts with '<' and one more byte; most
    // tags differ from all of them there already.
    for (const XmlClearTag *row = xmlClearTags; row->opening; ++row)
        if (p[1] == row->opening[1] && strncmp(p, row->opening, row->length) == 0)
            return row;
    return nullptr;
}

XmlToken makeToken(XmlTokenKind kind, const char *start, int length)
{
    XmlToken t;
    t.kind = kind;
    t.start = start;
    t.length = length;
    return t;
}

XmlToken textToken(XmlParseState *state, const char *start, const char *from)
{
    const char *end = scanText(from);
    XmlToken t = makeToken(XmlTokenKind::text, start, static_cast<int>(end - start));
    if (isXmlSpace(*end))
        ++end; // white space behind a text token is consumed
    state->index = static_cast<int>(end - state->text);
    return t;
}

} // namespace

XmlToken nextToken(XmlParseState *state)
{
    const char *p = state->text + state->index;
    while (isXmlSpace(*p))
        ++p;
    state->index = static_cast<int>(p - state->text);
    XmlToken t;
    switch (*p) {
    case 0:
        return makeToken(XmlTokenKind::end, p, 0);
    case '"':
    case '\'':
        if (const char *close = scanQuote(p)) {
            t = makeToken(XmlTokenKind::quoted, p, static_cast<int>(close - p) + 1);
            break;
        }
        return textToken(state, p, p + 1);
    case '/':
        if (p[1] == '>') {
            t = makeToken(XmlTokenKind::shortClose, p, 2);
            break;
        }
        return textToken(state, p, p + 1);
    case '<':
        if (const XmlClearTag *row = matchClearTag(p)) {
            t = makeToken(XmlTokenKind::clear, p, row->length);
            t.clear = row;
        } else if (p[1] == '/') {
            t = makeToken(XmlTokenKind::closeStart, p, 2);
        } else if (p[1] == '?') {
            t = makeToken(XmlTokenKind::declStart, p, 2);
        } else {
            t = makeToken(XmlTokenKind::open, p, 1);
        }
        break;
    case '=':
        t = makeToken(XmlTokenKind::equals, p, 1);
        break;
    case '>':
        t = makeToken(XmlTokenKind::close, p, 1);
        break;
    default:
        return textToken(state, p, p);
    }
    state->index += t.length;
    return t;
}

namespace {

const XmlEntity *matchEntity(const char *p, int left)
{
    for (const XmlEntity &e : xmlEntities)
        if (e.length <= left && strncasecmp(p, e.text, e.length) == 0)
            return &e;
    return nullptr;
}

void setStatus(XmlParseState *state, int status)
{
    if (state)
        state->status = status;
}

// Length of the entity at p ('&' included, ';' included), or 0 if malformed.
int entityLength(const char *p, int left)
{
    if (left >= 3 && p[1] == '#') {
        for (int i = 2; i < left && p[i]; ++i)
            if (p[i] == ';')
                return i + 1;
        return 0;
    }
    const XmlEntity *e = matchEntity(p, left);
    return e ? e->length : 0;
}

// Size of a plain character at p, never beyond the run.
int plainSize(const char *p, int left)
{
    const int size = xmlCharSize(p);
    return size < left ? size : left;
}

// Reads "&#...;" or "&#x...;". Returns the byte, or -1 for a bad digit and
// 256 for a value out of range.
int numericEntity(const char *p, int length)
{
    int i = 2;
    int base = 10;
    if (p[i] == 'x' || p[i] == 'X') {
        base = 16;
        ++i;
    }
    int value = 0;
    for (; i < length - 1; ++i) {
        const char c = p[i];
        int digit = -1;
        if (c >= '0' && c <= '9')
            digit = c - '0';
        else if (base == 16 && c >= 'a' && c <= 'f')
            digit = c - 'a' + 10;
        else if (base == 16 && c >= 'A' && c <= 'F')
            digit = c - 'A' + 10;
        if (digit < 0)
            return -1;
        if (value <= 255)
            value = value * base + digit;
    }
    return value > 255 ? 256 : value;
}

} // namespace

char *decodeEntities(const char *text, int length, XmlParseState *state)
{
    // Count: the common run without '&' is copied as it stands.
    const int n = length > 0 ? static_cast<int>(strnlen(text, length)) : 0;
    if (memchr(text, '&', n) == nullptr) {
        char *out = static_cast<char *>(malloc(n + 1));
        memcpy(out, text, n);
        out[n] = 0;
        return out;
    }
    int size = 0;
    for (int i = 0; i < length && text[i];) {
        if (text[i] == '&') {
            const int len = entityLength(text + i, length - i);
            if (len == 0) {
                setStatus(state, XmlResult::badEntity);
                return nullptr;
            }
            i += len;
            ++size;
        } else {
            const int s = plainSize(text + i, length - i);
            i += s;
            size += s;
        }
    }
    char *out = static_cast<char *>(malloc(size + 1));
    int o = 0;
    for (int i = 0; i < length && text[i];) {
        if (text[i] != '&') {
            const int s = plainSize(text + i, length - i);
            memcpy(out + o, text + i, s);
            o += s;
            i += s;
            continue;
        }
        const int len = entityLength(text + i, length - i);
        if (text[i + 1] == '#' && length - i >= 3) {
            const int value = numericEntity(text + i, len);
            if (value < 0 || value > 255) {
                free(out);
                setStatus(state, value < 0 ? XmlResult::badEntity : XmlResult::entityOutOfRange);
                return nullptr;
            }
            out[o++] = static_cast<char>(value);
        } else {
            out[o++] = matchEntity(text + i, length - i)->character;
        }
        i += len;
    }
    out[o] = 0;
    return out;
}
