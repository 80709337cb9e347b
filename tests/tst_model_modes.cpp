// The named modes of model construction on the record alone: the mode the
// values make, and the group each mode's button pushes.

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/model_modes.h"
#include "xml/xml_node.h"

#include <QUndoStack>
#include <QtTest>

#include <memory>

namespace {

std::unique_ptr<CfgModel> record(double lambda, double alpha, int pruning, int maxVar)
{
    const XmlNode descRoot =
        readXmlFile(QStringLiteral(QUVA_TEST_DATA "/core/golden.DescXML"), "DESCRIPTION");
    auto model =
        std::make_unique<CfgModel>(new DescModel(QStringLiteral("golden.DescXML"), descRoot),
                                   QString(), parseXmlText("<QUV_Config/>", "QUV_Config", nullptr));
    model->lambda = lambda;
    model->alpha = alpha;
    model->pruning = pruning;
    model->nMaxVar = maxVar;
    return model;
}

} // namespace

Q_DECLARE_METATYPE(ModelMode)

class tst_model_modes : public QObject
{
    Q_OBJECT

private slots:
    void shown_data();
    void shown();
    void performanceCommand();
    void shortPerformanceLeavesLimit();
    void insightKeepsAnyLimit_data();
    void insightKeepsAnyLimit();
    void insightIsOneUndoableGroup();
};

void tst_model_modes::shown_data()
{
    QTest::addColumn<double>("lambda");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<int>("pruning");
    QTest::addColumn<int>("maxVar");
    QTest::addColumn<ModelMode>("mode");
    QTest::newRow("performance") << -1.0 << -1.0 << 0 << -1 << ModelMode::Performance;
    QTest::newRow("performance with a limit") << -1.0 << -1.0 << 0 << 12 << ModelMode::Performance;
    QTest::newRow("standard") << -1.0 << 1.0 << 2 << 30 << ModelMode::Standard;
    QTest::newRow("standard with 25") << -1.0 << 1.0 << 2 << 25 << ModelMode::None;
    QTest::newRow("high quality") << -1.0 << 1.0 << 3 << 30 << ModelMode::HighQuality;
    QTest::newRow("user lambda") << 0.1 << 1.0 << 2 << 30 << ModelMode::None;
    QTest::newRow("importances") << -1.0 << 1.0 << 1 << 30 << ModelMode::None;
}

void tst_model_modes::shown()
{
    QFETCH(double, lambda);
    QFETCH(double, alpha);
    QFETCH(int, pruning);
    QFETCH(int, maxVar);
    QFETCH(ModelMode, mode);
    QCOMPARE(shownModelMode(*record(lambda, alpha, pruning, maxVar)), mode);
}

void tst_model_modes::performanceCommand()
{
    auto r = record(-1.0, -1.0, 0, -1);
    QCOMPARE(performanceModeCommand(*r, PageModelParam1), nullptr);
    r->nMaxVar = 30;
    std::unique_ptr<QUndoCommandPanel> group(performanceModeCommand(*r, PageModelParam1));
    QVERIFY(group);
    QCOMPARE(group->text(), QStringLiteral("performance mode"));
    QCOMPARE(int(group->panel), int(PageModelParam1));
    QCOMPARE(group->childCount(), 4);
    QCOMPARE(r->nMaxVar, 30); // built, not run
    group->redo();
    QCOMPARE(r->nMaxVar, -1);
}

void tst_model_modes::shortPerformanceLeavesLimit()
{
    auto r = record(-1.0, -1.0, 0, 30);
    QCOMPARE(shortPerformanceModeCommand(*r, PageCreateModel), nullptr);
    r->pruning = 2;
    std::unique_ptr<QUndoCommandPanel> group(shortPerformanceModeCommand(*r, PageCreateModel));
    QVERIFY(group);
    QCOMPARE(group->childCount(), 3);
    QCOMPARE(int(group->panel), int(PageCreateModel));
    group->redo();
    QCOMPARE(r->pruning, 0);
    QCOMPARE(r->nMaxVar, 30);
}

void tst_model_modes::insightKeepsAnyLimit_data()
{
    QTest::addColumn<int>("maxVar");
    QTest::addColumn<bool>("pushed");
    QTest::addColumn<int>("after");
    QTest::newRow("12") << 12 << false << 12;
    QTest::newRow("0") << 0 << false << 0;
    QTest::newRow("none") << -1 << true << 30;
}

void tst_model_modes::insightKeepsAnyLimit()
{
    QFETCH(int, maxVar);
    QFETCH(bool, pushed);
    QFETCH(int, after);
    auto r = record(-1.0, 1.0, 2, maxVar);
    std::unique_ptr<QUndoCommandPanel> group(insightModeCommand(*r, PruningFast, PageModelParam1));
    QCOMPARE(bool(group), pushed);
    if (group) {
        QCOMPARE(group->childCount(), 4);
        group->redo();
    }
    QCOMPARE(r->nMaxVar, after);
}

void tst_model_modes::insightIsOneUndoableGroup()
{
    auto r = record(0.2, 0.5, 0, 12);
    QUndoStack stack;
    stack.push(insightModeCommand(*r, PruningSlow, PageModelParam1));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("high quality mode"));
    QCOMPARE(r->pruning, 3);
    QCOMPARE(r->alpha, 1.0);
    QCOMPARE(r->lambda, -1.0);
    QCOMPARE(r->nMaxVar, 12); // three children: the limit stood
    QCOMPARE(stack.command(0)->childCount(), 3);
    stack.undo();
    QCOMPARE(r->pruning, 0);
    QCOMPARE(r->alpha, 0.5);
    QCOMPARE(r->lambda, 0.2);
}

QTEST_MAIN(tst_model_modes)
#include "tst_model_modes.moc"
