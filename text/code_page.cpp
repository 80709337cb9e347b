#include "text/code_page.h"

#include <cstdint>
#include <cstring>

namespace {

// 0x80 to 0x9F; the rest of the page equals Latin-1.
constexpr char16_t windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(sizeof(windows1252High) / sizeof(windows1252High[0]) == 32, "0x80 to 0x9F");

bool isContinuation(unsigned char b)
{
    return (b & 0xC0) == 0x80;
}

} // namespace

bool isValidUtf8(const char *data, int size)
{
    const auto *p = reinterpret_cast<const unsigned char *>(data);
    int i = 0;
    while (i < size) {
        const unsigned char b = p[i];
        if (b < 0x80) {
            ++i;
            // Files are mostly ASCII: step over it eight bytes at a time.
            std::uint64_t word;
            while (i + 8 <= size) {
                std::memcpy(&word, p + i, sizeof word);
                if (word & 0x8080808080808080ull)
                    break;
                i += 8;
            }
            continue;
        }
        int n = 0;
        char32_t code = 0;
        char32_t minimum = 0;
        if (b >= 0xC2 && b <= 0xDF) {
            n = 1, code = b & 0x1F, minimum = 0x80;
        } else if (b >= 0xE0 && b <= 0xEF) {
            n = 2, code = b & 0x0F, minimum = 0x800;
        } else if (b >= 0xF0 && b <= 0xF4) {
            n = 3, code = b & 0x07, minimum = 0x10000;
        } else {
            return false;
        }
        if (i + n >= size)
            return false;
        for (int k = 1; k <= n; ++k) {
            if (!isContinuation(p[i + k]))
                return false;
            code = (code << 6) | (p[i + k] & 0x3F);
        }
        if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += n + 1;
    }
    return true;
}

char32_t windows1252ToUnicode(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F)
        return windows1252High[byte - 0x80];
    return byte;
}

char windows1252FromUnicode(char32_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<char>(code);
    for (int i = 0; i < 32; ++i)
        if (windows1252High[i] == code)
            return static_cast<char>(0x80 + i);
    return '?';
}

void appendUtf8(QByteArray &out, char32_t code)
{
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        code = 0xFFFD;
    if (code < 0x80) {
        out.append(static_cast<char>(code));
    } else if (code < 0x800) {
        out.append(static_cast<char>(0xC0 | (code >> 6)));
        out.append(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.append(static_cast<char>(0xE0 | (code >> 12)));
        out.append(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.append(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.append(static_cast<char>(0xF0 | (code >> 18)));
        out.append(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.append(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.append(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

QByteArray windows1252ToUtf8(const char *data, int size)
{
    QByteArray out;
    out.reserve(size + size / 8);
    for (int i = 0; i < size; ++i)
        appendUtf8(out, windows1252ToUnicode(static_cast<unsigned char>(data[i])));
    return out;
}
