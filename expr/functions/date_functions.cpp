#include "expr/functions/date_functions.h"

#include "expr/expr_context.h"
#include "expr/functions/function_support.h"

namespace quva {

namespace {

constexpr qint64 msPerDay = 86400000;

Qt::TimeSpec timeSpecOf(const ExprContext &context)
{
    return context.useUtc ? Qt::UTC : Qt::LocalTime;
}

double outsideRange(const ExprContext &context)
{
    return context.beforeOriginIsZero ? 0.0 : nullValue();
}

// Two ETs as instants, or false when either has none.
bool datesFromEts(const ExprContext &context, double et1, double et2, QDate *first,
                  QDate *second)
{
    QDateTime d1;
    QDateTime d2;
    if (!dateFromEt(context, et1, &d1) || !dateFromEt(context, et2, &d2))
        return false;
    *first = d1.date();
    *second = d2.date();
    return true;
}

} // namespace

qint64 etUnitMs(int unit)
{
    static const qint64 units[5] = {1000, 60000, 3600000, msPerDay, 7 * msPerDay};
    return unit >= 0 && unit <= 4 ? units[unit] : 0;
}

QDateTime readDate(const ExprContext &context, const QString &text)
{
    if (text.isNull())
        return QDateTime();
    QDateTime date = QDateTime::fromString(text, context.dateFormat);
    if (context.useUtc)
        date.setTimeSpec(Qt::UTC);
    return date;
}

QString printDate(const ExprContext &context, const QDateTime &date)
{
    if (!date.isValid())
        return QString();
    return date.toString(context.dateFormat);
}

double etFromMs(const ExprContext &context, qint64 ms)
{
    const qint64 unit = etUnitMs(context.etUnit);
    const qint64 difference = ms - context.etOriginMs;
    if (difference < 0 || unit == 0)
        return outsideRange(context);
    return static_cast<double>(difference / unit);
}

double etFromDate(const ExprContext &context, const QDateTime &date)
{
    return etFromMs(context, date.toMSecsSinceEpoch());
}

bool dateFromEt(const ExprContext &context, double et, QDateTime *date)
{
    const qint64 unit = etUnitMs(context.etUnit);
    if (!isFiniteBits(et) || unit == 0)
        return false;
    const double ms = et * static_cast<double>(unit) + static_cast<double>(context.etOriginMs);
    if (!(ms > -9.2e18 && ms < 9.2e18))
        return false;
    *date = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(ms));
    if (context.useUtc)
        *date = date->toTimeSpec(Qt::UTC);
    return date->isValid();
}

double dateTextToEt(const ExprContext &context, const QString &text, bool *invalidZero)
{
    const QDateTime date = readDate(context, text);
    const bool invalid = !date.isValid();
    if (invalidZero)
        *invalidZero = invalid && context.invalidDateIsZero;
    if (invalid)
        return context.invalidDateIsZero ? 0.0 : nullValue();
    return etFromDate(context, date);
}

QDateTime addDuration(const QDateTime &date, double years, double months, double days)
{
    // A NULL or otherwise missing amount moves the date nowhere.
    if (!isFiniteBits(years) || !isFiniteBits(months) || !isFiniteBits(days))
        return QDateTime();
    return date.addYears(truncToInt32(years))
        .addMonths(truncToInt32(months))
        .addDays(truncToInt64(days));
}

int monthsBetween(const QDate &first, const QDate &second)
{
    return (second.year() - first.year()) * 12 + second.month() - first.month();
}

int dayOfWeekFromMonday(const QDate &date)
{
    return date.dayOfWeek() - 1;
}

QDateTime firstDayOfYear(const ExprContext &context, double year, double dow)
{
    if (!isFiniteBits(year) || !isFiniteBits(dow))
        return QDateTime();
    const QDate january1(truncToInt32(year), 1, 1);
    if (!january1.isValid())
        return QDateTime();
    int offset = truncToInt32(dow) - january1.dayOfWeek() + 1;
    if (offset < 0)
        offset += 7;
    return QDateTime(january1.addDays(offset), QTime(0, 0), timeSpecOf(context));
}

double fnToET(const wchar_t *text, ExprContext *context)
{
    // An empty literal counts as a missing date here.
    const QString date = text && *text ? QString::fromWCharArray(text) : QString();
    return dateTextToEt(*context, date);
}

double fnEtAdd(double et, double years, double months, double days, ExprContext *context)
{
    QDateTime date;
    if (!dateFromEt(*context, et, &date))
        return nullValue();
    const QDateTime moved = addDuration(date, years, months, days);
    return moved.isValid() ? etFromDate(*context, moved) : nullValue();
}

double fnEtDiffInMonth(double et1, double et2, ExprContext *context)
{
    QDate first;
    QDate second;
    if (!datesFromEts(*context, et1, et2, &first, &second))
        return nullValue();
    return monthsBetween(first, second);
}

double fnEtDiffInYear(double et1, double et2, ExprContext *context)
{
    QDate first;
    QDate second;
    if (!datesFromEts(*context, et1, et2, &first, &second))
        return nullValue();
    return second.year() - first.year();
}

double fnEtWeekNumber(double et, ExprContext *context)
{
    QDateTime date;
    if (!dateFromEt(*context, et, &date))
        return nullValue();
    return date.date().weekNumber();
}

double fnEtDayOfWeek(double et, ExprContext *context)
{
    QDateTime date;
    if (!dateFromEt(*context, et, &date))
        return nullValue();
    return dayOfWeekFromMonday(date.date());
}

double fnEtFirstDayOfYear(double year, double dow, ExprContext *context)
{
    const QDateTime first = firstDayOfYear(*context, year, dow);
    return first.isValid() ? etFromDate(*context, first) : nullValue();
}

} // namespace quva
