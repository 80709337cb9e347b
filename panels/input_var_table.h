#pragma once

#include "expr/input_var.h"

#include <QObject>
#include <QVector>

struct CfgModel;
class ColumnsModelEditor;
class InputVarModel;
class KPlainTextEdit;
class QGridLayout;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;
class QUndoStack;
class QWidget;

// The widgets of the input variables of one expression page.
struct InputVarWidgets
{
    QLineEdit *filter;  // the wildcard filter of the columns
    QTableView *columns; // the variables of the description
    QTableView *vars;    // the input variables of the expression
    QWidget *detail;     // where the panel of one input variable shows
    KPlainTextEdit *editor;
};

// The part of an expression page that lists the dataset's variables and the
// input variables of the expression: adding, removing and moving them, each
// as one command of the page, and the detail panel of one input variable.
class InputVarTable : public QObject
{
    Q_OBJECT

public:
    InputVarTable(const InputVarWidgets &widgets, QUndoStack *stack, quint8 panel,
                  QObject *parent = nullptr);

    // Shows the variables of `record` and its list of input variables (both
    // may be null).
    void attach(CfgModel *record, QVector<InputVar> *list);
    InputVarModel *model() const { return vars; }
    // The input variables' table reads the list anew.
    void refresh();
    void setFilter(const QString &text);

    // Adds the columns selected in the columns table, selects the last input
    // variable and shows its detail.
    void addSelected();
    bool removeSelected();
    bool upSelected();
    bool downSelected();

    // Empties the detail, then shows there the panel that the dataset
    // variable of row `row` offers; false when it offers none (or the row is
    // no row).
    bool showDetail(int row);
    void clearDetail();
    // The variable's name in the expression.
    QString labelOf(int row) const;

signals:
    // A right click on an input variable, or its name edited.
    void variableChosen(int row);

private:
    InputVarWidgets widgets;
    CfgModel *cfg = nullptr;
    ColumnsModelEditor *columns;
    QSortFilterProxyModel *proxy;
    InputVarModel *vars;
    QGridLayout *detailLayout;
};
