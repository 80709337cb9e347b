#include "panels/check_expression.h"

#include "core/reporter.h"

#include <QLabel>
#include <QLineEdit>

namespace {

void reportFailure(QWidget *, const QString &message)
{
    reportMessage(MessageIcon::Critical, QStringLiteral("Math Parser Error"), message);
}

ExpressionErrorDialog errorDialog = reportFailure;

} // namespace

void setExpressionErrorDialog(ExpressionErrorDialog dialog)
{
    errorDialog = dialog ? dialog : reportFailure;
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
