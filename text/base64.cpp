#include "text/base64.h"

#include <cstdlib>

Base64Buffer base64Buffer;

namespace {

enum : unsigned char { PadCode = 96, BlankCode = 97, IllegalCode = 98, EndCode = 99 };

struct DecodingTable
{
    unsigned char code[256];

    constexpr DecodingTable() : code()
    {
        for (int i = 0; i < 256; ++i)
            code[i] = IllegalCode;
        const char alphabet[] =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (int i = 0; i < 64; ++i)
            code[static_cast<unsigned char>(alphabet[i])] = static_cast<unsigned char>(i);
        code[static_cast<unsigned char>('=')] = PadCode;
        code[static_cast<unsigned char>('\t')] = BlankCode;
        code[static_cast<unsigned char>('\n')] = BlankCode;
        code[static_cast<unsigned char>('\r')] = BlankCode;
        code[static_cast<unsigned char>(' ')] = BlankCode;
        code[0] = EndCode;
    }
};

constexpr DecodingTable table;

unsigned char codeOf(const char *p) { return table.code[static_cast<unsigned char>(*p)]; }

void setStatus(int *status, int value)
{
    if (status)
        *status = value;
}

// The next table value that is no white space; moves the cursor behind it
// unless it is the end of the text.
unsigned char nextCode(const char *&p)
{
    for (;;) {
        const unsigned char c = codeOf(p);
        if (c == EndCode)
            return c;
        ++p;
        if (c != BlankCode)
            return c;
    }
}

// Decodes and counts the bytes written; see base64Decode for the results.
int decode(const char *text, unsigned char *target, int size, int *status, int *written)
{
    const char *p = text;
    int count = 0;
    *written = 0;
    for (;;) {
        unsigned char group[4];
        for (int place = 0; place < 4; ++place) {
            const unsigned char c = nextCode(p);
            if (c == IllegalCode) {
                setStatus(status, Base64IllegalCharacter);
                return 0;
            }
            const bool stop = c == EndCode || c == PadCode;
            if (place == 0 && stop) {
                if (c == EndCode || count == size)
                    return 2;
                setStatus(status, Base64Truncated);
                return 1;
            }
            if (place == 1 && stop) {
                setStatus(status, Base64Truncated);
                return 1;
            }
            if (place >= 2 && stop) {
                if (c == PadCode && count == size)
                    return 2;
                setStatus(status, Base64Truncated);
                return 1;
            }
            if (place >= 1 && count == size) {
                setStatus(status, Base64Overflow);
                return 0;
            }
            group[place] = c;
            if (place == 1)
                target[count++] = static_cast<unsigned char>(group[0] << 2 | group[1] >> 4);
            else if (place == 2)
                target[count++] = static_cast<unsigned char>(group[1] << 4 | group[2] >> 2);
            else if (place == 3)
                target[count++] = static_cast<unsigned char>(group[2] << 6 | group[3]);
            *written = count;
        }
    }
}

} // namespace

int base64DecodedSize(const char *text, int *status)
{
    if (!text)
        return 0;
    const char *p = text;
    int count = 0;
    for (;; ++p) {
        const unsigned char c = codeOf(p);
        if (c == EndCode)
            break;
        if (c == IllegalCode) {
            setStatus(status, Base64IllegalCharacter);
            return 0;
        }
        if (c != BlankCode)
            ++count;
    }
    if (count % 4 != 0)
        setStatus(status, Base64BadLength);
    // Padding off the end; the character stepped onto last counts off too,
    // which the rounding below gives back.
    while (p > text) {
        --p;
        --count;
        if (*p != '=')
            break;
    }
    const int bytes = (count * 3 + 3) / 4;
    return bytes > 0 ? bytes : 0;
}

int base64Decode(const char *text, void *target, int size, int *status)
{
    if (!text)
        return 2;
    int written = 0;
    return decode(text, static_cast<unsigned char *>(target), size, status, &written);
}

const char *base64DecodeToBuffer(Base64Buffer *buffer, const char *text, int *size, int *status)
{
    if (!text) {
        *size = 0;
        return "";
    }
    const int expected = base64DecodedSize(text, status);
    if (expected + 1 > buffer->capacity) {
        void *grown = std::realloc(buffer->buffer, static_cast<size_t>(expected) + 1);
        if (!grown) {
            *size = 0;
            return nullptr;
        }
        buffer->buffer = static_cast<char *>(grown);
        buffer->capacity = expected + 1;
    }
    int written = 0;
    const int result = decode(text, reinterpret_cast<unsigned char *>(buffer->buffer), expected,
                              status, &written);
    if (result == 0) {
        *size = 0;
        return nullptr;
    }
    *size = written;
    buffer->buffer[written] = 0;
    return buffer->buffer;
}
