#pragma once

#include <QString>

#include <atomic>

struct BrokerClient;
class QWidget;

// Set once a server was started and never answered. From then on every
// operation gives up at once, before the lock of the connecting step is even
// taken, until the program starts again.
extern std::atomic<bool> gaveUp;

// The process's one client; null until the first brokerEnsureServer().
BrokerClient *brokerClient();

// Connects this thread to the server of `product`, starting the server from
// the application directory when none answers. True when connected. A
// missing server file is passed over in silence and never looked for
// again; a server that was started and stayed silent is told about once,
// in a warning box over `parent` unless the setting "useVelmorinServer"
// says otherwise.
bool brokerEnsureServer(QWidget *parent, const QString &product);

// Back to "not tried yet": forgets a missing file and a silent server. For
// tests, which try several servers in one process.
void brokerForgetServer();
