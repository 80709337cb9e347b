// The page "Modality Recodings" driven through its controls in the window:
// the three forms of the general minimum size, the other values of the page,
// and the page's place among the optional tabs.

#include "window_test_support.h"
#include "window_test_main.h"

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>

#include <qwt_slider.h>

class tst_modality_recodings_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void defaultShowsTargetForm();
    void targetClickInTargetFormPushesNothing();
    void rowsClickGivesMinus100();
    void percentClick();
    void typedFractionMovesToPercentForm();
    void percentCappedAtHalf();
    void negativePercentMovesToRowsForm();
    void rowsCountCannotGoBelowTwo();
    void rowsCountEdited();
    void summaryTakesTrimmedText();
    void summaryOfNoNumberShowsPercentForm();
    void orderedGroupIsItsOwn();
    void otherValuesPushMergeable_data();
    void otherValuesPushMergeable();
    void confidenceIntervalNotMergeable();
    void sliderFollowsSpinBox();
    void rangesAndStartValues();
    void refreshPushesNothing();
    void toggledFromMenuAtAdvancedLevel();
    void savedBytesCarryTheEditsAlone();

private:
    QWidget *page() { return w->pageTable().widget(7); }
    template <typename T>
    T *control(const char *name) { return childOf<T>(page(), name); }
    CfgModel *cfg() { return w->cfg(); }
    QUndoStack *stack() { return w->undoStack(); }
    // Shows the page as an advanced user gets it.
    void showPage()
    {
        setAdvancedUser(true);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        if (!w->pageTable().isShown(7))
            w->findChild<QAction *>("actionModalityRecodings")->trigger();
        w->pageTable().show(7);
    }
    // Types into a line edit and leaves it, as a user does.
    void type(const char *name, const QString &text)
    {
        auto *edit = control<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Tab);
    }

    WindowTestSupport support;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_modality_recodings_page::initTestCase()
{
    support.install();
}

void tst_modality_recodings_page::cleanupTestCase()
{
    w.reset();
    support.uninstall();
}

void tst_modality_recodings_page::init()
{
    w.reset();
    support.reset();
    support.copy("pages/golden.DescXML", "golden.DescXML");
    cfgPath = support.copy("pages/vars.CfgXML", "vars.CfgXML");
    w = support.openWindow(cfgPath);
    QVERIFY(cfg());
    showPage();
}

void tst_modality_recodings_page::defaultShowsTargetForm()
{
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("10.0"));
    QVERIFY(control<QRadioButton>("rbModalityMinTargetNominalVar")->isChecked());
    QCOMPARE(control<QLineEdit>("leModalityMinTargetNominalVar")->text(), QStringLiteral("10.0"));
    QCOMPARE(control<QLineEdit>("leModalityMinPercentNominalVar")->text(), QString());
    QCOMPARE(control<QLineEdit>("leMinSizeModalityForNominalVar")->text(), QStringLiteral("10.0"));
    QVERIFY(!control<QSpinBox>("sbModalityMinRowsNominalVar")->isEnabled());
}

void tst_modality_recodings_page::targetClickInTargetFormPushesNothing()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinTargetNominalVar"), Qt::LeftButton);
    QCOMPARE(stack()->count(), 0);
}

void tst_modality_recodings_page::rowsClickGivesMinus100()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinRowsNominalVar"), Qt::LeftButton);
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("-100"));
    QCOMPARE(stackTexts(stack()), QStringList{"minSizeModalityForNominalVar|10.0=>-100"});
    QCOMPARE(control<QSpinBox>("sbModalityMinRowsNominalVar")->value(), 100);
    QVERIFY(control<QSpinBox>("sbModalityMinRowsNominalVar")->isEnabled());
    QCOMPARE(control<QLineEdit>("leModalityMinTargetNominalVar")->text(), QString());
    QCOMPARE(w->pageTable().currentNumber(), 7);
    // Rows again: already in that form.
    QTest::mouseClick(control<QRadioButton>("rbModalityMinRowsNominalVar"), Qt::LeftButton);
    QCOMPARE(stack()->count(), 1);
    // Target from the rows form.
    QTest::mouseClick(control<QRadioButton>("rbModalityMinTargetNominalVar"), Qt::LeftButton);
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("3"));
}

