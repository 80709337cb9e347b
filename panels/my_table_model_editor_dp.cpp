#include "panels/my_table_model_editor_dp.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"

#include <QColor>

namespace {

// The record's value of "no size of its own" and "no penalty".
constexpr double generalSize = -1.0;
constexpr double neutralPenality = 1.0;

// The texts carry the marker twice and are filled with the value alone, so
// the variable's name never shows in them: that is how the stack reads.
QString valueTwice(const char *text, const QString &value)
{
    return QString::fromLatin1(text).arg(value);
}

} // namespace

QString MyTableModelEditorDP::generalMinSize(int row) const
{
    const DatasetVar *var = cfg->desc->varAtLoc(columnAt(row).loc);
    return var && var->type == 'V' ? cfg->minSizeModalityForOrderedVar
                                   : cfg->minSizeModalityForNominalVar;
}

QVariant MyTableModelEditorDP::valueData(int row, int column, int role) const
{
    if (role == Qt::DisplayRole)
        return display(row, column);
    if (role == Qt::BackgroundRole)
        return background(row, column);
    return QVariant();
}

QVariant MyTableModelEditorDP::display(int row, int column) const
{
    switch (column) {
    case CenterMissingColumn: return cfg->cm[row];
    case MinSizeColumn:
        if (cfg->minSizeModality[row] != generalSize)
            return cfg->minSizeModality[row];
        return rowOpensVariable(*cfg, row) ? QVariant(generalMinSize(row)) : QVariant();
    case PenalityColumn: return cfg->penality[row];
    default: return QVariant();
    }
}

QVariant MyTableModelEditorDP::background(int row, int column) const
{
    if (column == MinSizeColumn && cfg->minSizeModality[row] != generalSize)
        return QColor::fromRgba(0xffa6ffa6);
    if (column == PenalityColumn && cfg->penality[row] != neutralPenality)
        return QColor::fromRgba(0xffa2ecff);
    return QVariant();
}

QString MyTableModelEditorDP::valueHeader(int column) const
{
    switch (column) {
    case CenterMissingColumn: return tr("CenterMissing");
    case MinSizeColumn: return tr("MinSizeModality");
    case PenalityColumn: return tr("Penality");
    default: return QString();
    }
}

bool MyTableModelEditorDP::isEditable(int row, int column) const
{
    return column == PenalityColumn || rowOpensVariable(*cfg, row);
}

bool MyTableModelEditorDP::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !cfg || index.row() >= cfg->columnCount())
        return false;
    const int row = index.row();
    switch (index.column()) {
    case CenterMissingColumn: {
        const bool centre = value.toBool();
        if (centre == cfg->cm[row])
            return false;
        push(new UpdateTemplateCommand<bool>(
            cfg->cm + row, centre,
            valueTwice("centermissing=%1 for '%1'", QString::number(centre ? 1 : 0)),
            PageSelectVariables, false));
        return true;
    }
    case MinSizeColumn: {
        const double size = value.toDouble();
        if (cfg->minSizeModality[row] == generalSize && size == generalMinSize(row).toDouble())
            return false;
        push(new UpdateTemplateCommand<double>(
            cfg->minSizeModality + row, size,
            valueTwice("minSizeModality=%1 for '%1'", QStringLiteral("%1").arg(size)),
            PageSelectVariables, false));
        return true;
    }
    case PenalityColumn: {
        const double penality = value.toDouble();
        if (penality == cfg->penality[row])
            return false;
        push(new UpdateTemplateCommand<double>(
            cfg->penality + row, penality,
            valueTwice("penality=%1 for '%1'", QStringLiteral("%1").arg(penality)),
            PageSelectVariables, false));
        return true;
    }
    default:
        return false;
    }
}
