#include "text/trim.h"

namespace {

bool isWhite(QChar c) { return c.isSpace() || c.unicode() == 0; }

// Index of the first character that is no white space, or the size.
int firstNonWhite(const QString &text)
{
    int i = 0;
    while (i < text.size() && isWhite(text.at(i)))
        ++i;
    return i;
}

// Walks back from the end and stops at index 0 without testing it.
int lastKept(const QString &text)
{
    int i = text.size() - 1;
    while (i > 0 && isWhite(text.at(i)))
        --i;
    return i;
}

QString emptyText() { return QString(QLatin1String("")); }

// A text with nothing to trim comes back as the same string before the
// start test below: that test alone would empty a one-letter text.
bool nothingToTrim(const QString &text)
{
    return !isWhite(text.at(0)) && !isWhite(text.at(text.size() - 1));
}

} // namespace

QString myTrim(const QString &text)
{
    if (text.isEmpty() || nothingToTrim(text))
        return text;
    const int start = firstNonWhite(text);
    if (start >= text.size() - 1)
        return emptyText();
    const int last = lastKept(text);
    return text.mid(start, last - start + 1);
}

QString myTrimLeft(const QString &text)
{
    if (text.isEmpty() || !isWhite(text.at(0)))
        return text;
    const int start = firstNonWhite(text);
    if (start >= text.size() - 1)
        return emptyText();
    return text.mid(start);
}

QString myTrimRight(const QString &text)
{
    if (text.isEmpty())
        return text;
    const int last = lastKept(text);
    return last == text.size() - 1 ? text : text.left(last + 1);
}
