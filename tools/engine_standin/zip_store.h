#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// A ZIP archive whose entries are stored, not compressed: enough for the
// small Office file of the stand-in, with no library beyond Qt Core.
class ZipStore
{
public:
    void add(const QString &name, const QByteArray &data);
    // The whole archive: the entries, their central directory and its end.
    QByteArray bytes() const;

private:
    struct Entry
    {
        QByteArray name;
        QByteArray data;
        quint32 crc;
        quint32 offset;
    };
    QVector<Entry> entries_;
    quint32 size_ = 0;
};

// The CRC-32 of ZIP and PNG (reflected polynomial 0xEDB88320).
quint32 crc32(const QByteArray &data);
