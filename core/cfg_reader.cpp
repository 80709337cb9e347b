// Reading a CfgModel from the QUV_Config element of a parsed file.

#include "core/cfg_attributes.h"
#include "core/cfg_model.h"

#include "text/text_convert.h"
#include "xml/xml_node.h"

#include <cstdlib>

namespace {

QString firstText(const XmlNode &node)
{
    return QString::fromUtf8(node.textAt(0));
}

void readRootAttributes(CfgModel &model, const XmlNode &root)
{
    for (int i = 0; i < cfgRootAttributeCount; ++i) {
        const CfgRootAttribute &a = cfgRootAttributes[i];
        const char *value = root.attribute(a.name);
        switch (a.kind) {
        case CfgRootAttribute::Integer:
            model.*a.integer = chk_atoi(value, model.*a.integer);
            break;
        case CfgRootAttribute::Number:
            model.*a.number = chk_atof(value, model.*a.number);
            break;
        case CfgRootAttribute::AucMax:
            model.*a.number = chk_atof(value, defaultAUCmaxFraction) * 100.0;
            break;
        case CfgRootAttribute::EscapedText:
            // Only a missing attribute gives the default; an empty one stays empty.
            if (value)
                model.*a.text = QString::fromUtf8(value);
            break;
        }
    }
}

void readWorkingSpace(CfgModel &model, const XmlNode &space)
{
    if (space.isEmpty())
        return;
    model.workingSpaceX = chk_atoi(space.attribute("x"), 200);
    model.workingSpaceY = chk_atoi(space.attribute("y"), 200);
    model.workingSpaceW = chk_atoi(space.attribute("w"), 500);
    model.workingSpaceH = chk_atoi(space.attribute("h"), 400);
}

// The vars and expression of a target or a line selection of type 'E'.
void readExpression(const XmlNode &node, QVector<InputVar> &vars, QString &expression)
{
    const XmlNode list = node.childNode("vars");
    const int count = list.childCount();
    for (int i = 0; i < count; ++i)
        vars.append(InputVar(list.childAt(i)));
    expression = firstText(node.childNode("expression"));
}

void readTarget(CfgModel &model, const XmlNode &target)
{
    if (target.isEmpty())
        return;
    model.targetType = chk_char(target.attribute("type"), 'C');
    if (model.targetType == 'E') {
        readExpression(target, model.targetVars, model.targetExpression);
    } else if (model.targetType == 'F') {
        model.targetFile = firstText(target);
    } else {
        const QString name = firstText(target);
        if (!name.isEmpty())
            model.targetColumn = model.desc->labelOfName(name);
    }
}

// The four byte arrays share the block; the two flags are bools of one byte.
static_assert(sizeof(bool) == 1, "illus and cm take one byte per column");

void allocateColumns(CfgModel &model)
{
    const int n = model.desc->columnCount();
    char *block = static_cast<char *>(std::malloc(size_t(n) * 20));
    model.minSizeModality = reinterpret_cast<double *>(block);
    model.penality = model.minSizeModality + n;
    model.fi = reinterpret_cast<char *>(model.penality + n);
    model.illus = reinterpret_cast<bool *>(model.fi + n);
    model.monoto = model.fi + 2 * n;
    model.cm = reinterpret_cast<bool *>(model.fi + 3 * n);
    for (int i = 0; i < n; ++i) {
        model.minSizeModality[i] = -1.0;
        model.penality[i] = 1.0;
        model.fi[i] = model.desc->columnAt(i)->derived;
        model.illus[i] = false;
        model.monoto[i] = 'N';
        model.cm[i] = false;
    }
}

// Position of the column with that loc, or -1. Every description read here
// numbers its columns by position, which spares the scan.
int columnOfLoc(const DescModel &desc, int loc)
{
    if (loc >= 0 && loc < desc.columnCount() && desc.columnLoc(loc) == loc)
        return loc;
    return desc.columnIndexOfLoc(loc);
}

void readVar(CfgModel &model, const XmlNode &var)
{
    const int i = columnOfLoc(*model.desc, chk_atoi(var.attribute("loc"), -1));
    if (i < 0)
        return;
    model.fi[i] = chk_char(var.attribute("fi"), model.fi[i]);
    model.illus[i] = chk_atob(var.attribute("illus"), false);
    model.monoto[i] = chk_char(var.attribute("monoto"), 'N');
    model.minSizeModality[i] = chk_atof(var.attribute("minSizeModality"), -1.0);
    model.penality[i] = chk_atof(var.attribute("penality"), 1.0);
    model.cm[i] = chk_atob(var.attribute("cm"), false);
}

void readVars(CfgModel &model, const XmlNode &vars)
{
    // As many turns as the element has children, whatever their names; a
    // turn without a further Var reads the empty node and changes nothing.
    const int count = vars.childCount();
    int it = 0;
    for (int k = 0; k < count; ++k)
        readVar(model, vars.childNode("Var", &it));
}

// The layout of older files: three lists of Var by loc, read but never written.
template <class Apply>
void readOlderList(CfgModel &model, const XmlNode &list, Apply apply)
{
    int it = 0;
    for (XmlNode var = list.childNode("Var", &it); !var.isEmpty(); var = list.childNode("Var", &it)) {
        const int i = columnOfLoc(*model.desc, chk_atoi(var.attribute("loc"), -1));
        if (i >= 0)
            apply(i, var);
    }
}

void readOlderLayout(CfgModel &model, const XmlNode &root)
{
    readOlderList(model, root.childNode("IllustrativeVar"),
                  [&model](int i, const XmlNode &) { model.illus[i] = true; });
    readOlderList(model, root.childNode("VarToIgnore"), [&model](int i, const XmlNode &var) {
        model.fi[i] = chk_char(var.attribute("value"), 'I');
    });
    readOlderList(model, root.childNode("VarMonotonicity"), [&model](int i, const XmlNode &var) {
        model.monoto[i] = chk_char(var.attribute("value"), 'N');
    });
}

void readLineSelection(CfgModel &model, const XmlNode &selection)
{
    if (selection.isEmpty())
        return;
    model.lineSelectionType = chk_char(selection.attribute("type"), 'E');
    if (model.lineSelectionType == 'E') {
        readExpression(selection, model.lineSelectionVars, model.lineSelectionExpression);
    } else if (model.lineSelectionType == 'F') {
        model.lineSelectionFile = firstText(selection);
    } else {
        model.lineSelectionSegmentFile = firstText(selection);
        for (const char *c = selection.attribute("segment"); c && *c; ++c)
            model.segmentActive.append(*c == 'A');
    }
}

} // namespace

CfgModel::CfgModel(DescModel *description, const QString &cfgPath, const XmlNode &root)
    : desc(description)
{
    readRootAttributes(*this, root);
    cfgFileName = cfgPath;
    Weight = desc->labelOfName(firstText(root.childNode("Weight")).trimmed());
    PartioningModel = firstText(root.childNode("PartioningModel")).trimmed();
    Treatment = desc->labelOfName(firstText(root.childNode("Treatment")).trimmed());
    readWorkingSpace(*this, root.childNode("WorkingSpace"));

    // A datasource of the configuration overrides the description's.
    datasource = desc->datasource;
    const XmlNode source = root.childNode("datasource");
    if (!source.isEmpty()) {
        char *text = source.xmlText(true);
        datasource = QString::fromUtf8(text);
        std::free(text);
    }

    readTarget(*this, root.childNode("Target"));
    allocateColumns(*this);
    const XmlNode vars = root.childNode("Vars");
    if (!vars.isEmpty())
        readVars(*this, vars);
    else
        readOlderLayout(*this, root);
    readLineSelection(*this, root.childNode("LineSelected"));
    freeEscapeBuffer(&xmlEscapeBuffer);
}