void tst_modality_recodings_page::percentClick()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinPercentNominalVar"), Qt::LeftButton);
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral(".1"));
    QCOMPARE(control<QLineEdit>("leModalityMinPercentNominalVar")->text(), QStringLiteral("10"));
    QVERIFY(control<QRadioButton>("rbModalityMinPercentNominalVar")->isChecked());
    QTest::mouseClick(control<QRadioButton>("rbModalityMinPercentNominalVar"), Qt::LeftButton);
    QCOMPARE(stack()->count(), 1);
}

void tst_modality_recodings_page::typedFractionMovesToPercentForm()
{
    type("leModalityMinTargetNominalVar", "0.5");
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("0.5"));
    QVERIFY(control<QRadioButton>("rbModalityMinPercentNominalVar")->isChecked());
    QCOMPARE(control<QLineEdit>("leModalityMinPercentNominalVar")->text(), QStringLiteral("50"));
    QCOMPARE(stack()->count(), 1); // editingFinished after returnPressed finds no difference
}

void tst_modality_recodings_page::percentCappedAtHalf()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinPercentNominalVar"), Qt::LeftButton);
    type("leModalityMinPercentNominalVar", "70");
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("0.5"));
    QCOMPARE(control<QLineEdit>("leModalityMinPercentNominalVar")->text(), QStringLiteral("50"));
    QVERIFY(support.questions.isEmpty());
}

void tst_modality_recodings_page::negativePercentMovesToRowsForm()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinPercentNominalVar"), Qt::LeftButton);
    type("leModalityMinPercentNominalVar", "-3");
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("-0.03"));
    QVERIFY(control<QRadioButton>("rbModalityMinRowsNominalVar")->isChecked());
    // 0.03 rows, truncated, and the spin box's floor of 2.
    QCOMPARE(control<QSpinBox>("sbModalityMinRowsNominalVar")->value(), 2);
}

void tst_modality_recodings_page::rowsCountCannotGoBelowTwo()
{
    cfg()->minSizeModalityForNominalVar = QStringLiteral("-1");
    w->updatePanelIdx(7);
    auto *spin = control<QSpinBox>("sbModalityMinRowsNominalVar");
    QCOMPARE(spin->minimum(), 2);
    QCOMPARE(spin->maximum(), 999999999);
    QCOMPARE(spin->value(), 2);
    QCOMPARE(control<QLineEdit>("leMinSizeModalityForNominalVar")->text(), QStringLiteral("-1"));
    QCOMPARE(stack()->count(), 0);
}

void tst_modality_recodings_page::rowsCountEdited()
{
    QTest::mouseClick(control<QRadioButton>("rbModalityMinRowsNominalVar"), Qt::LeftButton);
    auto *spin = control<QSpinBox>("sbModalityMinRowsNominalVar");
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, "250");
    QTest::keyClick(spin, Qt::Key_Tab);
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("-250"));
    QCOMPARE(stack()->text(1), QStringLiteral("minSizeModalityForNominalVar|-100=>-250"));
}

void tst_modality_recodings_page::summaryTakesTrimmedText()
{
    type("leMinSizeModalityForNominalVar", "  42 ");
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("42"));
    QCOMPARE(control<QLineEdit>("leModalityMinTargetNominalVar")->text(), QStringLiteral("42"));
    type("leMinSizeModalityForNominalVar", "42");
    QCOMPARE(stack()->count(), 1); // the same text pushes nothing
}

void tst_modality_recodings_page::summaryOfNoNumberShowsPercentForm()
{
    type("leMinSizeModalityForNominalVar", "many");
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("many"));
    QVERIFY(control<QRadioButton>("rbModalityMinPercentNominalVar")->isChecked());
    QCOMPARE(control<QLineEdit>("leModalityMinPercentNominalVar")->text(), QStringLiteral("0"));
}

