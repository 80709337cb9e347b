#include "expr/engine_fast/mup_math.h"

#include <limits>

namespace mup {

namespace {

// NULL, _nan or nothing to say (0) for a pair of integer operands.
bool integerOperandsInvalid(double x, double y, double *result)
{
    if (isNullNumber(x) || isNullNumber(y)) {
        *result = quva::nullValue();
        return true;
    }
    if (isNaNNumber(x) || isNaNNumber(y)) {
        *result = quva::nanValue();
        return true;
    }
    return false;
}

} // namespace

double modNumbers(double x, double y)
{
    if (y == 0.0)
        return quva::nanValue();
    double invalid = 0.0;
    if (integerOperandsInvalid(x, y, &invalid))
        return invalid;
    const qint64 a = truncToInt64(x);
    const qint64 b = truncToInt64(y);
    if (b == 0)
        return quva::nanValue();
    if (b == -1) // the lowest integer % -1 overflows; every remainder by -1 is 0
        return 0.0;
    return static_cast<double>(a % b);
}

double intPower(double x, qint64 n)
{
    const bool negative = n < 0;
    quint64 e = negative ? static_cast<quint64>(-n) : static_cast<quint64>(n);
    double result = 1.0;
    double base = x;
    while (e != 0) {
        if (e & 1u)
            result *= base;
        base *= base;
        e >>= 1;
    }
    return negative ? 1.0 / result : result;
}

double bitAndNumbers(double x, double y)
{
    double invalid = 0.0;
    if (integerOperandsInvalid(x, y, &invalid))
        return invalid;
    return static_cast<double>(truncToInt64(x) & truncToInt64(y));
}

double bitOrNumbers(double x, double y)
{
    double invalid = 0.0;
    if (integerOperandsInvalid(x, y, &invalid))
        return invalid;
    return static_cast<double>(truncToInt64(x) | truncToInt64(y));
}

double shiftLeftNumbers(double x, double y)
{
    double invalid = 0.0;
    if (integerOperandsInvalid(x, y, &invalid))
        return invalid;
    const qint64 count = truncToInt64(y);
    if (count < 0 || count > 63)
        return 0.0;
    const quint64 bits = static_cast<quint64>(truncToInt64(x)) << count;
    return static_cast<double>(static_cast<qint64>(bits));
}

double shiftRightNumbers(double x, double y)
{
    double invalid = 0.0;
    if (integerOperandsInvalid(x, y, &invalid))
        return invalid;
    const qint64 value = truncToInt64(x);
    const qint64 count = truncToInt64(y);
    if (count < 0 || count > 63)
        return value < 0 ? -1.0 : 0.0;
    return static_cast<double>(value >> count);
}

} // namespace mup
