// The short form of the modes on the run page, which every user sees: the
// two presets, Smart Activate on a performance run, and the mode shown from
// the record's values.

#include "param_page_support.h"

#include <QCheckBox>
#include <QRadioButton>

class tst_create_model_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { f.support.install(); }
    void init()
    {
        f.open(PageCreateModel, nullptr);
        setAdvancedUser(false);
    }
    void cleanupTestCase() { f.close(); }

    void controlsAsBuilt();
    void shownMode();
    void performanceWithoutSmartActivateIsThreeChanges();
    void performanceWithSmartActivateActivatesRows();
    void performanceWithNothingToActivate();
    void standardAfterPerformanceKeepsLimit_data();
    void standardAfterPerformanceKeepsLimit();
    void clickOnModeInForceKeepsIt();
    void smartActivateCheckedAgainAtLoad();
    void refreshPushesNothing();
    void undoingAPresetShowsTheRunPage();

private:
    void setPenalization(double lambda, double alpha, int pruning, int maxVar)
    {
        f.cfg()->lambda = lambda;
        f.cfg()->alpha = alpha;
        f.cfg()->pruning = pruning;
        f.cfg()->nMaxVar = maxVar;
        f.refresh();
    }
    QRadioButton *perform() { return f.control<QRadioButton>("rbModelPerform_2"); }
    QRadioButton *standard() { return f.control<QRadioButton>("rbModelStandard_2"); }
    QCheckBox *smart() { return f.control<QCheckBox>("cbSmartActivate"); }

    ParamPageFixture f;
};

void tst_create_model_page::controlsAsBuilt()
{
    QCOMPARE(perform()->text(), QStringLiteral("Performance/Efficiency\n(with many variables)"));
    QCOMPARE(standard()->text(), QStringLiteral("Insight\n(with few variables)"));
    QVERIFY(!perform()->autoExclusive());
    QVERIFY(!standard()->autoExclusive());
    QCOMPARE(smart()->text(), QStringLiteral("Use Smart Activate\nfor Performance Mode"));
    QVERIFY(smart()->isChecked());
}

void tst_create_model_page::shownMode()
{
    setPenalization(-1.0, -1.0, 0, 12);
    QVERIFY(perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(!perform()->isChecked());
    QVERIFY(standard()->isChecked());
    setPenalization(-1.0, 1.0, 2, 25);
    QVERIFY(!standard()->isChecked());
    setPenalization(-1.0, 1.0, 3, 30); // high quality shows as neither
    QVERIFY(!perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    QCOMPARE(f.stack()->count(), 0);
}

void tst_create_model_page::performanceWithoutSmartActivateIsThreeChanges()
{
    setPenalization(-1.0, 1.0, 2, 30);
    ParamPageFixture::click(smart());
    QVERIFY(!smart()->isChecked());
    ParamPageFixture::click(perform());
    QCOMPARE(stackTexts(f.stack()), QStringList{"performance mode"});
    QCOMPARE(f.stack()->command(0)->childCount(), 3);
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(f.cfg()->alpha, -1.0);
    QVERIFY(perform()->isChecked());
    QVERIFY(!standard()->isChecked());
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageCreateModel));
}

// The record's age dummies 2 and 3 are ignored beside an active one.
void tst_create_model_page::performanceWithSmartActivateActivatesRows()
{
    setPenalization(-1.0, 1.0, 2, 30);
    QCOMPARE(f.cfg()->fi[2], 'I');
    QCOMPARE(f.cfg()->fi[3], 'I');
    ParamPageFixture::click(perform());
    QCOMPARE(f.stack()->count(), 1);
    const QUndoCommand *group = f.stack()->command(0);
    QCOMPARE(group->childCount(), 4);
    QCOMPARE(group->child(3)->text(), QStringLiteral("smart activate"));
    QCOMPARE(f.cfg()->fi[2], ' ');
    QCOMPARE(f.cfg()->fi[3], ' ');
    QCOMPARE(f.cfg()->fi[7], 'I'); // a wholly ignored variable stays
    f.stack()->undo();
    QCOMPARE(f.cfg()->fi[2], 'I');
    QCOMPARE(f.cfg()->fi[3], 'I');
    QCOMPARE(f.cfg()->pruning, 2);
}

void tst_create_model_page::performanceWithNothingToActivate()
{
    for (int i = 0; i < f.cfg()->columnCount(); ++i)
        f.cfg()->fi[i] = 0;
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(smart()->isChecked());
    ParamPageFixture::click(perform());
    QCOMPARE(f.stack()->count(), 1);
    QCOMPARE(f.stack()->command(0)->childCount(), 3);
}

void tst_create_model_page::standardAfterPerformanceKeepsLimit_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("12") << 12 << 12;
    QTest::newRow("none") << -1 << 30;
}

void tst_create_model_page::standardAfterPerformanceKeepsLimit()
{
    QFETCH(int, before);
    QFETCH(int, after);
    setPenalization(0.1, 0.5, 1, before);
    ParamPageFixture::click(perform());
    QCOMPARE(f.cfg()->nMaxVar, before);
    ParamPageFixture::click(standard());
    QCOMPARE(f.cfg()->nMaxVar, after);
    QCOMPARE(f.cfg()->pruning, 2);
    QCOMPARE(f.cfg()->alpha, 1.0);
    QCOMPARE(stackTexts(f.stack()), (QStringList{"performance mode", "standard mode"}));
    QVERIFY(!perform()->isChecked());
    QCOMPARE(standard()->isChecked(), after == 30);
}

void tst_create_model_page::clickOnModeInForceKeepsIt()
{
    setPenalization(-1.0, -1.0, 0, 30);
    QVERIFY(perform()->isChecked());
    ParamPageFixture::click(perform());
    QVERIFY(perform()->isChecked());
    QCOMPARE(f.stack()->count(), 0);
}

void tst_create_model_page::smartActivateCheckedAgainAtLoad()
{
    ParamPageFixture::click(smart());
    QVERIFY(!smart()->isChecked());
    f.w->openConfigFile(f.cfgPath, false);
    QVERIFY(smart()->isChecked());
}

void tst_create_model_page::refreshPushesNothing()
{
    for (const char *fixture : {"core/defaults.CfgXML", "core/root_changed.CfgXML",
                                "core/vars.CfgXML", "pages/vars.CfgXML"}) {
        f.support.copy("core/golden.DescXML", "golden.DescXML");
        f.w->openConfigFile(f.support.copy(fixture, "f.CfgXML"), false);
        QVERIFY2(f.cfg(), fixture);
        f.refresh();
        QCOMPARE(f.stack()->count(), 0);
    }
}

// The preset's commands carry the run page's number. An undo shows the page
// of the command left on top, so undoing the second of two presets from
// another page brings the run page back into view.
void tst_create_model_page::undoingAPresetShowsTheRunPage()
{
    setPenalization(-1.0, 1.0, 2, 30);
    ParamPageFixture::click(perform());
    ParamPageFixture::click(standard());
    QCOMPARE(f.stack()->count(), 2);
    f.w->pageTable().show(PageSelectVariables);
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageSelectVariables));
    f.stack()->undo();
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageCreateModel));
    QVERIFY(perform()->isChecked());
}

QTEST_MAIN(tst_create_model_page)
#include "tst_create_model_page.moc"
