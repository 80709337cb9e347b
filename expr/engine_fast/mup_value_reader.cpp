#include "expr/engine_fast/mup_value_reader.h"

#include "expr/engine_fast/mup_error.h"
#include "text/number_text.h"

namespace mup {

namespace {

QChar charAt(const QString &text, int pos)
{
    return pos < text.size() ? text.at(pos) : QChar();
}

int hexDigit(QChar c)
{
    const ushort u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

} // namespace

bool StrValReader::IsValue(const QString &expr, int &pos, Value &value) const
{
    if (charAt(expr, pos) != QLatin1Char('"'))
        return false;
    // "" is the empty string, which is not the null string.
    QString text = QString::fromLatin1("");
    int i = pos + 1;
    for (; i < expr.size() && expr.at(i) != QLatin1Char('"'); ++i) {
        const QChar next = charAt(expr, i + 1);
        if (expr.at(i) == QLatin1Char('\\') && (next == QLatin1Char('\\') || next == QLatin1Char('"')))
            ++i;
        text += expr.at(i);
    }
    if (i >= expr.size())
        throw ParserError(ecUNTERMINATED_STRING, expr.mid(pos).trimmed(), pos);
    value = text;
    value.SetIdent(text);
    pos = i + 1;
    return true;
}

// Digits are accumulated in a double, so that a literal too long for 64 bits
// keeps its magnitude instead of wrapping; the type follows the value.
bool HexValReader::IsValue(const QString &expr, int &pos, Value &value) const
{
    if (charAt(expr, pos) != QLatin1Char('0') || charAt(expr, pos + 1) != QLatin1Char('x')
        || hexDigit(charAt(expr, pos + 2)) < 0)
        return false;
    double number = 0.0;
    int i = pos + 2;
    for (; hexDigit(charAt(expr, i)) >= 0; ++i)
        number = number * 16.0 + hexDigit(expr.at(i));
    value = number;
    value.SetIdent(expr.mid(pos, i - pos));
    pos = i;
    return true;
}

bool DblValReader::IsValue(const QString &expr, int &pos, Value &value) const
{
    if (pos >= expr.size())
        return false;
    bool ok = false;
    const ushort *start = expr.utf16() + pos;
    const ushort *end = start;
    const double number = parseNumberPrefix(start, &ok, &end);
    if (!ok || end <= start)
        return false;
    const int length = static_cast<int>(end - start);
    // "nan" and "inf" are numbers only as whole words: "inf_rate" is a name.
    const QChar first = expr.at(pos) == QLatin1Char('-') || expr.at(pos) == QLatin1Char('+')
                            ? charAt(expr, pos + 1)
                            : expr.at(pos);
    if (first.isLetter() && isIdentChar(charAt(expr, pos + length)))
        return false;
    value = number;
    value.SetIdent(expr.mid(pos, length));
    pos += length;
    return true;
}

// A word only when no identifier character follows, so that names such as
// "trueValue" stay names.
bool BoolValReader::IsValue(const QString &expr, int &pos, Value &value) const
{
    static const QString words[] = {QStringLiteral("true"), QStringLiteral("false")};
    for (const QString &word : words) {
        if (expr.midRef(pos, word.size()) == word && !isIdentChar(charAt(expr, pos + word.size()))) {
            value = (&word == &words[0]);
            value.SetIdent(word);
            pos += word.size();
            return true;
        }
    }
    return false;
}

bool BinValReader::IsValue(const QString &expr, int &pos, Value &value) const
{
    if (charAt(expr, pos) != QLatin1Char('#'))
        return false;
    int end = pos + 1;
    while (charAt(expr, end) == QLatin1Char('0') || charAt(expr, end) == QLatin1Char('1'))
        ++end;
    const int digits = end - pos - 1;
    if (digits == 0)
        return false;
    if (digits > maxDigits)
        throw ParserError(QStringLiteral("Binary to integer conversion error (overflow)."),
                          ecGENERIC, expr.mid(pos, end - pos), pos);
    qint64 number = 0;
    for (int i = pos + 1; i < end; ++i)
        number = number * 2 + (expr.at(i) == QLatin1Char('1') ? 1 : 0);
    value = number;
    value.SetIdent(expr.mid(pos, end - pos));
    pos = end;
    return true;
}

} // namespace mup