void tst_modality_recodings_page::orderedGroupIsItsOwn()
{
    QCOMPARE(cfg()->minSizeModalityForOrderedVar, QStringLiteral("-50"));
    QVERIFY(control<QRadioButton>("rbModalityMinRowsOrderedVar")->isChecked());
    QCOMPARE(control<QSpinBox>("sbModalityMinRowsOrderedVar")->value(), 50);
    QTest::mouseClick(control<QRadioButton>("rbModalityMinPercentOrderedVar"), Qt::LeftButton);
    QCOMPARE(cfg()->minSizeModalityForOrderedVar, QStringLiteral(".1"));
    QCOMPARE(cfg()->minSizeModalityForNominalVar, QStringLiteral("10.0"));
    QCOMPARE(stack()->text(0), QStringLiteral("minSizeModalityForOrderedVar|-50=>.1"));
}

void tst_modality_recodings_page::otherValuesPushMergeable_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("z-score") << "dsbZscore" << 3.25 << "zTestModalities|2.5=>3.25 - grouped";
    QTest::newRow("AUC max") << "dsbAUCMax" << 90.0 << "AUCmax|85=>90 - grouped";
    QTest::newRow("seed") << "sbRandomSeed" << 77.0 << "randomSeed|0=>77 - grouped";
    QTest::newRow("cpus") << "sbNCpu" << 8.0 << "cpuCount|1=>8 - grouped";
    QTest::newRow("bagging") << "sbNBagging" << 3.0 << "nBagging|1=>3 - grouped";
    QTest::newRow("correlation") << "dsbLowerBoundCorrelationReport" << 0.5
                                 << "lowerBoundCorrelationReport|0.85=>0.5 - grouped";
}

// Two steps of one control are one entry; the field takes the last value.
void tst_modality_recodings_page::otherValuesPushMergeable()
{
    QFETCH(QString, control);
    QFETCH(double, value);
    QFETCH(QString, text);
    QAbstractSpinBox *box = page()->findChild<QAbstractSpinBox *>(control);
    QVERIFY(box);
    box->stepBy(1);
    if (auto *d = qobject_cast<QDoubleSpinBox *>(box))
        d->setValue(value);
    else
        static_cast<QSpinBox *>(box)->setValue(int(value));
    QCOMPARE(stackTexts(stack()), QStringList{text});
    stack()->undo();
    QVERIFY(stack()->isClean());
}

void tst_modality_recodings_page::confidenceIntervalNotMergeable()
{
    auto *box = control<QCheckBox>("cbDisplayCF");
    QVERIFY(!box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::mouseClick(box, Qt::LeftButton);
    QCOMPARE(stackTexts(stack()),
             (QStringList{"confidenceInterval|0=>1", "confidenceInterval|1=>0"}));
    QCOMPARE(cfg()->confidenceInterval, 0);
}

// The slider and the spin box follow each other; the steps of a drag reach
// the spin box, and their commands merge into one.
void tst_modality_recodings_page::sliderFollowsSpinBox()
{
    auto *slider = control<QwtSlider>("sliderAUCMax");
    auto *spin = control<QDoubleSpinBox>("dsbAUCMax");
    QVERIFY(slider->isTracking());
    QCOMPARE(slider->orientation(), Qt::Horizontal);
    QCOMPARE(slider->minimum(), 70.0);
    QCOMPARE(slider->maximum(), 100.0);
    QCOMPARE(slider->value(), 85.0);
    for (double v : {86.0, 88.0, 91.0})
        emit slider->sliderMoved(v);
    QCOMPARE(spin->value(), 91.0);
    QCOMPARE(cfg()->AUCmax, 91.0);
    QCOMPARE(stackTexts(stack()), QStringList{"AUCmax|85=>91 - grouped"});
    spin->setValue(75);
    QCOMPARE(slider->value(), 75.0);
    // A press-move-release of the mouse on the handle moves the value too.
    // The handle sits above the scale.
    const QPoint from(slider->transform(75), slider->height() / 4);
    const QPoint to(slider->transform(80), slider->height() / 4);
    QTest::mousePress(slider, Qt::LeftButton, {}, from);
    QTest::mouseMove(slider, to);
    QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slider, &move);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, to);
    QVERIFY(cfg()->AUCmax > 75.0);
    QCOMPARE(spin->value(), cfg()->AUCmax);
    QCOMPARE(stack()->count(), 1);
}

