#include "panels/expression_page.h"

#include "edit/text_editors.h"
#include "expr/language_help.h"
#include "panels/check_expression.h"
#include "panels/expression_insertion.h"
#include "panels/input_var_model.h"
#include "panels/math_parser_help.h"
#include "panels/push_value.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSplitter>
#include <QTabWidget>

void ExpressionPage::setUpExpression(const ExpressionFields &expressionFields,
                                     const ExpressionWidgets &expressionWidgets)
{
    PanelRefreshScope scope(context);
    fields = expressionFields;
    widgets = expressionWidgets;
    widgets.tabs->addTab(new Interface_mathParserHelp, QStringLiteral("Help"));
    table = new InputVarTable(widgets.table, undoStack(), fields.panel, this);
}

void ExpressionPage::attachExpression()
{
    table->attach(cfg(), cfg() ? &(cfg()->*fields.vars) : nullptr);
    widgets.columnsSplit->setSizes({120, 500});
    widgets.varsSplit->setSizes({500, 80});
}

// The detail panel points into the description of the record.
void ExpressionPage::releaseExpression()
{
    table->attach(nullptr, nullptr);
}

void ExpressionPage::refreshExpression()
{
    const CfgModel &record = *cfg();
    KPlainTextEdit *editor = widgets.table.editor;
    if (editor->toPlainText() != record.*fields.expression)
        editor->setPlainText(record.*fields.expression);
    widgets.addN->setChecked(record.*fields.addN);
    table->refresh();
}

void ExpressionPage::commitExpression()
{
    const QString text = widgets.table.editor->toPlainText();
    pushChangedValue(context, fields.expression, text, QString::fromLatin1(fields.expressionText),
                     fields.panel, false);
}

void ExpressionPage::setAddN(bool on)
{
    pushChangedValue(context, fields.addN, on, QString::fromLatin1(fields.addNText), fields.panel,
                     false);
}

void ExpressionPage::checkRecordExpression()
{
    if (!cfg())
        return;
    CfgModel &record = *cfg();
    ExprContext exprContext;
    checkExpression(true, record.*fields.expression, record.*fields.addN, exprContext, nullptr,
                    &(record.*fields.vars), window(), widgets.currentValue, widgets.speed);
}

bool ExpressionPage::showOrInsertVariable(int i, bool insert, QWidget *focus)
{
    table->clearDetail();
    if (i < 0 || i >= table->model()->rowCount() || table->showDetail(i) || !insert)
        return false;
    insertIntoExpression(widgets.table.editor,
                         QLatin1Char(' ') + table->labelOf(i) + QLatin1Char(' '), focus);
    return true;
}

// The first item of a list is its title; the others start with the name of
// a function ("toET (String date to Elapsed time)"). The caret lands between
// the brackets.
void ExpressionPage::insertFunction(QComboBox *functions, int index)
{
    if (index <= 0)
        return;
    const QString name = functionNameOfCall(functions->itemText(index).section(' ', 0, 0));
    KPlainTextEdit *editor = widgets.table.editor;
    insertIntoExpression(editor, name + QStringLiteral("()"), editor, 1);
    functions->setCurrentIndex(0);
}

QString ExpressionPage::chooseFile(const QString &start, const QString &caption,
                                   const QString &filter)
{
    return askOpenFileName(this, caption, start.isEmpty() ? lastDir() : start, filter);
}
