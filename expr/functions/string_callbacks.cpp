#include "expr/functions/string_callbacks.h"

#include "expr/functions/numeric_callbacks.h"
#include "expr/functions/string_functions.h"
#include "text/trim.h"

using quva::isStringValue;

namespace {

// Texts and positions are read with their argument index, so that a type
// error names the right place in `left(s, s)`.
QString text(const mup::IValue *const *args, int index)
{
    return mup::stringArgument(args, index);
}

int position(const mup::IValue *const *args, int index)
{
    return quva::truncToInt32(mup::floatArgument(args, index));
}

// A function of one text giving a text.
void evalTextToText(mup::IValue &ret, const mup::IValue *const *args,
                    QString (*f)(const QString &))
{
    const QString result = f(text(args, 0));
    ret = result;
}

void assignText(mup::IValue &ret, const QString &result) { ret = result; }
void assignTest(mup::IValue &ret, bool result) { ret = result; }

// The four number tests: a number or the null string passes.
void evalNumberTest(mup::IValue &ret, const mup::IValue &x,
                    bool (*test)(const QString &, bool), bool strict)
{
    const QString s = isStringValue(x) ? x.GetString() : QString();
    if (s.isNull())
        ret = 1;
    else
        assignTest(ret, test(s, strict));
}

QString lower(const QString &s) { return s.toLower(); }
QString upper(const QString &s) { return s.toUpper(); }
QString caseFolded(const QString &s) { return s.toCaseFolded(); }

} // namespace

QUVA_DEFINE_FUNCTION(MuSubstrX, "substr", 3,
                     "substr(x,s,l) - extract from the string x a substring starting at "
                     "character of index 's' and of length 'l'")
void MuSubstrX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignText(ret, text(args, 0).mid(position(args, 1), position(args, 2)));
}

QUVA_DEFINE_FUNCTION(MuSubStringX, "substring", 3,
                     "substring(x,s,e) - extract from the string x a substring starting at "
                     "character of index 's' and ending at index 'e'")
void MuSubStringX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const QString x = text(args, 0);
    const int s = position(args, 1);
    const int e = position(args, 2);
    if (e <= s) {
        assignText(ret, QString());
        return;
    }
    const qint64 length = qint64(e) - qint64(s);
    assignText(ret, x.mid(s, length > INT32_MAX ? -1 : int(length)));
}

QUVA_DEFINE_FUNCTION(MuLeftX, "left", 2,
                     "left(x,l) - returns a substring composed of the first 'l' character of "
                     "string x")
void MuLeftX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignText(ret, text(args, 0).left(position(args, 1)));
}

QUVA_DEFINE_FUNCTION(MuRightX, "right", 2,
                     "right(x,l) - returns a substring composed of the last 'l' character of "
                     "string x")
void MuRightX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignText(ret, text(args, 0).right(position(args, 1)));
}

QUVA_DEFINE_FUNCTION(MuStartsWith, "startsWith", 2,
                     "startsWith(x,s) - return true if the string x starts with the string s")
void MuStartsWith::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignTest(ret, text(args, 0).startsWith(text(args, 1)));
}

QUVA_DEFINE_FUNCTION(MuEndsWith, "endsWith", 2,
                     "endsWith(x,s) - return true if the string x ends with the string s")
void MuEndsWith::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignTest(ret, text(args, 0).endsWith(text(args, 1)));
}

QUVA_DEFINE_FUNCTION(MuStrReplace, "replace", 3,
                     "replace(s,before,after) - Replaces every occurrence of the string "
                     "<before> with the string <after> and returns result")
void MuStrReplace::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    QString s = text(args, 0);
    s.replace(text(args, 1), text(args, 2));
    assignText(ret, s);
}

QUVA_DEFINE_FUNCTION(MuIndexOf, "indexOf", 2, "indexOf(x,y) - returns the position of y inside x")
void MuIndexOf::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = text(args, 0).indexOf(text(args, 1));
}

QUVA_DEFINE_FUNCTION(MuIndexOf2, "indexOf2", 3,
                     "indexOf2(x,y,p) - returns the position of y inside x starting at position p")
void MuIndexOf2::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = text(args, 0).indexOf(text(args, 1), position(args, 2));
}

QUVA_DEFINE_FUNCTION(MuLastIndexOf, "lastIndexOf", 2,
                     "lastindexof(x,y,p) - returns the last position of y inside x")
void MuLastIndexOf::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = quva::lastIndexOf(text(args, 0), text(args, 1));
}

QUVA_DEFINE_FUNCTION(MuLastIndexOf2, "lastIndexOf2", 3,
                     "lastindexof2(x,y,p) - returns the last position of y inside x starting "
                     "at position p")
void MuLastIndexOf2::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = text(args, 0).lastIndexOf(text(args, 1), position(args, 2));
}

QUVA_DEFINE_FUNCTION(MuContains, "contains", 2, "contains(x,y) - Is y contained in x?")
void MuContains::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignTest(ret, text(args, 0).indexOf(text(args, 1)) >= 0);
}

