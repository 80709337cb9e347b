#pragma once

#include <QHash>
#include <QString>

// Which process holds which file, as the editors have told the server. A
// file has one holder at most; a holder that has died is forgotten as soon
// as it is looked at.

struct Holder
{
    qint64 pid = 0;
    // When the holder started (processStartTicks), so that a later process
    // that got the same id is not taken for it.
    qint64 startTicks = -1;
};

struct HolderTable
{
    QHash<QString, Holder> holders;
};

// Records `pid` as the holder of `file`, in place of any former one. False,
// and nothing recorded, when no such process runs.
bool holdFile(HolderTable &table, qint64 pid, const QString &file);

// Forgets `file` when `pid` holds it or its holder has died; true when the
// file is no longer held. A process cannot drop another one's file.
bool releaseFile(HolderTable &table, qint64 pid, const QString &file);

// The running process that holds `file`, or 0.
qint64 liveHolder(HolderTable &table, const QString &file);
