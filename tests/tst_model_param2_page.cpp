// The page "Model Parameters (2)" driven through its controls in the
// window: the limits of the model, the columns of weight and treatment, the
// up-lift penalties and the quantile regression.

#include "param_page_support.h"
#include "window_test_main.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

class tst_model_param2_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { f.support.install(); }
    void init() { f.open(PageModelParam2, "actionModelParameters2"); }
    void cleanupTestCase() { f.close(); }

    void defaultQuantileShowsChecked();
    void quantileUncheckCheckLosesValue();
    void quantileFromFileAboveRange();
    void quantileTypedIsClamped_data();
    void quantileTypedIsClamped();
    void quantileDragMerges();
    void modelMaxBeyondSlider();
    void modelMaxTyped();
    void maxTimeRefusesZero_data();
    void maxTimeRefusesZero();
    void maxTimeAccepted();
    void columnsOfferVariables();
    void penalties();
    void refreshPushesNothing();
    void savedBytesAndUndo();

private:
    ParamPageFixture f;
};

void tst_model_param2_page::defaultQuantileShowsChecked()
{
    QCOMPARE(f.cfg()->quantileRegression, 0.5);
    QVERIFY(f.control<QCheckBox>("cbQuantile")->isChecked());
    QCOMPARE(f.control<QLineEdit>("leQuantile")->text(), QStringLiteral("50"));
    auto *s = f.control<QwtSlider>("sQuantile");
    QCOMPARE(s->value(), 50.0);
    QCOMPARE(s->minimum(), 5.0);
    QCOMPARE(s->maximum(), 95.0);
    QVERIFY(!s->isTracking());
    QCOMPARE(s->orientation(), Qt::Horizontal);
    QVERIFY(s->isEnabled());
}

void tst_model_param2_page::quantileUncheckCheckLosesValue()
{
    f.click<QCheckBox>("cbQuantile");
    QCOMPARE(f.cfg()->quantileRegression, 0.0);
    QVERIFY(!f.control<QwtSlider>("sQuantile")->isEnabled());
    QVERIFY(!f.control<QLabel>("lbQuantile1")->isEnabled());
    QCOMPARE(f.control<QLineEdit>("leQuantile")->text(), QStringLiteral("50")); // kept
    f.click<QCheckBox>("cbQuantile");
    QCOMPARE(f.cfg()->quantileRegression, 0.05);
    QCOMPARE(f.control<QLineEdit>("leQuantile")->text(), QStringLiteral("5"));
    QCOMPARE(stackTexts(f.stack()),
             (QStringList{"quantile check|0.5=>0", "quantile check|0=>0.05"}));
}

void tst_model_param2_page::quantileFromFileAboveRange()
{
    f.cfg()->quantileRegression = 0.96;
    f.refresh();
    QCOMPARE(f.control<QLineEdit>("leQuantile")->text(), QStringLiteral("96"));
    QCOMPARE(f.stack()->count(), 0);
    emit f.control<QwtSlider>("sQuantile")->valueChanged(96.0); // a release at the end
    QCOMPARE(f.cfg()->quantileRegression, 0.95);
    QCOMPARE(stackTexts(f.stack()), QStringList{"quantile regression|0.96=>0.95"});
}

void tst_model_param2_page::quantileTypedIsClamped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("stored");
    QTest::newRow("inside") << "37" << 0.37;
    QTest::newRow("above") << "120" << 0.95;
    QTest::newRow("below") << "2" << 0.05;
    QTest::newRow("no number") << "half" << 0.05;
}

void tst_model_param2_page::quantileTypedIsClamped()
{
    QFETCH(QString, typed);
    QFETCH(double, stored);
    f.type("leQuantile", typed);
    QCOMPARE(f.cfg()->quantileRegression, stored);
    QVERIFY(f.support.questions.isEmpty());
}

void tst_model_param2_page::quantileDragMerges()
{
    auto *s = f.control<QwtSlider>("sQuantile");
    QVERIFY(!ParamPageFixture::drag(s, 50, 70).isEmpty());
    QCOMPARE(f.control<QLineEdit>("leQuantile")->text(),
             QString::number(f.cfg()->quantileRegression * 100, 'g', 6));
    QVERIFY(f.cfg()->quantileRegression > 0.5);
    ParamPageFixture::drag(s, s->value(), 30);
    QCOMPARE(f.stack()->count(), 1);
    QVERIFY(f.stack()->text(0).startsWith("quantile regression|0.5=>"));
    QVERIFY(f.stack()->text(0).endsWith(" - grouped"));
}

