#pragma once

#include <QString>

// How the pages write numbers into their line edits and read them back.
// A share is a fraction in the record and a percent on the screen. Typed
// text is read with no check: what is no number counts as 0.

// Six significant digits, the shorter of the fixed and exponential forms.
QString numberText(double value);
// The fraction of the record as the percent the user sees.
QString percentText(double fraction);
// The percent the user typed as the fraction the record holds.
double fractionOfPercent(const QString &percent);
