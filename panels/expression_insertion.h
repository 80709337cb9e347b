#pragma once

#include <QString>

class KPlainTextEdit;
class QWidget;

// Inserts `text` at the caret of an expression editor, as plain text, and
// leaves the caret `caretBack` characters before the end of it. `focus`, when
// given, gets the keyboard focus first. The caret is also the one that the
// editor puts back when it next gets the focus, so the insertion is not lost
// to the editor's own memory of its caret.
void insertIntoExpression(KPlainTextEdit *editor, const QString &text, QWidget *focus,
                          int caretBack = 0);
