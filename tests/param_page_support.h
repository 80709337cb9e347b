#pragma once

// What the tests of the parameter pages share: the window opened on a
// small record whose values are the defaults, one page in view as an
// advanced user gets it, and the user's gestures on its controls.

#include "edit/undo_commands.h"
#include "window_test_support.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>

#include <qwt_scale_div.h>
#include <qwt_slider.h>

class ParamPageFixture
{
public:
    // Opens the record and brings page `number` into view, through its
    // menu action when the page is out of the row.
    void open(int number, const char *action)
    {
        pageNumber = number;
        w.reset();
        support.reset();
        support.copy("pages/golden.DescXML", "golden.DescXML");
        cfgPath = support.copy("pages/vars.CfgXML", "vars.CfgXML");
        w = support.openWindow(cfgPath);
        setAdvancedUser(true);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        if (action && !w->pageTable().isShown(number))
            w->findChild<QAction *>(action)->trigger();
        w->pageTable().show(number);
    }

    // The window goes, and the hooks with it: the end of a test program.
    void close()
    {
        w.reset();
        support.uninstall();
    }

    QWidget *page() const { return w->pageTable().widget(pageNumber); }
    template <typename T> T *control(const char *name) const { return childOf<T>(page(), name); }
    CfgModel *cfg() const { return w->cfg(); }
    QUndoStack *stack() const { return w->undoStack(); }
    // Shows what the record holds after it was changed behind the page's back.
    void refresh() const { w->updatePanelIdx(pageNumber); }

    // Types into a line edit and leaves it, as a user does.
    void type(const char *name, const QString &text) const
    {
        auto *edit = control<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Tab);
    }

    // Clicks a check box or radio button on its indicator, which a click in
    // the middle of a wide button with a short text would miss.
    static void click(QAbstractButton *button)
    {
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
    }
    template <typename T = QAbstractButton> void click(const char *name) const
    {
        click(control<T>(name));
    }

    // Presses the handle at `from`, moves it to `to` with the button held and
    // lets go. Returns the values the slider reported while moving, so that
    // a test can tell that the gesture reached the handle.
    static QList<double> drag(QwtSlider *slider, double from, double to)
    {
        QSignalSpy moved(slider, &QwtSlider::sliderMoved);
        const int y = slider->height() / 4; // the handle sits above the scale
        const QPoint start(int(slider->transform(from)), y);
        const QPoint end(int(slider->transform(to)), y);
        QTest::mousePress(slider, Qt::LeftButton, {}, start);
        QMouseEvent move(QEvent::MouseMove, end, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(slider, &move);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, end);
        QList<double> values;
        for (const QList<QVariant> &args : moved)
            values << args.at(0).toDouble();
        return values;
    }

    WindowTestSupport support;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
    int pageNumber = 0;
};
