#include "tools/engine_standin/report_html.h"

#include "tools/engine_standin/report.h"

namespace {

const char style[] = "body{font-family:sans-serif;margin:2em;max-width:60em}"
                     ".note{background:#fff4d6;border-left:4px solid #d9a400;padding:.6em 1em}"
                     "table{border-collapse:collapse;margin:.5em 0}"
                     "th,td{border:1px solid #bbb;padding:.2em .6em;text-align:left}"
                     "th{background:#eee}img{max-width:100%}";

QString cell(const QString &key, const QString &value)
{
    const QString text = value.toHtmlEscaped();
    if (key == QLatin1String("file") && value.endsWith(QLatin1String(".png")))
        return QStringLiteral("<td><img src=\"%1\" alt=\"%1\"></td>").arg(text);
    return QStringLiteral("<td>") + text + QStringLiteral("</td>");
}

QString table(const ReportSection &s)
{
    QString out = QStringLiteral("<table>\n<tr>");
    for (const QString &key : s.keys)
        out += QStringLiteral("<th>") + key.toHtmlEscaped() + QStringLiteral("</th>");
    out += QStringLiteral("</tr>\n");
    for (const QStringList &row : s.rows) {
        out += QStringLiteral("<tr>");
        for (int i = 0; i < s.keys.size(); ++i)
            out += cell(s.keys.at(i), row.value(i));
        out += QStringLiteral("</tr>\n");
    }
    return out + QStringLiteral("</table>\n");
}

QString section(const ReportSection &s)
{
    QString out = QStringLiteral("<h2 id=\"%1\">%2</h2>\n")
                      .arg(s.name.toHtmlEscaped(), s.title.toHtmlEscaped());
    for (const QString &text : s.paragraphs)
        out += QStringLiteral("<p>") + text.toHtmlEscaped() + QStringLiteral("</p>\n");
    if (!s.rows.isEmpty())
        out += table(s);
    return out;
}

} // namespace

QByteArray reportHtml(const Report &report)
{
    const QString title = report.title.toHtmlEscaped();
    QString out = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n"
                                 "<title>%1</title>\n<style>%2</style></head>\n<body>\n"
                                 "<h1>%1</h1>\n<p class=\"note\">%3</p>\n")
                      .arg(title, QLatin1String(style), report.note.toHtmlEscaped());
    for (const ReportSection &s : report.sections)
        out += section(s);
    return (out + QStringLiteral("</body></html>\n")).toUtf8();
}
