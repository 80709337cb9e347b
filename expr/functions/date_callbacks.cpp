#include "expr/functions/date_callbacks.h"

#include "expr/expr_context.h"
#include "expr/functions/date_functions.h"

namespace {

// Read with their argument index, so that a type error names the right
// place when one variable is passed as a date and as a number.
double number(const mup::IValue *const *args, int index)
{
    return mup::floatArgument(args, index);
}

QDateTime date(const ExprContext &context, const mup::IValue *const *args, int index)
{
    return quva::readDate(context, mup::stringArgument(args, index));
}

void assignNumber(mup::IValue &ret, double value) { ret = value; }
void assignText(mup::IValue &ret, const QString &value) { ret = value; }

// The eight functions of two dates: both must be read, or the result is NULL.
bool readTwoDates(const ExprContext &context, const mup::IValue *const *args, QDateTime *first,
                  QDateTime *second)
{
    *first = date(context, args, 0);
    *second = date(context, args, 1);
    return first->isValid() && second->isValid();
}

// A date of one number: the week number or the day of the week.
void evalDateNumber(mup::IValue &ret, const QDateTime &d, int (*f)(const QDate &))
{
    if (d.isValid())
        ret = f(d.date());
    else
        assignNumber(ret, quva::nullValue());
}

int weekNumber(const QDate &d) { return d.weekNumber(); }

// A test on two dates: NULL (as a boolean) when either cannot be read.
void evalDateTest(mup::IValue &ret, const ExprContext &context, const mup::IValue *const *args,
                  bool (*test)(const QDateTime &, const QDateTime &))
{
    QDateTime first;
    QDateTime second;
    if (!readTwoDates(context, args, &first, &second)) {
        ret.SetNull();
        return;
    }
    const bool result = test(first, second);
    ret = result;
}

// A difference of two dates as an integer: NULL when either cannot be read.
void evalDateDifference(mup::IValue &ret, const ExprContext &context,
                        const mup::IValue *const *args,
                        qint64 (*difference)(const QDateTime &, const QDateTime &))
{
    QDateTime first;
    QDateTime second;
    if (!readTwoDates(context, args, &first, &second))
        assignNumber(ret, quva::nullValue());
    else
        ret = difference(first, second);
}

} // namespace

QUVA_DEFINE_CONTEXT_FUNCTION(MuToET, "toET", 1,
                             "toET(date) - convert a date (as a string) to an Elapsed Time")
void MuToET::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    bool invalidZero = false;
    const double et = quva::dateTextToEt(*m_context, args[0]->GetString(), &invalidZero);
    if (invalidZero)
        ret = 0;
    else
        assignNumber(ret, et);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuToDate, "toDate", 1,
                             "toDate(ET) - convert a date (as an Elapsed Time) to a string")
void MuToDate::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    QDateTime d;
    const bool valid = quva::dateFromEt(*m_context, number(args, 0), &d);
    assignText(ret, valid ? quva::printDate(*m_context, d) : QString());
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETWeekNumber, "etWeekNumber", 1,
                             "etWeekNumber(x) - Returns the week number (1 to 53)")
void MuETWeekNumber::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    QDateTime d;
    quva::dateFromEt(*m_context, number(args, 0), &d);
    evalDateNumber(ret, d, weekNumber);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateWeekNumber, "dateWeekNumber", 1,
                             "dateWeekNumber(date) - Returns the week number (1 to 53)")
void MuDateWeekNumber::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateNumber(ret, date(*m_context, args, 0), weekNumber);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETDayOfWeek, "etDayOfWeek", 1,
                             "etDayOfWeek(et) - Returns the Day of Week(0=monday; 6=sunday)")
void MuETDayOfWeek::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    QDateTime d;
    quva::dateFromEt(*m_context, number(args, 0), &d);
    evalDateNumber(ret, d, quva::dayOfWeekFromMonday);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateDayOfWeek, "dateDayOfWeek", 1,
                             "dateDayOfWeek(date) - Returns the Day of Week(0=monday; 6=sunday)")
void MuDateDayOfWeek::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateNumber(ret, date(*m_context, args, 0), quva::dayOfWeekFromMonday);
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETFirstDayOfYear, "etFirstDayOfYear", 2,
                             "etFirstDayOfYear(y,dow) - et of the first DayOfWeek(dow) of the "
                             "year(y)")
void MuETFirstDayOfYear::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignNumber(ret, quva::fnEtFirstDayOfYear(number(args, 0), number(args, 1), m_context));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateFirstDayOfYear, "dateFirstDayOfYear", 2,
                             "dateFirstDayOfYear(y,dow) - date of the first DayOfWeek(dow) of "
                             "the year(y)")
