// The page "Select Variables" driven through its real controls in the
// window: the two tables with their models and filters, every button, the
// commands they push, and the bytes a save writes afterwards.

#include "panels/my_table_model_editor.h"
#include "panels/my_table_model_editor_dp.h"
#include "panels/select_variables_page.h"
#include "shell/var_list_window.h"
#include "window_test_support.h"
#include "window_test_main.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTabWidget>

namespace {

// Rows of the golden description, in order: age (RTT, PASSTHROUGH, three
// dummies), income (RTT, PASSTHROUGH), purpose (RTT, two dummies), has_phone
// and default_flag (RTT each).
enum Row { AgeRtt = 0, AgePass = 1, AgeDummy1 = 2, AgeDummy2 = 3, AgeDummy3 = 4, IncomeRtt = 5,
           IncomePass = 6, PurposeRtt = 7, PurposeDummy1 = 8, PurposeDummy2 = 9, PhoneRtt = 10,
           FlagRtt = 11, RowCount = 12 };

QString fiOf(const CfgModel *cfg)
{
    QString text;
    for (int i = 0; i < cfg->columnCount(); ++i)
        text += cfg->fi[i] ? QChar::fromLatin1(cfg->fi[i]) : QLatin1Char('0');
    return text;
}

QString monotoOf(const CfgModel *cfg)
{
    QString text;
    for (int i = 0; i < cfg->columnCount(); ++i)
        text += QChar::fromLatin1(cfg->monoto[i]);
    return text;
}

} // namespace

class tst_select_variables_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void columnsRolesAndHeaders();
    void editableCells();
    void noRecordNoRows();
    void modelsUnderTester();
    void ignoreCellKeepsFApart();
    void monotonicityCell();
    void ignoreWithoutSelection();
    void ignoreOfIgnoredRowsMerges();
    void monotonicityOnlyOnRtt();
    void activateAndMonotonicityButtons();
    void sortedTableKeepsPairing();
    void patternSwitchesFilterOn();
    void patternNoWildcardMatchesNothing();
    void listFilterInverted();
    void emptyListPassesEverything();
    void rowCounterFollowsFilters();
    void smartActivate();
    void smartActivateWithNothingToDo();
    void selectAllToggles();
    void basicLevelKeepsFirstTab();
    void refreshPushesNothing();
    void savedBytesCarryTheEditsAlone();

    void minSizeCellShowsGeneralValue();
    void minSizeCellSameNumberPushesNothing();
    void cellTextsShowTheValueTwice();
    void coloursFollowDeparture();
    void discretizationOverDummiesIsEmpty();
    void centerMissingPressesStaySeparate();
    void penaltyPressesMerge();

private:
    QuvaCfgXMLEditor &window() { return *w; }
    SelectVariablesPage *page() { return static_cast<SelectVariablesPage *>(w->pageTable().widget(4)); }
    MyTable *view() { return childOf<MyTable>(page(), "tableView"); }
    MyTable *viewDP() { return childOf<MyTable>(page(), "tableViewDP"); }
    QAbstractItemModel *proxy() { return view()->model(); }
    QAbstractItemModel *proxyDP() { return viewDP()->model(); }
    CfgModel *cfg() { return w->cfg(); }
    QUndoStack *stack() { return w->undoStack(); }
    void click(const char *name) { QTest::mouseClick(childOf<QPushButton>(page(), name), Qt::LeftButton); }
    // Selects the proxy rows of a table.
    void select(MyTable *table, const QVector<int> &rows)
    {
        table->clearSelection();
        selectRows(table, rows);
    }
    // Proxy row that shows the source row `row`.
    int proxyRowOf(MyTable *table, int row)
    {
        auto *p = static_cast<QSortFilterProxyModel *>(table->model());
        return p->mapFromSource(p->sourceModel()->index(row, 0)).row();
    }
    // The second tab in view, as only an advanced user has it.
    void showDP()
    {
        setAdvancedUser(true);
        show();
        w->updatePanelIdx(4);
        childOf<QTabWidget>(page(), "tabWidgetVar")->setCurrentIndex(1);
    }
    void show()
    {
        w->resize(1200, 800);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        w->pageTable().show(4);
    }

    WindowTestSupport support;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_select_variables_page::initTestCase()
{
    support.install();
}

void tst_select_variables_page::cleanupTestCase()
{
    w.reset();
    support.uninstall();
}

