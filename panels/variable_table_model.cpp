#include "panels/variable_table_model.h"

#include "core/cfg_model.h"
#include "panels/page.h"

#include <QUndoStack>

VariableTableModel::VariableTableModel(PageContext &context, QObject *parent)
    : QAbstractTableModel(parent), context(context)
{
}

void VariableTableModel::attach(CfgModel *record)
{
    beginResetModel();
    cfg = record;
    endResetModel();
}

void VariableTableModel::reset()
{
    beginResetModel();
    endResetModel();
}

int VariableTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !cfg ? 0 : cfg->columnCount();
}

int VariableTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnTotal;
}

const DatasetColumn &VariableTableModel::columnAt(int row) const
{
    return *cfg->desc->columnAt(row);
}

bool rowOpensVariable(const CfgModel &record, int row)
{
    return record.desc->varAtLoc(record.desc->columnAt(row)->loc) != nullptr;
}

bool isRttRow(const CfgModel &record, int row)
{
    return record.desc->columnAt(row)->kind == QLatin1String("RTT");
}

QVariant VariableTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !cfg || index.row() >= cfg->columnCount())
        return QVariant();
    if (index.column() >= 5)
        return valueData(index.row(), index.column(), role);
    if (role != Qt::DisplayRole)
        return QVariant();
    const DatasetColumn &column = columnAt(index.row());
    switch (index.column()) {
    case 0: return column.kind;
    case 1: return column.auc;
    case 2: return column.label;
    case 3: return column.modality;
    case 4: return column.group;
    default: return QVariant();
    }
}

QVariant VariableTableModel::headerData(int section, Qt::Orientation orientation,
                                        int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::EditRole))
        return QVariant();
    switch (section) {
    case 0: return tr("Recoding");
    case 1: return tr("Univ.Imp.");
    case 2: return tr("Variable Name");
    case 3: return tr("Modality");
    case 4: return tr("Group");
    default: return section < columnTotal ? valueHeader(section) : QVariant();
    }
}

Qt::ItemFlags VariableTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || !cfg)
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() >= 5 && isEditable(index.row(), index.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

void VariableTableModel::push(QUndoCommand *command)
{
    context.undoStack()->push(command);
}
