#pragma once

// Long and deeply nested expression texts, for the tests that hold both
// engines to any length and depth and for the benchmark of reading time.

#include <QString>

namespace longtext {

// term+term+...+term, `count` terms.
inline QString sumOf(int count, const QString &term = QStringLiteral("a"))
{
    QString text;
    text.reserve(count * (term.size() + 1));
    for (int i = 0; i < count; ++i) {
        if (i)
            text += QLatin1Char('+');
        text += term;
    }
    return text;
}

// `depth` opening parentheses, the inner text, `depth` closing ones.
inline QString nested(int depth, const QString &inner = QStringLiteral("a"))
{
    return QString(depth, QLatin1Char('(')) + inner + QString(depth, QLatin1Char(')'));
}

// c?c?...c?1:2:...:2, `depth` conditionals each in the first branch of the one before.
inline QString nestedConditionals(int depth, const QString &condition = QStringLiteral("a"))
{
    return QString(condition + QLatin1Char('?')).repeated(depth) + QLatin1Char('1')
           + QStringLiteral(":2").repeated(depth);
}

} // namespace longtext