void tst_select_variables_page::init()
{
    w.reset();
    support.reset();
    support.copy("pages/golden.DescXML", "golden.DescXML");
    cfgPath = support.copy("pages/vars.CfgXML", "vars.CfgXML");
    w = support.openWindow(cfgPath);
    QVERIFY(cfg());
    QCOMPARE(cfg()->columnCount(), int(RowCount));
}

void tst_select_variables_page::columnsRolesAndHeaders()
{
    QAbstractItemModel *m = page()->activationModel();
    QCOMPARE(m->rowCount(), int(RowCount));
    QCOMPARE(m->columnCount(), 8);
    const QStringList headers{"Recoding", "Univ.Imp.", "Variable Name", "Modality", "Group",
                              "Monotonicity", "Ignore", "Illustrative"};
    for (int c = 0; c < 8; ++c) {
        QCOMPARE(m->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString(), headers.at(c));
        QCOMPARE(m->headerData(c, Qt::Horizontal, Qt::EditRole).toString(), headers.at(c));
        QVERIFY(!m->headerData(c, Qt::Horizontal, Qt::ToolTipRole).isValid());
    }
    QVERIFY(!m->headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    QCOMPARE(m->index(AgeRtt, 0).data().toString(), QStringLiteral("RTT"));
    QCOMPARE(m->index(AgePass, 0).data().toString(), QStringLiteral("PASSTHROUGH"));
    QCOMPARE(m->index(AgeDummy1, 0).data().toString(), QStringLiteral("Dummy"));
    QCOMPARE(m->index(AgeRtt, 1).data().toDouble(), 0.61);
    QCOMPARE(m->index(IncomeRtt, 2).data().toString(), QStringLiteral("Monthly income"));
    QCOMPARE(m->index(PurposeDummy1, 3).data().toString(), QStringLiteral("Car"));
    QCOMPARE(m->index(PurposeRtt, 4).data().toString(), QStringLiteral("PURPOSE"));
    // Monotonicity: 1 increasing, 0 none, 3 where there is none to have.
    QCOMPARE(m->index(IncomeRtt, 5).data().toInt(), 1);
    QCOMPARE(m->index(AgeRtt, 5).data().toInt(), 0);
    QCOMPARE(m->index(AgePass, 5).data().toInt(), 3);
    QCOMPARE(m->index(AgeDummy1, 6).data().toBool(), true);
    QCOMPARE(m->index(AgeDummy3, 6).data().toBool(), false); // 'F' is not ignored
    QCOMPARE(m->index(AgeRtt, 7).data().toBool(), false);
    QVERIFY(!m->index(AgeRtt, 2).data(Qt::EditRole).isValid());
    QVERIFY(!m->index(AgeRtt, 6).data(Qt::EditRole).isValid());
    QVERIFY(!m->index(AgeRtt, 0).data(Qt::BackgroundRole).isValid());

    QAbstractItemModel *dp = page()->discretizationModel();
    const QStringList dpHeaders{"CenterMissing", "MinSizeModality", "Penality"};
    for (int c = 5; c < 8; ++c)
        QCOMPARE(dp->headerData(c, Qt::Horizontal).toString(), dpHeaders.at(c - 5));
    QCOMPARE(dp->index(AgeRtt, 2).data().toString(), QStringLiteral("Age"));
}

void tst_select_variables_page::editableCells()
{
    QAbstractItemModel *m = page()->activationModel();
    for (int c = 0; c < 5; ++c)
        QVERIFY(!(m->flags(m->index(AgeRtt, c)) & Qt::ItemIsEditable));
    QVERIFY(m->flags(m->index(AgeRtt, 5)) & Qt::ItemIsEditable);
    QVERIFY(!(m->flags(m->index(AgePass, 5)) & Qt::ItemIsEditable));
    QVERIFY(m->flags(m->index(AgeDummy1, 6)) & Qt::ItemIsEditable);
    QVERIFY(m->flags(m->index(AgeDummy1, 7)) & Qt::ItemIsEditable);
    QAbstractItemModel *dp = page()->discretizationModel();
    QVERIFY(dp->flags(dp->index(PurposeRtt, 5)) & Qt::ItemIsEditable);
    QVERIFY(!(dp->flags(dp->index(PurposeDummy1, 5)) & Qt::ItemIsEditable));
    QVERIFY(dp->flags(dp->index(PurposeRtt, 6)) & Qt::ItemIsEditable);
    QVERIFY(!(dp->flags(dp->index(AgePass, 6)) & Qt::ItemIsEditable));
    QVERIFY(dp->flags(dp->index(AgePass, 7)) & Qt::ItemIsEditable);
}

void tst_select_variables_page::noRecordNoRows()
{
    QuvaCfgXMLEditor empty;
    auto *p = static_cast<SelectVariablesPage *>(empty.pageTable().widget(4));
    QCOMPARE(p->activationModel()->rowCount(), 0);
    QCOMPARE(p->discretizationModel()->rowCount(), 0);
    QVERIFY(!p->activationModel()->index(0, 0).data().isValid());
    QCOMPARE(childOf<QLabel>(p, "lNLine")->text(), QStringLiteral("0"));
    // The buttons have nothing to work on.
    QTest::mouseClick(childOf<QPushButton>(p, "pbIgnore"), Qt::LeftButton);
    QTest::mouseClick(childOf<QPushButton>(p, "pbSmartActivate"), Qt::LeftButton);
    QCOMPARE(empty.undoStack()->count(), 0);
}

void tst_select_variables_page::modelsUnderTester()
{
    using Mode = QAbstractItemModelTester::FailureReportingMode;
    QAbstractItemModelTester t1(page()->activationModel(), Mode::QtTest);
    QAbstractItemModelTester t2(page()->discretizationModel(), Mode::QtTest);
    QAbstractItemModelTester t3(proxy(), Mode::QtTest);
    QAbstractItemModelTester t4(proxyDP(), Mode::QtTest);
    show();
    select(view(), {AgeDummy1, AgeDummy2});
    click("pbActivate");
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("*age*"));
    view()->columnClicked(2);
    page()->activationModel()->setData(page()->activationModel()->index(AgeRtt, 7), true,
                                       Qt::EditRole);
    stack()->undo();
    stack()->redo();
    window().openConfigFile(cfgPath, false); // a new record, the old one released
    QVERIFY(!QTest::currentTestFailed());
}

