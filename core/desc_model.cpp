#include "core/desc_model.h"

#include "xml/xml_node.h"

#include <cstdlib>

namespace {

// The element as text, formatted, or an empty text for the empty node.
QString elementText(const XmlNode &node)
{
    char *text = node.xmlText(true);
    const QString result = QString::fromUtf8(text);
    std::free(text);
    return result;
}

template <class Var>
void readGroup(DescModel &desc, const XmlNode &group, int &loc)
{
    int it = 0;
    for (XmlNode col = group.childNode("COL", &it); !col.isEmpty();
         col = group.childNode("COL", &it)) {
        DatasetVar *var = new Var(col, desc.vars.size(), loc, desc.columns);
        desc.vars.append(var);
        loc += var->columnCount;
    }
}

} // namespace

DescModel::DescModel(const QString &path, const XmlNode &root) : fileName(path)
{
    const XmlNode config = root.childNode("QUV_Config");
    if (config.isEmpty()) {
        qDebug("No QUV_Config tag in %s", qUtf8Printable(path));
        return;
    }
    datasource = elementText(config.childNode("datasource"));
    if (const char *text = config.childNode("Target").textAt(0))
        target = QString::fromUtf8(text);
    const XmlNode period = config.childNode("TimePeriod");
    if (!period.isEmpty() && period.textAt(0))
        timePeriod = elementText(period);

    const XmlNode cols = root.childNode("COLS");
    if (cols.isEmpty()) {
        qDebug("No COLS tag in %s", qUtf8Printable(path));
        return;
    }
    // Numeric variables first, then nominal, then binary, whatever the
    // dataset's own order; the messages all name <VALUE>, as they always did.
    int loc = 0;
    const XmlNode values = cols.childNode("VALUE");
    if (values.isEmpty())
        qDebug("No VALUE tag in subtag <VALUE>");
    else
        readGroup<LowerOrEqVar>(*this, values, loc);
    const XmlNode nominals = cols.childNode("NOMINAL");
    if (nominals.isEmpty())
        qDebug("No NOMINAL tag in subtag <VALUE>");
    else
        readGroup<EqualVar>(*this, nominals, loc);
    const XmlNode binaries = cols.childNode("BIN");
    if (binaries.isEmpty())
        qDebug("No BINARY tag in subtag <VALUE>");
    else
        readGroup<BinaryVar>(*this, binaries, loc);
}

DescModel::~DescModel()
{
    qDeleteAll(vars);
}

int DescModel::columnIndexOfLoc(int loc) const
{
    for (int i = 0; i < columns.size(); ++i) {
        if (columns.at(i).loc == loc)
            return i;
    }
    return -1;
}

DatasetVar *DescModel::varAtLoc(int loc) const
{
    const int count = vars.size();
    if (count == 0)
        return nullptr;
    if (vars.at(count - 1)->firstLoc == loc)
        return vars.at(count - 1);
    int low = 0;
    int high = count - 1;
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        if (loc < vars.at(middle)->firstLoc)
            high = middle;
        else
            low = middle;
    }
    if (low + 1 < count && vars.at(low + 1)->firstLoc == loc)
        return vars.at(low + 1);
    if (vars.at(low)->firstLoc == loc)
        return vars.at(low);
    return nullptr;
}

int DescModel::varIndexOfName(const QString &name) const
{
    for (int i = 0; i < vars.size(); ++i) {
        if (vars.at(i)->name == name)
            return i;
    }
    return -1;
}

DatasetVar *DescModel::varOfName(const QString &name) const
{
    const int i = varIndexOfName(name);
    return i < 0 ? nullptr : vars.at(i);
}

QString DescModel::labelOfName(const QString &name) const
{
    const DatasetVar *var = varOfName(name);
    return var ? var->label : name;
}

QString DescModel::nameOfLabel(const QString &label) const
{
    for (const DatasetVar *var : vars) {
        if (var->label == label)
            return var->name;
    }
    return label;
}
