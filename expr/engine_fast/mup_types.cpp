#include "expr/engine_fast/mup_types.h"

#include <QString>

namespace mup {

namespace {

const QString &identChars()
{
    static const QString s = QStringLiteral(
        "0123456789_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
    return s;
}

const QString &oprtChars()
{
    static const QString s = QStringLiteral(
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ+-*^/?<>=#!$%&|~'_")
        + QChar(0x00B5) + QStringLiteral("{}");
    return s;
}

const QString &infixChars()
{
    static const QString s = QStringLiteral(
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ()/+-*^?<>=#!$%&|~'_");
    return s;
}

} // namespace

bool isIdentChar(QChar c) { return identChars().contains(c); }
bool isOprtChar(QChar c) { return oprtChars().contains(c); }
bool isInfixChar(QChar c) { return infixChars().contains(c); }

} // namespace mup
