#pragma once

// Escaping of the five characters of the entity table, for values written
// into XML by hand or by the tree's writer.

struct XmlEscapeBuffer
{
    char *buffer = nullptr;
    int capacity = 0;
};

// The buffer the whole program escapes into.
extern XmlEscapeBuffer xmlEscapeBuffer;

// Escapes `text` into the buffer and returns it; the pointer stays valid
// until the next call on the same buffer. A null text gives "".
const char *xmlEscape(XmlEscapeBuffer *escape, const char *text);
void freeEscapeBuffer(XmlEscapeBuffer *escape);

// Writes `text` (up to its NUL) escaped into `out`, or only measures when
// `out` is null. A multi-byte character cut by the end of the text becomes
// '_'. Returns the escaped length, without NUL.
int encodeEntities(const char *text, char *out);
