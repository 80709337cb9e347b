#pragma once

#include "expr/input_var.h"

#include <QAbstractTableModel>
#include <QVector>

class QAbstractItemView;
class QTableView;
class QUndoStack;

// The table of the input variables of an expression, under the expression on
// the line-selection and target pages. It shows the list that the record
// holds and changes it only through commands on the whole list, with the
// page's number, so that every edit, addition, removal and move is one step
// on the undo stack. The check reads the current values from the same list.
class InputVarModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { CastColumn, ColumnNameColumn, VarNameColumn, ValueColumn, MetaColumn };
    static constexpr int columnTotal = 5;

    // The header of a column, as the columns table shares it.
    static QString headerText(int column);

    InputVarModel(QTableView *view, QUndoStack *stack, quint8 panel, QObject *parent = nullptr);

    // The list shown, or none; the model does not own it.
    void setVarList(QVector<InputVar> *list);
    QVector<InputVar> *varList() const { return vars; }
    // Tells the views that every row may have changed.
    void refresh();

    // Appends a variable for each row selected in the columns table, whose
    // model gives the name (column 0, user role), the label (column 0) and
    // the type letter (column 1). False when nothing is selected.
    bool addVars(QAbstractItemView *columnsView);
    // Removes the selected rows; false when none is selected.
    bool removeVars();
    // Moves the first selected row one up or down and selects it again;
    // false with no selection or at the edge of the list.
    bool upVar();
    bool downVar();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    // The name of the variable in the expression was edited in that row.
    void variableNameChanged(int row);

private:
    // The copy with the edit of one cell, or false when the value is the
    // one the cell holds already.
    bool editedCopy(int row, int column, const QVariant &value, QVector<InputVar> *copy) const;
    void pushList(const QVector<InputVar> &list, const QString &text);
    bool moveSelected(int step, const QString &text);
    void selectRow(int row);

    QTableView *view;
    QUndoStack *stack;
    quint8 panel;
    QVector<InputVar> *vars = nullptr;
};