// 'F' shows unchecked; checking writes 'I', and unchecking blank, not 'F'.
void tst_select_variables_page::ignoreCellKeepsFApart()
{
    show();
    const QModelIndex cell = proxy()->index(proxyRowOf(view(), AgeDummy3), 6);
    QCOMPARE(cell.data().toBool(), false);
    const QPoint at = view()->visualRect(cell).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(cfg()->fi[AgeDummy3], 'I');
    QCOMPARE(stack()->text(0), QStringLiteral("ignoring 'Age'|F=>I"));
    const QModelIndex again = proxy()->index(proxyRowOf(view(), AgeDummy3), 6);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, view()->visualRect(again).center());
    QCOMPARE(cfg()->fi[AgeDummy3], ' ');
    QCOMPARE(stack()->text(1), QStringLiteral("activating 'Age'|I=> "));
    QCOMPARE(stack()->count(), 2); // never merged
    // A right click leaves the box alone.
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, view()->visualRect(again).center());
    QCOMPARE(stack()->count(), 2);
}

void tst_select_variables_page::monotonicityCell()
{
    MyTableModelEditor *m = page()->activationModel();
    QVERIFY(m->setData(m->index(AgeRtt, 5), 2, Qt::EditRole));
    QCOMPARE(cfg()->monoto[AgeRtt], 'D');
    QVERIFY(m->setData(m->index(AgeRtt, 5), 1, Qt::EditRole));
    QCOMPARE(cfg()->monoto[AgeRtt], 'I');
    QVERIFY(m->setData(m->index(AgeRtt, 5), 0, Qt::EditRole));
    QCOMPARE(cfg()->monoto[AgeRtt], ' ');
    QVERIFY(!m->setData(m->index(AgeRtt, 5), 3, Qt::EditRole));
    QVERIFY(!m->setData(m->index(AgeRtt, 5), 1, Qt::DisplayRole));
    QVERIFY(m->setData(m->index(AgeRtt, 5), 0, Qt::EditRole)); // no comparison: pushed again
    QCOMPARE(stackTexts(stack()),
             (QStringList{"decreasing monotonicity for 'Age'|N=>D",
                          "increasing monotonicity for 'Age'|D=>I",
                          "no monotonicity for 'Age'|I=> ", "no monotonicity for 'Age'| => "}));
    QVERIFY(m->setData(m->index(AgeRtt, 7), true, Qt::EditRole));
    QCOMPARE(stack()->text(4), QStringLiteral("'Age' is illustrative|0=>1"));
    QVERIFY(m->setData(m->index(AgeRtt, 7), false, Qt::EditRole));
    QCOMPARE(stack()->text(5), QStringLiteral("'Age' is not illustrative|1=>0"));
}

