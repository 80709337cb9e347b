// Any bytes as a .CfgXML beside the example descriptions: the load gives a
// record or a message, and a record's saved text reads back into a record
// that saves the very same bytes.

#include "fuzz_cfg_support.h"
#include "fuzz_entry.h"

#include "core/cfg_load.h"

int fuzzCfgLoad(const uint8_t *data, size_t size)
{
    const QString path = fuzzcfg::folder() + QStringLiteral("/input.CfgXML");
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    }
    const CfgLoad load = loadCfgFile(path, false, nullptr, QString());
    // A file that names itself as its description is not read back alike.
    if (load.model && descFilePath(*load.model) != path)
        fuzzcfg::checkSaveIsStable(*load.model);
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzCfgLoad)
