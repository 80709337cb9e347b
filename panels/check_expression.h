#pragma once

#include "expr/parser_facade.h"

#include <QString>
#include <QVector>

class QLabel;
class QLineEdit;
class QWidget;

// The expression check as the target and line-selection panels call it: runs
// checkExpressionCore, writes the value ("true", "false" or "") into
// `currentValueEdit` and the engine's name into `speedLabel`, and on failure
// shows the message when `showDialog` is set. Returns true when the
// expression failed. `reserved` is never read.
bool checkExpression(bool showDialog, QString expression, bool addN, ExprContext &context,
                     void *reserved, QVector<InputVar> *inputVars, QWidget *parent,
                     QLineEdit *currentValueEdit, QLabel *speedLabel);

// Shows the failure of a check, modally, on `parent`.
using ExpressionErrorDialog = void (*)(QWidget *parent, const QString &message);

// Replaces the way a failure is shown; null restores the default, the
// dialog Interface_MathParserCheck run modally through runModal() of
// shell/gui_reporter.h. Tests answer that dialog through the modal hook
// there, like every other dialog of the program.
void setExpressionErrorDialog(ExpressionErrorDialog dialog);
