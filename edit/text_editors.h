#pragma once

#include <QPlainTextEdit>

// A plain text edit that zooms its document with Ctrl and the mouse wheel.
// Only the document's default font changes, never the widget's.
class ZoomPlainTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ZoomPlainTextEdit(QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *e) override;
};

// An expression editor: tells the end of an edit as a line edit does, and
// keeps the caret across a loss of focus.
class KPlainTextEdit : public ZoomPlainTextEdit
{
    Q_OBJECT

public:
    explicit KPlainTextEdit(QWidget *parent = nullptr);

    // Caret position at the last loss of focus.
    int cursorPosition = 0;

signals:
    // At every loss of focus, also when nothing was typed: receivers compare
    // the text themselves.
    void editingFinished();

protected:
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;
};