void tst_model_param2_page::modelMaxBeyondSlider()
{
    f.cfg()->nMaxVar = 150;
    f.refresh();
    QCOMPARE(f.control<QwtSlider>("sModelMax")->value(), 100.0);
    QCOMPARE(f.control<QLineEdit>("leModelMax")->text(), QStringLiteral("150"));
    QCOMPARE(f.stack()->count(), 0);
}

void tst_model_param2_page::modelMaxTyped()
{
    f.type("leModelMax", "12.5"); // no integer: counts as 0
    QCOMPARE(f.cfg()->nMaxVar, 0);
    f.type("leModelMax", "40");
    QCOMPARE(f.cfg()->nMaxVar, 40);
    QCOMPARE(stackTexts(f.stack()), QStringList{"Model max variable|30=>40 - grouped"});
    QCOMPARE(f.control<QwtSlider>("sModelMax")->value(), 40.0);
}

void tst_model_param2_page::maxTimeRefusesZero_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("zero") << "0";
    QTest::newRow("negative") << "-2";
    QTest::newRow("no number") << "soon";
}

void tst_model_param2_page::maxTimeRefusesZero()
{
    QFETCH(QString, typed);
    f.type("leMaxTimeH", typed);
    QCOMPARE(f.support.questions,
             QStringList{"<html>This parameter cannot be set to zero !<br>Resetting to default "
                         "value</html>"});
    QCOMPARE(f.cfg()->stopComputationAfterXHours, 5.0);
    QCOMPARE(f.control<QLineEdit>("leMaxTimeH")->text(), QStringLiteral("5"));
    QCOMPARE(f.stack()->count(), 0);
}

void tst_model_param2_page::maxTimeAccepted()
{
    f.type("leMaxTimeH", "5");
    QCOMPARE(f.stack()->count(), 0);
    f.type("leMaxTimeH", "2.5");
    f.type("leMaxTimeH", "3");
    QCOMPARE(f.cfg()->stopComputationAfterXHours, 3.0);
    QCOMPARE(stackTexts(f.stack()), QStringList{"maximal computation time|5=>3 - grouped"});
    QVERIFY(f.support.questions.isEmpty());
}

void tst_model_param2_page::columnsOfferVariables()
{
    auto *weight = f.control<QComboBox>("cbWeight");
    auto *treatment = f.control<QComboBox>("cmbTreatmentFlag");
    QVERIFY(weight->count() > 2);
    QCOMPARE(weight->itemText(0), QString());
    QCOMPARE(weight->count(), treatment->count());
    QCOMPARE(weight->currentIndex(), 0);
    const QString label = weight->itemText(2);
    weight->setCurrentIndex(2);
    QCOMPARE(f.cfg()->Weight, label);
    QCOMPARE(stackTexts(f.stack()), QStringList{"weight column|=>" + label});
    treatment->setCurrentIndex(1);
    QCOMPARE(f.cfg()->Treatment, treatment->itemText(1));
    QCOMPARE(f.stack()->text(1), "treatment column|=>" + treatment->itemText(1));
    f.stack()->undo();
    QCOMPARE(treatment->currentIndex(), 0);
    // A label no variable has leaves no current entry.
    f.cfg()->Weight = QStringLiteral("nowhere");
    f.refresh();
    QCOMPARE(weight->currentIndex(), -1);
    QCOMPARE(f.stack()->count(), 2);
}

void tst_model_param2_page::penalties()
{
    f.type("lePenaltyProfile", "2.5");
    f.type("lePenaltyProfile", "2.5");
    f.type("lePenaltyTreatment", "0.75");
    QCOMPARE(f.cfg()->penalityForProfile, 2.5);
    QCOMPARE(f.cfg()->penalityForTreatment, 0.75);
    QCOMPARE(stackTexts(f.stack()),
             (QStringList{"penality profile|1=>2.5", "penality treatment|1=>0.75"}));
}

void tst_model_param2_page::refreshPushesNothing()
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

void tst_model_param2_page::savedBytesAndUndo()
{
    QVERIFY(f.w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(f.cfgPath);
    f.click<QCheckBox>("cbQuantile");
    f.type("leMaxTimeH", "3");
    f.type("lePenaltyProfile", "2");
    QVERIFY(f.w->saveConfig(false));
    const QByteArray after = WindowTestSupport::bytes(f.cfgPath);
    QVERIFY(after != before);
    QVERIFY(after.contains("quantileRegression='0"));
    while (f.stack()->canUndo())
        f.stack()->undo();
    QVERIFY(f.w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(f.cfgPath), before);
}

QUVA_WINDOW_TEST_MAIN(tst_model_param2_page)
#include "tst_model_param2_page.moc"
