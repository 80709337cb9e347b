#include "core/desc_prefetch.h"

#include "core/desc_model.h"

#include "xml/xml_file.h"

namespace {

// The writer puts the element near the top, behind the root's attributes.
constexpr qint64 headBytes = 64 * 1024;

bool isAscii(const QByteArray &bytes)
{
    for (const char c : bytes) {
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    }
    return true;
}

} // namespace

QString guessDescPath(const QByteArray &cfgBytes)
{
    const QByteArray head = QByteArray::fromRawData(cfgBytes.constData(),
                                                    int(qMin<qint64>(cfgBytes.size(), headBytes)));
    static const QByteArray opening = QByteArrayLiteral("<DescriptionFile>");
    const int begin = head.indexOf(opening);
    if (begin < 0)
        return QString();
    const int textBegin = begin + opening.size();
    const int end = head.indexOf('<', textBegin);
    if (end < 0 || head.indexOf("</DescriptionFile>", end) != end)
        return QString();
    const QByteArray text = head.mid(textBegin, end - textBegin).trimmed();
    const bool utf8 = head.startsWith("\xEF\xBB\xBF");
    if (text.contains('&') || (!utf8 && !isAscii(text)))
        return QString();
    return QString::fromUtf8(text);
}

DescPrefetch::~DescPrefetch()
{
    wait();
    delete desc;
}

void DescPrefetch::start(const QString &descPath, const QString &readPath)
{
    wait();
    guessedDescPath = descPath;
    guessedReadPath = readPath;
    // While the worker runs, the loading thread only parses the
    // configuration; the record's build below is the only user of the shared
    // Base64 buffer then.
    worker = std::thread([this] {
        root = readXmlFile(guessedReadPath, "DESCRIPTION", nullptr, &failure);
        if (!root.isEmpty())
            desc = new DescModel(guessedDescPath, root);
    });
}

bool DescPrefetch::take(const QString &descPath, const QString &readPath, XmlNode *treeOut,
                        DescModel **descOut, XmlFileFailure *failureOut)
{
    // Nothing started, or taken already, leaves no read path.
    if (guessedReadPath.isEmpty() || descPath != guessedDescPath || readPath != guessedReadPath)
        return false;
    wait();
    *treeOut = root;
    *descOut = desc;
    if (failureOut)
        *failureOut = failure;
    root = XmlNode();
    desc = nullptr;
    guessedDescPath.clear();
    guessedReadPath.clear();
    return true;
}

void DescPrefetch::wait()
{
    if (worker.joinable())
        worker.join();
}
