// The page "Model Parameters (1)" driven through its controls in the
// window: the three modes, alpha and lambda, the pruning, the allowed loss
// and the pair of quality weights that keep their order.

#include "param_page_support.h"
#include "window_test_main.h"

#include <QCheckBox>
#include <QRadioButton>

class tst_model_param1_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { f.support.install(); }
    void init() { f.open(PageModelParam1, "actionModelParameters1"); }
    void cleanupTestCase() { f.close(); }

    void defaultsShowStandardMode();
    void standardWithOwnLimitPushesNothing();
    void standardAfterPerformanceGivesThirty();
    void modeIsOneEntryAndUndoShowsItsPage();
    void highQualityMode();
    void lambdaMaxVarSetsThirtyAgain();
    void lambdaMaxVarNeedsPureLasso_data();
    void lambdaMaxVarNeedsPureLasso();
    void lambdaMaxVarRangeGrowsNeverShrinks();
    void lambdaMaxVarAndModelMaxShareField();
    void lambdaUser();
    void alphaPercentAndMerge();
    void alphaRadios();
    void thirdOptim();
    void pruningRadios();
    void allowedLossBounds_data();
    void allowedLossBounds();
    void weightDragPushesPartner();
    void weightStayingOnItsSideIsSingle();
    void weightGroupDoesNotMerge();
    void weightFullTyped();
    void refreshPushesNothing();
    void savedBytesAndUndo();

private:
    void setPenalization(double lambda, double alpha, int pruning, int maxVar)
    {
        f.cfg()->lambda = lambda;
        f.cfg()->alpha = alpha;
        f.cfg()->pruning = pruning;
        f.cfg()->nMaxVar = maxVar;
        f.refresh();
    }
    bool checked(const char *name) { return f.control<QRadioButton>(name)->isChecked(); }

    ParamPageFixture f;
};

void tst_model_param1_page::defaultsShowStandardMode()
{
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(checked("rbModelStandard"));
    QVERIFY(checked("rbLambdaMaxVar"));
    QVERIFY(checked("rbAlphaUser"));
    QVERIFY(checked("rbPruningFast"));
    QCOMPARE(f.control<QLineEdit>("leLambdaUser")->text(), QStringLiteral("-100"));
    QVERIFY(!f.control<QLineEdit>("leLambdaUser")->isEnabled());
    QCOMPARE(f.control<QLineEdit>("leAlpha")->text(), QStringLiteral("100"));
    auto *s = f.control<QwtSlider>("sAlpha");
    QVERIFY(!s->isTracking());
    QCOMPARE(s->orientation(), Qt::Horizontal);
    QVERIFY(s->hasGroove());
    QVERIFY(!s->hasTrough());
    QCOMPARE(s->maximum(), 100.0);
    QCOMPARE(f.stack()->count(), 0);
    // 25 variables: no mode is shown, though a click would change nothing.
    setPenalization(-1.0, 1.0, 2, 25);
    QVERIFY(!checked("rbModelStandard"));
    QVERIFY(!checked("rbModelPerform"));
    QVERIFY(!checked("rbModelHighQuality"));
}

void tst_model_param1_page::standardWithOwnLimitPushesNothing()
{
    setPenalization(-1.0, 1.0, 2, 12);
    f.click("rbModelStandard");
    QCOMPARE(f.stack()->count(), 0);
    QCOMPARE(f.cfg()->nMaxVar, 12);
}

void tst_model_param1_page::standardAfterPerformanceGivesThirty()
{
    setPenalization(-1.0, 1.0, 2, 12);
    f.click("rbModelPerform");
    QCOMPARE(f.cfg()->nMaxVar, -1);
    QCOMPARE(f.cfg()->alpha, -1.0);
    QCOMPARE(f.cfg()->pruning, 0);
    QVERIFY(checked("rbModelPerform"));
    f.click("rbModelStandard");
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(f.cfg()->alpha, 1.0);
    QCOMPARE(f.cfg()->pruning, 2);
    QCOMPARE(stackTexts(f.stack()), (QStringList{"performance mode", "standard mode"}));
    QVERIFY(checked("rbModelStandard"));
}

void tst_model_param1_page::modeIsOneEntryAndUndoShowsItsPage()
{
    setPenalization(-1.0, 1.0, 2, 30);
    f.click("rbModelPerform");
    QCOMPARE(f.stack()->count(), 1);
    QCOMPARE(f.stack()->command(0)->childCount(), 4);
    f.click("rbModelHighQuality");
    f.w->pageTable().show(PageSelectVariables);
    f.stack()->undo();
    QCOMPARE(f.w->pageTable().currentNumber(), int(PageModelParam1));
    QVERIFY(checked("rbModelPerform"));
    f.stack()->undo();
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(f.cfg()->alpha, 1.0);
    QCOMPARE(f.cfg()->pruning, 2);
}

