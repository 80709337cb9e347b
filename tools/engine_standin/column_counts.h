#pragma once

#include <QString>
#include <QVector>

struct CfgModel;

// How the columns of one group of the description stand in a configuration.
// Each column counts once: ignored ('I') first, then illustrative, then the
// second state 'F', and every other column is active.
struct GroupCounts
{
    QString group;
    int active = 0;
    int ignored = 0;
    int illustrative = 0;
    int stateF = 0;

    int total() const { return active + ignored + illustrative + stateF; }
};

// One entry per group, in the order in which the groups first appear.
QVector<GroupCounts> countColumnsPerGroup(const CfgModel &cfg);
// The sum over all groups, named "all".
GroupCounts sumOfGroups(const QVector<GroupCounts> &groups);

// True when the column at that position is an input of the model: neither
// ignored nor illustrative nor in the state 'F'.
bool isActiveColumn(const CfgModel &cfg, int i);
