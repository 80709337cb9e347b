#pragma once

#include <QString>

struct ExprContext;

// The numeric and null functions of the language on plain doubles. The
// compiled engine calls these directly; the callback classes of the other
// engine use them for their numeric branch, so both engines agree.
// NULL is the NaN with every bit set and is recognised by its bits only.

namespace quva {

// Tests, giving 1.0 or 0.0.
double fnIsNull(double x);    // the NULL bits
double fnIsNan(double x);     // the bits of _nan only: NULL gives 0
double fnIsFinite(double x);  // exponent field not all ones
double fnIsTrue(double x);    // not 0 and not NULL; a plain NaN is true
// NULL stays NULL; 0 gives 1, anything else (NaN too) 0.
double fnNot(double x);

// Choosing a value: the argument that is returned keeps its kind.
double fnNvl(double a, double b);
double fnNvl2(double a, double b, double c);
double fnNanvl(double a, double b);
double fnNanvl2(double a, double b, double c);
double fnFinitevl(double a, double b);
double fnFinitevl2(double a, double b, double c);

// NULL stays NULL in all of these.
double fnSqr(double x);
double fnCeil(double x);
double fnFloor(double x);
double fnRound(double x);               // floor(x + 0.5): -2.5 gives -2
double fnFloor2(double x, double y);    // x - (q - floor(q)) * y, q = x / y
double fnAtan2(double y, double x);
double fnHdist(double lat1, double lon1, double lat2, double lon2); // kilometres
// Days of the month; February has 29 days in every year divisible by 4.
// Not finite arguments give NULL, a month outside 0 to 12 gives 0.
double fnNDaysInMonth(double month, double year);

// Draws from the context's generator; no NULL test.
double fnRand(double x, ExprContext *context);   // [0, x[
double fnRand1(ExprContext *context);            // [0, 1[
double fnRandN(double x, ExprContext *context);  // floor of rand(x)

// Conversions between numbers and text. NULL gives the null string, the bits
// of _nan "nan", any other non-finite number "-inf" or "inf" by its sign bit.
QString numberToText(double x);          // 'g' with 6 digits
QString integerToText(double x);         // truncated to 64 bits, decimal
QString integerToHexText(double x);      // truncated to 64 bits, lower-case hex
// The null string gives NULL; text that is no number gives _nan.
double textToNumber(const QString &text);
// Base-16 integer of the text by QString::toInt; false when the text is no
// hex number or does not fit in 32 bits.
bool hexTextToInt(const QString &text, int *value);
// Pairs of hex digits as Latin-1 characters. A lone digit at the end is left
// out; digits are not validated.
QString hexTextToLatin1(const QString &text);

// 1, Y, y, T, t, O, o, P, p followed by nothing, a blank or a tab.
bool isTrueText(const QString &text);

} // namespace quva
