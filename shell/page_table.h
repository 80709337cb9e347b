#pragma once

#include <QVector>

class Page;
class QString;
class QTabWidget;
class QWidget;

// The pages of the window by number, 0 to 10, and the row of tabs that
// shows them. A number is also the panel of every undo command (PageNumber).
// The optional pages may be out of the row; their number stays theirs.
class PageTable
{
public:
    explicit PageTable(QTabWidget *tabs = nullptr);

    // Appends the widget as page `number` and as a tab, under `title`.
    void add(int number, QWidget *widget, const QString &title);
    // Appends a page of the parameter row, under its window title.
    void add(int number, Page *page);

    QWidget *widget(int number) const { return widgets.value(number); }
    int count() const { return widgets.size(); }
    int numberOf(QWidget *widget) const { return widgets.indexOf(widget); }
    bool isShown(int number) const;

    // Number of the page in view. The scan runs from the apply page down to
    // the first, so the log page, like no page at all, gives -1.
    int currentNumber() const;
    void show(int number) const;

    // Refreshes page `number`; false when it has no refresh (the apply and
    // log pages, or a number of no page).
    bool refresh(int number);
    // The set-up of every page after a load, in the order of the row.
    void setUpAfterLoad();
    // Every page lets go of the record that is about to go.
    void releaseRecord();
    // Enables or disables every tab but the first.
    void setOptionalTabsEnabled(bool enabled);

    // Removes the page's tab when it is shown; otherwise inserts it right
    // behind the nearest page before it that is shown, so that the order of
    // the row holds however pages come and go. Page 0 is always shown.
    void toggle(int number, const QString &title);
    void hide(int number);

private:
    QTabWidget *tabs;
    QVector<QWidget *> widgets;
    QVector<Page *> pages; // null where a page has no refresh
};
