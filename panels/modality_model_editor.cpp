#include "panels/modality_model_editor.h"

#include "core/dataset_var.h"

ModalityModelEditor::ModalityModelEditor(const EqualVar *var, QObject *parent)
    : QAbstractTableModel(parent), var(var)
{
}

int ModalityModelEditor::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !var ? 0 : var->values.size();
}

int ModalityModelEditor::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant ModalityModelEditor::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !var || role != Qt::DisplayRole || index.row() >= rowCount())
        return QVariant();
    const QString value = var->values.at(index.row());
    const QString shown = var->labels.value(index.row());
    if (shown == value)
        return shown;
    return shown + QStringLiteral(" [") + value + QLatin1Char(']');
}

QVariant ModalityModelEditor::headerData(int section, Qt::Orientation orientation,
                                         int role) const
{
    if (orientation != Qt::Horizontal || section != 0
        || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return QVariant();
    return tr("Modality Name");
}
