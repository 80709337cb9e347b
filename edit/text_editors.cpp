#include "edit/text_editors.h"

#include <QFocusEvent>
#include <QTextCursor>
#include <QWheelEvent>

namespace {

// Zooming never goes below this point size; the step is fixed so that it
// does not depend on the speed of the wheel.
constexpr int minimumPointSize = 8;
constexpr int zoomStep = 2;

} // namespace

ZoomPlainTextEdit::ZoomPlainTextEdit(QWidget *parent) : QPlainTextEdit(parent) {}

void ZoomPlainTextEdit::wheelEvent(QWheelEvent *e)
{
    if (e->modifiers() != Qt::ControlModifier) {
        QPlainTextEdit::wheelEvent(e);
        return;
    }
    QFont font = document()->defaultFont();
    // A pixel-sized font answers -1 and counts as the smallest size.
    const int size = qMax(font.pointSize(), minimumPointSize);
    const int zoomed = e->angleDelta().y() > 0 ? size + zoomStep : size - zoomStep;
    if (zoomed > minimumPointSize) {
        font.setPointSize(zoomed);
        document()->setDefaultFont(font);
    }
    e->accept();
}

KPlainTextEdit::KPlainTextEdit(QWidget *parent) : ZoomPlainTextEdit(parent) {}

void KPlainTextEdit::focusInEvent(QFocusEvent *e)
{
    // The caret of the last loss of focus comes back; a click that gives
    // the focus moves it afterwards.
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, cursorPosition, document()->characterCount() - 1));
    setTextCursor(cursor);
    ZoomPlainTextEdit::focusInEvent(e);
}

void KPlainTextEdit::focusOutEvent(QFocusEvent *e)
{
    cursorPosition = textCursor().position();
    if (e->type() == QEvent::FocusOut)
        emit editingFinished();
    ZoomPlainTextEdit::focusOutEvent(e);
}
