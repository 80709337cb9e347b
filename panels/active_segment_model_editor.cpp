#include "panels/active_segment_model_editor.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"

#include <QUndoStack>

ActiveSegmentModelEditor::ActiveSegmentModelEditor(QUndoStack *stack, QObject *parent)
    : QAbstractTableModel(parent), stack(stack)
{
}

void ActiveSegmentModelEditor::attach(CfgModel *record)
{
    beginResetModel();
    cfg = record;
    endResetModel();
}

void ActiveSegmentModelEditor::reset()
{
    beginResetModel();
    endResetModel();
}

int ActiveSegmentModelEditor::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !cfg ? 0 : cfg->segmentNames.size();
}

int ActiveSegmentModelEditor::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ActiveSegmentModelEditor::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !cfg || role != Qt::DisplayRole
        || index.row() >= cfg->segmentNames.size())
        return QVariant();
    if (index.column() == 0)
        return cfg->segmentNames.at(index.row());
    return cfg->segmentActive.value(index.row());
}

// No comparison with the value held: every change of a box is a step.
bool ActiveSegmentModelEditor::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !cfg)
        return false;
    QVector<bool> active = cfg->segmentActive;
    if (active.size() <= index.row())
        active.resize(index.row() + 1);
    active[index.row()] = value.toBool();
    stack->push(new UpdateTemplate2Command<QVector<bool>>(
        &cfg->segmentActive, active, QStringLiteral("active/deactive segment"), PageSelectLine,
        false));
    return true;
}

QVariant ActiveSegmentModelEditor::headerData(int section, Qt::Orientation orientation,
                                              int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    if (section == 0)
        return QStringLiteral("Segment Name");
    return section == 1 ? QVariant(QStringLiteral("isActive")) : QVariant();
}

Qt::ItemFlags ActiveSegmentModelEditor::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    return index.column() == 1 ? base | Qt::ItemIsEditable : base;
}
