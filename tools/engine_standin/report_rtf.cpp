#include "tools/engine_standin/report_rtf.h"

#include "tools/engine_standin/report.h"

namespace {

// ASCII as it stands, with the three control characters escaped; any other
// character as a Unicode escape with '?' for readers that do not know it.
QByteArray rtfText(const QString &text)
{
    QByteArray out;
    for (const QChar c : text) {
        const ushort u = c.unicode();
        if (u == '\\' || u == '{' || u == '}')
            out += '\\' + QByteArray(1, char(u));
        else if (u == '\n')
            out += "\\line ";
        else if (u >= 0x20 && u < 0x80)
            out += char(u);
        else
            out += "\\u" + QByteArray::number(qint16(u)) + '?';
    }
    return out;
}

QByteArray paragraph(const QString &text, const char *format = "")
{
    return QByteArray("{\\pard") + format + ' ' + rtfText(text) + "\\par}\n";
}

QByteArray tableRow(const QStringList &cells, bool header)
{
    const int width = 9000 / qMax(1, cells.size());
    QByteArray out = "\\trowd\\trgaph100";
    for (int i = 1; i <= cells.size(); ++i)
        out += "\\clbrdrb\\brdrs\\cellx" + QByteArray::number(i * width);
    out += '\n';
    for (const QString &cell : cells)
        out += "\\pard\\intbl" + QByteArray(header ? "\\b " : " ") + rtfText(cell) +
               (header ? "\\b0" : "") + "\\cell\n";
    return out + "\\row\n";
}

QByteArray section(const ReportSection &s)
{
    QByteArray out = paragraph(s.title, "\\sb240\\b\\fs28");
    for (const QString &text : s.paragraphs)
        out += paragraph(text);
    if (s.rows.isEmpty())
        return out;
    out += tableRow(s.keys, true);
    for (const QStringList &row : s.rows)
        out += tableRow(row, false);
    return out + "\\pard\\par\n";
}

} // namespace

QByteArray reportRtf(const Report &report)
{
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Helvetica;}}\n"
                     "\\fs22\n";
    out += paragraph(report.title, "\\b\\fs36");
    out += paragraph(report.note, "\\i");
    for (const ReportSection &s : report.sections)
        out += section(s);
    return out + "}\n";
}
