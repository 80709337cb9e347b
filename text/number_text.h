#pragma once

#include <QtGlobal>

// Text-to-number conversion for the expression language and its functions.
// These readers work on 16-bit text as QString holds it, use neither the C
// library nor the locale, and allocate nothing: they run for every cell of
// every evaluation, so that a formula reads numbers the same way everywhere.
//
// Words for the special values, in any case: "nan" gives the quiet NaN with
// bits FFF8000000000000, "inf" an infinity with the sign, and (strict reader
// only) "null" the NULL of the expression language, the NaN with all bits set.

// 10^0 .. 10^308; entry i holds 10^i.
extern const double powerOfTenTable[309];
// The same table seen shifted by 308 places, for exponents 309 to 324:
// shiftedPowerOfTen[i] is 10^(i - 308). Only indexes 308 to 616 are valid.
struct ShiftedPowerOfTen
{
    double operator[](int i) const { return powerOfTenTable[i - 308]; }
};
constexpr ShiftedPowerOfTen shiftedPowerOfTen{};

// Reads a whole number text of `length` characters. On failure *ok is false
// and the result tells why: 4294967294.0 for an empty or blank text, 0.0 for a
// lone point at the end of the text, 4294967295.0 for anything else.
// A comma behind the integer part fails; text behind the number is otherwise
// not looked at. At most 17 fraction digits are read, and reaching them ends
// the number (an exponent behind them is not applied). An exponent too small
// gives the smallest normal double and one too large the largest double.
double parseNumberStrict(const ushort *text, bool *ok, int length);

// Reads the number at the start of a NUL-terminated text, as the formula
// readers do for literals. *end is set to the first character behind the
// number. The decimal point is always '.', the word "null" is not known and a
// comma has no meaning. An exponent is only taken when it holds a digit other
// than 0 ("2e00" reads 2 and stops at the 'e'). On failure *ok is false and
// the result is 0.
double parseNumberPrefix(const ushort *text, bool *ok, const ushort **end);

// Whether the text is a number for the reader above, with `point` as the
// decimal point and `separator` a character that must not follow the integer
// part. With `strict` only white space may follow the number.
bool isNumberText(const ushort *text, int length, bool strict, ushort point, ushort separator);

// Whether the text is an integer: digits, optionally followed by a point and
// zeros only, or the word "null". With `strict` only white space may follow.
bool isIntegerText(const ushort *text, int length, bool strict);
