#include "panels/expression_insertion.h"

#include "edit/text_editors.h"

#include <QTextCursor>

void insertIntoExpression(KPlainTextEdit *editor, const QString &text, QWidget *focus,
                          int caretBack)
{
    if (focus)
        focus->setFocus(Qt::OtherFocusReason);
    QTextCursor cursor = editor->textCursor();
    cursor.insertText(text);
    cursor.movePosition(QTextCursor::Left, QTextCursor::MoveAnchor, caretBack);
    editor->setTextCursor(cursor);
    editor->cursorPosition = cursor.position();
}