void tst_modality_recodings_page::rangesAndStartValues()
{
    QuvaCfgXMLEditor fresh;
    QWidget *p = fresh.pageTable().widget(7);
    auto *z = childOf<QDoubleSpinBox>(p, "dsbZscore");
    QCOMPARE(z->minimum(), -1.0);
    QCOMPARE(z->maximum(), 1000000000.0);
    QCOMPARE(z->decimals(), 3);
    auto *auc = childOf<QDoubleSpinBox>(p, "dsbAUCMax");
    QCOMPARE(auc->minimum(), 70.0);
    QCOMPARE(auc->maximum(), 100.0);
    QCOMPARE(auc->value(), 85.0);
    QCOMPARE(childOf<QSpinBox>(p, "sbRandomSeed")->minimum(), -1);
    QCOMPARE(childOf<QSpinBox>(p, "sbRandomSeed")->maximum(), 999999999);
    QCOMPARE(childOf<QSpinBox>(p, "sbNCpu")->value(), -1);
    QCOMPARE(childOf<QSpinBox>(p, "sbNBagging")->maximum(), 999999999);
    auto *bound = childOf<QDoubleSpinBox>(p, "dsbLowerBoundCorrelationReport");
    QCOMPARE(bound->maximum(), 1.0);
    QCOMPARE(bound->decimals(), 3);
    QCOMPARE(bound->singleStep(), 0.01);
    QCOMPARE(bound->value(), 0.85);
    QCOMPARE(p->windowTitle(), QStringLiteral("Modality Recodings"));
}

void tst_modality_recodings_page::refreshPushesNothing()
{
    for (const char *fixture : {"core/defaults.CfgXML", "core/root_changed.CfgXML",
                                "core/vars.CfgXML", "pages/vars.CfgXML"}) {
        support.copy("core/golden.DescXML", "golden.DescXML");
        const QString path = support.copy(fixture, "f.CfgXML");
        w->openConfigFile(path, false);
        QVERIFY2(w->cfg(), fixture);
        w->updatePanelIdx(7);
        w->updatePanelIdx(4);
        QCOMPARE(stack()->count(), 0);
    }
}

void tst_modality_recodings_page::toggledFromMenuAtAdvancedLevel()
{
    QAction *action = w->findChild<QAction *>("actionModalityRecodings");
    QVERIFY(w->pageTable().isShown(7));
    action->trigger();
    QVERIFY(!w->pageTable().isShown(7));
    setAdvancedUser(false);
    action->trigger();
    QVERIFY(!w->pageTable().isShown(7));
    setAdvancedUser(true);
    action->trigger();
    auto *tabs = w->findChild<QTabWidget *>("twMain");
    QCOMPARE(tabs->tabText(tabs->indexOf(page())), QStringLiteral("Modality Recodings"));
}

void tst_modality_recodings_page::savedBytesCarryTheEditsAlone()
{
    QVERIFY(w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(cfgPath);
    QTest::mouseClick(control<QRadioButton>("rbModalityMinRowsNominalVar"), Qt::LeftButton);
    control<QSpinBox>("sbNCpu")->setValue(4);
    QTest::mouseClick(control<QCheckBox>("cbDisplayCF"), Qt::LeftButton);
    QVERIFY(w->saveConfig(false));
    QByteArray expected = before;
    expected.replace("minSizeModalityForNominalVar='10.0'", "minSizeModalityForNominalVar='-100'");
    expected.replace("confidenceInterval='0'", "confidenceInterval='1'");
    expected.replace("cpuCount='1'", "cpuCount='4'");
    QCOMPARE(WindowTestSupport::bytes(cfgPath), expected);
    while (stack()->canUndo())
        stack()->undo();
    QVERIFY(w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(cfgPath), before);
}

QUVA_WINDOW_TEST_MAIN(tst_modality_recodings_page)
#include "tst_modality_recodings_page.moc"
