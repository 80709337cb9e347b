#include "panels/check_expression.h"

#include "panels/math_parser_check.h"
#include "shell/gui_reporter.h"

#include <QLabel>
#include <QLineEdit>

namespace {

// The dialog lives for one run; its answer is not read.
void showCheckDialog(QWidget *parent, const QString &message)
{
    Interface_MathParserCheck dialog(message, parent);
    runModal(&dialog);
}

ExpressionErrorDialog errorDialog = showCheckDialog;

} // namespace

void setExpressionErrorDialog(ExpressionErrorDialog dialog)
{
    errorDialog = dialog ? dialog : showCheckDialog;
}

bool checkExpression(bool showDialog, QString expression, bool addN, ExprContext &context,
                     void *reserved, QVector<InputVar> *inputVars, QWidget *parent,
                     QLineEdit *currentValueEdit, QLabel *speedLabel)
{
    Q_UNUSED(reserved)
    const ExpressionCheck check = checkExpressionCore(expression, addN, context, inputVars);
    if (currentValueEdit)
        currentValueEdit->setText(check.valueText);
    if (speedLabel)
        speedLabel->setText(check.engineLabel);
    if (check.failed && showDialog)
        errorDialog(parent, check.message);
    return check.failed;
}
