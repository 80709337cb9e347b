#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>

class QLocalSocket;

// The frames that the window broker's client, its server and each editor's
// raise listener exchange on local sockets (docs/window_broker.md). A frame
// is a 32-bit length in network byte order and then that many bytes: one
// byte saying what the frame is, then its body.

// What a client sends.
constexpr char frameTopic = 'T';   // opens a conversation; body: the topic text
constexpr char frameExecute = 'X'; // body: the command text
constexpr char frameRequest = 'R'; // body: the item text

// What an execute comes back as; a reply frame carries it as its kind byte.
enum BrokerReply { BrokerAcknowledged = 0, BrokerBusy = 1, BrokerFailed = 2 };

// Most bytes a frame may carry behind its length. A longer one is refused
// before it is read.
constexpr int maxBrokerFrame = 64 * 1024;

// A frame of the given kind with its length in front.
QByteArray brokerFrame(char kind, const QByteArray &body = QByteArray());

// Text on the wire: UTF-16 units, little-endian, with a terminating zero.
QByteArray brokerText(const QString &text);
// Reads such a text back: an even byte count ending in the only zero unit.
// False for anything else.
bool readBrokerText(const QByteArray &body, QString *text);

// Takes the first whole frame (kind byte and body, without the length) off
// the front of bytes received so far.
enum class FrameTake { Incomplete, Frame, Oversized };
FrameTake takeBrokerFrame(QByteArray &pending, QByteArray *frame);

// Blocking use, for the client: writes one frame, or reads one reply frame
// (kind byte and body), before the deadline. False on timeout or a broken
// connection.
bool writeBrokerFrame(QLocalSocket &socket, const QByteArray &frame, QDeadlineTimer deadline);
bool readBrokerFrame(QLocalSocket &socket, QByteArray *frame, QDeadlineTimer deadline);
