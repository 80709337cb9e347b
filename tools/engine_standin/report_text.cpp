#include "tools/engine_standin/report_text.h"

#include "tools/engine_standin/report.h"

namespace {

QString rowText(const QStringList &keys, const QStringList &row)
{
    // An item section reads best as "item: value".
    if (keys == QStringList{QStringLiteral("item"), QStringLiteral("value")})
        return row.value(0) + QStringLiteral(": ") + row.value(1);
    QStringList pairs;
    for (int i = 0; i < keys.size(); ++i)
        pairs << keys.at(i) + QStringLiteral(": ") + row.value(i);
    return pairs.join(QStringLiteral(", "));
}

} // namespace

QByteArray reportText(const Report &report)
{
    QString out = report.title + QLatin1Char('\n') +
                  QString(report.title.size(), QLatin1Char('=')) + QStringLiteral("\n\n") +
                  report.note + QLatin1Char('\n');
    for (const ReportSection &s : report.sections) {
        out += QLatin1Char('\n') + s.title + QLatin1Char('\n');
        for (const QString &text : s.paragraphs)
            out += text + QLatin1Char('\n');
        for (const QStringList &row : s.rows)
            out += QStringLiteral("  ") + rowText(s.keys, row) + QLatin1Char('\n');
    }
    return out.toUtf8();
}
