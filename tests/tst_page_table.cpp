// The table of pages: numbers, the row of tabs, the refresh of one page,
// the set-up after a load in the order of the row, and the optional pages
// coming and going at their places.

#include "panels/page.h"
#include "shell/page_table.h"

#include <QTabWidget>
#include <QUndoStack>
#include <QtTest>

namespace {

class NoRecord final : public PageContext
{
public:
    CfgModel *cfg() const override { return nullptr; }
    QUndoStack *undoStack() const override { return &stack; }
    bool targetEditable() const override { return false; }
    bool writeRecord() override { return false; }
    mutable QUndoStack stack;
};

// A page that writes down what is asked of it, and whether the guard was up.
class TracePage final : public Page
{
public:
    TracePage(PageContext &context, const QString &title, QStringList *trace)
        : Page(context), trace(trace)
    {
        setWindowTitle(title);
    }
    void setUpAfterLoad() override { *trace << "setUp " + windowTitle(); }

private:
    void refreshControls() override
    {
        *trace << QStringLiteral("refresh %1 %2").arg(windowTitle()).arg(updatingPanel());
    }
    QStringList *trace;
};

} // namespace

class tst_page_table : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowAndNumbers();
    void currentNumberSkipsLogPage();
    void refreshOnePage();
    void setUpInOrder();
    void togglesKeepOrder();
    void optionalTabsEnabled();

private:
    NoRecord context;
    std::unique_ptr<QTabWidget> tabs;
    PageTable table;
    QStringList trace;
};

void tst_page_table::init()
{
    tabs = std::make_unique<QTabWidget>();
    table = PageTable(tabs.get());
    trace.clear();
    context.setUpdatingPanel(false);
    for (int i = 0; i < 9; ++i)
        table.add(i, new TracePage(context, QStringLiteral("p%1").arg(i), &trace));
    table.add(9, new QWidget, QStringLiteral("apply"));
    table.add(10, new QWidget, QStringLiteral("log"));
}

void tst_page_table::rowAndNumbers()
{
    QCOMPARE(table.count(), 11);
    QCOMPARE(tabs->count(), 11);
    QCOMPARE(tabs->tabText(3), QStringLiteral("p3"));
    QCOMPARE(tabs->tabText(10), QStringLiteral("log"));
    QCOMPARE(table.numberOf(table.widget(7)), 7);
    QCOMPARE(table.widget(11), nullptr);
}

void tst_page_table::currentNumberSkipsLogPage()
{
    tabs->setCurrentIndex(9);
    QCOMPARE(table.currentNumber(), 9);
    tabs->setCurrentIndex(10);
    QCOMPARE(table.currentNumber(), -1);
    table.show(4);
    QCOMPARE(table.currentNumber(), 4);
}

void tst_page_table::refreshOnePage()
{
    QVERIFY(table.refresh(2));
    QCOMPARE(trace, QStringList{"refresh p2 1"});
    QVERIFY(!context.updatingPanel()); // given back after the refresh
    QVERIFY(!table.refresh(9));
    QVERIFY(!table.refresh(10));
    QVERIFY(!table.refresh(-1));
    QCOMPARE(trace.size(), 1);
}

void tst_page_table::setUpInOrder()
{
    table.setUpAfterLoad();
    QCOMPARE(trace, (QStringList{"setUp p0", "setUp p1", "setUp p2", "setUp p3", "setUp p4",
                                 "setUp p5", "setUp p6", "setUp p7", "setUp p8"}));
}

void tst_page_table::togglesKeepOrder()
{
    for (int i : {7, 3, 2, 1})
        table.hide(i);
    QCOMPARE(tabs->count(), 7);
    table.toggle(3, QStringLiteral("three"));
    QCOMPARE(tabs->indexOf(table.widget(3)), 1);
    QCOMPARE(tabs->tabText(1), QStringLiteral("three"));
    table.toggle(1, QStringLiteral("one"));
    table.toggle(7, QStringLiteral("seven"));
    QCOMPARE(tabs->indexOf(table.widget(1)), 1);
    QCOMPARE(tabs->indexOf(table.widget(3)), 2);
    QCOMPARE(tabs->indexOf(table.widget(7)), 6);
    table.toggle(3, QString());
    QVERIFY(!table.isShown(3));
    QCOMPARE(tabs->indexOf(table.widget(4)), 2);
}

void tst_page_table::optionalTabsEnabled()
{
    table.setOptionalTabsEnabled(false);
    QVERIFY(tabs->isTabEnabled(0));
    for (int i = 1; i < tabs->count(); ++i)
        QVERIFY(!tabs->isTabEnabled(i));
    table.setOptionalTabsEnabled(true);
    for (int i = 0; i < tabs->count(); ++i)
        QVERIFY(tabs->isTabEnabled(i));
}

QTEST_MAIN(tst_page_table)
#include "tst_page_table.moc"
