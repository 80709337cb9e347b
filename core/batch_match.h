#pragma once

#include <QRegExp>
#include <QString>
#include <QVector>

// Wildcard selection of columns and variables, for the batch options and the
// filters of the variable table.
// Names are walked from the last to the first, so that of several variables
// matching a single-choice option the one standing last in the description
// wins; the pattern has to match the whole name.

// A QRegExp of syntax Wildcard, tried with exactMatch, with the same answers
// but quicker on the common patterns: those made of plain characters, "*"
// and "?" are matched here directly (a batch call may try one pattern on
// tens of thousands of column names); patterns with a set "[...]" or a
// backslash go to QRegExp itself.
class WildcardPattern
{
public:
    WildcardPattern(const QString &pattern, Qt::CaseSensitivity cs);
    bool exactMatch(const QString &name) const;

private:
    bool globMatch(const QString &name) const;

    QString m_pattern; // lower case when matching without regard to case
    Qt::CaseSensitivity m_cs;
    bool m_plainGlob;
    QRegExp m_regExp;
};

// Positions in [0, count) whose name matches, from the last to the first.
// With firstHitOnly the walk stops at its first hit.
template <typename NameAt>
QVector<int> matchFromLast(int count, NameAt nameAt, const WildcardPattern &wildcard,
                           bool firstHitOnly)
{
    QVector<int> hits;
    for (int i = count - 1; i >= 0; --i) {
        if (!wildcard.exactMatch(nameAt(i)))
            continue;
        hits.append(i);
        if (firstHitOnly)
            break;
    }
    return hits;
}
