#include "expr/functions/register_functions.h"

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/functions/conversion_callbacks.h"
#include "expr/functions/date_callbacks.h"
#include "expr/functions/date_functions.h"
#include "expr/functions/ipv4_callbacks.h"
#include "expr/functions/numeric_callbacks.h"
#include "expr/functions/numeric_functions.h"
#include "expr/functions/string_callbacks.h"

#include <QCoreApplication>

#include <memory>

void registerFastestFunctions(mu::Parser &parser, ExprContext *context)
{
    Q_UNUSED(context) // the parser hands its own context to the functions
    using namespace quva;
    parser.DefineConst(L"_null", nullValue());
    parser.DefineConst(L"_nan", nanValue());
    parser.DefineConst(L"_infinity", infinityValue());

    parser.DefineFun(L"isNull", fnIsNull);
    parser.DefineFun(L"isNan", fnIsNan);
    parser.DefineFun(L"isFinite", fnIsFinite);
    // Without strings, missing means NULL.
    parser.DefineFun(L"isMissing", fnIsNull);
    parser.DefineFun(L"sqr", fnSqr);
    parser.DefineFun(L"not", fnNot);
    parser.DefineFun(L"ceil", fnCeil);
    parser.DefineFun(L"floor", fnFloor);
    parser.DefineFun(L"round", fnRound);
    parser.DefineFun(L"isTrue", fnIsTrue);
    parser.DefineFun(L"randN", fnRandN, false);
    parser.DefineFun(L"rand", fnRand, false);
    parser.DefineFun(L"etWeekNumber", fnEtWeekNumber);
    parser.DefineFun(L"etDayOfWeek", fnEtDayOfWeek);

    parser.DefineFun(L"nvl", fnNvl);
    parser.DefineFun(L"nanvl", fnNanvl);
    parser.DefineFun(L"finitevl", fnFinitevl);
    parser.DefineFun(L"floor2", fnFloor2);
    parser.DefineFun(L"nDaysInMonth", fnNDaysInMonth);
    parser.DefineFun(L"etDiffInMonth", fnEtDiffInMonth);
    parser.DefineFun(L"etDiffInYear", fnEtDiffInYear);
    parser.DefineFun(L"etFirstDayOfYear", fnEtFirstDayOfYear);

    parser.DefineFun(L"nvl2", fnNvl2);
    parser.DefineFun(L"nanvl2", fnNanvl2);
    parser.DefineFun(L"finitevl2", fnFinitevl2);

    parser.DefineFun(L"hdist", fnHdist);
    parser.DefineFun(L"etAdd", fnEtAdd);

    parser.DefineFun(L"rand1", fnRand1, false);
    parser.DefineFun(L"toET", fnToET);
}

