#pragma once

#include "panels/input_var_table.h"
#include "panels/page.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSplitter;
class QTabWidget;

// What sets the expression of one page apart from the other's: its fields
// of the record, its page number and the texts of its commands.
struct ExpressionFields
{
    QVector<InputVar> CfgModel::*vars;
    QString CfgModel::*expression;
    bool CfgModel::*addN;
    quint8 panel;
    const char *expressionText; // undo text of an edit of the expression
    const char *addNText;       // undo text of the "_n" box
};

// The widgets of the expression of one page, beside its input variables.
struct ExpressionWidgets
{
    InputVarWidgets table;
    QCheckBox *addN;
    QLineEdit *currentValue;
    QLabel *speed;
    QTabWidget *tabs;      // gets the page "Help"
    QSplitter *columnsSplit; // the columns beside the rest
    QSplitter *varsSplit;    // the input variables over the expression
};

// A page that defines something by an expression over input variables (the
// line selection and the target): the editor, its check on the typed values
// with the engine's name, the table of input variables, the help on the
// language and the choice of a file. The page gives its fields and widgets
// once its form is set up, and its named slots call the members here.
class ExpressionPage : public Page
{
    Q_OBJECT

public:
    using Page::Page;

protected:
    void setUpExpression(const ExpressionFields &fields, const ExpressionWidgets &widgets);
    InputVarTable &inputVars() { return *table; }

    // Load-time set-up and release of the expression's part.
    void attachExpression();
    void releaseExpression();
    // Writes the editor, the "_n" box and the table from the record.
    void refreshExpression();

    // Takes over the editor's text when it differs from the record's.
    void commitExpression();
    void setAddN(bool on);
    // Checks the record's expression (not the editor's text) on the input
    // variables' values, writing the value and the engine's name.
    void checkRecordExpression();
    // Shows the panel of input variable i in the detail; where its dataset
    // variable offers none and `insert` is set, puts its name with a blank on
    // each side at the caret of the editor instead, the focus going to
    // `focus`. True when the name was inserted.
    bool showOrInsertVariable(int i, bool insert, QWidget *focus);
    // Inserts the call of the function picked in a list of functions at the
    // caret of the editor, and turns the list back to its title.
    void insertFunction(QComboBox *functions, int index);

    // A file name from the dialog, starting at `start` or at the last folder
    // of the user; empty when the dialog is cancelled.
    QString chooseFile(const QString &start, const QString &caption, const QString &filter);

private:
    ExpressionFields fields{};
    ExpressionWidgets widgets{};
    InputVarTable *table = nullptr;
};

// The page of type T in the same window as `page`, or null.
template <typename T>
T *siblingPage(QWidget *page)
{
    return page->window()->findChild<T *>();
}
