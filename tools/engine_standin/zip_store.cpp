#include "tools/engine_standin/zip_store.h"

#include <array>

namespace {

constexpr std::array<quint32, 256> makeCrcTable()
{
    std::array<quint32, 256> t{};
    for (quint32 n = 0; n < 256; ++n) {
        quint32 c = n;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        t[n] = c;
    }
    return t;
}
constexpr std::array<quint32, 256> crcTable = makeCrcTable();
static_assert(crcTable[1] == 0x77073096u, "the ZIP polynomial");

void put16(QByteArray &out, quint32 v)
{
    out += char(v & 0xFF);
    out += char((v >> 8) & 0xFF);
}

void put32(QByteArray &out, quint32 v)
{
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

// Version, flags, method (0: stored), time and date (1980-01-01 00:00),
// CRC and both sizes: the part that the local header and the central
// directory share.
void putCommon(QByteArray &out, quint32 crc, quint32 size, quint32 nameSize)
{
    put16(out, 20);
    put16(out, 0x0800); // names in UTF-8
    put16(out, 0);
    put16(out, 0);
    put16(out, 0x21);
    put32(out, crc);
    put32(out, size);
    put32(out, size);
    put16(out, nameSize);
    put16(out, 0); // extra field
}

} // namespace

quint32 crc32(const QByteArray &data)
{
    quint32 c = 0xFFFFFFFFu;
    for (const char byte : data)
        c = crcTable[(c ^ quint8(byte)) & 0xFF] ^ (c >> 8);
    return c ^ 0xFFFFFFFFu;
}

void ZipStore::add(const QString &name, const QByteArray &data)
{
    const QByteArray utf8 = name.toUtf8();
    entries_.append(Entry{utf8, data, crc32(data), size_});
    size_ += 30 + quint32(utf8.size()) + quint32(data.size());
}

QByteArray ZipStore::bytes() const
{
    QByteArray out;
    for (const Entry &e : entries_) {
        put32(out, 0x04034b50);
        putCommon(out, e.crc, quint32(e.data.size()), quint32(e.name.size()));
        out += e.name + e.data;
    }
    const quint32 directoryStart = quint32(out.size());
    for (const Entry &e : entries_) {
        put32(out, 0x02014b50);
        put16(out, 20); // made by
        putCommon(out, e.crc, quint32(e.data.size()), quint32(e.name.size()));
        put16(out, 0); // comment
        put16(out, 0); // disk
        put16(out, 0); // internal attributes
        put32(out, 0); // external attributes
        put32(out, e.offset);
        out += e.name;
    }
    const quint32 directorySize = quint32(out.size()) - directoryStart;
    put32(out, 0x06054b50);
    put32(out, 0); // this disk, and the disk of the directory
    put16(out, quint32(entries_.size()));
    put16(out, quint32(entries_.size()));
    put32(out, directorySize);
    put32(out, directoryStart);
    put16(out, 0); // comment
    return out;
}
