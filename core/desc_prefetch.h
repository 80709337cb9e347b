#pragma once

#include "xml/file_read.h"
#include "xml/xml_node.h"

#include <QString>

#include <thread>

struct DescModel;

// Reading a description on a second thread while its configuration is still
// being parsed on the first. Which description a configuration names is only
// known once its tree is there; the path is guessed beforehand from the raw
// bytes of the file, and the work done for the guess is used only when the
// tree names exactly that path. A wrong or missing guess costs nothing but
// the wasted work of the second thread.
class DescPrefetch
{
public:
    DescPrefetch() = default;
    ~DescPrefetch(); // waits for the thread; frees what was not taken
    DescPrefetch(const DescPrefetch &) = delete;
    DescPrefetch &operator=(const DescPrefetch &) = delete;

    // Starts reading `readPath` and building its record for `descPath`.
    void start(const QString &descPath, const QString &readPath);
    // The tree and record read for `descPath` at `readPath`, as a load on
    // this thread would have made them (the record is null when the tree is
    // empty, and `failure`, when given, tells why); false when the guess was
    // another path or nothing was started.
    bool take(const QString &descPath, const QString &readPath, XmlNode *root, DescModel **desc,
              XmlFileFailure *failure = nullptr);

private:
    void wait();

    std::thread worker;
    QString guessedDescPath;
    QString guessedReadPath;
    XmlNode root;
    DescModel *desc = nullptr;
    XmlFileFailure failure;
};

// The text of the configuration's DescriptionFile element, found in the
// first 64 KiB of the file's bytes without parsing them; empty where the
// element is not written plainly there (entities, markup, non-ASCII text
// without the UTF-8 mark), so that no guess is made.
QString guessDescPath(const QByteArray &cfgBytes);
