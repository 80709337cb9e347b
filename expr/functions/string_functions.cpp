#include "expr/functions/string_functions.h"

#include "expr/functions/function_support.h"
#include "text/number_text.h"

#include <QByteArray>

namespace quva {

int countText(const QString &x, const QString &y)
{
    int count = 0;
    for (int at = x.indexOf(y); at >= 0; at = x.indexOf(y, at + 1))
        ++count;
    return count;
}

int lastIndexOf(const QString &x, const QString &y)
{
    return y.isEmpty() ? x.size() : x.lastIndexOf(y);
}

QString trim2(const QString &x, const QString &y)
{
    if (y.isEmpty())
        return x;
    QString result = x;
    while (result.startsWith(y))
        result.remove(0, y.size());
    while (result.endsWith(y))
        result.chop(y.size());
    return result;
}

QString urlEncode(const QString &x)
{
    static const char hex[] = "0123456789ABCDEF";
    const QByteArray bytes = x.toUtf8();
    QByteArray out;
    out.reserve(bytes.size() * 3);
    for (const char c : bytes) {
        const unsigned char b = static_cast<unsigned char>(c);
        const bool plain = b < 127
                           && ((b >= 'a' && b <= 'z') || (b >= 'A' && b <= 'Z')
                               || (b >= '0' && b <= '9') || b == '-' || b == '.' || b == '_'
                               || b == '~');
        if (plain) {
            out.append(c);
        } else if (b == ' ') {
            out.append('+');
        } else {
            out.append('%');
            out.append(hex[b >> 4]);
            out.append(hex[b & 15]);
        }
    }
    return QString::fromLatin1(out);
}

QString xmlEncode(const QString &x)
{
    QString result = x;
    result.replace(QLatin1String("&"), QLatin1String("&amp;"));
    result.replace(QLatin1String("<"), QLatin1String("&lt;"));
    const QLatin1String blank("&#32;");
    if (!result.isEmpty()) {
        if (result.endsWith(QLatin1Char(' ')))
            result.replace(result.size() - 1, 1, blank);
        if (result.startsWith(QLatin1Char(' ')))
            result.replace(0, 1, blank);
    }
    return result;
}

QString jsonEncode(const QString &x)
{
    QString result = x;
    result.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    result.replace(QLatin1String("\""), QLatin1String("\\\""));
    return result;
}

QString utf8ToBase64(const QString &x)
{
    return QString::fromLatin1(x.toUtf8().toBase64());
}

QString base64ToUtf8(const QString &x)
{
    return QString::fromUtf8(QByteArray::fromBase64(x.toLatin1()));
}

QString latin1ToBase64(const QString &x)
{
    return QString::fromLatin1(x.toLatin1().toBase64());
}

QString base64ToLatin1(const QString &x)
{
    return QString::fromLatin1(QByteArray::fromBase64(x.toLatin1()));
}

bool isNumberString(const QString &x, bool strict)
{
    return isNumberText(utf16Of(x), x.size(), strict, '.', ',');
}

bool isIntegerString(const QString &x, bool strict)
{
    return isIntegerText(utf16Of(x), x.size(), strict);
}

} // namespace quva
