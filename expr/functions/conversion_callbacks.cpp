#include "expr/functions/conversion_callbacks.h"

#include "expr/functions/numeric_callbacks.h"
#include "expr/functions/numeric_functions.h"

using quva::isStringValue;

namespace {

// ftoa, itoa and ftoh: a string stays, a number goes through `print`.
void evalNumberToText(mup::IValue &ret, const mup::IValue &x, QString (*print)(double))
{
    const QString text = isStringValue(x) ? x.GetString() : print(x.GetFloat());
    ret = text;
}

} // namespace

QUVA_DEFINE_FUNCTION(MuFToAX, "ftoa", 1,
                     "ftoa(x) - convert x as a floating point number to a string")
void MuFToAX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberToText(ret, *args[0], quva::numberToText);
}

QUVA_DEFINE_FUNCTION(MuIToAX, "itoa", 1, "itoa(x) - convert x as an int to a string")
void MuIToAX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberToText(ret, *args[0], quva::integerToText);
}

QUVA_DEFINE_FUNCTION(MuFToHX, "ftoh", 1,
                     "ftoh(x) - convert x as a positive integer number to a hexadecimal string")
void MuFToHX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberToText(ret, *args[0], quva::integerToHexText);
}

QUVA_DEFINE_FUNCTION(MuAToFX, "atof", 1, "atof(x) - convert x as a string to a double")
void MuAToFX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const mup::IValue &x = *args[0];
    const double result = isStringValue(x) ? quva::textToNumber(x.GetString()) : x.GetFloat();
    ret = result;
}

QUVA_DEFINE_FUNCTION(MuHToFX, "htof", 1,
                     "htof(x) - convert x as a hexadecimal string to a double")
void MuHToFX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const mup::IValue &x = *args[0];
    if (!isStringValue(x)) {
        const double number = x.GetFloat();
        ret = number;
        return;
    }
    const QString text = x.GetString();
    int value = 0;
    if (text.isNull())
        ret = quva::nullValue();
    else if (quva::hexTextToInt(text, &value))
        ret = value;
    else
        ret = quva::nanValue();
}

QUVA_DEFINE_FUNCTION(MuHToFA, "htoa", 1,
                     "htoa(x) - convert x as a hexadecimal string to a latin1 string")
void MuHToFA::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const mup::IValue &x = *args[0];
    const QString text = isStringValue(x) ? quva::hexTextToLatin1(x.GetString()) : QString();
    ret = text;
}

QUVA_DEFINE_FUNCTION(MuAsciiX, "codepoint", 1,
                     "codepoint(x) - returns the unicode codepoint of the last char of x")
void MuAsciiX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QString text = args[0]->GetString();
    if (text.isEmpty())
        ret = quva::nullValue();
    else
        ret = static_cast<int>(text.at(text.size() - 1).unicode());
}
