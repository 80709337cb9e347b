#include "tools/engine_standin/column_counts.h"

#include "core/cfg_model.h"

#include <algorithm>

namespace {

void countColumn(const CfgModel &cfg, int i, GroupCounts &counts)
{
    if (cfg.fi[i] == 'I')
        ++counts.ignored;
    else if (cfg.illus[i])
        ++counts.illustrative;
    else if (cfg.fi[i] == 'F')
        ++counts.stateF;
    else
        ++counts.active;
}

} // namespace

QVector<GroupCounts> countColumnsPerGroup(const CfgModel &cfg)
{
    QVector<GroupCounts> groups;
    for (int i = 0; i < cfg.columnCount(); ++i) {
        const QString &group = cfg.desc->columnAt(i)->group;
        auto it = std::find_if(groups.begin(), groups.end(),
                               [&](const GroupCounts &g) { return g.group == group; });
        if (it == groups.end()) {
            groups.append(GroupCounts{group});
            it = groups.end() - 1;
        }
        countColumn(cfg, i, *it);
    }
    return groups;
}

GroupCounts sumOfGroups(const QVector<GroupCounts> &groups)
{
    GroupCounts all{QStringLiteral("all")};
    for (const GroupCounts &g : groups) {
        all.active += g.active;
        all.ignored += g.ignored;
        all.illustrative += g.illustrative;
        all.stateF += g.stateF;
    }
    return all;
}

bool isActiveColumn(const CfgModel &cfg, int i)
{
    return cfg.fi[i] != 'I' && cfg.fi[i] != 'F' && !cfg.illus[i];
}
