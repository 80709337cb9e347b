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
// '_'. A lead byte followed by bytes that continue no character (which only
// a numeric entity such as "&#231;" puts in a tree) is written as its
// numeric entity, so that the text stays UTF-8 and reads back the same.
// Returns the escaped length, without NUL.
int encodeEntities(const char *text, char *out);

// Writes a name of an element or attribute as it stands, with three
// exceptions that the reader's syntax could not carry: a multi-byte
// character cut by the end of the name, which would take the delimiter
// behind it into the name, becomes one '_' whole; so does a lead byte with
// the bytes it takes along when they continue no character; and a quote at
// the start, which the reader takes from a lone quote but which would open a
// quoted value once written, becomes '_'. Returns the length, without NUL.
int encodeName(const char *name, char *out);
