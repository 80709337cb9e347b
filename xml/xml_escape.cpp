#include "xml/xml_escape.h"

#include "xml/xml_parser.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

XmlEscapeBuffer xmlEscapeBuffer;

namespace {

const XmlEntity *entityOf(char c)
{
    for (const XmlEntity &e : xmlEntities)
        if (e.character == c)
            return &e;
    return nullptr;
}

// Whether the bytes that a lead byte takes along are continuation bytes.
// Where they are not, the reader still took them as one character, which
// may hold a '<' or a quote: written as it stands, it would read as markup
// to anyone who reads UTF-8, and to the program once the text has been
// through a QString.
bool continuesProperly(const char *p, int size)
{
    for (int i = 1; i < size; ++i)
        if ((static_cast<unsigned char>(p[i]) & 0xC0) != 0x80)
            return false;
    return true;
}

// Copies characters whole. A character cut off by the end of the text is
// not copied: '_' takes the place of its first byte. For a text the walk
// goes on with the next byte, which may be one of the five characters of the
// entity table and is then escaped; a name has no escapes, so the whole cut
// character, the rest of the name, gives way to the '_'. A lead byte whose
// followers are no continuation bytes is written as its numeric entity in a
// text, which reads back as that very byte, and the walk goes on with the
// next byte; in a name the whole false character becomes '_'.
int copyCharacters(const char *text, char *out, bool entities)
{
    int length = 0;
    if (text == nullptr)
        return 0;
    const char *p = text;
    while (*p) {
        const XmlEntity *e = entities ? entityOf(*p) : nullptr;
        if (e) {
            if (out)
                memcpy(out + length, e->text, e->length);
            length += e->length;
            ++p;
            continue;
        }
        const int size = utf8SizeTable[static_cast<unsigned char>(*p)];
        if (xmlCharSize(p) < size) {
            if (out)
                out[length] = '_';
            ++length;
            if (!entities)
                break;
            ++p;
            continue;
        }
        if (!continuesProperly(p, size)) {
            char entity[8];
            const int n = entities ? snprintf(entity, sizeof entity, "&#%d;",
                                              static_cast<unsigned char>(*p))
                                   : snprintf(entity, sizeof entity, "_");
            if (out)
                memcpy(out + length, entity, n);
            length += n;
            p += entities ? 1 : size;
            continue;
        }
        if (out)
            memcpy(out + length, p, size);
        length += size;
        p += size;
    }
    return length;
}

} // namespace

int encodeEntities(const char *text, char *out)
{
    return copyCharacters(text, out, true);
}

int encodeName(const char *name, char *out)
{
    if (name && (name[0] == '"' || name[0] == '\'')) {
        if (out)
            out[0] = '_';
        return 1 + copyCharacters(name + 1, out ? out + 1 : nullptr, false);
    }
    return copyCharacters(name, out, false);
}

const char *xmlEscape(XmlEscapeBuffer *escape, const char *text)
{
    const int needed = encodeEntities(text, nullptr) + 1;
    if (needed > escape->capacity || escape->buffer == nullptr) {
        free(escape->buffer);
        escape->buffer = static_cast<char *>(malloc(needed));
        escape->capacity = needed;
    }
    const int length = encodeEntities(text, escape->buffer);
    escape->buffer[length] = 0;
    return escape->buffer;
}

void freeEscapeBuffer(XmlEscapeBuffer *escape)
{
    free(escape->buffer);
    escape->buffer = nullptr;
    escape->capacity = 0;
}
