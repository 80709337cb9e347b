#pragma once

#include "expr/expr_context.h"
#include "expr/functions/register_functions.h"
#include "expr/input_var.h"

#include <QChar>
#include <QString>
#include <QVector>

#include <string>

// The one place where an expression meets the two engines: bind the input
// variables, try the compiled engine, fall back to the general one, and say
// what the expression gives on the current values. Nothing survives a call:
// both engines and all bindings are made anew and destroyed before it returns.

// The engine labels as the analyst sees them.
extern const char *const fastestParserLabel; // "Fastest parser"
extern const char *const fastParserLabel;    // "Fast parser"
extern const char *const noParserLabel;      // "??? parser"

// What a check found. The first four fields are what the window shows; the
// value itself is kept for tools that print it.
struct ExpressionCheck
{
    bool failed = false;
    QString valueText;   // "true", "false", or "" when there is no value
    QString engineLabel; // one of the three labels above
    QString message;     // the failure text of the second engine, else empty
    // 'd' for the double of the compiled engine, the value's type letter for
    // the other one ('b', 'i', 'f', 's', 'v'), or a blank when there is none.
    QChar valueType = QLatin1Char(' ');
    double number = 0.0;
    QString text;
};

// The check without any widget. `inputVars` may be null for no variables.
// The number variables are bound by address to the compiled engine, so the
// list is not const.
ExpressionCheck checkExpressionCore(const QString &expression, bool addN, ExprContext &context,
                                    QVector<InputVar> *inputVars);

// The message that refuses the first variable whose name is a function, a
// constant (with _n, _n_min, _n_max when addN is set, _now and _nowS when the
// context asks for them) or a boolean literal of either engine; empty when
// every name is free. A check fails with it before it tries an engine.
QString inputVarNameClash(const QVector<InputVar> &inputVars, bool addN, ExprContext &context);

// Looks for the names of the date functions in the text (plain substring
// search, case-sensitive) and sets etOriginMs and dateFormat of the context
// when they are used; seeds the random generator whatever the text holds.
// Returns 0, or 1 for an origin that cannot be read, 2 for an empty format
// of kind 0.
int prepareDates(ExprContext &context, const QString &expression, QString etOriginText,
                 QString dateFormatText);

// The current instant as an Elapsed Time, truncated towards zero; 0 for a
// unit outside 0 to 4.
qint64 nowAsElapsedTime(const ExprContext &context);
// The current date-time printed with dateFormat, in UTC if useUtc is set.
QString nowAsString(const ExprContext &context);

// The text as the compiled engine takes its names and expressions.
std::wstring toStdWString(const QString &text);
