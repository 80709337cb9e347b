#include "app/server/process_probe.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <cerrno>
#include <climits>
#include <signal.h>
#include <sys/socket.h>

namespace {

// The fields of /proc/<pid>/stat behind the command name, which may itself
// hold blanks and parentheses: [0] is the state, [19] the start time.
QList<QByteArray> statFields(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray stat = file.readAll();
    const int nameEnd = stat.lastIndexOf(')');
    if (nameEnd < 0)
        return {};
    return stat.mid(nameEnd + 1).simplified().split(' ');
}

// Ids 0 and below would signal whole groups of processes.
bool validPid(qint64 pid)
{
    return pid > 0 && pid <= INT_MAX;
}

} // namespace

qint64 processStartTicks(qint64 pid)
{
    if (!validPid(pid))
        return -1;
    const QList<QByteArray> fields = statFields(pid);
    bool ok = false;
    const qint64 ticks = fields.size() > 19 ? fields.at(19).toLongLong(&ok) : -1;
    return ok ? ticks : -1;
}

bool processRunning(qint64 pid, qint64 startTicks)
{
    if (!validPid(pid))
        return false;
    if (::kill(pid_t(pid), 0) != 0 && errno != EPERM)
        return false;
    const QList<QByteArray> fields = statFields(pid);
    if (fields.size() <= 19)
        return true; // no /proc to look closer: the signal test has to do
    if (fields.at(0) == "Z" || fields.at(0) == "X")
        return false;
    return startTicks < 0 || fields.at(19).toLongLong() == startTicks;
}

qint64 peerProcessId(qintptr socketDescriptor)
{
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (::getsockopt(int(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
        return 0;
    return credentials.pid;
}
