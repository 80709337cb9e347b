#pragma once

#include <QtGlobal>

// What the server can learn of another process of this machine.

// When the process started, in clock ticks since boot; -1 when there is
// no such process or the system does not tell. Two processes that had the
// same id one after the other differ here.
qint64 processStartTicks(qint64 pid);

// Whether `pid` names a running process (a zombie counts as ended). With a
// start time other than -1, a process of that id that started at another
// time counts as ended too.
bool processRunning(qint64 pid, qint64 startTicks = -1);

// The process at the other end of a local socket; 0 when unknown.
qint64 peerProcessId(qintptr socketDescriptor);
