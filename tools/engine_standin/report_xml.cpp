#include "tools/engine_standin/report_xml.h"

#include "tools/engine_standin/report.h"
#include "xml/xml_node.h"

#include <QXmlStreamWriter>

namespace {

void writeSection(QXmlStreamWriter &xml, const ReportSection &section)
{
    xml.writeStartElement(QStringLiteral("section"));
    xml.writeAttribute(QStringLiteral("name"), section.name);
    xml.writeAttribute(QStringLiteral("title"), section.title);
    for (const QString &paragraph : section.paragraphs)
        xml.writeTextElement(QStringLiteral("p"), paragraph);
    for (const QStringList &row : section.rows) {
        xml.writeEmptyElement(QStringLiteral("row"));
        for (int i = 0; i < section.keys.size(); ++i)
            xml.writeAttribute(section.keys.at(i), row.value(i));
    }
    xml.writeEndElement();
}

QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

QString firstText(const XmlNode &node)
{
    return utf8(node.textAt(0));
}

ReportSection readSection(const XmlNode &node)
{
    ReportSection section;
    section.name = utf8(node.attribute("name"));
    section.title = utf8(node.attribute("title"));
    for (int i = 0; i < node.childCount(); ++i) {
        const XmlNode child = node.childAt(i);
        const QString tag = utf8(child.name());
        if (tag == QLatin1String("p"))
            section.paragraphs.append(firstText(child));
        if (tag != QLatin1String("row"))
            continue;
        if (section.rows.isEmpty()) {
            for (int a = 0; a < child.attributeCount(); ++a)
                section.keys.append(utf8(child.attributeName(a)));
        }
        QStringList row;
        for (const QString &key : qAsConst(section.keys))
            row.append(utf8(child.attribute(key.toUtf8().constData())));
        section.rows.append(row);
    }
    return section;
}

} // namespace

QByteArray reportXml(const Report &report, const QString &rootName)
{
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(rootName);
    xml.writeAttribute(QStringLiteral("title"), report.title);
    xml.writeAttribute(QStringLiteral("producer"), QStringLiteral("Quva engine stand-in"));
    xml.writeAttribute(QStringLiteral("modelFitted"), QStringLiteral("no"));
    xml.writeTextElement(QStringLiteral("note"), report.note);
    for (const ReportSection &section : report.sections)
        writeSection(xml, section);
    xml.writeEndDocument();
    return out;
}

Report readReportXml(const QString &path, const char *rootName)
{
    const XmlNode root = readXmlFile(path, rootName);
    Report report;
    report.title = utf8(root.attribute("title"));
    report.note = firstText(root.childNode("note"));
    int iterator = 0;
    for (XmlNode node = root.childNode("section", &iterator); !node.isEmpty();
         node = root.childNode("section", &iterator))
        report.sections.append(readSection(node));
    return report;
}
