#include "panels/my_sort_filter_proxy_model_editor.h"

#include "panels/variable_row_filter.h"

MySortFilterProxyModelEditor::MySortFilterProxyModelEditor(const VariableRowFilter &filter,
                                                           QObject *parent)
    : QSortFilterProxyModel(parent), filter(filter)
{
}

int MySortFilterProxyModelEditor::sourceRow(int proxyRow) const
{
    return mapToSource(index(proxyRow, 0)).row();
}

bool MySortFilterProxyModelEditor::filterAcceptsRow(int sourceRow, const QModelIndex &) const
{
    return filter.accepts(sourceRow);
}
