#include "xml/xml_escape.h"

#include "xml/xml_parser.h"

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

} // namespace

int encodeEntities(const char *text, char *out)
{
    int length = 0;
    if (text == nullptr)
        return 0;
    const char *p = text;
    while (*p) {
        if (const XmlEntity *e = entityOf(*p)) {
            if (out)
                memcpy(out + length, e->text, e->length);
            length += e->length;
            ++p;
            continue;
        }
        const int size = utf8SizeTable[static_cast<unsigned char>(*p)];
        if (xmlCharSize(p) < size) {
            // A character cut off by the end of the text is not copied.
            if (out)
                out[length] = '_';
            ++length;
            ++p;
            continue;
        }
        if (out)
            memcpy(out + length, p, size);
        length += size;
        p += size;
    }
    return length;
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
