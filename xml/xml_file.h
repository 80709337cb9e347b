#pragma once

#include <QString>

// Readers of XML files and the text conversions they need.

class XmlNode;
struct XmlResult;

// Reads a file as bytes; a byte-order mark is stepped over.
XmlNode parseXmlFile(const char *path, const char *tag, XmlResult *result);

// The reader of the application's own files: without a byte-order mark the
// text is taken as UTF-8 when it is valid UTF-8, as Windows-1252 otherwise,
// and a `datasource` child marked utf8='1' is read again as UTF-8.
// *isUtf8 (may be null) tells whether the file began with the UTF-8 mark.
XmlNode readXmlFile(const QString &path, const char *tag, bool *isUtf8 = nullptr);

// Wide text (UTF-32 here) to the encoding chosen by xmlOptions: a new
// NUL-terminated string that the caller frees, or null.
char *toUtf8FromWide(const wchar_t *text);