namespace {

template <class F, class... Args>
void add(mup::ParserX &parser, Args &&...args)
{
    parser.DefineFun(std::make_unique<F>(std::forward<Args>(args)...));
}

// Each spelling of a pair gets an object of its own.
template <class F>
void addPair(mup::ParserX &parser, const char *first, const char *second)
{
    add<F>(parser, QString::fromLatin1(first));
    add<F>(parser, QString::fromLatin1(second));
}

QString applicationDirectory()
{
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
}

void addNumericFunctions(mup::ParserX &parser)
{
    add<MuAsciiX>(parser);
    add<MuNotX>(parser);
    add<MuSQR>(parser);
    add<MuHaversineDistance>(parser);
    add<MuAtan2>(parser);
    add<MuNVLX>(parser);
    add<MuNVLX2>(parser);
    add<MuNaNVLX>(parser);
    add<MuNaNVLX2>(parser);
    add<MuFiniteVLX>(parser);
    add<MuFiniteVLX2>(parser);
    add<MuFToAX>(parser);
    add<MuIToAX>(parser);
    add<MuAToFX>(parser);
    add<MuHToFX>(parser);
    add<MuFToHX>(parser);
    add<MuHToFA>(parser);
    add<MuIsNumber>(parser);
    add<MuIsInteger>(parser);
    add<MuIsNumberStrict>(parser);
    add<MuIsIntegerStrict>(parser);
    add<NDaysInMonth>(parser);
}

void addStringFunctions(mup::ParserX &parser)
{
    add<MuSubstrX>(parser);
    add<MuSubStringX>(parser);
    add<MuStartsWith>(parser);
    add<MuEndsWith>(parser);
    add<MuLeftX>(parser);
    add<MuRightX>(parser);
    add<MuToLowerX>(parser);
    add<MuToUpperX>(parser);
    add<MuToCaseFoldedX>(parser);
    add<MuTrimX>(parser);
    add<MuLTrimX>(parser);
    add<MuRTrimX>(parser);
    add<MuTrim2X>(parser);

    add<MuCeilX>(parser);
    add<MuFloorX>(parser);
    add<MuFloor2X>(parser);
    add<MuRoundX>(parser);

    add<MuContains>(parser);
    addPair<MuIndexOf>(parser, "indexof", "indexOf");
    addPair<MuIndexOf2>(parser, "indexof2", "indexOf2");
    addPair<MuLastIndexOf>(parser, "lastindexof", "lastIndexOf");
    addPair<MuLastIndexOf2>(parser, "lastindexof2", "lastIndexOf2");
    add<MuCountText>(parser);
    add<MuCharAtX>(parser);
    add<MuStrReplace>(parser);
    add<MuIsTrue>(parser);
}

void addIpAndEncodingFunctions(mup::ParserX &parser)
{
    add<IsIP4>(parser);
    add<IP4tof>(parser);
    add<IP4Part>(parser);
    add<IP4RangeLow>(parser);
    add<IP4RangeHigh>(parser);

    add<MuAToB64X>(parser);
    add<MuB64ToAX>(parser);
    add<MuAToB642X>(parser);
    add<MuB64ToA2X>(parser);
    add<MuUrlEncode>(parser);
    add<MuXmlEncode>(parser);
    add<MuJsonEncode>(parser);
}

void addContextFunctions(mup::ParserX &parser, ExprContext *c)
{
    add<MuRand>(parser, c);
    add<MuRand1>(parser, c);
    add<MuRandN>(parser, c);
    add<MuToET>(parser, c);
    add<MuToDate>(parser, c);
    add<MuETWeekNumber>(parser, c);
    add<MuDateWeekNumber>(parser, c);
    add<MuETDayOfWeek>(parser, c);
    add<MuDateDayOfWeek>(parser, c);
    add<MuETFirstDayOfYear>(parser, c);
    add<MuDateFirstDayOfYear>(parser, c);
    add<MuETAdd>(parser, c);
    add<MuDateAdd>(parser, c);
    add<MuDateTimeAdd>(parser, c);
    add<MuDatePrint>(parser, c);
    add<MuETDiffInMonth>(parser, c);
    add<MuETDiffInYear>(parser, c);
    add<MuDateDiffInMonth>(parser, c);
    add<MuDateDiffInYear>(parser, c);
    add<MuDateDiffInDay>(parser, c);
    add<MuDateDiffInSecond>(parser, c);
    add<MuDateBefore>(parser, c);
    add<MuDateBeforeEqual>(parser, c);
    add<MuDateTimeBefore>(parser, c);
    add<MuDateTimeBeforeEqual>(parser, c);
}

} // namespace

void registerFastFunctions(mup::ParserX &parser, ExprContext *context)
{
    add<MuIsNullX>(parser);
    add<MuIsNanX>(parser);
    add<MuIsFiniteX>(parser);
    add<MuIsMissingX>(parser);

    parser.DefineConst(QStringLiteral("_null"), mup::Value(quva::nullValue()));
    parser.DefineConst(QStringLiteral("_nan"), mup::Value(quva::nanValue()));
    parser.DefineConst(QStringLiteral("_infinity"), mup::Value(quva::infinityValue()));
    parser.DefineConst(QStringLiteral("_nullS"), mup::Value(QString()));
    parser.DefineConst(QStringLiteral("velmorinDir"), mup::Value(applicationDirectory()));

    addNumericFunctions(parser);
    addStringFunctions(parser);
    addIpAndEncodingFunctions(parser);
    addContextFunctions(parser, context);
}
