#pragma once

#include <QByteArray>

// A double as a default C++ text stream prints it into the configuration
// files: six significant digits, the shorter of the fixed and exponential
// forms (as printf's %g), '.' as the point whatever the locale, and at least
// three exponent digits as the files have always carried them (one million
// is "1e+006", 1.5e-7 is "1.5e-007"). Every NaN, the NULL included, prints
// as "nan"; the infinities as "inf" and "-inf".
// Called for every number of a save, so it builds no QString.
void appendStreamNumber(QByteArray &out, double value);
QByteArray streamNumber(double value);
