#pragma once

#include <QString>
#include <QtGlobal>

// What one expression check shares with the engines and the functions of the
// language. Whoever starts the check owns it; the engines and the functions
// only keep a pointer to it for the length of that check.

// State of the random generator of rand, rand1 and randN. An index of 625
// marks a generator that was never seeded.
struct ExprRandomState
{
    quint32 words[624] = {};
    quint32 index = 625;
};

struct ExprContext
{
    ExprRandomState random;
    qint32 etUnit = 0;            // 0 second, 1 minute, 2 hour, 3 day, 4 week
    qint32 dateFormatKind = 0;    // 0: dateFormatText, 1 to 6: a format of the locale
    bool useUtc = false;
    bool usesNow = false;         // _now is to be defined
    bool usesNowS = false;        // _nowS is to be defined
    QString etOriginText;         // "yyyyMMdd hh:mm:ss"
    QString dateFormatText;
    qint32 beforeOriginIsZero = 0;
    qint32 invalidDateIsZero = 0;
    qint32 randomSeed = -1;       // -1: seed from the clock
    qint64 etOriginMs = 0;        // etOriginText in ms since 1970-01-01 00:00 UTC
    QString dateFormat;
};
