// The page "Data Partitioning" driven through its controls in the window:
// the sets and how they follow each other, the sampling shares as percents,
// purification, the partitioning model, and the page's place in the row.

#include "param_page_support.h"
#include "window_test_main.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

class tst_data_partitioning_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { f.support.install(); }
    void init() { f.open(PageDataPartitioning, "actionDataPartioning"); }
    void cleanupTestCase() { f.close(); }

    void slidersAreSetUp();
    void testSetsDownTakeValidationSetsAlong();
    void testSetsUpLeaveValidationSets();
    void testSetMovesAreEntriesValidationMovesMerge();
    void densityShowsWholePercent();
    void densityTextsDiffer();
    void memoryLabelFollowsRelease();
    void memoryTypedNoNumberIsZero();
    void testDSSizeFloorIsOneShare();
    void noTestSetsShowsNoInfinity();
    void purifyCheckAndPercent();
    void browseTakesOnlyModelFiles();
    void stratifyTyped();
    void testSetsLimitIsUndoableNotSaved();
    void limitAtLoadCoversValidationSets();
    void refreshPushesNothing();
    void toggledFromMenu();
    void savedBytesAndUndo();

private:
    ParamPageFixture f;
};

void tst_data_partitioning_page::slidersAreSetUp()
{
    for (const char *name : {"sNTestSet", "sNValSet", "sNMaxValSet", "sMaxMemory",
                             "sMaxTargetDensity", "sMaxTestDSSize"}) {
        auto *s = f.control<QwtSlider>(name);
        QVERIFY2(!s->isTracking(), name);
        QCOMPARE(s->orientation(), Qt::Horizontal);
        QCOMPARE(s->scalePosition(), QwtSlider::LeadingScale);
    }
    auto *tests = f.control<QwtSlider>("sNTestSet");
    QCOMPARE(tests->minimum(), 3.0);
    QCOMPARE(tests->maximum(), 10.0);
    QCOMPARE(tests->value(), 6.0);
    QCOMPARE(tests->scaleDiv().ticks(QwtScaleDiv::MajorTick).size(), 8);
    QCOMPARE(tests->scaleDiv().ticks(QwtScaleDiv::MinorTick).size(), 0);
    auto *memory = f.control<QwtSlider>("sMaxMemory");
    QCOMPARE(memory->minimum(), 50.0);
    QCOMPARE(memory->maximum(), 1500.0);
    QCOMPARE(memory->totalSteps(), 290u);
    QCOMPARE(f.control<QwtSlider>("sNValSet")->maximum(), 5.0);
    QVERIFY(!f.control<QwtSlider>("sNMaxValSet")->isEnabled());
    QCOMPARE(f.control<QSpinBox>("nMaxTestSet")->maximum(), 99);
    QCOMPARE(f.control<QwtSlider>("sMaxTargetDensity")->maximum(), 100.0);
}

void tst_data_partitioning_page::testSetsDownTakeValidationSetsAlong()
{
    QCOMPARE(f.cfg()->nTestSet, 6);
    QCOMPARE(f.cfg()->nValSet, 5);
    QVERIFY(!ParamPageFixture::drag(f.control<QwtSlider>("sNTestSet"), 6, 4).isEmpty());
    QCOMPARE(f.cfg()->nTestSet, 4);
    QCOMPARE(f.cfg()->nMaxValSet, 3);
    QCOMPARE(f.cfg()->nValSet, 3);
    QCOMPARE(stackTexts(f.stack()), QStringList{"nbr Test sets"});
    QCOMPARE(f.control<QwtSlider>("sNValSet")->maximum(), 3.0);
    f.stack()->undo();
    QCOMPARE(f.cfg()->nTestSet, 6);
    QCOMPARE(f.cfg()->nMaxValSet, 5);
    QCOMPARE(f.cfg()->nValSet, 5);
}

