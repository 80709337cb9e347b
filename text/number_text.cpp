#include "text/number_text.h"

#include <cfloat>
#include <cstdint>
#include <cstring>

namespace {

// The table is spelled out so that every entry is the correctly rounded
// double of its power, whatever the compiler does with pow().
#define QUVA_P10_ROW(d) 1e##d##0, 1e##d##1, 1e##d##2, 1e##d##3, 1e##d##4, \
                        1e##d##5, 1e##d##6, 1e##d##7, 1e##d##8, 1e##d##9

} // namespace

const double powerOfTenTable[309] = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9,
    QUVA_P10_ROW(1), QUVA_P10_ROW(2), QUVA_P10_ROW(3), QUVA_P10_ROW(4), QUVA_P10_ROW(5),
    QUVA_P10_ROW(6), QUVA_P10_ROW(7), QUVA_P10_ROW(8), QUVA_P10_ROW(9), QUVA_P10_ROW(10),
    QUVA_P10_ROW(11), QUVA_P10_ROW(12), QUVA_P10_ROW(13), QUVA_P10_ROW(14), QUVA_P10_ROW(15),
    QUVA_P10_ROW(16), QUVA_P10_ROW(17), QUVA_P10_ROW(18), QUVA_P10_ROW(19), QUVA_P10_ROW(20),
    QUVA_P10_ROW(21), QUVA_P10_ROW(22), QUVA_P10_ROW(23), QUVA_P10_ROW(24), QUVA_P10_ROW(25),
    QUVA_P10_ROW(26), QUVA_P10_ROW(27), QUVA_P10_ROW(28), QUVA_P10_ROW(29),
    1e300, 1e301, 1e302, 1e303, 1e304, 1e305, 1e306, 1e307, 1e308,
};
#undef QUVA_P10_ROW

namespace {

constexpr double blankFailure = 4294967294.0;
constexpr double otherFailure = 4294967295.0;
constexpr double smallestNormal = 2.2250738585072014e-308;
constexpr ushort softHyphen = 0x00AD;
constexpr int maxStrictFractionDigits = 17;
constexpr int maxFractionCount = 308;
constexpr int maxExponentDigits = 3;

double doubleFromBits(std::uint64_t bits)
{
    double d;
    std::memcpy(&d, &bits, sizeof d);
    return d;
}

// A read position over either a counted text (stop set) or a NUL-terminated
// one (stop null). Past the end, peek() gives 0, which is no digit, no sign,
// no letter.
struct Cursor
{
    const ushort *p;
    const ushort *stop;