void tst_select_variables_page::ignoreWithoutSelection()
{
    show();
    const QString before = fiOf(cfg());
    click("pbIgnore");
    QCOMPARE(stackTexts(stack()), QStringList{"ignore selected"});
    QCOMPARE(fiOf(cfg()), before);
    QVERIFY(!stack()->isClean());
}

void tst_select_variables_page::ignoreOfIgnoredRowsMerges()
{
    show();
    select(view(), {proxyRowOf(view(), AgeDummy1), proxyRowOf(view(), AgeDummy2)});
    click("pbIgnore");
    select(view(), {proxyRowOf(view(), AgeDummy1), proxyRowOf(view(), AgeDummy2)});
    click("pbIgnore");
    QCOMPARE(stackTexts(stack()), QStringList{"ignore selected - grouped"});
}

void tst_select_variables_page::monotonicityOnlyOnRtt()
{
    show();
    QVector<int> rows;
    for (int r : {AgeRtt, AgePass, AgeDummy1, AgeDummy2, AgeDummy3, IncomeRtt})
        rows << proxyRowOf(view(), r);
    std::sort(rows.begin(), rows.end());
    select(view(), rows);
    click("pbMonoInc");
    QCOMPARE(monotoOf(cfg()), QStringLiteral("INNNNINNNNNN"));
    QCOMPARE(stack()->text(0), QStringLiteral("Monotonicity Increasing"));
    // The selection outlives the reset.
    QCOMPARE(selectedRows(view()), rows);
}

void tst_select_variables_page::activateAndMonotonicityButtons()
{
    show();
    select(view(), {proxyRowOf(view(), AgeDummy1)});
    click("pbActivate");
    QCOMPARE(cfg()->fi[AgeDummy1], ' ');
    select(view(), {proxyRowOf(view(), AgeRtt)});
    click("pbMonoDec");
    QCOMPARE(cfg()->monoto[AgeRtt], 'D');
    click("pbMonoNone");
    QCOMPARE(cfg()->monoto[AgeRtt], ' ');
    // The same rows again: the second press merges into the first.
    QCOMPARE(stackTexts(stack()),
             (QStringList{"activate selected", "Monotonicity Decreasing - grouped"}));
    stack()->undo();
    stack()->undo();
    QCOMPARE(cfg()->fi[AgeDummy1], 'I');
    QCOMPARE(cfg()->monoto[AgeRtt], 'N');
}

// Sorting moves the rows of the view, never their pairing with the record.
void tst_select_variables_page::sortedTableKeepsPairing()
{
    show();
    view()->columnClicked(2); // ascending by name
    view()->columnClicked(2); // descending
    const QModelIndex first = proxy()->index(0, 2);
    QCOMPARE(first.data().toString(), QStringLiteral("Monthly income"));
    select(view(), {0, 1});
    click("pbIgnore");
    QCOMPARE(cfg()->fi[IncomeRtt], 'I');
    QCOMPARE(cfg()->fi[IncomePass], 'I');
    QCOMPARE(cfg()->fi[AgeRtt], 0);
    // A cell edited in the sorted view lands on its own row too.
    const QModelIndex phone = proxy()->index(proxyRowOf(view(), PhoneRtt), 7);
    QCOMPARE(phone.sibling(phone.row(), 2).data().toString(), QStringLiteral("Has phone"));
    QVERIFY(proxy()->setData(phone, true, Qt::EditRole));
    QVERIFY(cfg()->illus[PhoneRtt]);
    // And the same through a filter.
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("BINARY.*"));
    QCOMPARE(proxy()->rowCount(), 2);
    select(view(), {proxyRowOf(view(), FlagRtt)});
    click("pbMonoInc");
    QCOMPARE(cfg()->monoto[FlagRtt], 'I');
    QCOMPARE(cfg()->monoto[PhoneRtt], 'N');
    // The third click gives back the order of the description.
    view()->columnClicked(2);
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("*"));
    QCOMPARE(proxy()->index(0, 2).data().toString(), QStringLiteral("Age"));
}

