// The variable page on generated descriptions of 6,000 and 60,000 columns,
// on the offscreen platform: opening the configuration until the page has
// shown its rows, filtering with a new pattern, select all + Ignore (one
// command, with the refresh it brings), and the undo of it. Each step ends
// with a synchronous paint of the table, so the time is what a user waits.

#include "shell/main_window.h"

#include "generated_dataset.h"

#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QUndoStack>

#include <memory>

namespace {

GeneratedDataset &dataset(int64_t scaleIndex)
{
    static GeneratedDataset small(0.1);
    static GeneratedDataset large(1.0);
    return scaleIndex == 0 ? small : large;
}

QWidget *variablePage(QuvaCfgXMLEditor &w)
{
    return w.pageTable().widget(4);
}

QAbstractItemView *table(QuvaCfgXMLEditor &w)
{
    return variablePage(w)->findChild<QAbstractItemView *>("tableView");
}

void paintTable(QuvaCfgXMLEditor &w)
{
    table(w)->viewport()->repaint();
}

// A window on the dataset, shown on the variable page.
std::unique_ptr<QuvaCfgXMLEditor> openWindow(const GeneratedDataset &data)
{
    auto w = std::make_unique<QuvaCfgXMLEditor>();
    w->resize(1200, 800);
    w->show();
    w->openConfigFile(data.cfgPath, false);
    w->pageTable().show(4);
    QApplication::processEvents();
    return w;
}

void checkRows(benchmark::State &state, QuvaCfgXMLEditor &w, int expected)
{
    if (table(w)->model()->rowCount() != expected)
        state.SkipWithError("the page does not show the expected rows");
}

void BM_OpenUntilRowsShown(benchmark::State &state)
{
    const GeneratedDataset &data = dataset(state.range(0));
    auto w = openWindow(data);
    for (auto _ : state) {
        w->openConfigFile(data.cfgPath, false);
        w->pageTable().show(4);
        paintTable(*w);
    }
    checkRows(state, *w, data.columnCount());
    state.counters["columns"] = data.columnCount();
}

void BM_Refilter(benchmark::State &state)
{
    const GeneratedDataset &data = dataset(state.range(0));
    auto w = openWindow(data);
    auto *pattern = variablePage(*w)->findChild<QLineEdit *>("leSelector1");
    const QString patterns[] = {QStringLiteral("*variable 1*"), QStringLiteral("*.dummy.*")};
    int turn = 0;
    for (auto _ : state) {
        pattern->setText(patterns[turn++ % 2]);
        paintTable(*w);
    }
    state.counters["columns"] = data.columnCount();
}

void BM_IgnoreAll(benchmark::State &state)
{
    const GeneratedDataset &data = dataset(state.range(0));
    auto w = openWindow(data);
    auto *ignore = variablePage(*w)->findChild<QPushButton *>("pbIgnore");
    for (auto _ : state) {
        table(*w)->selectAll();
        ignore->click();
        paintTable(*w);
        state.PauseTiming();
        w->undoStack()->undo();
        state.ResumeTiming();
    }
    if (w->undoStack()->count() != 1)
        state.SkipWithError("Ignore was not one command");
    state.counters["columns"] = data.columnCount();
}

void BM_UndoIgnoreAll(benchmark::State &state)
{
    const GeneratedDataset &data = dataset(state.range(0));
    auto w = openWindow(data);
    auto *ignore = variablePage(*w)->findChild<QPushButton *>("pbIgnore");
    for (auto _ : state) {
        state.PauseTiming();
        table(*w)->selectAll();
        ignore->click();
        state.ResumeTiming();
        w->undoStack()->undo();
        paintTable(*w);
    }
    state.counters["columns"] = data.columnCount();
}

} // namespace

BENCHMARK(BM_OpenUntilRowsShown)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Refilter)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IgnoreAll)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UndoIgnoreAll)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