QUVA_DEFINE_FUNCTION(MuCountText, "countText", 2,
                     "countText(x,y) - count the number of occurrences of y in x")
void MuCountText::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    ret = quva::countText(text(args, 0), text(args, 1));
}

QUVA_DEFINE_FUNCTION(MuToLowerX, "tolower", 1,
                     "tolower(s) - Converts the string s to lowercase characters.")
void MuToLowerX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, lower);
}

QUVA_DEFINE_FUNCTION(MuToUpperX, "toupper", 1,
                     "toupper(s) - Converts the string s to uppercase characters.")
void MuToUpperX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, upper);
}

QUVA_DEFINE_FUNCTION(MuToCaseFoldedX, "toCaseFolded", 1,
                     "toCaseFolded(s) - Converts the string s to CaseFolded characters.")
void MuToCaseFoldedX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, caseFolded);
}

QUVA_DEFINE_FUNCTION(MuTrimX, "trim", 1, "trim(x) - returns the string x trimmed")
void MuTrimX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, myTrim);
}

QUVA_DEFINE_FUNCTION(MuLTrimX, "ltrim", 1, "ltrim(x) - returns the string x left-trimmed")
void MuLTrimX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, myTrimLeft);
}

QUVA_DEFINE_FUNCTION(MuRTrimX, "rtrim", 1, "rtrim(x) - returns the string x right-trimmed")
void MuRTrimX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, myTrimRight);
}

QUVA_DEFINE_FUNCTION(MuTrim2X, "trim2", 2,
                     "trim(x,y) - returns the string x without y at the end/start")
void MuTrim2X::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    assignText(ret, quva::trim2(text(args, 0), text(args, 1)));
}

QUVA_DEFINE_FUNCTION(MuCharAtX, "charAt", 2, "charAt(x,i) - returns char at position i")
void MuCharAtX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    const mup::IValue &x = *args[0];
    if (!isStringValue(x)) {
        const double number = x.GetFloat();
        ret = number;
        return;
    }
    const QString s = x.GetString();
    const int i = position(args, 1);
    if (s.isNull())
        ret = quva::nullValue();
    else if (s.isEmpty())
        ret = -1;
    else if (i < 0 || i >= s.size())
        ret = quva::nullValue();
    else
        ret = static_cast<int>(s.at(i).unicode());
}

QUVA_DEFINE_FUNCTION(MuIsNumber, "isNumber", 1,
                     "isNumber(x) - test if the x string contains a number")
void MuIsNumber::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberTest(ret, *args[0], quva::isNumberString, false);
}

QUVA_DEFINE_FUNCTION(MuIsNumberStrict, "isNumberStrict", 1,
                     "isNumberStrict(x) - test if the x string is a number")
void MuIsNumberStrict::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberTest(ret, *args[0], quva::isNumberString, true);
}

QUVA_DEFINE_FUNCTION(MuIsInteger, "isInteger", 1,
                     "isInteger(x) - test if the x string contains an integer number")
void MuIsInteger::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberTest(ret, *args[0], quva::isIntegerString, false);
}

QUVA_DEFINE_FUNCTION(MuIsIntegerStrict, "isIntegerStrict", 1,
                     "isIntegerStrict(x) - test if the x string is an integer number")
void MuIsIntegerStrict::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalNumberTest(ret, *args[0], quva::isIntegerString, true);
}

QUVA_DEFINE_FUNCTION(MuAToB64X, "atob64", 1, "atob64(x) - encode the utf8 string x to base64")
void MuAToB64X::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::utf8ToBase64);
}

QUVA_DEFINE_FUNCTION(MuB64ToAX, "b64toa", 1, "b64toa(x) - decode a base64 to a utf8 string")
void MuB64ToAX::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::base64ToUtf8);
}

QUVA_DEFINE_FUNCTION(MuAToB642X, "atob642", 1,
                     "atob642(x) - encode the latin1 string x to base64")
void MuAToB642X::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::latin1ToBase64);
}

QUVA_DEFINE_FUNCTION(MuB64ToA2X, "b64toa2", 1,
                     "b64toa2(x) - decode a base64 to a latin1 string")
void MuB64ToA2X::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::base64ToLatin1);
}

QUVA_DEFINE_FUNCTION(MuUrlEncode, "urlEncode", 1,
                     "urlEncode(x) - encode the string x to include in a url")
void MuUrlEncode::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::urlEncode);
}

QUVA_DEFINE_FUNCTION(MuXmlEncode, "xmlEncode", 1,
                     "xmlEncode(x) - encode the string x to include in xml")
void MuXmlEncode::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::xmlEncode);
}

QUVA_DEFINE_FUNCTION(MuJsonEncode, "jsonEncode", 1,
                     "jsonEncode(x) - encode the string x to include in json")
void MuJsonEncode::Eval(mup::IValue &ret, const mup::IValue *const *args, int)
{
    evalTextToText(ret, args, quva::jsonEncode);
}
