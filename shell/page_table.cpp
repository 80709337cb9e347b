#include "shell/page_table.h"

#include "panels/page.h"

#include <QTabWidget>

PageTable::PageTable(QTabWidget *tabs) : tabs(tabs)
{
}

void PageTable::add(int number, QWidget *widget, const QString &title)
{
    Q_ASSERT(number == widgets.size());
    widgets.append(widget);
    pages.append(qobject_cast<Page *>(widget));
    tabs->addTab(widget, title);
}

void PageTable::add(int number, Page *page)
{
    add(number, page, page->windowTitle());
}

bool PageTable::isShown(int number) const
{
    return tabs->indexOf(widget(number)) >= 0;
}

int PageTable::currentNumber() const
{
    const QWidget *current = tabs->currentWidget();
    for (int i = qMin(widgets.size() - 1, 9); i >= 0; --i) {
        if (widgets.at(i) == current)
            return i;
    }
    return -1;
}

void PageTable::show(int number) const
{
    tabs->setCurrentWidget(widget(number));
}

bool PageTable::refresh(int number)
{
    Page *page = pages.value(number);
    if (!page)
        return false;
    page->refresh();
    return true;
}

void PageTable::setUpAfterLoad()
{
    for (Page *page : qAsConst(pages)) {
        if (page)
            page->setUpAfterLoad();
    }
}

void PageTable::releaseRecord()
{
    for (Page *page : qAsConst(pages)) {
        if (page)
            page->releaseRecord();
    }
}

void PageTable::setOptionalTabsEnabled(bool enabled)
{
    for (int i = 1; i < tabs->count(); ++i)
        tabs->setTabEnabled(i, enabled);
}

void PageTable::toggle(int number, const QString &title)
{
    if (isShown(number)) {
        hide(number);
        return;
    }
    for (int before = number - 1; before >= 0; --before) {
        const int at = tabs->indexOf(widget(before));
        if (at >= 0) {
            tabs->insertTab(at + 1, widget(number), title);
            return;
        }
    }
}

void PageTable::hide(int number)
{
    const int at = tabs->indexOf(widget(number));
    if (at >= 0)
        tabs->removeTab(at);
}
