#pragma once

#include <QSortFilterProxyModel>

class VariableRowFilter;

// The sorted and filtered view of a variable table. Rows keep their pairing
// with the record's per-column entries, since every edit goes through the
// mapping to the source row. Both tables' proxies share one filter.
class MySortFilterProxyModelEditor : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    MySortFilterProxyModelEditor(const VariableRowFilter &filter, QObject *parent = nullptr);

    // The source row behind a row of this proxy.
    int sourceRow(int proxyRow) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    const VariableRowFilter &filter;
};