void tst_model_param1_page::highQualityMode()
{
    setPenalization(0.3, 0.5, 0, -1);
    f.click("rbModelHighQuality");
    QCOMPARE(f.cfg()->lambda, -1.0);
    QCOMPARE(f.cfg()->alpha, 1.0);
    QCOMPARE(f.cfg()->pruning, 3);
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(stackTexts(f.stack()), QStringList{"high quality mode"});
    QVERIFY(checked("rbModelHighQuality"));
}

void tst_model_param1_page::lambdaMaxVarSetsThirtyAgain()
{
    setPenalization(-1.0, 1.0, 2, 25);
    QVERIFY(checked("rbLambdaMaxVar"));
    f.click("rbLambdaMaxVar");
    QCOMPARE(f.cfg()->nMaxVar, 30);
    QCOMPARE(stackTexts(f.stack()), QStringList{"Lambda max var"});
    f.click("rbLambdaMaxVar");
    QCOMPARE(f.stack()->count(), 1);
}

void tst_model_param1_page::lambdaMaxVarNeedsPureLasso_data()
{
    QTest::addColumn<double>("alpha");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("lasso") << 1.0 << true;
    QTest::newRow("nearly") << 0.99 << false;
    QTest::newRow("ridge") << 0.0 << false;
    QTest::newRow("optimal") << -1.0 << false;
}

void tst_model_param1_page::lambdaMaxVarNeedsPureLasso()
{
    QFETCH(double, alpha);
    QFETCH(bool, enabled);
    setPenalization(-1.0, alpha, 2, 30);
    QCOMPARE(f.control<QRadioButton>("rbLambdaMaxVar")->isEnabled(), enabled);
    QCOMPARE(f.control<QwtSlider>("sLambdaMaxVar")->isEnabled(), enabled);
}

void tst_model_param1_page::lambdaMaxVarRangeGrowsNeverShrinks()
{
    auto *s = f.control<QwtSlider>("sLambdaMaxVar");
    QCOMPARE(s->maximum(), 100.0);
    setPenalization(-1.0, 1.0, 2, 150);
    QCOMPARE(s->maximum(), 150.0);
    QCOMPARE(s->minimum(), 5.0);
    QCOMPARE(s->value(), 150.0);
    QCOMPARE(f.control<QLineEdit>("leLambdaMaxVar")->text(), QStringLiteral("150"));
    setPenalization(-1.0, 1.0, 2, 40);
    QCOMPARE(s->maximum(), 150.0);
    QCOMPARE(s->value(), 40.0);
    QCOMPARE(f.stack()->count(), 0);
}

void tst_model_param1_page::lambdaMaxVarAndModelMaxShareField()
{
    setPenalization(-1.0, 1.0, 2, 30);
    QVERIFY(!ParamPageFixture::drag(f.control<QwtSlider>("sLambdaMaxVar"), 30, 50).isEmpty());
    const int chosen = f.cfg()->nMaxVar;
    QVERIFY(chosen > 30);
    QCOMPARE(f.stack()->text(0), QStringLiteral("lambda|30=>%1").arg(chosen));
    QWidget *other = f.w->pageTable().widget(PageModelParam2);
    QVERIFY(childOf<QLineEdit>(other, "leModelMax")->text() != QString::number(chosen));
    f.w->findChild<QAction *>("actionModelParameters2")->trigger();
    f.w->pageTable().show(PageModelParam2);
    other = f.w->pageTable().widget(PageModelParam2);
    QCOMPARE(childOf<QwtSlider>(other, "sModelMax")->value(), double(chosen));
    QCOMPARE(childOf<QLineEdit>(other, "leModelMax")->text(), QString::number(chosen));
}

void tst_model_param1_page::lambdaUser()
{
    setPenalization(-1.0, 1.0, 2, 30);
    f.click("rbLambdaUser");
    QCOMPARE(f.cfg()->lambda, 0.0);
    QCOMPARE(f.cfg()->nMaxVar, -1);
    QCOMPARE(stackTexts(f.stack()), QStringList{"lambda"});
    QVERIFY(f.control<QLineEdit>("leLambdaUser")->isEnabled());
    f.type("leLambdaUser", "2.5");
    QCOMPARE(f.cfg()->lambda, 0.025);
    QCOMPARE(f.stack()->text(1), QStringLiteral("lambda|0=>0.025"));
    f.click("rbLambdaOptimal");
    QCOMPARE(f.cfg()->lambda, -1.0);
    QCOMPARE(f.stack()->text(2), QStringLiteral("Lambda optimal"));
}

