#pragma once

#include <QByteArray>
#include <QString>

struct Report;

// The XML form of a document:
//   <ROOT title="..." producer="Quva engine stand-in" modelFitted="no">
//     <note>...</note>
//     <section name="..." title="..."><p>...</p><row KEY="..." .../></section>
//   </ROOT>
// UTF-8, indented; every text is escaped, so the file is well-formed
// whatever the configuration holds.
QByteArray reportXml(const Report &report, const QString &rootName);

// Reads a document back with the program's own XML reader. `rootName` is
// the element looked for. A file that cannot be read gives a report with
// no title and no sections. The keys of a section are the attribute names
// of its first row.
Report readReportXml(const QString &path, const char *rootName);
