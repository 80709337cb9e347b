// libFuzzer entry: parse the bytes, write the tree back, parse that again.

#include "xml/xml_node.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    char *text = static_cast<char *>(malloc(size + 1));
    memcpy(text, data, size);
    text[size] = 0;
    XmlResult result;
    const XmlNode node =
        parseXmlText(text, size > 0 && data[0] == 'D' ? "DESCRIPTION" : nullptr, &result);
    for (bool format : {false, true}) {
        int length = 0;
        char *written = node.xmlText(format, &length);
        if (written && static_cast<int>(strlen(written)) > length)
            abort();
        XmlNode again = parseXmlText(written, nullptr, nullptr);
        free(written);
    }
    free(text);
    return 0;
}