    bool atEnd() const { return stop ? p >= stop : *p == 0; }
    ushort peek(int k = 0) const
    {
        for (int i = 0; i < k; ++i) {
            if (stop ? p + i >= stop : p[i] == 0)
                return 0;
        }
        if (stop && p + k >= stop)
            return 0;
        return p[k];
    }
    void advance() { ++p; }
};

bool isDigit(ushort c) { return c >= '0' && c <= '9'; }
bool isLetter(ushort c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isBlank(ushort c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
ushort lower(ushort c) { return (c >= 'A' && c <= 'Z') ? ushort(c + 32) : c; }

void skipBlanks(Cursor &c)
{
    while (!c.atEnd() && isBlank(*c.p))
        c.advance();
}

// Reads an optional sign; true for a minus or a soft hyphen.
bool readSign(Cursor &c)
{
    if (c.atEnd())
        return false;
    const ushort ch = *c.p;
    if (ch == '+') {
        c.advance();
        return false;
    }
    if (ch == '-' || ch == softHyphen) {
        c.advance();
        return true;
    }
    return false;
}

bool onlyBlanksLeft(Cursor c)
{
    skipBlanks(c);
    return c.atEnd();
}

enum class Word { None, Nan, Inf, Null };

// Whether `word` (lower case, `size` letters) stands at the cursor, in any
// case, and is not followed by a letter.
bool matchesWord(const Cursor &c, const char *word, int size)
{
    for (int i = 0; i < size; ++i) {
        if (lower(c.peek(i)) != ushort(word[i]))
            return false;
    }
    return !isLetter(c.peek(size));
}

// Recognises the special words at the cursor and moves behind the one found.
Word readWord(Cursor &c, bool knowsNull)
{
    if (matchesWord(c, "nan", 3)) {
        c.p += 3;
        return Word::Nan;
    }
    if (matchesWord(c, "inf", 3)) {
        c.p += 3;
        return Word::Inf;
    }
    if (knowsNull && matchesWord(c, "null", 4)) {
        c.p += 4;
        return Word::Null;
    }
    return Word::None;
}

double wordValue(Word w, bool negative)
{
    switch (w) {
    case Word::Nan:
        return doubleFromBits(0xFFF8000000000000ull);
    case Word::Inf:
        return doubleFromBits(negative ? 0xFFF0000000000000ull : 0x7FF0000000000000ull);
    case Word::Null:
        return doubleFromBits(0xFFFFFFFFFFFFFFFFull);
    case Word::None:
        break;
    }
    return 0.0;
}

// Collects the digits of the mantissa as one whole number. The digits are
// kept exactly in 64 bits as long as they fit (19 digits), so that the usual
// 17 significant digits are rounded once, when the value is taken, and not at
// every step past 2^53; longer runs go on in a double.
struct DigitAccumulator
{
    std::uint64_t exact = 0;
    double approximate = 0.0;
    bool overflowed = false;

    void add(int digit)
    {
        if (!overflowed) {
            if (exact <= (UINT64_MAX - 9) / 10) {
                exact = exact * 10 + std::uint64_t(digit);
                return;
            }
            overflowed = true;
            approximate = double(exact);
        }
        approximate = approximate * 10.0 + digit;
    }
    bool isZero() const { return !overflowed && exact == 0; }
    // Exact while the digits fit in 64 bits: the extended type holds them all.
    long double value() const { return overflowed ? approximate : static_cast<long double>(exact); }
};

enum class Exponent { None, Positive, Negative };

double withSign(double magnitude, bool negative) { return negative ? -magnitude : magnitude; }
long double withSign(long double magnitude, bool negative)
{
    return negative ? -magnitude : magnitude;
}

// Scales the signed whole number v by 10^-n and by the exponent x. Powers
// beyond the table go through the shifted view and a second division by
// 1e308; what falls off either end saturates to the largest or the smallest
// normal double instead of infinity or zero.
// The one multiplication or division is done in the extended type where the
// platform has one, so that a 17-digit mantissa above 2^53 and an inexact
// power of ten cost at most one unit in the last place together, not two.
double scaleNumber(long double v, bool negative, int n, Exponent kind, int x)
{
    using Extended = long double;
    const double *p = powerOfTenTable;
    const ShiftedPowerOfTen s = shiftedPowerOfTen;
    const Extended top = 1e308;
    if (kind == Exponent::None) {
        if (n <= 308)
            return double(v / Extended(p[n]));
        if (n <= 616)
            return double(v / Extended(s[n]) / top);
        return withSign(0.0, negative);
    }
    if (kind == Exponent::Negative) {
        const int k = x + n;
        if (k < 309)
            return double(v / Extended(p[k]));
        if (k < 325)
            return double(v / Extended(s[k]) / top);
        return withSign(smallestNormal, negative);
    }
    const int d = x - n;
    if (d >= 0)
        return d <= 308 ? double(v * Extended(p[d])) : withSign(DBL_MAX, negative);
    if (d >= -308)
        return double(v / Extended(p[-d]));
    if (d >= -324)
        return double(v / Extended(s[-d]) / top);
    return withSign(smallestNormal, negative);
}

// Reads an optional exponent sign; true for a minus.
bool readExponentSign(Cursor &c)
{
    const ushort ch = c.peek();
    if (ch == '+' || ch == '-') {
        c.advance();
        return ch == '-';
    }
    return false;
}

void skipZeros(Cursor &c)
{
    while (c.peek() == '0')
        c.advance();
}

// Reads at most three exponent digits at the cursor.
int readExponentDigits(Cursor &c)
{
    int x = 0;
    for (int i = 0; i < maxExponentDigits && isDigit(c.peek()); ++i) {
        x = x * 10 + (*c.p - '0');
        c.advance();
    }
    return x;
}

} // namespace

double parseNumberStrict(const ushort *text, bool *ok, int length)
{
    *ok = false;
    if (!text || length <= 0)
        return blankFailure;
    Cursor c{text, text + length};
    skipBlanks(c);
    if (c.atEnd())
        return blankFailure;
    const bool negative = readSign(c);
    if (c.atEnd())
        return otherFailure;

    ushort ch = *c.p;
    if (!isDigit(ch) && ch != '.') {
        const Word w = c.stop - c.p >= 3 ? readWord(c, true) : Word::None;
        if (w == Word::None)
            return otherFailure;
        *ok = true;
        return wordValue(w, negative);
    }

    DigitAccumulator acc;
    while (isDigit(c.peek())) {
        acc.add(*c.p - '0');
        *ok = true;
        c.advance();
    }
    if (c.atEnd())
        return double(withSign(acc.value(), negative));
    if (*c.p == ',') {
        *ok = false;
        return otherFailure;
    }

    int n = 0;
    if (*c.p == '.') {
        c.advance();
        if (c.atEnd())
            return *ok ? double(withSign(acc.value(), negative)) : 0.0;
        if (acc.isZero() && c.peek() == '0') {
            *ok = true;
            while (c.peek() == '0') {
                ++n;
                c.advance();
            }
            if (c.atEnd())
                return 0.0;
        }
        for (int read = 0; isDigit(c.peek());) {
            acc.add(*c.p - '0');
            *ok = true;
            ++n;
            c.advance();
            if (++read == maxStrictFractionDigits)
                return scaleNumber(withSign(acc.value(), negative), negative, n,
                                   Exponent::None, 0);
        }
    }
    if (!*ok)
        return otherFailure;

    Exponent kind = Exponent::None;
    int x = 0;
    ch = c.peek();
    if (ch == 'e' || ch == 'E') {
        c.advance();
        kind = readExponentSign(c) ? Exponent::Negative : Exponent::Positive;
        skipZeros(c);
        x = readExponentDigits(c);
    }
    return scaleNumber(withSign(acc.value(), negative), negative, n, kind, x);
}

double parseNumberPrefix(const ushort *text, bool *ok, const ushort **end)
{
    *ok = false;
    *end = text;
    if (!text)
        return 0.0;
    Cursor c{text, nullptr};
    skipBlanks(c);
    const bool negative = readSign(c);
    if (c.atEnd())
        return 0.0;

    if (!isDigit(*c.p) && *c.p != '.') {
        const Word w = readWord(c, false);
        if (w == Word::None)
            return 0.0;
        *ok = true;
        *end = c.p;
        return wordValue(w, negative);
    }

    DigitAccumulator acc;
    while (isDigit(c.peek())) {
        acc.add(*c.p - '0');
        *ok = true;
        c.advance();
    }
    int n = 0;
    if (c.peek() == '.') {
        c.advance();
        if (!*ok && !isDigit(c.peek())) {
            *end = c.p;
            return 0.0;
        }
        // Digits past the 308th cannot change a double: they are read over.
        while (isDigit(c.peek())) {
            if (n < maxFractionCount) {
                acc.add(*c.p - '0');
                ++n;
            }
            *ok = true;
            c.advance();
        }
    }

    Exponent kind = Exponent::None;
    int x = 0;
    if (c.peek() == 'e' || c.peek() == 'E') {
        Cursor e{c.p + 1, nullptr};
        const bool negativeExponent = readExponentSign(e);
        skipZeros(e);
        if (isDigit(e.peek())) {
            kind = negativeExponent ? Exponent::Negative : Exponent::Positive;
            x = readExponentDigits(e);
            while (isDigit(e.peek()))
                e.advance();
            c = e;
        }
    }
    *end = c.p;
    return scaleNumber(withSign(acc.value(), negative), negative, n, kind, x);
}

namespace {

// Accepts the rest of the text: anything without `strict`, white space only
// with it.
bool acceptTail(const Cursor &c, bool strict)
{
    return !strict || onlyBlanksLeft(c);
}

// Skips leading blanks and a sign; false when nothing is left to read.
bool startNumberText(Cursor &c)
{
    skipBlanks(c);
    if (c.atEnd())
        return false;
    readSign(c);
    return !c.atEnd();
}

void skipDigits(Cursor &c)
{
    while (isDigit(c.peek()))
        c.advance();
}

} // namespace

bool isNumberText(const ushort *text, int length, bool strict, ushort point, ushort separator)
{
    if (!text || length <= 0)
        return false;
    Cursor c{text, text + length};
    if (!startNumberText(c))
        return false;

    const ushort first = *c.p;
    if (first == point) {
        if (!isDigit(c.peek(1)))
            return false;
    } else if (!isDigit(first)) {
        if (readWord(c, true) == Word::None)
            return false;
        return acceptTail(c, strict);
    }

    skipDigits(c);
    if (c.atEnd())
        return true;
    if (*c.p == separator)
        return false;
    if (*c.p == point) {
        c.advance();
        skipDigits(c);
        if (c.atEnd())
            return true;
    }
    if (c.peek() == 'e' || c.peek() == 'E') {
        c.advance();
        readExponentSign(c);
        if (c.atEnd() || !isDigit(c.peek()))
            return !strict;
        readExponentDigits(c);
        if (c.atEnd())
            return true;
    }
    return acceptTail(c, strict);
}

bool isIntegerText(const ushort *text, int length, bool strict)
{
    if (!text || length <= 0)
        return false;
    Cursor c{text, text + length};
    if (!startNumberText(c))
        return false;

    if (!isDigit(*c.p)) {
        if (!matchesWord(c, "null", 4))
            return false;
        c.p += 4;
        return acceptTail(c, strict);
    }
    skipDigits(c);
    if (c.atEnd())
        return true;
    if (*c.p == '.') {
        c.advance();
        skipZeros(c);
        if (c.atEnd())
            return true;
        const ushort ch = *c.p;
        if ((ch >= '1' && ch <= '9') || ch == 'e')
            return false;
    }
    return acceptTail(c, strict);
}
