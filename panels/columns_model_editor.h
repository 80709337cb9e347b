#pragma once

#include <QAbstractTableModel>

struct CfgModel;

// The variables of the description, one row each, from which the analyst
// picks the input variables of an expression. Column 0 shows the label and
// gives the name in the user role, column 1 the type letter of the variable;
// the headers are those of the same contents in the input-variable table.
class ColumnsModelEditor : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ColumnsModelEditor(QObject *parent = nullptr);

    // Shows the variables of `record`, or none.
    void attach(const CfgModel *record);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const CfgModel *cfg = nullptr;
};