void tst_model_param1_page::alphaPercentAndMerge()
{
    auto *slider = f.control<QwtSlider>("sAlpha");
    emit slider->sliderMoved(42.0);
    QCOMPARE(f.control<QLineEdit>("leAlpha")->text(), QStringLiteral("42"));
    QCOMPARE(f.stack()->count(), 0);
    QVERIFY(!ParamPageFixture::drag(slider, 100, 60).isEmpty());
    const double dragged = f.cfg()->alpha;
    QVERIFY(dragged < 1.0);
    f.type("leAlpha", "37.5");
    QCOMPARE(f.cfg()->alpha, 0.375);
    QCOMPARE(stackTexts(f.stack()), QStringList{"alpha|1=>0.375 - grouped"});
    QCOMPARE(slider->value(), 37.0);
    f.type("leAlpha", "abc");
    QCOMPARE(f.cfg()->alpha, 0.0);
}

void tst_model_param1_page::alphaRadios()
{
    f.click("rbAlphaOptimal");
    QCOMPARE(f.cfg()->alpha, -1.0);
    QVERIFY(!f.control<QwtSlider>("sAlpha")->isEnabled());
    QCOMPARE(f.control<QLineEdit>("leAlpha")->text(), QStringLiteral("-100"));
    f.click("rbAlphaUser");
    QCOMPARE(f.cfg()->alpha, 1.0);
    f.click("rbAlphaUser");
    QCOMPARE(stackTexts(f.stack()), (QStringList{"optimal alpha|1=>-1", "alpha|-1=>1"}));
}

void tst_model_param1_page::thirdOptim()
{
    f.click<QCheckBox>("cbThirdOptim");
    f.click<QCheckBox>("cbThirdOptim");
    QCOMPARE(stackTexts(f.stack()), (QStringList{"thirdOptim|0=>1", "thirdOptim|1=>0"}));
}

void tst_model_param1_page::pruningRadios()
{
    setPenalization(-1.0, 0.5, 1, 30);
    f.click("rbPruningSlow");
    QCOMPARE(f.cfg()->pruning, 3);
    QCOMPARE(f.cfg()->alpha, 0.5); // slow pruning leaves alpha
    f.click("rbPruningFast");
    QCOMPARE(f.cfg()->pruning, 2);
    QCOMPARE(f.cfg()->alpha, 1.0); // fast pruning goes with pure lasso
    f.click("rbPruningNo");
    f.click("rbPruningImportanceNo");
    f.click("rbPruningImportanceNo");
    QCOMPARE(stackTexts(f.stack()), (QStringList{"pruning slow|1=>3", "pruning fast",
                                                 "no pruning|2=>0", "no pruning importance|0=>1"}));
    QCOMPARE(f.stack()->command(1)->childCount(), 2);
    f.cfg()->pruning = 7;
    f.refresh();
    for (const char *b : {"rbPruningNo", "rbPruningImportanceNo", "rbPruningFast", "rbPruningSlow"})
        QVERIFY2(!checked(b), b);
}

void tst_model_param1_page::allowedLossBounds_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("stored");
    QTest::addColumn<bool>("refused");
    QTest::newRow("100") << "100" << 1.0 << false;
    QTest::newRow("100.5") << "100.5" << 0.02 << true;
    QTest::newRow("-20") << "-20" << -0.2 << false;
    QTest::newRow("-20.5") << "-20.5" << 0.02 << true;
    QTest::newRow("5") << "5" << 0.05 << false;
}

void tst_model_param1_page::allowedLossBounds()
{
    QFETCH(QString, typed);
    QFETCH(double, stored);
    QFETCH(bool, refused);
    f.type("leAllowedAUCLost", typed);
    QCOMPARE(f.cfg()->allowedAUCLoss, stored);
    QCOMPARE(f.support.questions.size(), refused ? 1 : 0);
    QCOMPARE(f.stack()->count(), refused ? 0 : 1);
    if (refused) {
        QCOMPARE(f.support.questions.first(),
                 QStringLiteral("This parameter must be between : -20 and 100."));
        QCOMPARE(f.control<QLineEdit>("leAllowedAUCLost")->text(), QStringLiteral("2"));
    } else {
        QCOMPARE(f.stack()->text(0), QStringLiteral("allowedAUCLoss|0.02=>%1").arg(stored));
    }
}

