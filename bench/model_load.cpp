// Loading a large description with its configuration, step by step, beside
// the bare parse of the same bytes, and saving the configuration.
//
// The generated dataset has 20,000 variables and 60,000 columns: 10,000
// numeric ones (main, pass-through, one dummy), 5,000 nominal ones (main,
// three dummies) and 5,000 binary ones (main, one dummy). Every column of
// the configuration differs from the defaults, so each has its Var element.

#include "core/cfg_load.h"
#include "core/cfg_model.h"

#include "xml/xml_node.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstring>
#include <memory>

namespace {

constexpr int numericCount = 10000;
constexpr int nominalCount = 5000;
constexpr int binaryCount = 5000;

template <class T>
QByteArray base64Of(std::initializer_list<T> values)
{
    QByteArray bytes;
    for (T v : values) {
        char raw[sizeof(T)];
        std::memcpy(raw, &v, sizeof v);
        bytes.append(raw, int(sizeof v));
    }
    return bytes.toBase64();
}

QByteArray generatedDescription()
{
    const QByteArray limits = base64Of<double>({0.0, 12.5, 40.0, 97.25, 1200.0});
    const QByteArray oneDummy = base64Of<qint32>({2});
    const QByteArray threeDummies = base64Of<qint32>({0, 1, 3});
    QByteArray out = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<DESCRIPTION>\n"
                     " <QUV_Config version=\"1.0\">\n"
                     "  <datasource type=\"c\" sep=\";\">big.csv</datasource>\n"
                     "  <Target>bin_0</Target>\n </QUV_Config>\n <COLS>\n  <VALUE>\n";
    for (int i = 0; i < numericCount; ++i) {
        out += "   <COL name=\"num_" + QByteArray::number(i) + "\" label=\"Numeric variable "
            + QByteArray::number(i) + "\" auc=\"0.61\">\n    <LIMITS>" + limits
            + "</LIMITS>\n    <DUMMIES>" + oneDummy + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </VALUE>\n  <NOMINAL>\n";
    for (int i = 0; i < nominalCount; ++i) {
        out += "   <COL name=\"nom_" + QByteArray::number(i) + "\" label=\"Nominal variable "
            + QByteArray::number(i) + "\">\n    <POSSIBLEVALUES>\n"
            "     <VAL val=\"a\" label=\"Alpha\"/>\n     <VAL val=\"b\" label=\"Beta\"/>\n"
            "     <VAL val=\"c\"/>\n    </POSSIBLEVALUES>\n    <DUMMIES>" + threeDummies
            + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </NOMINAL>\n  <BIN>\n";
    for (int i = 0; i < binaryCount; ++i) {
        out += "   <COL name=\"bin_" + QByteArray::number(i) + "\" label=\"Flag " + QByteArray::number(i)
            + "\">\n    <DUMMIES>" + base64Of<qint32>({0}) + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </BIN>\n </COLS>\n</DESCRIPTION>\n";
    return out;
}

constexpr int columnCount = numericCount * 3 + nominalCount * 4 + binaryCount * 2;

QByteArray generatedConfiguration()
{
    QByteArray vars;
    for (int loc = 0; loc < columnCount; ++loc) {
        vars += "<Var loc='" + QByteArray::number(loc) + "'";
        switch (loc % 3) {
        case 0:
            vars += " fi='I'";
            break;
        case 1:
            vars += " penality='1.25'";
            break;
        default:
            vars += " monoto='I' minSizeModality='2.5' cm='1'";
            break;
        }
        vars += "/>";
    }
    return "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<QUV_Config version='1.0'\n"
           " nTestSet='6'>\n <DescriptionFile>\n  big.DescXML\n </DescriptionFile>\n <Vars>\n  "
        + vars
        + "\n </Vars>\n<Target type='C'>bin_0</Target>\n <Weight>num_3</Weight>\n</QUV_Config>";
}

// The generated files, written once into a temporary folder.
struct Dataset
{
    QTemporaryDir dir;
    QByteArray descBytes = generatedDescription();
    QByteArray cfgBytes = generatedConfiguration();
    QString descPath = dir.filePath("big.DescXML");
    QString cfgPath = dir.filePath("big.CfgXML");

    Dataset()
    {
        for (const auto &[path, bytes] : {std::pair{descPath, descBytes}, {cfgPath, cfgBytes}}) {
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("cannot write the generated files");
        }
    }
};

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
