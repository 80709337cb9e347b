#include "expr/language_help.h"

#include "expr/engine_fast/mup_parser.h"
#include "expr/expr_context.h"
#include "expr/functions/register_functions.h"

#include <QHash>

#include <initializer_list>

namespace {

struct SectionSource
{
    const char *title;
    std::initializer_list<const char *> calls;
};

const SectionSource functionSections[] = {
    {"On Numbers",
     {"abs(x)", "floor(x)", "floor2(x,y)", "ceil(x)", "round(x)", "rand(x)", "randN(x)",
      "rand1()", "sin(x)", "cos(x)", "tan(x)", "asin(x)", "acos(x)", "atan(x)", "atan2(y,x)",
      "cosh(x)", "sinh(x)", "tanh(x)", "asinh(x)", "acosh(x)", "atanh(x)", "ln(x)", "log(x)",
      "log10(x)", "log2(x)", "exp(x)", "sqr(x)", "sqrt(x)", "min(x,y,z...)", "max(x,y,z...)",
      "sum(x,y,z...)", "nanvl(x,y)", "nanvl2(x,y,z)", "finitevl(x,y)", "finitevl2(x,y,z)",
      "isNan(x)", "isFinite(x)"}},
    {"On Strings",
     {"contains(x,y)", "indexOf(x,y)", "indexOf2(x,y,p)", "lastIndexOf(x,y)",
      "lastIndexOf2(x,y,p)", "countText(x,y)", "substr(x,b,l)", "substring(x,b,e)",
      "replace(s,before,after)", "left(s,l)", "right(s,l)", "startsWith(x,s)", "endsWith(x,s)",
      "strlen(s)", "toupper(s)", "tolower(s)", "toCaseFolded(s)", "trim(s)", "ltrim(s)",
      "rtrim(s)", "trim2(x,y)", "isNumber(x)", "isNumberStrict(x)", "isInteger(x)",
      "isIntegerStrict(x)", "codepoint(x)"}},
    {"String Encode/Decode",
     {"atof(s)", "ftoa(x)", "itoa(x)", "urlEncode", "xmlEncode", "jsonEncode", "atob64(x)",
      "atob642(x)", "b64toa(x)", "b64toa2(x)", "htof(x)", "ftoh(x)", "htoa(x)"}},
    {"On Dates",
     {"toET(date)", "toDate(ET)", "etAdd(ET,y,M,d)", "dateAdd(date,y,M,d)", "dateAddS(date,s)",
      "datePrint(date,format)", "etDiffInMonth(ET1,ET2)", "etDiffInYear(ET1,ET2)",
      "etWeekNumber(ET)", "etDayOfWeek(ET)", "etFirstDayOfYear(y,dow)", "dateWeekNumber(date)",
      "dateDayOfWeek(date)", "dateFirstDayOfYear(y,dow)", "dateDiffInMonth(date1,date2)",
      "dateDiffInYear(date1,date2)", "dateDiffInDay(date1,date2)",
      "dateDiffInSecond(date1,date2)", "dateTimeLT(x,y)", "dateTimeLE(x,y)", "dateLT(x,y)",
      "dateLE(x,y)"}},
    {"On IP's", {"isip4(x)", "ip4tof(x)", "ip4part(x,pos)", "ip4RangeLow(x)", "ip4RangeHigh(x)"}},
};

// Rows that are not functions: their comments are the help's own.
struct FixedRow
{
    const char *call;
    const char *comment;
};

const FixedRow operatorRows[] = {
    {"(a?b:c)", "if a is true (and not NULL) then b, otherwise c"},
    {"-", "negative sign"},
    {"(float)", "convert to float (from boolean or integer)"},
    {"(int)", "convert to integer (from boolean or float)"},
    {"+, -, *, /, ^", "addition, subtraction, multiplication, division, power"},
    {"%", "modulo of the two operands truncated to integers"},
    {"&&", "logical AND"},
    {"||", "logical OR"},
    {"==, !=, >, <, <=, >=", "comparison (a number never compares with a string)"},
    {"&, |, <<, >>", "Bit manipulation (Bit-wise AND, Bit-wise OR, shift left, shift right)"},
    {"//", "String concatenation"},
};

const FixedRow constantRows[] = {
    {"_pi", "3.141592653589793238462643"},
    {"_e", "eulerian number (2.718281828459045235360287)"},
    {"_null", "the NULL value (meta-type is \"number\") - cannot be used inside any binary "
              "operator"},
    {"_nullS", "the NULL string (meta-type is \"string\")- cannot be used inside any binary "
               "operator"},
    {"_nan", "Not-a-Number  (meta-type is \"number\")"},
    {"_infinity", "Infinity  (meta-type is \"number\")"},
    {"_now", "the current date-time in Elapsed-Time format (if enabled)"},
    {"_nowS", "the current date-time in String format (if enabled)"},
    {"_velmorinID", "identifier for the current version of Velmorin"},
    {"_currentDir", "the directory of the current .velmorin file"},
    {"_tempDir", "the current temp directory"},
    {"_currentFile", "the current .velmorin filepath"},
    {"_uniqueID", "an ID that is guaranteed to be unique"},
};

// {G} and {M} keep the texts of the shared help, which swap the two units.
const FixedRow postfixRows[] = {
    {"{n}", "nano (1e-9)"}, {"{mu}", "micro (1e-6)"}, {"{m}", "milli (1e-3)"},
    {"{k}", "kilo (1e3)"},  {"{G}", "giga (1e6)"},    {"{M}", "mega (1e9)"},
};

const char *const specialCalls[] = {"not(x)",         "isTrue(x)",
                                    "isNull(x)",      "nvl(x,y)",
                                    "nvl2(x,y,z)",    "load(filename)",
                                    "nDaysInMonth(month,year)", "hdist(lat1,lon1,lat2,lon2)"};

// Function rows whose comment is the shared help's and not the engine's
// description; "load" is no function of this editor at all.
const QHash<QString, QString> &fixedFunctionComments()
{
    static const QHash<QString, QString> comments{
        {"cosh(x)", "hyperbolic sine"},
        {"sinh(x)", "hyperbolic cosine"},
        {"log(x)", "Logarithm base 10"},
        {"log10(x)", "Logarithm base 10"},
        {"sqr(x)", QStringLiteral("x\u00B2")},
        {"rand(x)", "uniform random number inside [0 x["},
        {"etWeekNumber(ET)", "the week number (1 to 53, 0 if error)"},
        {"dateWeekNumber(date)", "the week number (1 to 53, 0 if error)"},
        {"etDayOfWeek(ET)", "the Day of Week(0=monday; 6=sunday)"},
        {"dateDayOfWeek(date)", "the Day of Week(0=monday; 6=sunday)"},
        {"codepoint(x)", "returns the unicode codepoint of the first char of x"},
        {"isTrue(x)", "return 1 if x is TRUE (1,Y,y,T,t,O,o,P,p), otherwise return 0"},
        {"nanvl(x,y)", "if x is nan or NULL return y, otherwise return x"},
        {"load(filename)", "load the number contained in the file"},
        {"hdist(lat1,lon1,lat2,lon2)",
         "return the earth distance using Haversine Formula (all coord. in decimal degree)"},
    };
    return comments;
}

// The registered descriptions come from a general engine set up as a check
// sets it up; the context only has to outlive the registration.
class FunctionDescriptions
{
public:
    FunctionDescriptions() : parser(mup::pckALL_NON_COMPLEX)
    {
        registerFastFunctions(parser, &context);
    }

