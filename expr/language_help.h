#pragma once

#include <QString>
#include <QVector>

// The whole expression language as the help page lists it: nine sections of
// rows, each row a call form and a short comment. The comments of the
// functions are the descriptions that the functions themselves carry in the
// general engine, without their leading call form, so the list follows what
// the engines know; a few rows keep a text of their own, shared with the
// companion data tool, even where it says less than the engine does.

struct HelpRow
{
    QString call;    // "substr(x,b,l)"
    QString comment; // "..."
};

struct HelpSection
{
    QString title; // "On Numbers"
    QVector<HelpRow> rows;
};

QVector<HelpSection> languageHelp();

// The function name of a call form: "substr(x,b,l)" gives "substr",
// "urlEncode" gives itself.
QString functionNameOfCall(const QString &call);

// A function description without its leading call form: "trim(x) - returns
// the string x trimmed" gives "returns the string x trimmed". A text without
// " - " stays whole.
QString descriptionTail(const QString &description);
