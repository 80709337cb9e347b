#include "panels/model_modes.h"

#include "panels/push_value.h"

namespace {

// The limit an insight mode gives a record that has none.
constexpr int insightMaxVar = 30;

bool penalization(const CfgModel &record, double alpha, Pruning pruning)
{
    return record.lambda == -1.0 && record.alpha == alpha && record.pruning == pruning;
}

QUndoCommandPanel *presetGroup(CfgModel &record, double alpha, Pruning pruning, const QString &text,
                               quint8 panel)
{
    auto *group = new QUndoCommandPanel(text, panel);
    addChange(group, &record.lambda, -1.0);
    addChange(group, &record.alpha, alpha);
    addChange(group, &record.pruning, int(pruning));
    return group;
}

} // namespace

ModelMode shownModelMode(const CfgModel &record)
{
    if (penalization(record, -1.0, PruningNone))
        return ModelMode::Performance;
    if (record.nMaxVar != insightMaxVar)
        return ModelMode::None;
    if (penalization(record, 1.0, PruningFast))
        return ModelMode::Standard;
    if (penalization(record, 1.0, PruningSlow))
        return ModelMode::HighQuality;
    return ModelMode::None;
}

QUndoCommandPanel *performanceModeCommand(CfgModel &record, quint8 panel)
{
    if (penalization(record, -1.0, PruningNone) && record.nMaxVar == -1)
        return nullptr;
    QUndoCommandPanel *group =
        presetGroup(record, -1.0, PruningNone, QStringLiteral("performance mode"), panel);
    addChange(group, &record.nMaxVar, -1);
    return group;
}

QUndoCommandPanel *shortPerformanceModeCommand(CfgModel &record, quint8 panel)
{
    if (penalization(record, -1.0, PruningNone))
        return nullptr;
    return presetGroup(record, -1.0, PruningNone, QStringLiteral("performance mode"), panel);
}

QUndoCommandPanel *insightModeCommand(CfgModel &record, Pruning pruning, quint8 panel)
{
    if (penalization(record, 1.0, pruning) && record.nMaxVar >= 0)
        return nullptr;
    const QString text = pruning == PruningSlow ? QStringLiteral("high quality mode")
                                                : QStringLiteral("standard mode");
    QUndoCommandPanel *group = presetGroup(record, 1.0, pruning, text, panel);
    if (record.nMaxVar < 0)
        addChange(group, &record.nMaxVar, insightMaxVar);
    return group;
}
