#include "expr/parser_facade.h"

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/functions/date_functions.h"
#include "expr/functions/mt19937.h"

#include <QDateTime>
#include <QLocale>

#include <vector>

const char *const fastestParserLabel = "Fastest parser";
const char *const fastParserLabel = "Fast parser";
const char *const noParserLabel = "??? parser";

namespace {

const QString etOriginFormat = QStringLiteral("yyyyMMdd hh:mm:ss");

bool containsAny(const QString &text, std::initializer_list<const char *> names)
{
    for (const char *name : names) {
        if (text.contains(QLatin1String(name)))
            return true;
    }
    return false;
}

QString localeFormat(int kind)
{
    const QLocale locale = QLocale::system();
    switch (kind) {
    case 1: return locale.dateFormat(QLocale::ShortFormat);
    case 2: return locale.dateFormat(QLocale::LongFormat);
    case 3: return locale.timeFormat(QLocale::ShortFormat);
    case 4: return locale.timeFormat(QLocale::LongFormat);
    case 5: return locale.dateTimeFormat(QLocale::ShortFormat);
    default: return locale.dateTimeFormat(QLocale::LongFormat);
    }
}

QString truthText(bool isTrue)
{
    return isTrue ? QStringLiteral("true") : QStringLiteral("false");
}

// The constants that only the check's options bring in.
struct CheckConstants
{
    bool addN = false;
    bool usesNow = false;
    bool usesNowS = false;
    double now = 0.0;
};

CheckConstants constantsOf(bool addN, const ExprContext &context)
{
    CheckConstants constants;
    constants.addN = addN;
    constants.usesNow = context.usesNow;
    constants.usesNowS = context.usesNowS;
    if (context.usesNow)
        constants.now = static_cast<double>(nowAsElapsedTime(context));
    return constants;
}

// The functions and constants of the compiled engine, as a check has them.
void defineFastestNames(mu::Parser &parser, ExprContext &context,
                        const CheckConstants &constants)
{
    registerFastestFunctions(parser, &context);
    if (constants.addN) {
        parser.DefineConst(L"_n", 0.0);
        parser.DefineConst(L"_n_min", 0.0);
        parser.DefineConst(L"_n_max", 1.0);
    }
    if (constants.usesNow)
        parser.DefineConst(L"_now", constants.now);
}

// The same for the general engine.
void defineFastNames(mup::ParserX &parser, ExprContext &context, const CheckConstants &constants)
{
    registerFastFunctions(parser, &context);
    if (constants.addN) {
        parser.DefineConst(QStringLiteral("_n"), mup::Value(0));
        parser.DefineConst(QStringLiteral("_n_min"), mup::Value(0));
        parser.DefineConst(QStringLiteral("_n_max"), mup::Value(1));
    }
    if (constants.usesNow)
        parser.DefineConst(QStringLiteral("_now"), mup::Value(constants.now));
    if (constants.usesNowS)
        parser.DefineConst(QStringLiteral("_nowS"), mup::Value(nowAsString(context)));
}

constexpr unsigned fastPackages =
    mup::pckCOMMON | mup::pckNON_COMPLEX | mup::pckSTRING | mup::pckUNIT;

QString clashText(const QString &label, const char *kind)
{
    return QStringLiteral("The input variable \"%1\" has the name of a %2 of the language.\n"
                          "Rename it in the column \"Expression Var.Name\".")
        .arg(label, QLatin1String(kind));
}

// What a variable of that name would collide with in either engine, or null.
const char *clashKind(const QString &label, const mu::Parser &fastest,
                      const mup::ParserX &fast)
{
    const std::wstring name = toStdWString(label);
    if (fastest.IsFunDefined(name) || fast.IsFunDefined(label))
        return "function";
    if (fastest.IsConstDefined(name) || fast.IsConstDefined(label))
        return "constant";
    if (label == QLatin1String("true") || label == QLatin1String("false"))
        return "value";
    return nullptr;
}

// First attempt: numbers only, in the compiled engine. Throws mu::ParserError.
void evaluateFastest(const QString &expression, ExprContext &context,
                     QVector<InputVar> *inputVars, const CheckConstants &constants,
                     ExpressionCheck *check)
{
    mu::Parser parser(&context);
    if (inputVars) {
        for (InputVar &var : *inputVars) {
            if (var.isNumber)
                parser.DefineVar(toStdWString(var.label), &var.value);
        }
    }
    defineFastestNames(parser, context, constants);
    parser.SetExpr(toStdWString(expression));
    const double result = parser.Eval();
    check->valueText = truthText(!(result == 0.0));
    check->engineLabel = QLatin1String(fastestParserLabel);
    check->valueType = QLatin1Char('d');
    check->number = result;
}

// Second attempt: the general engine. Throws mup::ParserError.
void evaluateFast(const QString &expression, ExprContext &context,
                  QVector<InputVar> *inputVars, const CheckConstants &constants,
                  ExpressionCheck *check)
{
    if (context.randomSeed >= 0) {
        seedRandom(context.random, context.randomSeed);
        nextRandom(context.random);
    }
    mup::ParserX parser(fastPackages);
    // One value per variable, owned here for the length of the attempt; the
    // vector is sized once so that the addresses stay put.
    std::vector<mup::Value> values(inputVars ? static_cast<size_t>(inputVars->size()) : 0);
    for (size_t i = 0; i < values.size(); ++i) {
        const InputVar &var = inputVars->at(static_cast<int>(i));
        if (var.isNumber)
            values[i] = var.value;
        else
            values[i] = var.stringValue;
        parser.DefineVar(var.label, mup::Variable(&values[i]));
    }
    defineFastNames(parser, context, constants);
    parser.SetExpr(expression);
    const mup::Value result = parser.Eval();
    const QChar type = result.GetType();
    const bool numeric = type == QLatin1Char('b') || type == QLatin1Char('f')
                         || type == QLatin1Char('i');
    check->valueText = truthText(numeric && !(result.GetFloat() == 0.0));
    check->engineLabel = QLatin1String(fastParserLabel);
    check->valueType = type;
    check->number = result.number();
    check->text = result.text();
}

QString failureMessage(const mup::ParserError &error)
{
    return error.GetMsg() + QStringLiteral("\n  Error Token:") + error.GetToken()
           + QStringLiteral("\n  Error at position:%1").arg(error.GetPos());
}

} // namespace

