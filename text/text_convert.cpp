#include "text/text_convert.h"

#include <cstdlib>

namespace {

bool isBlankText(const char *text) { return !text || !*text; }

} // namespace

int chk_atoi(const char *text, int defaultValue)
{
    return isBlankText(text) ? defaultValue : std::atoi(text);
}

double chk_atof(const char *text, double defaultValue)
{
    return isBlankText(text) ? defaultValue : std::atof(text);
}

bool chk_atob(const char *text, bool defaultValue)
{
    if (isBlankText(text))
        return defaultValue;
    return static_cast<unsigned char>(std::atoi(text)) != 0;
}

char chk_char(const char *text, char defaultValue)
{
    return isBlankText(text) ? defaultValue : text[0];
}

const char *chk_str(const char *text, const char *defaultValue)
{
    return text ? text : defaultValue;
}
