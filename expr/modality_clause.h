#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The clause that tests a nominal variable for some of its modalities, as
// the modality panel writes it into an expression. `rows` index `values`,
// ascending; row 0 is the modality of a missing value and tests with
// isMissing(var). Every other value is compared as a string, so the clause
// needs the general engine unless it holds only the missing row.
//
// Equal: one row gives its term alone, `(var=="a")`; several give
// `((var=="a")||(var=="b"))`. Different: `(var!="a")`, `not(isMissing(var))`,
// joined with `&&`. A double quote inside a value becomes a backslash; the
// value is not escaped otherwise.
QString modalityClause(const QString &var, const QStringList &values, const QVector<int> &rows,
                       bool different);

// A modality value as the clause quotes it, without the quotes around it.
QString quotedModality(const QString &value);
