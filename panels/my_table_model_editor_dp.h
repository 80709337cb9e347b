#pragma once

#include "panels/variable_table_model.h"

// The table "Discretization - Penalization": per column, whether missing
// values are centred and the minimum modality size (both for the first row
// of a variable only), and the penalty. A cell that departs from the
// general value is coloured. Each edit of a cell is one command of page 4,
// never merged, and an edit that changes nothing pushes nothing.
class MyTableModelEditorDP : public VariableTableModel
{
    Q_OBJECT

public:
    using VariableTableModel::VariableTableModel;

    enum Column { CenterMissingColumn = 5, MinSizeColumn = 6, PenalityColumn = 7 };

    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    // The general minimum size of the row's variable, as the record holds
    // it: the ordered one for a numeric variable, the nominal one otherwise.
    QString generalMinSize(int row) const;

protected:
    QVariant valueData(int row, int column, int role) const override;
    QString valueHeader(int column) const override;
    bool isEditable(int row, int column) const override;

private:
    QVariant display(int row, int column) const;
    QVariant background(int row, int column) const;
};
