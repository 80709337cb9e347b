// Loading a large description with its configuration, step by step, beside
// the bare parse of the same bytes, and saving the configuration.
//
// On the generated dataset of 20,000 variables and 60,000 columns.

#include "core/cfg_load.h"
#include "core/cfg_model.h"

#include "xml/xml_node.h"

#include "generated_dataset.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <memory>

namespace {

using Dataset = GeneratedDataset;
const int columnCount = 60000;

Dataset &dataset()
{
    static Dataset data;
    return data;
}

void setBytes(benchmark::State &state, qint64 bytes)
{
    state.SetBytesProcessed(state.iterations() * bytes);
}

void BM_ParseDescription(benchmark::State &state)
{
    const Dataset &data = dataset();
    for (auto _ : state) {
        XmlNode root = parseXmlText(data.descBytes.constData(), "DESCRIPTION", nullptr);
        benchmark::DoNotOptimize(root.data());
    }
    setBytes(state, data.descBytes.size());
}

void BM_ParseConfiguration(benchmark::State &state)
{
    const Dataset &data = dataset();
    for (auto _ : state) {
        XmlNode root = parseXmlText(data.cfgBytes.constData() + 3, "QUV_Config", nullptr);
        benchmark::DoNotOptimize(root.data());
    }
    setBytes(state, data.cfgBytes.size());
}

void BM_BuildDescModel(benchmark::State &state)
{
    const XmlNode root = parseXmlText(dataset().descBytes.constData(), "DESCRIPTION", nullptr);
    for (auto _ : state) {
        auto desc = std::make_unique<DescModel>(QStringLiteral("big.DescXML"), root);
        benchmark::DoNotOptimize(desc->columns.data());
        if (desc->columnCount() != columnCount)
            state.SkipWithError("wrong column count");
        // Destruction is not part of building.
        state.PauseTiming();
        desc.reset();
        state.ResumeTiming();
    }
    state.counters["columns"] = columnCount;
}

void BM_BuildCfgModel(benchmark::State &state)
{
    const XmlNode descRoot = parseXmlText(dataset().descBytes.constData(), "DESCRIPTION", nullptr);
    const XmlNode cfgRoot = parseXmlText(dataset().cfgBytes.constData() + 3, "QUV_Config", nullptr);
    for (auto _ : state) {
        // Only the configuration's own reading is timed: the description it
        // takes over is built, and the record destroyed, with the timer off.
        state.PauseTiming();
        auto *desc = new DescModel(QStringLiteral("big.DescXML"), descRoot);
        state.ResumeTiming();
        auto model = std::make_unique<CfgModel>(desc, dataset().cfgPath, cfgRoot);
        benchmark::DoNotOptimize(model->fi);
        if (model->fi[0] != 'I' || model->cm[2] != 1)
            state.SkipWithError("configuration not read");
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
    }
}

void BM_LoadCfgFile(benchmark::State &state)
{
    const Dataset &data = dataset();
    for (auto _ : state) {
        std::unique_ptr<CfgModel> model(loadCfgFile(data.cfgPath, true, nullptr, QString()).model.release());
        if (!model)
            state.SkipWithError("load failed");
        benchmark::DoNotOptimize(model.get());
    }
    setBytes(state, data.descBytes.size() + data.cfgBytes.size());
}

void BM_CfgFileBytes(benchmark::State &state)
{
    std::unique_ptr<CfgModel> model(
        loadCfgFile(dataset().cfgPath, true, nullptr, QString()).model.release());
    for (auto _ : state) {
        const QByteArray bytes = cfgFileBytes(*model);
        benchmark::DoNotOptimize(bytes.constData());
    }
    state.counters["columns"] = model->columnCount();
}

void BM_SaveCfgFile(benchmark::State &state)
{
    std::unique_ptr<CfgModel> model(
        loadCfgFile(dataset().cfgPath, true, nullptr, QString()).model.release());
    model->cfgFileName = dataset().dir.filePath("saved.CfgXML");
    for (auto _ : state) {
        if (!saveCfgFile(*model))
            state.SkipWithError("save failed");
    }
    state.counters["columns"] = model->columnCount();
    state.counters["bytes"] = QFileInfo(model->cfgFileName).size();
}

} // namespace

BENCHMARK(BM_ParseDescription)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseConfiguration)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildDescModel)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildCfgModel)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadCfgFile)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CfgFileBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveCfgFile)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    // The records' file watchers want an application object.
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