void tst_select_variables_page::patternSwitchesFilterOn()
{
    auto *box = childOf<QCheckBox>(page(), "cbSelector1");
    auto *edit = childOf<QLineEdit>(page(), "leSelector1");
    QVERIFY(!box->isChecked());
    QTest::keyClicks(edit, "*age*");
    QVERIFY(box->isChecked());
    QCOMPARE(proxy()->rowCount(), 5);
    QCOMPARE(proxyDP()->rowCount(), 5);
    // Off by the user, on again by the next text.
    QTest::mouseClick(box, Qt::LeftButton);
    QCOMPARE(proxy()->rowCount(), int(RowCount));
    QTest::keyClicks(edit, "x");
    QVERIFY(box->isChecked());
    QCOMPARE(proxy()->rowCount(), 0);
    // Cleared, the filter stays on and the empty pattern matches nothing.
    edit->clear();
    QVERIFY(box->isChecked());
    QCOMPARE(proxy()->rowCount(), 0);
    QCOMPARE(childOf<QLabel>(page(), "lNLine")->text(), QStringLiteral("0"));
    // Inverted: everything.
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbInvert1"), Qt::LeftButton);
    QCOMPARE(proxy()->rowCount(), int(RowCount));
    // The second filter on top of the first.
    QTest::keyClicks(childOf<QLineEdit>(page(), "leSelector2"), "*.dummy.*");
    QVERIFY(childOf<QCheckBox>(page(), "cbSelector2")->isChecked());
    QCOMPARE(proxy()->rowCount(), 5);
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbInvert2"), Qt::LeftButton);
    QCOMPARE(proxy()->rowCount(), 7);
    QCOMPARE(stack()->count(), 0);
}

void tst_select_variables_page::patternNoWildcardMatchesNothing()
{
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("[abc"));
    QCOMPARE(proxy()->rowCount(), 0);
    QVERIFY(support.questions.isEmpty());
}

