#pragma once

// Base64 decoding of the binary arrays of a description file. White space
// (tab, line feed, carriage return, blank) may stand anywhere and is skipped.
//
// The routines leave `status` untouched when all goes well and set it on
// trouble: 17 the text length is no multiple of 4, 18 an illegal character,
// 19 the text stops early, 20 the text holds more bytes than the target.

enum Base64Status {
    Base64BadLength = 17,
    Base64IllegalCharacter = 18,
    Base64Truncated = 19,
    Base64Overflow = 20,
};

// A growing byte buffer owned through the C allocator; it never shrinks.
struct Base64Buffer
{
    char *buffer = nullptr;
    int capacity = 0;
};

// The one buffer that the description reader decodes into.
extern Base64Buffer base64Buffer;

// The number of bytes the text decodes to, with or without padding. White
// space behind the last character makes this up to 2 bytes too high.
// Gives 0 for an illegal character.
int base64DecodedSize(const char *text, int *status = nullptr);

// Decodes into `target`, which has room for `size` bytes. Gives 2 when the
// text was decoded whole, 1 when it stopped early, 0 on failure (an illegal
// character, or more data than `size`).
int base64Decode(const char *text, void *target, int size, int *status = nullptr);

// Decodes into `buffer`, grown as needed, and sets *size to the number of
// bytes decoded; the bytes are followed by a 0. Gives the bytes, valid until
// the next call on the same buffer, or null on failure. A null text gives an
// empty string and a size of 0.
const char *base64DecodeToBuffer(Base64Buffer *buffer, const char *text, int *size,
                                 int *status = nullptr);
