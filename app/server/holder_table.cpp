#include "app/server/holder_table.h"

#include "app/server/process_probe.h"

bool holdFile(HolderTable &table, qint64 pid, const QString &file)
{
    const qint64 started = processStartTicks(pid);
    if (!processRunning(pid, started))
        return false;
    table.holders.insert(file, Holder{pid, started});
    return true;
}

bool releaseFile(HolderTable &table, qint64 pid, const QString &file)
{
    const qint64 holder = liveHolder(table, file);
    if (holder != 0 && holder != pid)
        return false;
    table.holders.remove(file);
    return true;
}

qint64 liveHolder(HolderTable &table, const QString &file)
{
    const auto found = table.holders.constFind(file);
    if (found == table.holders.constEnd())
        return 0;
    if (processRunning(found->pid, found->startTicks))
        return found->pid;
    table.holders.remove(file);
    return 0;
}
