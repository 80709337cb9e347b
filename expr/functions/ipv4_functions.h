#pragma once

#include <QString>

// Dotted IPv4 addresses read out of text by a scanner of its own. An octet
// is any number of blanks (blank, tab, carriage return, line feed), up to
// three decimal digits and blanks again; an address is four octets joined by
// "."; a range is an address, "/", blanks, up to three digits and blanks.
// Failures come back as NULL (or 0 for the test).

namespace quva {

// 1 for an address of at least 7 characters whose octets all have a digit
// and are at most 255, with nothing but blanks behind it; 0 otherwise.
int isIp4(const QString &text);
// a*2^24 + b*2^16 + c*2^8 + d with no limit on the octets; an octet without
// digits is 0. NULL for the null string, a text that ends early or a missing
// "." between the octets.
double ip4ToNumber(const QString &text);
// "addr/n" with n from 1 to 32 and nothing but blanks behind: the address
// assembled in 32 bits with the low 32-n bits cleared. NULL otherwise.
double ip4RangeLow(const QString &text);
// ip4RangeLow plus 2^(32-n) in 32 bits: the first address behind the range.
double ip4RangeHigh(const QString &text);
// Part `pos` of the text cut at its dots (0, 1, 2, any other value: the text
// behind the third dot), read as an octet. NULL for the null string or when a
// needed dot is missing.
double ip4Part(const QString &text, int pos);

} // namespace quva