void tst_select_variables_page::listFilterInverted()
{
    support.dialogAction = [](QDialog *dialog) {
        childOf<QPlainTextEdit>(dialog, "pteVarList")->setPlainText("Age\nGROUP.RTT.Default\n");
        QTest::mouseClick(childOf<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
        return int(QDialog::Accepted);
    };
    click("pbChooseLookUp");
    QCOMPARE(support.dialogs.size(), 1);
    // The list does not switch filter 3 on by itself.
    QVERIFY(!childOf<QCheckBox>(page(), "cbSelector3")->isChecked());
    QCOMPARE(proxy()->rowCount(), int(RowCount));
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbSelector3"), Qt::LeftButton);
    // By label: the five rows of Age; by full name: BINARY.RTT.Default.
    const QString flagName = columnFullName(*cfg()->desc->columnAt(FlagRtt));
    support.dialogAction = [flagName](QDialog *dialog) {
        childOf<QPlainTextEdit>(dialog, "pteVarList")->setPlainText("Age\n" + flagName);
        QTest::mouseClick(childOf<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
        return int(QDialog::Accepted);
    };
    click("pbChooseLookUp");
    QCOMPARE(proxy()->rowCount(), 6);
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbInvert3"), Qt::LeftButton);
    QCOMPARE(proxy()->rowCount(), 6);
    for (int r = 0; r < proxy()->rowCount(); ++r) {
        const QString label = proxy()->index(r, 2).data().toString();
        QVERIFY(label != QLatin1String("Age") && label != QLatin1String("Default"));
    }
    // By label only: the full name no longer counts.
    support.dialogAction = [](QDialog *dialog) {
        childOf<QCheckBox>(dialog, "cbColumnName")->setChecked(false);
        QTest::mouseClick(childOf<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
        return int(QDialog::Accepted);
    };
    click("pbChooseLookUp");
    QCOMPARE(proxy()->rowCount(), 7);
}

void tst_select_variables_page::emptyListPassesEverything()
{
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbSelector3"), Qt::LeftButton);
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbInvert3"), Qt::LeftButton);
    QCOMPARE(proxy()->rowCount(), int(RowCount));
    // A list of names that match nothing hides every row, without a word.
    support.dialogAction = [](QDialog *dialog) {
        childOf<QPlainTextEdit>(dialog, "pteVarList")->setPlainText("nobody");
        QTest::mouseClick(childOf<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
        return int(QDialog::Accepted);
    };
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbInvert3"), Qt::LeftButton);
    click("pbChooseLookUp");
    QCOMPARE(proxy()->rowCount(), 0);
    QVERIFY(support.questions.isEmpty());
}

void tst_select_variables_page::rowCounterFollowsFilters()
{
    auto *counter = childOf<QLabel>(page(), "lNLine");
    QCOMPARE(counter->text(), QString::number(RowCount));
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("*.RTT.*"));
    QCOMPARE(counter->text(), QStringLiteral("5"));
    QTest::mouseClick(childOf<QCheckBox>(page(), "cbSelector1"), Qt::LeftButton);
    QCOMPARE(counter->text(), QStringLiteral("12"));
}

void tst_select_variables_page::smartActivate()
{
    // Age: RTT active, two dummies ignored, one 'F'. Purpose: wholly ignored.
    cfg()->fi[IncomePass] = 'I';
    click("pbSmartActivate");
    QCOMPARE(stackTexts(stack()), QStringList{"smart activate"});
    QCOMPARE(cfg()->fi[AgeDummy1], ' ');
    QCOMPARE(cfg()->fi[AgeDummy2], ' ');
    QCOMPARE(cfg()->fi[AgeDummy3], 'F');
    QCOMPARE(cfg()->fi[IncomePass], ' ');
    for (int r : {PurposeRtt, PurposeDummy1, PurposeDummy2})
        QCOMPARE(cfg()->fi[r], 'I');
    // The filters and the selection play no part.
    stack()->undo();
    childOf<QLineEdit>(page(), "leSelector1")->setText(QStringLiteral("*.PASSTHROUGH.*"));
    click("pbSmartActivate");
    QCOMPARE(cfg()->fi[AgeDummy1], ' ');
}

void tst_select_variables_page::smartActivateWithNothingToDo()
{
    for (int r : {AgeDummy1, AgeDummy2})
        cfg()->fi[r] = ' ';
    click("pbSmartActivate");
    QCOMPARE(stack()->count(), 0);
}

void tst_select_variables_page::selectAllToggles()
{
    show();
    click("pbAllChoose");
    QCOMPARE(selectedRows(view()).size(), int(RowCount));
    QCOMPARE(selectedRows(viewDP()).size(), int(RowCount));
    click("pbAllChoose");
    QVERIFY(selectedRows(view()).isEmpty());
    QVERIFY(selectedRows(viewDP()).isEmpty());
    setAdvancedUser(true);
    w->updatePanelIdx(4);
    childOf<QTabWidget>(page(), "tabWidgetVar")->setCurrentIndex(1);
    click("pbSelectAllAdv");
    QCOMPARE(selectedRows(view()).size(), int(RowCount));
    click("pbSelectAllAdv");
    QVERIFY(selectedRows(viewDP()).isEmpty());
}

void tst_select_variables_page::basicLevelKeepsFirstTab()
{
    auto *tabs = childOf<QTabWidget>(page(), "tabWidgetVar");
    QCOMPARE(tabs->tabText(0), QStringLiteral("Activate/Ignore Recoding - Monotonicity"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Discretization - Penalization"));
    setAdvancedUser(true);
    w->updatePanelIdx(4);
    QVERIFY(tabs->isTabEnabled(1));
    tabs->setCurrentIndex(1);
    setAdvancedUser(false);
    w->updatePanelIdx(4);
    QVERIFY(!tabs->isTabEnabled(1));
    QCOMPARE(tabs->currentIndex(), 0);
}

void tst_select_variables_page::refreshPushesNothing()
{
    show();
    setAdvancedUser(true);
    for (int i = 0; i < 3; ++i) {
        w->updatePanelIdx(4);
        w->updatePanelIdx(7);
    }
    w->openConfigFile(cfgPath, false);
    w->pageTable().show(4);
    QCOMPARE(stack()->count(), 0);
    QVERIFY(stack()->isClean());
}

// Clicks through the real controls, then a save: the file differs from the
// one saved before by the changed attributes alone, and undoing everything
// writes the first bytes again.
void tst_select_variables_page::savedBytesCarryTheEditsAlone()
{
    show();
    setAdvancedUser(true);
    w->updatePanelIdx(4);
    QVERIFY(w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(cfgPath);
    QVERIFY(before.contains("<Var loc='2' fi='I'/>"));

    select(view(), {proxyRowOf(view(), AgeDummy1)});
    click("pbActivate");
    select(view(), {proxyRowOf(view(), PhoneRtt)});
    click("pbMonoDec");
    const QModelIndex illus = proxy()->index(proxyRowOf(view(), FlagRtt), 7);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, view()->visualRect(illus).center());
    childOf<QTabWidget>(page(), "tabWidgetVar")->setCurrentIndex(1);
    select(viewDP(), {proxyRowOf(viewDP(), PurposeRtt)});
    childOf<QLineEdit>(page(), "leDiscretization")->setText(QStringLiteral("25"));
    click("pbSetDiscretization");
    click("pbCenterMissings");
    select(viewDP(), {proxyRowOf(viewDP(), IncomePass)});
    childOf<QLineEdit>(page(), "lePenality")->setText(QStringLiteral("2.5"));
    click("pbSetPenality");
    QCOMPARE(stack()->count(), 6);
    QVERIFY(w->saveConfig(false));

    QByteArray expected = before;
    expected.replace("<Var loc='2' fi='I'/>", "");
    expected.replace("<Var loc='7' fi='I'/>",
                     "<Var loc='6' penality='2.5'/><Var loc='7' fi='I' minSizeModality='25' cm='1'/>");
    expected.replace("<Var loc='9' fi='I'/>",
                     "<Var loc='9' fi='I'/><Var loc='10' monoto='D'/><Var loc='11' illus='1'/>");
    QCOMPARE(WindowTestSupport::bytes(cfgPath), expected);

    while (stack()->canUndo())
        stack()->undo();
    QVERIFY(w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(cfgPath), before);
}

// --- the second tab --------------------------------------------------------

void tst_select_variables_page::minSizeCellShowsGeneralValue()
{
    MyTableModelEditorDP *dp = page()->discretizationModel();
    // The nominal general value for a nominal variable, the ordered one for a
    // numeric variable, nothing for a row that opens no variable.
    QCOMPARE(dp->index(PurposeRtt, 6).data().toString(), QStringLiteral("10.0"));
    QCOMPARE(dp->index(AgeRtt, 6).data().toString(), QStringLiteral("-50"));
    QCOMPARE(dp->index(PhoneRtt, 6).data().toString(), QStringLiteral("10.0"));
    QVERIFY(!dp->index(AgeDummy1, 6).data().isValid());
    cfg()->minSizeModality[AgeRtt] = 7;
    QCOMPARE(dp->index(AgeRtt, 6).data().toDouble(), 7.0);
}

void tst_select_variables_page::minSizeCellSameNumberPushesNothing()
{
    MyTableModelEditorDP *dp = page()->discretizationModel();
    QVERIFY(!dp->setData(dp->index(PurposeRtt, 6), QStringLiteral("10"), Qt::EditRole));
    QCOMPARE(stack()->count(), 0);
    QVERIFY(dp->setData(dp->index(PurposeRtt, 6), QStringLiteral("12"), Qt::EditRole));
    QCOMPARE(cfg()->minSizeModality[PurposeRtt], 12.0);
    // Once a size of its own is set, the same number is pushed again.
    QVERIFY(dp->setData(dp->index(PurposeRtt, 6), QStringLiteral("12"), Qt::EditRole));
    QCOMPARE(stack()->count(), 2);
    QVERIFY(!dp->setData(dp->index(PurposeRtt, 7), QStringLiteral("1"), Qt::EditRole));
    QVERIFY(!dp->setData(dp->index(PurposeRtt, 5), false, Qt::EditRole));
    QCOMPARE(stack()->count(), 2);
}

void tst_select_variables_page::cellTextsShowTheValueTwice()
{
    MyTableModelEditorDP *dp = page()->discretizationModel();
    QVERIFY(dp->setData(dp->index(AgeRtt, 5), true, Qt::EditRole));
    QVERIFY(dp->setData(dp->index(AgeRtt, 6), QStringLiteral("30"), Qt::EditRole));
    QVERIFY(dp->setData(dp->index(AgeRtt, 7), QStringLiteral("0.5"), Qt::EditRole));
    QCOMPARE(stackTexts(stack()),
             (QStringList{"centermissing=1 for '1'|0=>1", "minSizeModality=30 for '30'|-1=>30",
                          "penality=0.5 for '0.5'|1=>0.5"}));
}

void tst_select_variables_page::coloursFollowDeparture()
{
    setAdvancedUser(true);
    show();
    MyTableModelEditorDP *dp = page()->discretizationModel();
    QVERIFY(!dp->index(AgeRtt, 6).data(Qt::BackgroundRole).isValid());
    QVERIFY(!dp->index(AgeRtt, 7).data(Qt::BackgroundRole).isValid());
    QVERIFY(dp->setData(dp->index(AgeRtt, 6), QStringLiteral("30"), Qt::EditRole));
    QVERIFY(dp->setData(dp->index(AgeRtt, 7), QStringLiteral("2"), Qt::EditRole));
    QCOMPARE(dp->index(AgeRtt, 6).data(Qt::BackgroundRole).value<QColor>().rgba(), 0xffa6ffa6u);
    QCOMPARE(dp->index(AgeRtt, 7).data(Qt::BackgroundRole).value<QColor>().rgba(), 0xffa2ecffu);
    childOf<QTabWidget>(page(), "tabWidgetVar")->setCurrentIndex(1);
    select(viewDP(), {proxyRowOf(viewDP(), AgeRtt)});
    click("pbSetPenalityTo1");
    QVERIFY(!dp->index(AgeRtt, 7).data(Qt::BackgroundRole).isValid());
    click("pbResetMinModalitySize");
    QVERIFY(!dp->index(AgeRtt, 6).data(Qt::BackgroundRole).isValid());
    QCOMPARE(cfg()->minSizeModality[AgeRtt], -1.0);
    QCOMPARE(stack()->text(3), QStringLiteral("reset MinModalitySize"));
}

void tst_select_variables_page::discretizationOverDummiesIsEmpty()
{
    showDP();
    select(viewDP(), {proxyRowOf(viewDP(), AgeDummy1), proxyRowOf(viewDP(), AgeDummy2)});
    childOf<QLineEdit>(page(), "leDiscretization")->setText(QStringLiteral("40"));
    click("pbSetDiscretization");
    QCOMPARE(stackTexts(stack()), QStringList{"set MinModalitySizes to 40"});
    QCOMPARE(cfg()->minSizeModality[AgeDummy1], -1.0);
    auto *command = dynamic_cast<const UpdateTemplateVector2Command<double> *>(stack()->command(0));
    QVERIFY(command);
    QVERIFY(command->targets.isEmpty());
}

void tst_select_variables_page::centerMissingPressesStaySeparate()
{
    showDP();
    select(viewDP(), {proxyRowOf(viewDP(), AgeRtt), proxyRowOf(viewDP(), AgeDummy1)});
    click("pbCenterMissings");
    click("pbCenterMissings");
    QCOMPARE(stackTexts(stack()),
             (QStringList{"set CenterMissings to 1", "set CenterMissings to 1"}));
    QVERIFY(cfg()->cm[AgeRtt]);
    QVERIFY(!cfg()->cm[AgeDummy1]); // a dummy carries no centring
    click("pbUnCenterMissings");
    QCOMPARE(stack()->text(2), QStringLiteral("set CenterMissings to 0"));
    QVERIFY(!cfg()->cm[AgeRtt]);
}

// Two presses on one selection whose rows already hold the value are one
// entry: both commands run over no row, and two empty lists agree. After a
// press that did change rows, the next one runs over no row and so stands
// alone.
void tst_select_variables_page::penaltyPressesMerge()
{
    showDP();
    cfg()->penality[AgeRtt] = 0.0;
    cfg()->penality[AgeDummy1] = 0.0;
    select(viewDP(), {proxyRowOf(viewDP(), AgeRtt), proxyRowOf(viewDP(), AgeDummy1)});
    click("pbSetPenalityTo0");
    click("pbSetPenalityTo0");
    QCOMPARE(stackTexts(stack()), QStringList{"set penalities to 0 - grouped"});
    click("pbSetPenalityTo1");
    QCOMPARE(cfg()->penality[AgeDummy1], 1.0);
    click("pbSetPenalityTo1");
    QCOMPARE(stackTexts(stack()), (QStringList{"set penalities to 0 - grouped",
                                               "set penalities to 1", "set penalities to 1"}));
    stack()->undo();
    stack()->undo();
    QCOMPARE(cfg()->penality[AgeDummy1], 0.0);
}

QUVA_WINDOW_TEST_MAIN(tst_select_variables_page)
#include "tst_select_variables_page.moc"
