#include "tools/engine_standin/misfits.h"

#include "tools/engine_standin/column_counts.h"

#include "core/cfg_model.h"
#include "text/text_convert.h"
#include "xml/xml_node.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool hasVariableLabelled(const DescModel &desc, const QString &label)
{
    for (const DatasetVar *var : desc.vars) {
        if (var->label == label)
            return true;
    }
    return false;
}

void checkLabel(const CfgModel &cfg, const QString &label, const char *what, QStringList &out)
{
    if (!label.trimmed().isEmpty() && !hasVariableLabelled(*cfg.desc, label))
        out << QStringLiteral("The %1 '%2' is not a variable of the description.")
                   .arg(QLatin1String(what), label);
}

void checkInputVars(const CfgModel &cfg, const QVector<InputVar> &vars, const char *what,
                    QStringList &out)
{
    for (const InputVar &var : vars) {
        const QString column = var.column.value(0);
        if (cfg.desc->varIndexOfName(column) < 0)
            out << QStringLiteral("The %1 uses '%2', which is not a variable of the description.")
                       .arg(QLatin1String(what), column);
    }
}

void checkFile(const CfgModel &cfg, const QString &path, const char *what, QStringList &out)
{
    const QString trimmed = path.trimmed();
    const QDir folder = QFileInfo(cfg.cfgFileName).absoluteDir();
    if (!trimmed.isEmpty() && !QFileInfo::exists(folder.absoluteFilePath(trimmed)))
        out << QStringLiteral("The %1 '%2' was not found.").arg(QLatin1String(what), trimmed);
}

void checkTarget(const CfgModel &cfg, QStringList &out)
{
    if (!cfg.hasTarget()) {
        out << QStringLiteral("No target is defined.");
        return;
    }
    if (cfg.targetType == 'E') {
        checkInputVars(cfg, cfg.targetVars, "target expression", out);
    } else if (cfg.targetType == 'F') {
        checkFile(cfg, cfg.targetFile, "target file", out);
    } else {
        checkLabel(cfg, cfg.targetColumn, "target column", out);
        const QString fixed = cfg.desc->labelOfName(cfg.desc->target.trimmed());
        if (!fixed.isEmpty() && fixed != cfg.targetColumn)
            out << QStringLiteral("The description names the target '%1', the configuration '%2'.")
                       .arg(fixed, cfg.targetColumn);
    }
}

void checkLineSelection(const CfgModel &cfg, QStringList &out)
{
    if (cfg.lineSelectionType == 'E')
        checkInputVars(cfg, cfg.lineSelectionVars, "line selection", out);
    else if (cfg.lineSelectionType == 'F')
        checkFile(cfg, cfg.lineSelectionFile, "line selection file", out);
    else
        checkFile(cfg, cfg.lineSelectionSegmentFile, "segmentation model", out);
}

// The record skips a Var whose loc names no column; the file still has it.
void checkColumnSettings(const CfgModel &cfg, const XmlNode &cfgRoot, QStringList &out)
{
    const XmlNode vars = cfgRoot.childNode("Vars");
    QStringList unknown;
    for (int i = 0; i < vars.childCount(); ++i) {
        const int loc = chk_atoi(vars.childAt(i).attribute("loc"), -1);
        if (loc >= 0 && cfg.desc->columnIndexOfLoc(loc) < 0)
            unknown << QString::number(loc);
    }
    if (!unknown.isEmpty())
        out << QStringLiteral("Settings of columns that the description lacks (loc %1); "
                              "it has %2 columns.")
                   .arg(unknown.join(QStringLiteral(", ")))
                   .arg(cfg.columnCount());
}

bool hasActiveColumn(const CfgModel &cfg)
{
    for (int i = 0; i < cfg.columnCount(); ++i) {
        if (isActiveColumn(cfg, i))
            return true;
    }
    return false;
}

} // namespace

QStringList configurationMisfits(const CfgModel &cfg, const XmlNode &cfgRoot)
{
    QStringList out;
    checkTarget(cfg, out);
    checkLabel(cfg, cfg.Weight, "weight column", out);
    checkLabel(cfg, cfg.Treatment, "treatment column", out);
    checkLineSelection(cfg, out);
    checkColumnSettings(cfg, cfgRoot, out);
    if (!hasActiveColumn(cfg))
        out << QStringLiteral("No column is active: the model would have no input.");
    return out;
}
