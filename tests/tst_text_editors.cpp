#include "edit/text_editors.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QtTest>

namespace {

void wheel(QPlainTextEdit &edit, int delta, Qt::KeyboardModifiers modifiers)
{
    const QPointF at(10, 10);
    QWheelEvent event(at, edit.viewport()->mapToGlobal(at.toPoint()), QPoint(),
                      QPoint(0, delta), Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(edit.viewport(), &event);
}

QString manyLines()
{
    QStringList lines;
    for (int i = 0; i < 300; ++i)
        lines << QStringLiteral("line %1").arg(i);
    return lines.join('\n');
}

} // namespace

class tst_text_editors : public QObject
{
    Q_OBJECT

private slots:
    void zoomSteps_data();
    void zoomSteps();
    void zoomLeavesWidgetFont();
    void wheelWithoutControlScrolls_data();
    void wheelWithoutControlScrolls();
    void editingFinishedAtEveryFocusLoss_data();
    void editingFinishedAtEveryFocusLoss();
    void caretComesBack();
    void caretStartsAtZero();
    void realFocusChange();
};

void tst_text_editors::zoomSteps_data()
{
    QTest::addColumn<int>("startSize"); // -1: a pixel-sized font
    QTest::addColumn<QList<int>>("deltas");
    QTest::addColumn<int>("expected");
    QTest::newRow("in") << 10 << QList<int>{120} << 12;
    QTest::newRow("in twice") << 10 << QList<int>{120, 120} << 14;
    QTest::newRow("step ignores speed") << 10 << QList<int>{960} << 12;
    QTest::newRow("out") << 14 << QList<int>{-120} << 12;
    QTest::newRow("zero delta zooms out") << 14 << QList<int>{0} << 12;
    QTest::newRow("out stops at 10") << 12 << QList<int>{-120, -120, -120} << 10;
    QTest::newRow("out stops at 9") << 13 << QList<int>{-120, -120, -120} << 9;
    QTest::newRow("small counts as 8") << 6 << QList<int>{120} << 10;
    QTest::newRow("small stays on zoom out") << 6 << QList<int>{-120} << 6;
    QTest::newRow("pixel font counts as 8") << -1 << QList<int>{120} << 10;
    QTest::newRow("pixel font stays on zoom out") << -1 << QList<int>{-120} << -1;
}

void tst_text_editors::zoomSteps()
{
    QFETCH(int, startSize);
    QFETCH(QList<int>, deltas);
    QFETCH(int, expected);
    ZoomPlainTextEdit edit;
    QFont font = edit.document()->defaultFont();
    if (startSize > 0)
        font.setPointSize(startSize);
    else
        font.setPixelSize(14);
    edit.document()->setDefaultFont(font);
    for (int delta : deltas)
        wheel(edit, delta, Qt::ControlModifier);
    if (startSize < 0 && expected < 0)
        QCOMPARE(edit.document()->defaultFont().pixelSize(), 14);
    else
        QCOMPARE(edit.document()->defaultFont().pointSize(), expected);
}

void tst_text_editors::zoomLeavesWidgetFont()
{
    KPlainTextEdit edit;
    QFont font = edit.font();
    font.setPointSize(10);
    edit.setFont(font);
    edit.document()->setDefaultFont(font);
    wheel(edit, 120, Qt::ControlModifier);
    wheel(edit, 120, Qt::ControlModifier);
    QCOMPARE(edit.document()->defaultFont().pointSize(), 14);
    QCOMPARE(edit.font().pointSize(), 10);
}

void tst_text_editors::wheelWithoutControlScrolls_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("none") << int(Qt::NoModifier);
    QTest::newRow("control and shift") << int(Qt::ControlModifier | Qt::ShiftModifier);
}

void tst_text_editors::wheelWithoutControlScrolls()
{
    QFETCH(int, modifiers);
    ZoomPlainTextEdit edit;
    edit.resize(300, 150);
    edit.setPlainText(manyLines());
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QFont font = edit.document()->defaultFont();
    font.setPointSize(10);
    edit.document()->setDefaultFont(font);
    QScrollBar *bar = edit.verticalScrollBar();
    bar->setValue(0);
    wheel(edit, -120, Qt::KeyboardModifiers(modifiers));
    QVERIFY(bar->value() > 0);
    QCOMPARE(edit.document()->defaultFont().pointSize(), 10);
}

void tst_text_editors::editingFinishedAtEveryFocusLoss_data()
{
    QTest::addColumn<int>("reason");
    QTest::newRow("tab") << int(Qt::TabFocusReason);
    QTest::newRow("mouse") << int(Qt::MouseFocusReason);
    QTest::newRow("other window") << int(Qt::ActiveWindowFocusReason);
}

void tst_text_editors::editingFinishedAtEveryFocusLoss()
{
    QFETCH(int, reason);
    KPlainTextEdit edit;
    QSignalSpy spy(&edit, &KPlainTextEdit::editingFinished);
    QFocusEvent out(QEvent::FocusOut, Qt::FocusReason(reason));
    QApplication::sendEvent(&edit, &out);
    QCOMPARE(spy.count(), 1); // nothing was typed
    QApplication::sendEvent(&edit, &out);
    QCOMPARE(spy.count(), 2);
}

void tst_text_editors::caretComesBack()
{
    KPlainTextEdit edit;
    edit.setPlainText(QStringLiteral("AGE > 30 && INCOME < 100"));
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(8);
    edit.setTextCursor(cursor);
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&edit, &out);
    QCOMPARE(edit.cursorPosition, 8);

    cursor.setPosition(2);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&edit, &in);
    QCOMPARE(edit.textCursor().position(), 8);
    QVERIFY(!edit.textCursor().hasSelection());
}

void tst_text_editors::caretStartsAtZero()
{
    KPlainTextEdit edit;
    QCOMPARE(edit.cursorPosition, 0);
    edit.setPlainText(QStringLiteral("abc"));
    edit.moveCursor(QTextCursor::End);
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&edit, &in);
    QCOMPARE(edit.textCursor().position(), 0);
}

void tst_text_editors::realFocusChange()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *edit = new KPlainTextEdit(&window);
    auto *other = new QLineEdit(&window);
    layout->addWidget(edit);
    layout->addWidget(other);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSignalSpy spy(edit, &KPlainTextEdit::editingFinished);
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("x > 1"));
    other->setFocus();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(edit->cursorPosition, 5);
    edit->setFocus();
    QCOMPARE(edit->textCursor().position(), 5);
}

QTEST_MAIN(tst_text_editors)
#include "tst_text_editors.moc"
