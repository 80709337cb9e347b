#pragma once

#include <QByteArray>
#include <QString>

// Readers of XML files and the text conversions they need.

class XmlNode;
struct XmlFileFailure;
struct XmlResult;

// Files are read through readWholeFile (file_read.h): only regular files,
// opened once, of at most xmlFileSizeLimit bytes. Where a read gives the
// empty node, `failure` (may be null) tells why.

// Reads a file as bytes; a byte-order mark is stepped over. A file that
// cannot be read for any reason, a folder or a FIFO among them, gives
// fileNotFound.
XmlNode parseXmlFile(const char *path, const char *tag, XmlResult *result,
                     XmlFileFailure *failure = nullptr);

// The reader of the application's own files: without a byte-order mark the
// text is taken as UTF-8 when it is valid UTF-8, as Windows-1252 otherwise,
// and a `datasource` child marked utf8='1' is read again as UTF-8.
// *isUtf8 (may be null) tells whether the file began with the UTF-8 mark.
XmlNode readXmlFile(const QString &path, const char *tag, bool *isUtf8 = nullptr,
                    XmlFileFailure *failure = nullptr);

// The same on bytes already read from the file at `path`.
XmlNode parseXmlFileBytes(const QByteArray &raw, const char *tag, bool *isUtf8,
                          const QString &path, XmlFileFailure *failure);

// Wide text (UTF-32 here) to the encoding chosen by xmlOptions: a new
// NUL-terminated string that the caller frees, or null.
char *toUtf8FromWide(const wchar_t *text);