void tst_data_partitioning_page::testSetsUpLeaveValidationSets()
{
    f.cfg()->nTestSet = 4;
    f.cfg()->nValSet = 3;
    f.refresh();
    ParamPageFixture::drag(f.control<QwtSlider>("sNTestSet"), 4, 6);
    QCOMPARE(f.cfg()->nTestSet, 6);
    QCOMPARE(f.cfg()->nMaxValSet, 5);
    QCOMPARE(f.cfg()->nValSet, 3);
}

void tst_data_partitioning_page::testSetMovesAreEntriesValidationMovesMerge()
{
    auto *tests = f.control<QwtSlider>("sNTestSet");
    ParamPageFixture::drag(tests, 6, 8);
    ParamPageFixture::drag(tests, 8, 9);
    QCOMPARE(f.stack()->count(), 2);
    auto *vals = f.control<QwtSlider>("sNValSet");
    ParamPageFixture::drag(vals, 5, 3);
    ParamPageFixture::drag(vals, 3, 2);
    QCOMPARE(f.cfg()->nValSet, 2);
    QCOMPARE(stackTexts(f.stack()),
             (QStringList{"nbr Test sets", "nbr Test sets", "nbr Validation sets|5=>2 - grouped"}));
}

void tst_data_partitioning_page::densityShowsWholePercent()
{
    f.cfg()->maxTargetDensity = 0.405;
    f.refresh();
    auto *slider = f.control<QwtSlider>("sMaxTargetDensity");
    QCOMPARE(slider->value(), 40.0);
    QCOMPARE(f.control<QLineEdit>("leMaxTargetDensity")->text(), QStringLiteral("40"));
    QCOMPARE(f.stack()->count(), 0);
    emit slider->valueChanged(40.0); // a release on 40
    QCOMPARE(f.cfg()->maxTargetDensity, 0.4);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max nbr Validation sets|0.405=>0.4"});
}

// The slider and its line edit carry different texts; on the same field,
// the second merges into the first.
void tst_data_partitioning_page::densityTextsDiffer()
{
    f.type("leMaxTargetDensity", "25");
    QCOMPARE(f.cfg()->maxTargetDensity, 0.25);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max target density|0.4=>0.25"});
    f.stack()->undo();
    QVERIFY(!ParamPageFixture::drag(f.control<QwtSlider>("sMaxTargetDensity"), 40, 60).isEmpty());
    QCOMPARE(f.cfg()->maxTargetDensity, 0.6);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max nbr Validation sets|0.4=>0.6"});
    f.type("leMaxTargetDensity", "25");
    QCOMPARE(stackTexts(f.stack()), QStringList{"max nbr Validation sets|0.4=>0.25 - grouped"});
}

void tst_data_partitioning_page::memoryLabelFollowsRelease()
{
    auto *slider = f.control<QwtSlider>("sMaxMemory");
    auto *label = f.control<QLabel>("lMaxTestSet");
    QCOMPARE(label->text(), QStringLiteral("% of 500 MB"));
    emit slider->sliderMoved(700.0);
    QCOMPARE(f.control<QLineEdit>("leMaxMemory")->text(), QStringLiteral("700"));
    QCOMPARE(label->text(), QStringLiteral("% of 500 MB"));
    QCOMPARE(f.stack()->count(), 0);
    ParamPageFixture::drag(slider, 500, 800);
    QCOMPARE(label->text(), QStringLiteral("% of %1 MB").arg(f.cfg()->maxMemoryDS));
    QVERIFY(f.cfg()->maxMemoryDS > 500);
    QCOMPARE(f.cfg()->maxMemoryDS % 5, 0);
    ParamPageFixture::drag(slider, f.cfg()->maxMemoryDS, 1000);
    QCOMPARE(f.stack()->count(), 1); // merged
    QVERIFY(f.stack()->text(0).endsWith(" - grouped"));
}

