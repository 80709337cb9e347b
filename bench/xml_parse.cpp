// Throughput of the XML reader on a description-sized document, next to a
// DOM reader and Qt's stream reader over the same bytes, and the memory the
// parsed tree holds.

#include "xml/xml_node.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <malloc.h>

#include <cstdint>
#include <cstring>
#include <random>

namespace {

QByteArray base64Of(const void *data, int size)
{
    return QByteArray(static_cast<const char *>(data), size).toBase64();
}

QByteArray limitsText(std::mt19937 &random, int count)
{
    std::vector<double> limits(count);
    std::uniform_real_distribution<double> step(0.001, 10.0);
    double value = -100.0;
    for (double &limit : limits)
        limit = value += step(random);
    return base64Of(limits.data(), count * 8);
}

QByteArray dummiesText(std::mt19937 &random, int count, int modalities)
{
    std::vector<int32_t> dummies(count);
    for (int32_t &d : dummies)
        d = static_cast<int32_t>(random() % modalities);
    return base64Of(dummies.data(), count * 4);
}

QByteArray colOpening(int i, const char *group, std::mt19937 &random)
{
    QByteArray col = "      <COL name=\"var";
    col += QByteArray::number(i) + "\" label=\"Variable number " + QByteArray::number(i);
    col += "\" grpName=\"" + QByteArray(group) + "\" auc=\"";
    col += QByteArray::number(0.5 + (random() % 5000) / 10000.0) + "\">\n";
    return col;
}

// A .DescXML of `count` COL elements: numeric ones with LIMITS and DUMMIES,
// nominal ones with POSSIBLEVALUES and DUMMIES, binary ones.
QByteArray makeDescription(int count)
{
    std::mt19937 random(12345);
    QByteArray doc = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DESCRIPTION>\n";
    doc += "  <QUV_Config PartioningModel=\"1\" penality=\"0.02\">\n"
           "    <datasource utf8=\"1\" path=\"C:/data/set.csv\" separator=\";\"/>\n"
           "    <Target>var1</Target>\n  </QUV_Config>\n  <COLS>\n    <VALUE>\n";
    const int numeric = count * 7 / 10;
    const int nominal = count * 2 / 10;
    for (int i = 0; i < numeric; ++i) {
        doc += colOpening(i, "VALUE", random);
        doc += "        <LIMITS>" + limitsText(random, 100) + "</LIMITS>\n";
        doc += "        <DUMMIES>" + dummiesText(random, 100, 101) + "</DUMMIES>\n      </COL>\n";
    }
    doc += "    </VALUE>\n    <NOMINAL>\n";
    for (int i = numeric; i < numeric + nominal; ++i) {
        doc += colOpening(i, "NOMINAL", random);
        doc += "        <POSSIBLEVALUES>\n";
        for (int v = 1; v <= 8; ++v)
            doc += "          <VAL val=\"m" + QByteArray::number(v) + "\" label=\"Modality &amp; " +
                   QByteArray::number(v) + "\"/>\n";
        doc += "        </POSSIBLEVALUES>\n";
        doc += "        <DUMMIES>" + dummiesText(random, 8, 9) + "</DUMMIES>\n      </COL>\n";
    }
    doc += "    </NOMINAL>\n    <BIN>\n";
    for (int i = numeric + nominal; i < count; ++i)
        doc += colOpening(i, "BINARY", random).replace(">\n", "/>\n");
    doc += "    </BIN>\n  </COLS>\n</DESCRIPTION>\n";
    return doc;
}

const QByteArray &description()
{
    static const QByteArray doc = makeDescription(20000);
    return doc;
}

size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void BM_parseXmlText(benchmark::State &state)
{
    const QByteArray &doc = description();
    for (auto _ : state) {
        XmlResult result;
        XmlNode root = parseXmlText(doc.constData(), "DESCRIPTION", &result);
        if (result.status != XmlResult::ok || root.childNode("COLS").isEmpty()) {
            state.SkipWithError("parse failed");
            break;
        }
        benchmark::DoNotOptimize(root.data());
        // The release is measured on its own below. Trimming hands the next
        // parse a settled heap, as a program has that reads its file once,
        // instead of the deferred merging of the chunks just freed.
        state.PauseTiming();
        root = XmlNode();
        malloc_trim(0);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * doc.size());
    state.counters["file_MB"] = doc.size() / 1e6;
}

void BM_releaseTree(benchmark::State &state)
{
    const QByteArray &doc = description();
    for (auto _ : state) {
        state.PauseTiming();
        XmlNode root = parseXmlText(doc.constData(), nullptr, nullptr);
        state.ResumeTiming();
        root = XmlNode();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * doc.size());
}

void BM_pugixmlLoadBuffer(benchmark::State &state)
{
    const QByteArray &doc = description();
    for (auto _ : state) {
        pugi::xml_document tree;
        const pugi::xml_parse_result result = tree.load_buffer(doc.constData(), doc.size());
        if (!result) {
            state.SkipWithError("parse failed");
            break;
        }
        benchmark::DoNotOptimize(tree.first_child().internal_object());
        state.PauseTiming();
        tree.reset();
        malloc_trim(0);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * doc.size());
}

void BM_QXmlStreamReader(benchmark::State &state)
{
    const QByteArray &doc = description();
    for (auto _ : state) {
        QXmlStreamReader reader(doc);
        int elements = 0;
        while (!reader.atEnd())
            elements += reader.readNext() == QXmlStreamReader::StartElement;
        if (reader.hasError()) {
            state.SkipWithError("parse failed");
            break;
        }
        benchmark::DoNotOptimize(elements);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * doc.size());
}

// Heap held by the parsed tree, allocator overhead included.
void BM_treeMemory(benchmark::State &state)
{
    const QByteArray &doc = description();
    size_t tree = 0;
    size_t pugiTree = 0;
    for (auto _ : state) {
        const size_t before = heapInUse();
        XmlNode root = parseXmlText(doc.constData(), nullptr, nullptr);
        tree = heapInUse() - before;
        root = XmlNode();
        const size_t pugiBefore = heapInUse();
        pugi::xml_document other;
        other.load_buffer(doc.constData(), doc.size());
        pugiTree = heapInUse() - pugiBefore;
    }
    state.counters["tree_MB"] = tree / 1e6;
    state.counters["tree_per_file"] = double(tree) / doc.size();
    state.counters["pugixml_tree_per_file"] = double(pugiTree) / doc.size();
}

} // namespace

BENCHMARK(BM_parseXmlText)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_releaseTree)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_pugixmlLoadBuffer)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_QXmlStreamReader)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_treeMemory)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
