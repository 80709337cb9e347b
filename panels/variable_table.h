#pragma once

#include "edit/table_views.h"
#include "edit/undo_commands.h"
#include "panels/my_sort_filter_proxy_model_editor.h"
#include "panels/variable_table_model.h"

#include <QScrollBar>
#include <QUndoStack>

// One of the two variable tables of the page: its view, the proxy that
// sorts and filters, and the model over the record.
struct VariableTable
{
    MyTable *view = nullptr;
    MySortFilterProxyModelEditor *proxy = nullptr;
    VariableTableModel *model = nullptr;

    // Rows of the model, not of the view, that are selected, from the last
    // selected row to the first.
    QVector<int> selectedSourceRows(const QVector<int> &viewRows) const
    {
        QVector<int> rows;
        rows.reserve(viewRows.size());
        for (int i = viewRows.size() - 1; i >= 0; --i)
            rows.append(proxy->sourceRow(viewRows.at(i)));
        return rows;
    }

    // Resets the model and puts the view back where it was: the scroll
    // position and the current cell, selected.
    void resetKeepingPlace()
    {
        const int scroll = view->verticalScrollBar()->value();
        const QModelIndex current = view->currentIndex();
        const int row = current.row();
        const int column = current.column();
        model->reset();
        view->verticalScrollBar()->setValue(scroll);
        if (row >= 0 && row < proxy->rowCount()) {
            const QModelIndex again = proxy->index(row, column);
            view->selectionModel()->setCurrentIndex(again, QItemSelectionModel::ClearAndSelect);
        }
    }
};

// Pushes one command that gives `value` to the field of each selected row
// that `joins` admits and whose field holds another value. The rows go in
// from the last selected to the first; a command over no row is pushed all
// the same, so that the press shows in the undo list. The model is then
// reset and the selection put back.
template <typename T, typename FieldOf, typename Joins>
void pushOnSelectedRows(const VariableTable &table, QUndoStack *stack, FieldOf fieldOf,
                        Joins joins, T value, const QString &text, bool mergeable)
{
    const QVector<int> viewRows = selectedRows(table.view);
    QVector<T *> targets;
    for (int row : table.selectedSourceRows(viewRows)) {
        T *target = fieldOf(row);
        if (joins(row) && *target != value)
            targets.append(target);
    }
    stack->push(new UpdateTemplateVector2Command<T>(targets, value, text, PageSelectVariables,
                                                    mergeable));
    table.model->reset();
    selectRows(table.view, viewRows);
}