    QString commentOf(const QString &call) const
    {
        const QString fixed = fixedFunctionComments().value(call);
        if (!fixed.isEmpty())
            return fixed;
        return descriptionTail(parser.GetFunDesc(functionNameOfCall(call)));
    }

private:
    ExprContext context;
    mup::ParserX parser;
};

template <typename Calls>
HelpSection functionSection(const char *title, const Calls &calls,
                            const FunctionDescriptions &descriptions)
{
    HelpSection section{QString::fromLatin1(title), {}};
    for (const char *call : calls) {
        const QString text = QString::fromLatin1(call);
        section.rows.append({text, descriptions.commentOf(text)});
    }
    return section;
}

template <typename Rows>
HelpSection fixedSection(const char *title, const Rows &rows)
{
    HelpSection section{QString::fromLatin1(title), {}};
    for (const FixedRow &row : rows)
        section.rows.append({QString::fromLatin1(row.call), QString::fromUtf8(row.comment)});
    return section;
}

} // namespace

QString functionNameOfCall(const QString &call)
{
    const int bracket = call.indexOf(QLatin1Char('('));
    return bracket < 0 ? call : call.left(bracket);
}

QString descriptionTail(const QString &description)
{
    const int dash = description.indexOf(QLatin1String(" - "));
    return dash < 0 ? description : description.mid(dash + 3);
}

QVector<HelpSection> languageHelp()
{
    const FunctionDescriptions descriptions;
    QVector<HelpSection> sections;
    for (const SectionSource &source : functionSections)
        sections.append(functionSection(source.title, source.calls, descriptions));
    sections.append(fixedSection("Operators", operatorRows));
    sections.append(fixedSection("Predefined Constants", constantRows));
    sections.append(fixedSection("Postfix operators", postfixRows));
    sections.append(functionSection("Special", specialCalls, descriptions));
    return sections;
}
