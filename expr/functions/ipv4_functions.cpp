#include "expr/functions/ipv4_functions.h"

#include "expr/null_value.h"

#include <QtGlobal>

namespace quva {

namespace {

// Block sizes and masks of the ranges /0 to /32.
struct RangeTables
{
    quint32 mask[33];
    quint64 size[33];
    constexpr RangeTables() : mask(), size()
    {
        for (int n = 0; n <= 32; ++n) {
            size[n] = quint64(1) << (32 - n);
            mask[n] = n == 0 ? 0u : static_cast<quint32>(0xFFFFFFFFull << (32 - n));
        }
    }
};
constexpr RangeTables rangeTables;

// A cursor over the 16-bit characters of a text.
class Ip4Scanner
{
public:
    explicit Ip4Scanner(const QString &text) : m_text(text) {}

    bool atEnd() const { return m_pos >= m_text.size(); }

    void skipBlanks()
    {
        while (!atEnd() && isBlank(m_text.at(m_pos)))
            ++m_pos;
    }

    // Blanks, up to three digits, blanks. Gives the value and how many digits.
    int readOctet(int *digits)
    {
        skipBlanks();
        int value = 0;
        *digits = 0;
        while (*digits < 3 && !atEnd() && isDigit(m_text.at(m_pos))) {
            value = value * 10 + (m_text.at(m_pos).unicode() - '0');
            ++m_pos;
            ++*digits;
        }
        skipBlanks();
        return value;
    }

    // Takes `c` if it stands at the cursor.
    bool take(QChar c)
    {
        if (atEnd() || m_text.at(m_pos) != c)
            return false;
        ++m_pos;
        return true;
    }

    // Four octets joined by dots. *ended tells a text that stopped before a
    // dot from one with something else in its place.
    bool readAddress(int octets[4], int digits[4], bool *ended = nullptr)
    {
        for (int i = 0; i < 4; ++i) {
            if (i > 0 && !take(QLatin1Char('.'))) {
                if (ended)
                    *ended = atEnd();
                return false;
            }
            octets[i] = readOctet(&digits[i]);
        }
        return true;
    }

private:
    static bool isBlank(QChar c)
    {
        const ushort u = c.unicode();
        return u == ' ' || u == '\t' || u == '\r' || u == '\n';
    }
    static bool isDigit(QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; }

    const QString &m_text;
    int m_pos = 0;
};

quint32 assemble(const int octets[4])
{
    return (static_cast<quint32>(octets[0]) << 24) + (static_cast<quint32>(octets[1]) << 16)
           + (static_cast<quint32>(octets[2]) << 8) + static_cast<quint32>(octets[3]);
}

// The address and the prefix length of a range, or false.
bool readRange(const QString &text, quint32 *address, int *bits)
{
    Ip4Scanner scanner(text);
    int octets[4];
    int digits[4];
    if (!scanner.readAddress(octets, digits) || !scanner.take(QLatin1Char('/')))
        return false;
    int prefixDigits = 0;
    *bits = scanner.readOctet(&prefixDigits);
    if (!scanner.atEnd() || *bits < 1 || *bits > 32)
        return false;
    *address = assemble(octets);
    return true;
}

} // namespace

int isIp4(const QString &text)
{
    if (text.size() < 7)
        return 0;
    Ip4Scanner scanner(text);
    int octets[4];
    int digits[4];
    if (!scanner.readAddress(octets, digits) || !scanner.atEnd())
        return 0;
    for (int i = 0; i < 4; ++i) {
        if (digits[i] == 0 || octets[i] > 255)
            return 0;
    }
    return 1;
}

double ip4ToNumber(const QString &text)
{
    if (text.isNull())
        return nullValue();
    Ip4Scanner scanner(text);
    int octets[4];
    int digits[4];
    if (!scanner.readAddress(octets, digits))
        return nullValue();
    return octets[0] * 16777216.0 + octets[1] * 65536.0 + octets[2] * 256.0 + octets[3];
}

double ip4RangeLow(const QString &text)
{
    quint32 address = 0;
    int bits = 0;
    if (!readRange(text, &address, &bits))
        return nullValue();
    return address & rangeTables.mask[bits];
}

double ip4RangeHigh(const QString &text)
{
    quint32 address = 0;
    int bits = 0;
    if (!readRange(text, &address, &bits))
        return nullValue();
    const quint32 low = address & rangeTables.mask[bits];
    return static_cast<quint32>(low + rangeTables.size[bits]);
}

double ip4Part(const QString &text, int pos)
{
    if (text.isNull())
        return nullValue();
    // The first three dots; a dot found implies the ones before it.
    int dots[3] = {-1, -1, -1};
    for (int i = 0, from = 0; i < 3; ++i) {
        dots[i] = text.indexOf(QLatin1Char('.'), from);
        if (dots[i] < 0)
            break;
        from = dots[i] + 1;
    }
    const bool middle = pos == 0 || pos == 1 || pos == 2;
    // Part k ends at dot k; the last part runs from the third dot to the end.
    const int lastDotNeeded = middle ? pos : 2;
    if (dots[lastDotNeeded] < 0)
        return nullValue();
    const int start = middle ? (pos == 0 ? 0 : dots[pos - 1] + 1) : dots[2] + 1;
    const int end = middle ? dots[pos] : text.size();
    const QString part = text.mid(start, end - start);
    Ip4Scanner scanner(part);
    int digits = 0;
    return scanner.readOctet(&digits);
}

} // namespace quva
