#pragma once

#include <QDateTime>
#include <QString>
#include <QtGlobal>

struct ExprContext;

// Dates and Elapsed Times (ET). A date is a string in the context's
// dateFormat, read and made in UTC when useUtc is set and in local time
// otherwise. An ET is a number: the time since etOriginMs in the unit etUnit
// (0 second, 1 minute, 2 hour, 3 day, 4 week).

namespace quva {

// Milliseconds of the unit, or 0 for a unit outside 0 to 4.
qint64 etUnitMs(int unit);

// The date read with dateFormat; invalid for a null or unreadable text.
QDateTime readDate(const ExprContext &context, const QString &text);
// The date printed with dateFormat; the null string for an invalid date.
QString printDate(const ExprContext &context, const QDateTime &date);

// ET of an instant, truncated towards zero. Before the origin, or with a
// unit outside the table: 0 if beforeOriginIsZero is set, NULL otherwise.
double etFromMs(const ExprContext &context, qint64 ms);
double etFromDate(const ExprContext &context, const QDateTime &date);
// The instant of an ET; false for NULL, a number that is not finite, a unit
// outside the table or an instant Qt cannot hold.
bool dateFromEt(const ExprContext &context, double et, QDateTime *date);

// toET: the invalid rule gives the integer 0 if invalidDateIsZero is set,
// NULL otherwise. *invalidZero tells that case, which the Fast parser assigns as
// an integer.
double dateTextToEt(const ExprContext &context, const QString &text, bool *invalidZero = nullptr);

// Years, months and days added in this order, each truncated to an integer;
// invalid when an amount is not finite (NULL included).
QDateTime addDuration(const QDateTime &date, double years, double months, double days);
int monthsBetween(const QDate &first, const QDate &second);
// Monday 0 to Sunday 6.
int dayOfWeekFromMonday(const QDate &date);
// Midnight of the first weekday `dow` (0 Monday) on or after January 1 of the
// year `year`; invalid for arguments that are not finite.
QDateTime firstDayOfYear(const ExprContext &context, double year, double dow);

// The functions of the compiled engine, which takes the context last.
double fnToET(const wchar_t *text, ExprContext *context);
double fnEtAdd(double et, double years, double months, double days, ExprContext *context);
double fnEtDiffInMonth(double et1, double et2, ExprContext *context);
double fnEtDiffInYear(double et1, double et2, ExprContext *context);
double fnEtWeekNumber(double et, ExprContext *context);
double fnEtDayOfWeek(double et, ExprContext *context);
double fnEtFirstDayOfYear(double year, double dow, ExprContext *context);

} // namespace quva
