#include "xml/xml_file.h"

#include "text/code_page.h"
#include "xml/file_read.h"
#include "xml/xml_node.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool startsWith(const char *data, long size, const char *mark, int length)
{
    return size >= length && memcmp(data, mark, length) == 0;
}

// Stand-in for the system's guess whether a buffer is 16-bit text: a
// 16-bit byte-order mark, or mostly zero high bytes in little-endian order.
bool looksLikeUtf16(const char *data, long size)
{
    if (startsWith(data, size, "\xFF\xFE", 2) || startsWith(data, size, "\xFE\xFF", 2))
        return true;
    if (size < 2 || size % 2 != 0)
        return false;
    long zeros = 0;
    for (long i = 1; i < size; i += 2)
        zeros += data[i] == 0;
    return zeros * 2 >= size / 2 + 1;
}

// Little-endian 16-bit text up to its first 0 unit, to wide characters.
// Unpaired surrogates are kept so that the conversion behind can refuse them.
std::wstring wideFromUtf16(const char *data)
{
    const auto *p = reinterpret_cast<const unsigned char *>(data);
    std::wstring out;
    for (;; p += 2) {
        char32_t unit = p[0] | (p[1] << 8);
        if (unit == 0)
            break;
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            const char32_t low = p[2] | (p[3] << 8);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
                p += 2;
            }
        }
        out.push_back(static_cast<wchar_t>(unit));
    }
    return out;
}

XmlNode failed(XmlResult *result, int status)
{
    if (result) {
        *result = XmlResult();
        result->status = status;
    }
    return XmlNode();
}

bool attributeAsBool(const char *value)
{
    return value && value[0] && static_cast<unsigned char>(atoi(value)) != 0;
}

// The `datasource` element of a file in the 8-bit page may have been
// written in UTF-8: it is read again from the raw bytes as UTF-8.
void rereadUtf8Datasource(XmlNode &root, const QByteArray &raw)
{
    XmlNode old = root.childNode("datasource");
    if (!attributeAsBool(old.attribute("utf8")))
        return;
    QByteArray text = QString::fromUtf8(raw).toUtf8();
    char *begin = strstr(text.data(), "<datasource ");
    if (begin == nullptr)
        return;
    if (char *end = strstr(begin, "</datasource>"))
        *end = 0;
    XmlNode fresh = parseXmlText(begin, "datasource", nullptr);
    if (fresh.isEmpty())
        return;
    old.removeFromTree();
    root.addChildNode(fresh, -1);
}

// Why a file that was read gave no tree.
void explainEmptyTree(XmlFileFailure *failure, const QByteArray &raw, const char *tag,
                      const XmlResult &result)
{
    if (failure == nullptr)
        return;
    if (raw.isEmpty()) {
        failure->problem = XmlFileProblem::empty;
    } else if (result.status == XmlResult::rootNotFound) {
        failure->problem = XmlFileProblem::rootMissing;
        failure->root = tag;
    } else {
        failure->problem = XmlFileProblem::notXml;
        failure->parse = result;
    }
}

} // namespace

char *toUtf8FromWide(const wchar_t *text)
{
    if (text == nullptr)
        return nullptr;
    QByteArray out;
    for (const wchar_t *p = text; *p; ++p) {
        const auto code = static_cast<char32_t>(*p);
        if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return nullptr; // no character: the conversion fails
        if (xmlOptions.encoding == XmlEncoding::Utf8)
            appendUtf8(out, code);
        else
            out.append(windows1252FromUnicode(code));
    }
    char *result = static_cast<char *>(malloc(out.size() + 1));
    memcpy(result, out.constData(), out.size() + 1);
    return result;
}

XmlNode parseXmlFile(const char *path, const char *tag, XmlResult *result,
                     XmlFileFailure *failure)
{
    QByteArray raw;
    if (path == nullptr) {
        setXmlFileFailure(failure, QString(), XmlFileProblem::notFound);
        return failed(result, XmlResult::fileNotFound);
    }
    if (!readWholeFile(QFile::decodeName(path), &raw, failure))
        return failed(result, XmlResult::fileNotFound);
    if (raw.isEmpty()) {
        setXmlFileFailure(failure, QFile::decodeName(path), XmlFileProblem::empty);
        return failed(result, XmlResult::emptyFile);
    }
    const long got = raw.size();
    // Four zero bytes end a text of any width.
    raw.append(4, 0);
    const char *buffer = raw.constData();
    long skip = 0;
    const bool wide = xmlOptions.guessUnicode && looksLikeUtf16(buffer, got);
    if (startsWith(buffer, got, "\xEF\xFF", 2) || startsWith(buffer, got, "\xFF\xFE", 2))
        skip = 2;
    else if (startsWith(buffer, got, "\xEF\xBB\xBF", 3) && !wide)
        skip = 3;
    if (!wide)
        return parseXmlText(buffer + skip, tag, result);
    char *converted = toUtf8FromWide(wideFromUtf16(buffer + skip).c_str());
    if (converted == nullptr)
        return failed(result, XmlResult::conversionFailed);
    XmlNode node = parseXmlText(converted, tag, result);
    free(converted);
    return node;
}

XmlNode parseXmlFileBytes(const QByteArray &raw, const char *tag, bool *isUtf8,
                          const QString &path, XmlFileFailure *failure)
{
    setXmlFileFailure(failure, path, XmlFileProblem::none);
    XmlResult result;
    XmlNode root;
    if (raw.startsWith("\xEF\xBB\xBF")) {
        root = parseXmlText(raw.constData() + 3, tag, &result);
    } else if (isValidUtf8(raw.constData(), raw.size())) {
        root = parseXmlText(raw.constData(), tag, &result);
    } else {
        const QByteArray text = windows1252ToUtf8(raw.constData(), raw.size());
        root = parseXmlText(text.constData(), tag, &result);
    }
    if (isUtf8)
        *isUtf8 = raw.startsWith("\xEF\xBB\xBF");
    if (!raw.startsWith("\xEF\xBB\xBF"))
        rereadUtf8Datasource(root, raw);
    if (root.isEmpty())
        explainEmptyTree(failure, raw, tag, result);
    return root;
}

XmlNode readXmlFile(const QString &path, const char *tag, bool *isUtf8, XmlFileFailure *failure)
{
    QByteArray raw;
    if (!readWholeFile(path, &raw, failure))
        return XmlNode();
    return parseXmlFileBytes(raw, tag, isUtf8, path, failure);
}
