#pragma once

#include "xml/xml_parser.h"

#include <QByteArray>
#include <QString>

// Reading a whole file for the XML readers, and why a file gave no tree.
// A file arrives from elsewhere: a folder, a FIFO that nobody writes, a
// device such as /dev/zero or a file of gigabytes must give a reason at once,
// never a hang or an exhausted memory. So a file is looked at before it is
// opened, opened once, only when it is a regular file, and read no further
// than a fixed limit.

// Files above this size are refused: 128 MiB, far above the largest
// description the engine writes.
constexpr qint64 xmlFileSizeLimit = qint64(128) << 20;

enum class XmlFileProblem {
    none,
    notFound,    // no such file
    folder,      // the path names a folder
    notRegular,  // a FIFO, a device or a socket
    unreadable,  // the system refused to open or read it: errorNumber
    tooLarge,    // more than xmlFileSizeLimit bytes
    empty,       // zero bytes
    notXml,      // the parser kept no tree: parse
    rootMissing, // a tree without the element looked for: root
};

// Why a read gave no tree; `problem` is none when it gave one.
struct XmlFileFailure
{
    XmlFileProblem problem = XmlFileProblem::none;
    QString path;
    int errorNumber = 0;
    unsigned fileType = 0; // notRegular: the S_IFMT bits of the file's mode
    XmlResult parse;
    QByteArray root;
};

// One English sentence that names the file and tells what is wrong with
// it, for a line of a message; empty when nothing is.
QString describeXmlFileFailure(const XmlFileFailure &failure);

// Reads the whole regular file at `path` into `bytes`. False with `failure`
// filled (may be null) when the file is missing, no regular file, cannot be
// read or is larger than xmlFileSizeLimit. A file of zero bytes is read.
bool readWholeFile(const QString &path, QByteArray *bytes, XmlFileFailure *failure);

// Fills `failure` (may be null) with a problem found by the caller.
void setXmlFileFailure(XmlFileFailure *failure, const QString &path, XmlFileProblem problem);
