#include "core/dataset_var.h"

#include "text/text_convert.h"
#include "xml/xml_node.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

// The modality of the dummy of index m: see readColumns.
QString dummyModality(int m, const QStringList *texts, const QStringList *labels)
{
    if (m == 0)
        return QStringLiteral("missing");
    // Indexes are not checked against the lists by the file's producer; one
    // beyond them reads as an empty modality rather than as memory.
    QString modality;
    if (labels && m > 0 && m < labels->size())
        modality = labels->at(m);
    if (modality.isEmpty() && texts && m > 0 && m < texts->size())
        modality = texts->at(m);
    return modality;
}

// `kind` is a literal: the columns share its text instead of each holding
// a copy of its own.
void appendColumn(QVector<DatasetColumn> &records, const DatasetVar &var, const QString &kind,
                  char derived, int loc, double auc, QString modality = QString())
{
    DatasetColumn column;
    column.name = var.name;
    column.label = var.label;
    column.modality = std::move(modality);
    column.group = var.grpName;
    column.kind = kind;
    column.derived = derived;
    column.loc = loc;
    column.auc = auc;
    records.append(std::move(column));
}

} // namespace

DatasetVar::DatasetVar(char varType, const char *defaultGroup, const XmlNode &col, int index,
                       int loc)
    : varIndex(index), firstLoc(loc), type(varType)
{
    const char *nameText = col.attribute("name");
    const char *labelText = col.attribute("label");
    const char *groupText = col.attribute("grpName");
    name = QString::fromUtf8(nameText);
    label = labelText ? QString::fromUtf8(labelText) : name;
    grpName = QString::fromUtf8(groupText && *groupText ? groupText : defaultGroup);
}

DatasetVar::~DatasetVar() = default;

void DatasetVar::readColumns(const XmlNode &col, const QStringList *texts,
                             const QStringList *labels, QVector<DatasetColumn> &records)
{
    const double auc = chk_atof(col.attribute("auc"), -2.0);
    appendColumn(records, *this, QStringLiteral("RTT"), 0, firstLoc, auc);
    columnCount = 1;
    if (type == 'V') {
        appendColumn(records, *this, QStringLiteral("PASSTHROUGH"), 1, firstLoc + 1, auc);
        columnCount = 2;
    }
    const XmlNode dummies = col.childNode("DUMMIES");
    if (dummies.isEmpty())
        return;
    int size = 0;
    const char *bytes = base64DecodeToBuffer(&base64Buffer, dummies.textAt(0), &size, nullptr);
    const int count = bytes ? size / 4 : 0;
    for (int i = 0; i < count; ++i) {
        std::int32_t m;
        std::memcpy(&m, bytes + 4 * i, sizeof m);
        appendColumn(records, *this, QStringLiteral("Dummy"), 1, firstLoc + columnCount, auc,
                     dummyModality(m, texts, labels));
        ++columnCount;
    }
}

namespace {

// The text of arg(double) with its defaults, as QString::number gives it.
// Whole limits below a million are their own six significant digits and
// need no conversion of a double.
QString limitText(double value)
{
    if (value > -1e6 && value < 1e6 && value != 0.0 && value == std::trunc(value))
        return QString::number(static_cast<qlonglong>(value));
    return QString::number(value);
}

} // namespace

QStringList limitTexts(const double *limits, int count)
{
    QStringList texts;
    texts.reserve(count > 0 ? count : 1);
    texts.append(QString());
    if (count < 2)
        return texts;
    // Each inner limit ends one interval and starts the next: its text is
    // made once, and no format is scanned for its markers.
    QString lower = limitText(limits[0]);
    for (int i = 1; i < count; ++i) {
        QString upper = limitText(limits[i]);
        QString text;
        if (limits[i - 1] != limits[i]) {
            text.reserve(lower.size() + 6 + upper.size());
            text += lower;
            text += QLatin1String(" <x<= ");
            text += upper;
        } else {
            text.reserve(2 + lower.size());
            text += QLatin1String("x=");
            text += lower;
        }
        texts.append(text);
        lower = std::move(upper);
    }
    return texts;
}

LowerOrEqVar::LowerOrEqVar(const XmlNode &col, int index, int loc,
                           QVector<DatasetColumn> &records)
    : DatasetVar('V', "VALUE", col, index, loc)
{
    const XmlNode limitNode = col.childNode("LIMITS");
    if (!limitNode.isEmpty()) {
        const char *text = limitNode.textAt(0);
        const int size = base64DecodedSize(text, nullptr);
        if (size > 0) {
            // Broken text leaves the array partly filled, as it was decoded.
            limits = static_cast<double *>(std::calloc(size_t(size) / 8 + 1, sizeof(double)));
            base64Decode(text, limits, size, nullptr);
            limitCount = size / 8;
        }
    }
    const QStringList texts = limitTexts(limits, limitCount);
    readColumns(col, &texts, nullptr, records);
}

LowerOrEqVar::~LowerOrEqVar()
{
    std::free(limits);
}

EqualVar::EqualVar(const XmlNode &col, int index, int loc, QVector<DatasetColumn> &records)
    : DatasetVar('N', "NOMINAL", col, index, loc)
{
    const XmlNode possible = col.childNode("POSSIBLEVALUES");
    if (possible.isEmpty()) {
        qDebug("No MODALITIES subtag in VAR EQUAL.%s", qUtf8Printable(label));
        return;
    }
    if (possible.namedChildCount("VAL") == 0) {
        qDebug("No MOD subtag in VAR EQUAL. %s", qUtf8Printable(label));
        return;
    }
    values.append(QStringLiteral("missing"));
    labels.append(QStringLiteral("missing"));
    int it = 0;
    for (XmlNode val = possible.childNode("VAL", &it); !val.isEmpty();
         val = possible.childNode("VAL", &it)) {
        const char *valText = val.attribute("val");
        const char *labelText = val.attribute("label");
        values.append(QString::fromUtf8(valText));
        labels.append(QString::fromUtf8(labelText ? labelText : valText));
    }
    readColumns(col, &values, &labels, records);
}

BinaryVar::BinaryVar(const XmlNode &col, int index, int loc, QVector<DatasetColumn> &records)
    : DatasetVar('B', "BINARY", col, index, loc)
{
    readColumns(col, nullptr, nullptr, records);
}
