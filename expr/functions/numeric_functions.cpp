#include "expr/functions/numeric_functions.h"

#include "expr/expr_context.h"
#include "expr/functions/function_support.h"
#include "expr/functions/mt19937.h"
#include "text/number_text.h"

#include <cmath>

namespace quva {

namespace {

// 2^-32: turns a 32-bit draw into [0, 1[.
constexpr double randomScale = 2.3283064365386963e-10;
// Degrees to radians as the language has always computed it.
constexpr double degreeFactor = 0.017453292519944444;
constexpr double earthDiameterKm = 12742.0;
constexpr double halfCircumferenceKm = 20015.08679602189;

double truth(bool b) { return b ? 1.0 : 0.0; }

bool isFinite(double x) { return isFiniteBits(x); }

// The text of a number that is not finite.
QString nonFiniteText(double x)
{
    if (isNull(x))
        return QString();
    if (isNanBits(x))
        return QStringLiteral("nan");
    if (toBits(x) & 0x8000000000000000ull)
        return QStringLiteral("-inf");
    return QStringLiteral("inf");
}

} // namespace

double fnIsNull(double x) { return truth(isNull(x)); }
double fnIsNan(double x) { return truth(isNanBits(x)); }
double fnIsFinite(double x) { return truth(isFinite(x)); }
double fnIsTrue(double x) { return truth(x != 0.0 && !isNull(x)); }

double fnNot(double x)
{
    if (isNull(x))
        return x;
    return truth(x == 0.0);
}

double fnNvl(double a, double b) { return isNull(a) ? b : a; }
double fnNvl2(double a, double b, double c) { return isNull(a) ? c : b; }
double fnNanvl(double a, double b) { return isNaN(a) ? b : a; }
double fnNanvl2(double a, double b, double c) { return isNaN(a) ? c : b; }
double fnFinitevl(double a, double b) { return isFinite(a) ? a : b; }
double fnFinitevl2(double a, double b, double c) { return isFinite(a) ? b : c; }

double fnSqr(double x) { return isNull(x) ? x : x * x; }
double fnCeil(double x) { return isNull(x) ? x : std::ceil(x); }
double fnFloor(double x) { return isNull(x) ? x : std::floor(x); }
double fnRound(double x) { return isNull(x) ? x : std::floor(x + 0.5); }

double fnFloor2(double x, double y)
{
    if (isNull(x) || isNull(y))
        return nullValue();
    const double q = x / y;
    return x - (q - std::floor(q)) * y;
}

double fnAtan2(double y, double x)
{
    if (isNull(y) || isNull(x))
        return nullValue();
    return std::atan2(y, x);
}

double fnHdist(double lat1, double lon1, double lat2, double lon2)
{
    if (isNull(lat1) || isNull(lon1) || isNull(lat2) || isNull(lon2))
        return nullValue();
    const double k = degreeFactor;
    const double s1 = std::sin((lat2 * k - lat1 * k) * 0.5);
    const double s2 = std::sin((lon2 - lon1) * k * 0.5);
    const double a = std::cos(lat1 * k) * std::cos(lat2 * k) * s2 * s2 + s1 * s1;
    if (!(a > 0.0))
        return 0.0;
    if (!(a < 1.0))
        return halfCircumferenceKm;
    return std::asin(std::sqrt(a)) * earthDiameterKm;
}

double fnNDaysInMonth(double month, double year)
{
    static const int days[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (!isFinite(month) || !isFinite(year))
        return nullValue();
    const double m = std::trunc(month);
    if (m < 0.0 || m > 12.0)
        return 0.0;
    const int index = static_cast<int>(m);
    if (index == 2 && std::fmod(std::trunc(year), 4.0) == 0.0)
        return 29.0;
    return days[index];
}

double fnRand(double x, ExprContext *context)
{
    return nextRandom(context->random) * randomScale * x;
}

double fnRand1(ExprContext *context)
{
    return nextRandom(context->random) * randomScale;
}

double fnRandN(double x, ExprContext *context)
{
    return std::floor(nextRandom(context->random) * randomScale * x);
}

QString numberToText(double x)
{
    if (!isFinite(x))
        return nonFiniteText(x);
    QString text;
    text.setNum(x, 'g', 6);
    return text;
}

QString integerToText(double x)
{
    if (!isFinite(x))
        return nonFiniteText(x);
    return QString::number(static_cast<qlonglong>(truncToInt64(x)));
}

QString integerToHexText(double x)
{
    if (!isFinite(x))
        return nonFiniteText(x);
    return QString::number(static_cast<qlonglong>(truncToInt64(x)), 16);
}

double textToNumber(const QString &text)
{
    if (text.isNull())
        return nullValue();
    bool ok = false;
    const double value = parseNumberStrict(utf16Of(text), &ok, text.size());
    return ok ? value : nanValue();
}

bool hexTextToInt(const QString &text, int *value)
{
    bool ok = false;
    *value = text.toInt(&ok, 16);
    return ok;
}

QString hexTextToLatin1(const QString &text)
{
    const auto digit = [](QChar c) {
        const int code = c.unicode();
        if (code <= '9')
            return code - '0';
        if (code < 'a')
            return code - 55;
        return code - 87;
    };
    // Never the null string for a string argument, even an empty one.
    QString result = QStringLiteral("");
    result.reserve(text.size() / 2);
    for (int i = 0; i + 1 < text.size(); i += 2) {
        const int code = digit(text.at(i)) * 16 + digit(text.at(i + 1));
        result.append(QChar(static_cast<ushort>(code & 0xFF)));
    }
    return result;
}

bool isTrueText(const QString &text)
{
    if (text.isEmpty())
        return false;
    static const QString trueLetters = QStringLiteral("1YyTtOoPp");
    if (!trueLetters.contains(text.at(0)))
        return false;
    if (text.size() == 1)
        return true;
    const QChar second = text.at(1);
    return second == QLatin1Char(' ') || second == QLatin1Char('\t');
}

} // namespace quva
