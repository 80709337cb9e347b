#pragma once

#include "panels/variable_table_model.h"

// The table "Activate/Ignore Recoding - Monotonicity": whether each column
// is ignored, its monotonicity (for an "RTT" row only) and whether it is
// illustrative. Each edit of a cell is one command of page 4, never merged.
class MyTableModelEditor : public VariableTableModel
{
    Q_OBJECT

public:
    using VariableTableModel::VariableTableModel;

    enum Column { MonotonicityColumn = 5, IgnoreColumn = 6, IllustrativeColumn = 7 };
    // Positions of the combo items of the monotonicity column.
    enum Monotonicity { MonoNone = 0, MonoIncreasing = 1, MonoDecreasing = 2, MonoNotApplicable = 3 };

    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    // The rows that pass the filters may have changed in number.
    void rowCountChanged();

protected:
    QVariant valueData(int row, int column, int role) const override;
    QString valueHeader(int column) const override;
    bool isEditable(int row, int column) const override;

private:
    bool setMonotonicity(int row, int value);
};
