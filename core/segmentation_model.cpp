#include "core/segmentation_model.h"

#include "xml/xml_file.h"
#include "xml/xml_node.h"
#include "xml/xml_parser.h"

#include <QFile>

QStringList readSegmentNames(const QString &path)
{
    XmlResult result;
    const XmlNode root =
        parseXmlFile(QFile::encodeName(path).constData(), "MOONWICK_MODEL", &result);
    const XmlNode list = root.childNode("SEGMENT_NAMES");
    QStringList names;
    for (int i = 0; i < list.childCount(); ++i)
        names << QString::fromUtf8(list.childAt(i).attribute("name"));
    return names;
}
