#include "shell/broker_wire.h"

#include <QLocalSocket>
#include <QtEndian>

#include <climits>

namespace {

constexpr int lengthBytes = 4;

// What is left of the deadline for a waitFor call: -1 for none, 0 when it
// has passed.
int msecsLeft(QDeadlineTimer deadline)
{
    const qint64 left = deadline.remainingTime();
    return left < 0 ? -1 : int(qMin<qint64>(left, INT_MAX));
}

// Waits until `count` bytes can be read, or the deadline passes.
bool waitForBytes(QLocalSocket &socket, qint64 count, QDeadlineTimer deadline)
{
    while (socket.bytesAvailable() < count) {
        const int left = msecsLeft(deadline);
        if (left == 0 || !socket.waitForReadyRead(left))
            return false;
    }
    return true;
}

} // namespace

QByteArray brokerFrame(char kind, const QByteArray &body)
{
    QByteArray frame(lengthBytes, '\0');
    qToBigEndian<quint32>(quint32(body.size() + 1), frame.data());
    frame.append(kind);
    frame.append(body);
    return frame;
}

QByteArray brokerText(const QString &text)
{
    QByteArray bytes(2 * (text.size() + 1), '\0');
    for (int i = 0; i < text.size(); ++i)
        qToLittleEndian<quint16>(text.at(i).unicode(), bytes.data() + 2 * i);
    return bytes;
}

bool readBrokerText(const QByteArray &body, QString *text)
{
    if (body.size() < 2 || body.size() % 2 != 0)
        return false;
    const int units = body.size() / 2 - 1;
    QString result(units, Qt::Uninitialized);
    for (int i = 0; i <= units; ++i) {
        const quint16 unit = qFromLittleEndian<quint16>(body.constData() + 2 * i);
        if ((unit == 0) != (i == units))
            return false;
        if (i < units)
            result[i] = QChar(unit);
    }
    *text = result;
    return true;
}

FrameTake takeBrokerFrame(QByteArray &pending, QByteArray *frame)
{
    if (pending.size() < lengthBytes)
        return FrameTake::Incomplete;
    const quint32 length = qFromBigEndian<quint32>(pending.constData());
    if (length == 0 || length > quint32(maxBrokerFrame))
        return FrameTake::Oversized;
    if (quint32(pending.size() - lengthBytes) < length)
        return FrameTake::Incomplete;
    *frame = pending.mid(lengthBytes, int(length));
    pending.remove(0, lengthBytes + int(length));
    return FrameTake::Frame;
}

bool writeBrokerFrame(QLocalSocket &socket, const QByteArray &frame, QDeadlineTimer deadline)
{
    if (socket.write(frame) != frame.size())
        return false;
    while (socket.bytesToWrite() > 0) {
        const int left = msecsLeft(deadline);
        if (left == 0 || !socket.waitForBytesWritten(left))
            return false;
    }
    return true;
}

bool readBrokerFrame(QLocalSocket &socket, QByteArray *frame, QDeadlineTimer deadline)
{
    if (!waitForBytes(socket, lengthBytes, deadline))
        return false;
    char header[lengthBytes];
    socket.peek(header, lengthBytes);
    const quint32 length = qFromBigEndian<quint32>(header);
    if (length == 0 || length > quint32(maxBrokerFrame))
        return false;
    if (!waitForBytes(socket, lengthBytes + qint64(length), deadline))
        return false;
    socket.read(header, lengthBytes);
    *frame = socket.read(length);
    return true;
}