void MuDateFirstDayOfYear::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QDateTime first = quva::firstDayOfYear(*m_context, number(args, 0), number(args, 1));
    assignText(ret, quva::printDate(*m_context, first));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETAdd, "etAdd", 4,
                             "etAdd(ET,y,M,d) - add a duration (in year, month and days) to an "
                             "Elapsed Time")
void MuETAdd::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignNumber(ret, quva::fnEtAdd(number(args, 0), number(args, 1), number(args, 2),
                                    number(args, 3), m_context));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateAdd, "dateAdd", 4,
                             "dateAdd(date,y,M,d) - add a duration (in year, month and days) to "
                             "a date")
void MuDateAdd::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QDateTime d = date(*m_context, args, 0);
    const QDateTime moved =
        d.isValid() ? quva::addDuration(d, number(args, 1), number(args, 2), number(args, 3))
                    : QDateTime();
    assignText(ret, quva::printDate(*m_context, moved));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateTimeAdd, "dateAddS", 2,
                             "dateAddS(date,s) - add a duration (in seconds) to a date")
void MuDateTimeAdd::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QDateTime d = date(*m_context, args, 0);
    const double seconds = number(args, 1);
    // A NULL or otherwise missing amount moves the date nowhere.
    const bool movable = d.isValid() && quva::isFiniteBits(seconds);
    assignText(ret, movable ? quva::printDate(*m_context, d.addSecs(quva::truncToInt64(seconds)))
                            : QString());
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDatePrint, "datePrint", 2,
                             "datePrint(date,format) - reformat a date")
void MuDatePrint::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QDateTime d = date(*m_context, args, 0);
    const QString format = args[1]->GetString();
    assignText(ret, d.isValid() ? d.toString(format) : QString());
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETDiffInMonth, "etDiffInMonth", 2,
                             "etDiffInMonth(x,y) - number of months between x and y")
void MuETDiffInMonth::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignNumber(ret, quva::fnEtDiffInMonth(number(args, 0), number(args, 1), m_context));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuETDiffInYear, "etDiffInYear", 2,
                             "etDiffInYear(x,y) - number of years between x and y")
void MuETDiffInYear::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignNumber(ret, quva::fnEtDiffInYear(number(args, 0), number(args, 1), m_context));
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateDiffInMonth, "dateDiffInMonth", 2,
                             "dateDiffInMonth(x,y) - number of months between x and y")
void MuDateDiffInMonth::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateDifference(ret, *m_context, args, [](const QDateTime &a, const QDateTime &b) {
        return qint64(quva::monthsBetween(a.date(), b.date()));
    });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateDiffInYear, "dateDiffInYear", 2,
                             "dateDiffInYear(x,y) - number of years between x and y")
void MuDateDiffInYear::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateDifference(ret, *m_context, args, [](const QDateTime &a, const QDateTime &b) {
        return qint64(b.date().year() - a.date().year());
    });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateDiffInDay, "dateDiffInDay", 2,
                             "dateDiffInDay(x,y) - number of days between x and y")
void MuDateDiffInDay::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateDifference(ret, *m_context, args, [](const QDateTime &a, const QDateTime &b) {
        return a.date().daysTo(b.date());
    });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateDiffInSecond, "dateDiffInSecond", 2,
                             "dateDiffInSecond(x,y) - number of seconds between x and y")
void MuDateDiffInSecond::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateDifference(ret, *m_context, args,
                       [](const QDateTime &a, const QDateTime &b) { return a.secsTo(b); });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateBefore, "dateLT", 2, "dateLT(x,y) - returns date(x)<date(y)")
void MuDateBefore::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateTest(ret, *m_context, args,
                 [](const QDateTime &a, const QDateTime &b) { return a.date() < b.date(); });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateBeforeEqual, "dateLE", 2,
                             "dateLE(x,y) - returns date(x)<=date(y)")
void MuDateBeforeEqual::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateTest(ret, *m_context, args,
                 [](const QDateTime &a, const QDateTime &b) { return a.date() <= b.date(); });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateTimeBefore, "dateTimeLT", 2, "dateTimeLT(x,y) - returns x<y")
void MuDateTimeBefore::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateTest(ret, *m_context, args,
                 [](const QDateTime &a, const QDateTime &b) { return a < b; });
}

QUVA_DEFINE_CONTEXT_FUNCTION(MuDateTimeBeforeEqual, "dateTimeLE", 2,
                             "dateTimeLE(x,y) - returns x<=y")
void MuDateTimeBeforeEqual::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalDateTest(ret, *m_context, args,
                 [](const QDateTime &a, const QDateTime &b) { return a <= b; });
}