std::wstring toStdWString(const QString &text)
{
    std::wstring result(static_cast<size_t>(text.size()), L'\0');
    const int length = text.toWCharArray(&result[0]);
    result.resize(static_cast<size_t>(length));
    return result;
}

int prepareDates(ExprContext &context, const QString &expression, QString etOriginText,
                 QString dateFormatText)
{
    bool elapsedTime = context.usesNow;
    bool dates = context.usesNowS;
    if (containsAny(expression, {"toET(", "toDate("}))
        elapsedTime = dates = true;
    if (containsAny(expression, {"etAdd(", "etDiffInMonth(", "etDiffInYear(", "etWeekNumber(",
                                 "etDayOfWeek(", "etFirstDayOfYear(", "dateFirstDayOfYear("}))
        elapsedTime = true;
    // dateFirstDayOfYear is not among these on purpose: on its own it leaves
    // dateFormat as it was, although its result is printed with it.
    if (containsAny(expression,
                    {"dateAdd(", "dateAddS(", "datePrint(", "dateDiffInMonth(",
                     "dateDiffInYear(", "dateDiffInDay(", "dateDiffInSecond(", "dateTimeLT(",
                     "dateTimeLE(", "dateLT(", "dateLE(", "dateWeekNumber(",
                     "dateDayOfWeek("}))
        dates = true;

    seedRandomFromContext(context);

    int result = 0;
    if (elapsedTime) {
        QDateTime origin = QDateTime::fromString(etOriginText, etOriginFormat);
        if (context.useUtc)
            origin.setTimeSpec(Qt::UTC);
        if (origin.isValid()) {
            context.etOriginMs = origin.toMSecsSinceEpoch();
        } else {
            context.etOriginMs = 0;
            result = 1;
        }
    }
    if (dates && context.dateFormatKind >= 0 && context.dateFormatKind <= 6) {
        if (context.dateFormatKind == 0) {
            context.dateFormat = dateFormatText;
            if (dateFormatText.isEmpty())
                result = 2;
        } else {
            context.dateFormat = localeFormat(context.dateFormatKind);
        }
    }
    return result;
}

qint64 nowAsElapsedTime(const ExprContext &context)
{
    const qint64 unit = quva::etUnitMs(context.etUnit);
    if (unit == 0)
        return 0;
    return (QDateTime::currentMSecsSinceEpoch() - context.etOriginMs) / unit;
}

QString nowAsString(const ExprContext &context)
{
    const QDateTime now =
        context.useUtc ? QDateTime::currentDateTimeUtc() : QDateTime::currentDateTime();
    return now.toString(context.dateFormat);
}

// The compiled engine silently lets a constant replace a variable of the
// same name, and reads a variable named like a function as the variable; the
// general engine refuses the first with a bare "Name conflict". Neither tells
// the analyst what to do, so a check refuses such a name before it starts.
QString inputVarNameClash(const QVector<InputVar> &inputVars, bool addN, ExprContext &context)
{
    if (inputVars.isEmpty())
        return QString();
    const CheckConstants constants = constantsOf(addN, context);
    mu::Parser fastest(&context);
    defineFastestNames(fastest, context, constants);
    mup::ParserX fast(fastPackages);
    defineFastNames(fast, context, constants);
    for (const InputVar &var : inputVars) {
        if (const char *kind = clashKind(var.label, fastest, fast))
            return clashText(var.label, kind);
    }
    return QString();
}

ExpressionCheck checkExpressionCore(const QString &expression, bool addN, ExprContext &context,
                                    QVector<InputVar> *inputVars)
{
    prepareDates(context, expression, context.etOriginText, context.dateFormatText);
    const CheckConstants constants = constantsOf(addN, context);

    ExpressionCheck check;
    check.engineLabel = QLatin1String(noParserLabel);
    if (expression.isEmpty())
        return check;
    if (inputVars) {
        check.message = inputVarNameClash(*inputVars, addN, context);
        if (!check.message.isEmpty()) {
            check.failed = true;
            return check;
        }
    }
    try {
        evaluateFastest(expression, context, inputVars, constants, &check);
        return check;
    } catch (const mu::ParserError &) {
        // Not this engine: what the second one says is what the analyst sees.
    }
    check = ExpressionCheck();
    try {
        evaluateFast(expression, context, inputVars, constants, &check);
        return check;
    } catch (const mup::ParserError &error) {
        check = ExpressionCheck();
        check.failed = true;
        check.engineLabel = QLatin1String(noParserLabel);
        check.message = failureMessage(error);
    }
    return check;
}