void tst_data_partitioning_page::memoryTypedNoNumberIsZero()
{
    f.type("leMaxMemory", "lots");
    QCOMPARE(f.cfg()->maxMemoryDS, 0);
    QCOMPARE(f.control<QLineEdit>("leMaxMemory")->text(), QStringLiteral("0"));
    QCOMPARE(f.control<QwtSlider>("sMaxMemory")->value(), 50.0);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max memory|500=>0"});
}

void tst_data_partitioning_page::testDSSizeFloorIsOneShare()
{
    auto *slider = f.control<QwtSlider>("sMaxTestDSSize");
    QCOMPARE(slider->minimum(), 16.0); // 100 / 6
    QCOMPARE(slider->value(), 50.0);
    f.type("leMaxTestDSSize", "30");
    QCOMPARE(f.cfg()->maxTestDSSize, 0.3);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max test DS size|0.5=>0.3"});
}

// A record without test sets sets no floor: the slider runs from 0.
void tst_data_partitioning_page::noTestSetsShowsNoInfinity()
{
    f.cfg()->nTestSet = 0;
    f.refresh();
    auto *slider = f.control<QwtSlider>("sMaxTestDSSize");
    QCOMPARE(slider->minimum(), 0.0);
    QCOMPARE(slider->maximum(), 100.0);
    QCOMPARE(f.control<QLineEdit>("leMaxTestDSSize")->text(), QStringLiteral("50"));
    QVERIFY(f.control<QwtSlider>("sNMaxValSet")->isEnabled());
    QCOMPARE(f.control<QwtSlider>("sNMaxValSet")->maximum(), 10.0);
    QCOMPARE(f.stack()->count(), 0);
}

void tst_data_partitioning_page::purifyCheckAndPercent()
{
    auto *box = f.control<QCheckBox>("cbPurify");
    auto *edit = f.control<QLineEdit>("lePurify");
    QVERIFY(!box->isChecked());
    QVERIFY(!edit->isEnabled());
    QCOMPARE(edit->text(), QStringLiteral("-100"));
    ParamPageFixture::click(box);
    QCOMPARE(f.cfg()->purifyTarget, 0.05);
    QVERIFY(edit->isEnabled());
    QVERIFY(f.control<QPushButton>("pbBrowse")->isEnabled());
    QCOMPARE(edit->text(), QStringLiteral("5"));
    f.type("lePurify", "12.5");
    QCOMPARE(f.cfg()->purifyTarget, 0.125);
    ParamPageFixture::click(box);
    QCOMPARE(f.cfg()->purifyTarget, -1.0);
    QCOMPARE(stackTexts(f.stack()),
             (QStringList{"checkB purify|-1=>0.05", "purify target|0.05=>0.125",
                          "checkB purify|0.125=>-1"}));
}

void tst_data_partitioning_page::browseTakesOnlyModelFiles()
{
    f.click("cbPurify");
    f.support.fileAnswers =
        QStringList{"/m/a.SModelXML", "/m/a.modelxml", QString(), "/m/b.ModelXML"};
    for (int i = 0; i < 3; ++i)
        QTest::mouseClick(f.control<QPushButton>("pbBrowse"), Qt::LeftButton);
    QVERIFY(f.cfg()->PartioningModel.isEmpty());
    QCOMPARE(f.stack()->count(), 1);
    QTest::mouseClick(f.control<QPushButton>("pbBrowse"), Qt::LeftButton);
    QCOMPARE(f.cfg()->PartioningModel, QStringLiteral("/m/b.ModelXML"));
    QCOMPARE(f.stack()->text(1), QStringLiteral("model |=>/m/b.ModelXML"));
    QCOMPARE(f.support.fileQuestions.first(), QStringLiteral("Open Quva model file"));
    QCOMPARE(f.control<QLineEdit>("leStratif")->text(), QStringLiteral("/m/b.ModelXML"));
}

