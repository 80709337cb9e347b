// Option lists of the batch path, one option per line of the bytes (cut at a
// zero byte, as an argument of a command line is), applied in order to the
// example configuration until one is refused; the record then saves to a
// text that reads back into a record saving the same bytes.

#include "fuzz_cfg_support.h"
#include "fuzz_entry.h"

#include "core/batch_options.h"

namespace {

struct Example
{
    QString cfgPath;
    QString descPath;
    XmlNode cfgRoot;
    XmlNode descRoot;
};

// Read once; each input gets a record of its own built from the trees.
const Example &example()
{
    static const Example e = [] {
        Example x;
        x.cfgPath = QStringLiteral(QUVA_SOURCE_DIR "/examples/credit.CfgXML");
        x.descPath = fuzzcfg::folder() + QStringLiteral("/credit.DescXML");
        x.cfgRoot = readXmlFile(x.cfgPath, "QUV_Config");
        x.descRoot = readXmlFile(x.descPath, "DESCRIPTION");
        return x;
    }();
    return e;
}

} // namespace

int fuzzBatchOptions(const uint8_t *data, size_t size)
{
    const Example &e = example();
    CfgModel model(new DescModel(e.descPath, e.descRoot), e.cfgPath, e.cfgRoot);
    const QString options =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    for (QString option : options.split(QLatin1Char('\n'))) {
        const int zero = option.indexOf(QChar(0));
        if (zero >= 0)
            option.truncate(zero); // an argument of a command line ends there
        if (applyBatchOption(model, option).outcome == BatchOutcome::Refused)
            break;
    }
    fuzzcfg::checkSaveIsStable(model);
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzBatchOptions)
