#pragma once

// What both engine targets bind: five numbers (an ordinary value, a negative
// one, zero, NULL and NaN), two texts (one of them the null string), every
// function of the language, and a context whose dates and random numbers do
// not depend on the clock.

#include "expr/expr_context.h"
#include "expr/null_value.h"
#include "expr/parser_facade.h"

#include <QString>

namespace fuzzengine {

inline const char *const numberNames[] = {"a", "b", "c", "d", "e"};
inline const double numberValues[] = {1.5, -2.0, 0.0, quva::nullValue(), quva::nanValue()};
constexpr int numberCount = 5;
inline const char *const textNames[] = {"s", "t"};

// The bytes as the analyst's text: UTF-8, whatever it holds.
inline QString expressionOf(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

inline void prepareContext(ExprContext &context, const QString &expression)
{
    context.randomSeed = 1;
    prepareDates(context, expression, QStringLiteral("20000101 00:00:00"),
                 QStringLiteral("yyyy-MM-dd"));
}

// Random functions give a new value at each evaluation.
inline bool repeatable(const QString &expression)
{
    return !expression.contains(QLatin1String("rand"));
}

} // namespace fuzzengine
