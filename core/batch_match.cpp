#include "core/batch_match.h"

namespace {

bool isPlainGlob(const QString &pattern)
{
    for (const QChar c : pattern) {
        if (c == QLatin1Char('[') || c == QLatin1Char(']') || c == QLatin1Char('\\'))
            return false;
    }
    return true;
}

// One unit at a time, as the names are compared: the string form of
// toLower() may change the length of a text.
void lowerEachUnit(QString &text)
{
    for (QChar &c : text)
        c = c.toLower();
}

} // namespace

WildcardPattern::WildcardPattern(const QString &pattern, Qt::CaseSensitivity cs)
    : m_pattern(pattern), m_cs(cs), m_plainGlob(isPlainGlob(pattern))
{
    if (!m_plainGlob)
        m_regExp = QRegExp(pattern, cs, QRegExp::Wildcard);
    else if (cs == Qt::CaseInsensitive)
        lowerEachUnit(m_pattern);
}

bool WildcardPattern::exactMatch(const QString &name) const
{
    return m_plainGlob ? globMatch(name) : m_regExp.exactMatch(name);
}

// "*" takes any run of characters, "?" one character (one UTF-16 unit, as
// QRegExp counts them). On a mismatch the last "*" takes one character more.
bool WildcardPattern::globMatch(const QString &name) const
{
    const QChar *p = m_pattern.constData();
    const QChar *s = name.constData();
    const int pn = m_pattern.size();
    const int sn = name.size();
    const bool fold = m_cs == Qt::CaseInsensitive;
    int pi = 0;
    int si = 0;
    int star = -1;
    int resume = 0;
    while (si < sn) {
        if (pi < pn && p[pi] == QLatin1Char('*')) {
            star = pi++;
            resume = si;
            continue;
        }
        if (pi < pn
            && (p[pi] == QLatin1Char('?') || p[pi] == (fold ? s[si].toLower() : s[si]))) {
            ++pi;
            ++si;
            continue;
        }
        if (star < 0)
            return false;
        pi = star + 1;
        si = ++resume;
    }
    while (pi < pn && p[pi] == QLatin1Char('*'))
        ++pi;
    return pi == pn;
}
