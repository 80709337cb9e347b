#include "tools/engine_standin/report_xlsx.h"

#include "tools/engine_standin/report.h"
#include "tools/engine_standin/zip_store.h"

#include <QXmlStreamWriter>

namespace {

const QString mainNs = QStringLiteral("http://schemas.openxmlformats.org/spreadsheetml/2006/main");
const QString relNs =
    QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");

const char contentTypes[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
    "<Default Extension=\"rels\" "
    "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/xl/workbook.xml\" ContentType=\"application/"
    "vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
    "<Override PartName=\"/xl/worksheets/sheet1.xml\" ContentType=\"application/"
    "vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
    "</Types>";

const char packageRels[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
    "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
    "relationships/officeDocument\" Target=\"xl/workbook.xml\"/>"
    "</Relationships>";

const char workbookRels[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
    "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
    "relationships/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
    "</Relationships>";

QByteArray workbook()
{
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(mainNs);
    xml.writeNamespace(relNs, QStringLiteral("r"));
    xml.writeStartElement(mainNs, QStringLiteral("workbook"));
    xml.writeStartElement(mainNs, QStringLiteral("sheets"));
    xml.writeEmptyElement(mainNs, QStringLiteral("sheet"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Report"));
    xml.writeAttribute(QStringLiteral("sheetId"), QStringLiteral("1"));
    xml.writeAttribute(relNs, QStringLiteral("id"), QStringLiteral("rId1"));
    xml.writeEndDocument();
    return out;
}

void writeCell(QXmlStreamWriter &xml, const QString &text)
{
    bool isNumber = false;
    text.toLongLong(&isNumber);
    xml.writeStartElement(QStringLiteral("c"));
    if (isNumber) {
        xml.writeTextElement(QStringLiteral("v"), text);
    } else {
        xml.writeAttribute(QStringLiteral("t"), QStringLiteral("inlineStr"));
        xml.writeStartElement(QStringLiteral("is"));
        xml.writeTextElement(QStringLiteral("t"), text);
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void writeRow(QXmlStreamWriter &xml, const QStringList &cells)
{
    xml.writeStartElement(QStringLiteral("row"));
    for (const QString &cell : cells)
        writeCell(xml, cell);
    xml.writeEndElement();
}

// The lines of the sheet, top to bottom; an empty list is an empty row.
QVector<QStringList> sheetLines(const Report &report)
{
    QVector<QStringList> lines{{report.title}, {report.note}};
    for (const ReportSection &s : report.sections) {
        lines << QStringList() << QStringList{s.title};
        for (const QString &text : s.paragraphs)
            lines << QStringList{text};
        if (!s.rows.isEmpty())
            lines << s.keys << s.rows;
    }
    return lines;
}

QByteArray sheet(const Report &report)
{
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(mainNs);
    xml.writeStartElement(QStringLiteral("worksheet"));
    xml.writeStartElement(QStringLiteral("sheetData"));
    for (const QStringList &line : sheetLines(report))
        writeRow(xml, line);
    xml.writeEndDocument();
    return out;
}

} // namespace

QByteArray reportXlsx(const Report &report)
{
    ZipStore zip;
    zip.add(QStringLiteral("[Content_Types].xml"), QByteArray(contentTypes));
    zip.add(QStringLiteral("_rels/.rels"), QByteArray(packageRels));
    zip.add(QStringLiteral("xl/workbook.xml"), workbook());
    zip.add(QStringLiteral("xl/_rels/workbook.xml.rels"), QByteArray(workbookRels));
    zip.add(QStringLiteral("xl/worksheets/sheet1.xml"), sheet(report));
    return zip.bytes();
}