void tst_model_param1_page::weightDragPushesPartner()
{
    auto *none = f.control<QwtSlider>("sAUCWeightNone");
    auto *full = f.control<QwtSlider>("sAUCWeightFull");
    QCOMPARE(none->value(), 45.0);
    QCOMPARE(full->value(), 20.0);
    emit none->sliderMoved(15.0);
    QCOMPARE(full->value(), 15.0);
    QCOMPARE(f.control<QLineEdit>("leAUCWeightFull")->text(), QStringLiteral("15"));
    QCOMPARE(f.stack()->count(), 0);
    emit none->valueChanged(15.0); // the release
    QCOMPARE(f.cfg()->p2, 0.15);
    QCOMPARE(f.cfg()->p1, 0.15);
    QCOMPARE(stackTexts(f.stack()), QStringList{"AUC Weight none"});
    const QUndoCommand *group = f.stack()->command(0);
    QCOMPARE(group->childCount(), 2);
    QCOMPARE(group->child(0)->text(), QStringLiteral("AUC Weight none|0.45=>0.15"));
    QCOMPARE(group->child(1)->text(), QStringLiteral("AUC Weight none part 2|0.2=>0.15"));
    f.stack()->undo();
    QCOMPARE(f.cfg()->p2, 0.45);
    QCOMPARE(f.cfg()->p1, 0.2);
    QCOMPARE(full->value(), 20.0);
}

void tst_model_param1_page::weightStayingOnItsSideIsSingle()
{
    QVERIFY(!ParamPageFixture::drag(f.control<QwtSlider>("sAUCWeightNone"), 45, 70).isEmpty());
    QVERIFY(f.cfg()->p2 > 0.45);
    QCOMPARE(f.cfg()->p1, 0.2);
    QCOMPARE(f.stack()->count(), 1);
    QCOMPARE(f.stack()->command(0)->childCount(), 0);
    emit f.control<QwtSlider>("sAUCWeightNone")->valueChanged(80.0);
    QCOMPARE(stackTexts(f.stack()), QStringList{"AUC Weight none|0.45=>0.8 - grouped"});
}

void tst_model_param1_page::weightGroupDoesNotMerge()
{
    auto *full = f.control<QwtSlider>("sAUCWeightFull");
    emit full->sliderMoved(60.0);
    emit full->valueChanged(60.0);
    QCOMPARE(f.cfg()->p1, 0.6);
    QCOMPARE(f.cfg()->p2, 0.6);
    QCOMPARE(stackTexts(f.stack()), QStringList{"AUC Weight full"});
    QCOMPARE(f.stack()->command(0)->child(1)->text(),
             QStringLiteral("AUC Weight full part 2|0.45=>0.6"));
    emit full->valueChanged(30.0);
    QCOMPARE(stackTexts(f.stack()), (QStringList{"AUC Weight full", "AUC Weight full|0.6=>0.3"}));
}

// A typed partner of 45.5 goes through a whole percent when pushed along.
void tst_model_param1_page::weightFullTyped()
{
    f.cfg()->p2 = 0.455;
    f.refresh();
    QCOMPARE(f.control<QLineEdit>("leAUCWeightNone")->text(), QStringLiteral("45.5"));
    f.type("leAUCWeightFull", "50");
    QCOMPARE(f.cfg()->p1, 0.5);
    QCOMPARE(f.cfg()->p2, 0.5);
    f.stack()->undo();
    f.type("leAUCWeightFull", "30");
    QCOMPARE(f.cfg()->p1, 0.3);
    QCOMPARE(f.cfg()->p2, 0.45); // truncated partner
    QCOMPARE(f.stack()->command(0)->childCount(), 2);
}

void tst_model_param1_page::refreshPushesNothing()
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

void tst_model_param1_page::savedBytesAndUndo()
{
    QVERIFY(f.w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(f.cfgPath);
    f.click("rbModelPerform");
    f.type("leAllowedAUCLost", "5");
    QVERIFY(f.w->saveConfig(false));
    const QByteArray after = WindowTestSupport::bytes(f.cfgPath);
    QVERIFY(after.contains("nMaxVar='-1'"));
    QVERIFY(after.contains("pruning='0'"));
    QVERIFY(after.contains("allowedAUCLoss='0.05"));
    while (f.stack()->canUndo())
        f.stack()->undo();
    QVERIFY(f.w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(f.cfgPath), before);
}

QUVA_WINDOW_TEST_MAIN(tst_model_param1_page)
#include "tst_model_param1_page.moc"