void tst_data_partitioning_page::stratifyTyped()
{
    f.click("cbPurify");
    f.type("leStratif", "m.ModelXML");
    f.type("leStratif", "m.ModelXML");
    QCOMPARE(f.cfg()->PartioningModel, QStringLiteral("m.ModelXML"));
    QCOMPARE(f.stack()->text(1), QStringLiteral("stratify|=>m.ModelXML"));
    QCOMPARE(f.stack()->count(), 2);
}

void tst_data_partitioning_page::testSetsLimitIsUndoableNotSaved()
{
    QVERIFY(f.w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(f.cfgPath);
    auto *spin = f.control<QSpinBox>("nMaxTestSet");
    QCOMPARE(spin->value(), 10);
    spin->setValue(15);
    spin->setValue(20);
    QCOMPARE(stackTexts(f.stack()), QStringList{"max nbr test sets|10=>20 - grouped"});
    QVERIFY(!f.stack()->isClean());
    QVERIFY(f.w->windowTitle().endsWith('*'));
    QCOMPARE(f.control<QwtSlider>("sNTestSet")->maximum(), 20.0);
    QVERIFY(f.w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(f.cfgPath), before);
    f.stack()->undo();
    QCOMPARE(spin->value(), 10);
    QCOMPARE(f.control<QwtSlider>("sNTestSet")->maximum(), 10.0);
}

void tst_data_partitioning_page::limitAtLoadCoversValidationSets()
{
    QByteArray bytes = WindowTestSupport::bytes(f.cfgPath);
    bytes.replace("<QUV_Config ", "<QUV_Config nValSet='14' ");
    f.support.write("vars.CfgXML", bytes);
    f.w->openConfigFile(f.cfgPath, false);
    QCOMPARE(f.cfg()->nValSet, 14);
    f.refresh();
    QCOMPARE(f.control<QSpinBox>("nMaxTestSet")->value(), 14);
    QCOMPARE(f.control<QwtSlider>("sNTestSet")->maximum(), 14.0);
    QCOMPARE(f.stack()->count(), 0);
}

void tst_data_partitioning_page::refreshPushesNothing()
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

void tst_data_partitioning_page::toggledFromMenu()
{
    QAction *action = f.w->findChild<QAction *>("actionDataPartioning");
    QVERIFY(f.w->pageTable().isShown(PageDataPartitioning));
    action->trigger();
    QVERIFY(!f.w->pageTable().isShown(PageDataPartitioning));
    setAdvancedUser(false);
    action->trigger();
    QVERIFY(!f.w->pageTable().isShown(PageDataPartitioning));
    setAdvancedUser(true);
    action->trigger();
    auto *tabs = f.w->findChild<QTabWidget *>("twMain");
    QCOMPARE(tabs->tabText(tabs->indexOf(f.page())), QStringLiteral("Data Partitioning"));
}

void tst_data_partitioning_page::savedBytesAndUndo()
{
    QVERIFY(f.w->saveConfig(false));
    const QByteArray before = WindowTestSupport::bytes(f.cfgPath);
    ParamPageFixture::drag(f.control<QwtSlider>("sNTestSet"), 6, 4);
    f.type("leMaxTestDSSize", "30");
    f.click("cbPurify");
    QVERIFY(f.w->saveConfig(false));
    const QByteArray after = WindowTestSupport::bytes(f.cfgPath);
    for (const char *attr : {"nTestSet='4'", "nMaxValSet='3'", "nValSet='3'"})
        QVERIFY2(after.contains(attr), attr);
    QVERIFY(after.contains("maxTestDSSize='0.3"));
    QVERIFY(after.contains("purifyTarget='0.05"));
    while (f.stack()->canUndo())
        f.stack()->undo();
    QVERIFY(f.w->saveConfig(false));
    QCOMPARE(WindowTestSupport::bytes(f.cfgPath), before);
}

QUVA_WINDOW_TEST_MAIN(tst_data_partitioning_page)
#include "tst_data_partitioning_page.moc"
