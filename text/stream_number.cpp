#include "text/stream_number.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int significantDigits = 6;
constexpr int minExponentDigits = 3;

// The six rounded significant digits and the decimal exponent of a finite
// value, taken from printf's exponential form. Only digits are picked out of
// it, so a locale's decimal point cannot get into the result.
struct Decomposed
{
    bool negative = false;
    char digits[significantDigits];
    int exponent = 0;
};

Decomposed decompose(double value)
{
    // The exponential form with five decimals, rounded as printf rounds it,
    // without printf's parsing of a format and its locale.
    char text[64];
    const std::to_chars_result end = std::to_chars(
        text, text + sizeof text - 1, value, std::chars_format::scientific, significantDigits - 1);
    *end.ptr = 0;
    Decomposed d;
    const char *p = text;
    if (*p == '-') {
        d.negative = true;
        ++p;
    }
    int n = 0;
    for (; *p && *p != 'e' && n < significantDigits; ++p) {
        if (*p >= '0' && *p <= '9')
            d.digits[n++] = *p;
    }
    while (*p && *p != 'e')
        ++p;
    if (*p == 'e')
        d.exponent = std::atoi(p + 1);
    return d;
}

// Number of digits left once trailing zeros are dropped, never below `keep`.
int significantLength(const Decomposed &d, int keep)
{
    int n = significantDigits;
    while (n > keep && d.digits[n - 1] == '0')
        --n;
    return n;
}

void appendExponential(QByteArray &out, const Decomposed &d)
{
    const int n = significantLength(d, 1);
    out.append(d.digits[0]);
    if (n > 1) {
        out.append('.');
        out.append(d.digits + 1, n - 1);
    }
    out.append('e');
    out.append(d.exponent < 0 ? '-' : '+');
    char exp[16];
    const int len = std::snprintf(exp, sizeof exp, "%0*d", minExponentDigits,
                                  d.exponent < 0 ? -d.exponent : d.exponent);
    out.append(exp, len);
}

void appendFixed(QByteArray &out, const Decomposed &d)
{
    const int n = significantLength(d, 1);
    if (d.exponent < 0) {
        out.append("0.", 2);
        for (int i = -1; i > d.exponent; --i)
            out.append('0');
        out.append(d.digits, n);
        return;
    }
    const int integerDigits = d.exponent + 1;
    out.append(d.digits, integerDigits);
    if (n > integerDigits) {
        out.append('.');
        out.append(d.digits + integerDigits, n - integerDigits);
    }
}

} // namespace

void appendStreamNumber(QByteArray &out, double value)
{
    if (std::isnan(value)) {
        out.append("nan", 3);
        return;
    }
    if (std::isinf(value)) {
        out.append(value < 0 ? "-inf" : "inf");
        return;
    }
    // Whole numbers below a million, the most common values of a file, are
    // their own six significant digits.
    if (value > -1e6 && value < 1e6 && value == std::trunc(value) && value != 0.0) {
        char digits[16];
        const std::to_chars_result end =
            std::to_chars(digits, digits + sizeof digits, static_cast<long>(value));
        out.append(digits, int(end.ptr - digits));
        return;
    }
    const Decomposed d = decompose(value);
    if (d.negative)
        out.append('-');
    // printf's %g rule: fixed while the exponent lies in [-4, precision).
    if (d.exponent >= -4 && d.exponent < significantDigits)
        appendFixed(out, d);
    else
        appendExponential(out, d);
}

QByteArray streamNumber(double value)
{
    QByteArray out;
    appendStreamNumber(out, value);
    return out;
}
