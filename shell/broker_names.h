#pragma once

#include <QString>

// Where the window broker's server and the editors find each other. Two
// variables of the environment move everything, so that test runs and a
// user's own server never meet:
//   QUVA_BROKER_NAME  the server's local name: a path, or a bare name taken
//                     in the temporary folder
//   QUVA_APP_DIR      the folder that holds QuvaServer and quva-cfg-editor
//                     (applicationDirectory())
// A server started by an editor inherits both.

// The one topic of a conversation.
inline QString brokerTopic()
{
    return QStringLiteral("system");
}

// A product's service, "Quva" giving "QuvaServer"; also the file name of
// the server's program.
QString brokerServiceName(const QString &product);

// The local name that the server of `service` listens on: QUVA_BROKER_NAME
// when set, else the service in the user's runtime folder
// ($XDG_RUNTIME_DIR), or "<temporary folder>/<service>-<user id>" without
// one. So each user has a server of their own.
QString brokerServerName(const QString &service);

// The local name on which the editor of process `pid` takes the server's
// request to bring its window forward.
QString brokerListenerName(const QString &serverName, qint64 pid);

// The socket file of a local name, as the socket classes place it.
QString brokerSocketPath(const QString &name);
