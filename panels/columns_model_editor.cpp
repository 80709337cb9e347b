#include "panels/columns_model_editor.h"

#include "core/cfg_model.h"
#include "panels/input_var_model.h"

ColumnsModelEditor::ColumnsModelEditor(QObject *parent) : QAbstractTableModel(parent)
{
}

void ColumnsModelEditor::attach(const CfgModel *record)
{
    beginResetModel();
    cfg = record;
    endResetModel();
}

int ColumnsModelEditor::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !cfg ? 0 : cfg->desc->varCount();
}

int ColumnsModelEditor::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ColumnsModelEditor::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !cfg || index.row() >= cfg->desc->varCount())
        return QVariant();
    const DatasetVar *var = cfg->desc->varAt(index.row());
    if (index.column() == 0 && role == Qt::DisplayRole)
        return var->label;
    if (index.column() == 0 && role == Qt::UserRole)
        return var->name;
    if (index.column() == 1 && role == Qt::DisplayRole)
        return QString(QChar::fromLatin1(var->type));
    return QVariant();
}

QVariant ColumnsModelEditor::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section > 1)
        return QVariant();
    return InputVarModel::headerText(section == 0 ? InputVarModel::ColumnNameColumn
                                                  : InputVarModel::MetaColumn);
}
