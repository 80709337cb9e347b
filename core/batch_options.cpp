#include "core/batch_options.h"

#include "core/batch_match.h"
#include "core/batch_option_parse.h"
#include "core/cfg_model.h"
#include "core/desc_model.h"
#include "expr/input_var.h"

namespace {

const DescModel &description(const CfgModel &cfg)
{
    return *cfg.desc;
}

// Positions in the column list whose full name matches, last to first.
QVector<int> matchingColumns(const CfgModel &cfg, const BatchOption &o)
{
    const DescModel &desc = description(cfg);
    // One buffer for all the names: it keeps its capacity from one column
    // to the next.
    QString name;
    name.reserve(256);
    const auto nameAt = [&desc, &name](int i) -> const QString & {
        name.resize(0);
        appendColumnFullName(name, desc.columns.at(i));
        return name;
    };
    return matchFromLast(desc.columns.size(), nameAt, WildcardPattern(o.pattern, o.patternCase),
                         false);
}

// Positions in the variable list whose label (or name) matches, last to first.
QVector<int> matchingVars(const CfgModel &cfg, const BatchOption &o, bool byName,
                          bool firstHitOnly)
{
    const DescModel &desc = description(cfg);
    return matchFromLast(
        desc.vars.size(),
        [&desc, byName](int i) { return byName ? desc.vars.at(i)->name : desc.vars.at(i)->label; },
        WildcardPattern(o.pattern, o.patternCase), firstHitOnly);
}

// Stores the label of the last variable whose label matches; false, with
// the field left as it was, when nothing matches.
bool setLabelOfLastMatch(CfgModel &cfg, const BatchOption &o, QString &field)
{
    const QVector<int> hits = matchingVars(cfg, o, false, true);
    if (hits.isEmpty())
        return false;
    field = description(cfg).vars.at(hits.first())->label;
    return true;
}

// Position of a variable's first column, or -1 for a variable without
// columns (a nominal variable with no values adds none).
int firstColumnOf(const CfgModel &cfg, int varIndex)
{
    const DescModel &desc = description(cfg);
    const DatasetVar *var = desc.vars.at(varIndex);
    if (var->columnCount <= 0 || var->firstLoc < 0 || var->firstLoc >= desc.columns.size())
        return -1;
    return var->firstLoc;
}

template <typename T>
void setOnFirstColumns(CfgModel &cfg, const BatchOption &o, T *array, T value)
{
    for (int v : matchingVars(cfg, o, true, false)) {
        const int column = firstColumnOf(cfg, v);
        if (column >= 0)
            array[column] = value;
    }
}

template <typename T>
void setOnColumns(CfgModel &cfg, const BatchOption &o, T *array, T value)
{
    for (int column : matchingColumns(cfg, o))
        array[column] = value;
}

// The expression's variables: numeric names from the last to the first,
// then text names from the last to the first.
void rebuildExpression(const BatchOption &o, char &type, QVector<InputVar> &vars,
                       QString &expression)
{
    type = 'E';
    vars.clear();
    for (int i = o.numericVars.size() - 1; i >= 0; --i)
        vars.append(InputVar(o.numericVars.at(i), QLatin1Char('U'), 0.0));
    for (int i = o.stringVars.size() - 1; i >= 0; --i)
        vars.append(InputVar(o.stringVars.at(i), QLatin1Char('U'), QLatin1String("")));
    expression = o.text;
}

void apply(CfgModel &cfg, const BatchOption &o)
{
    switch (o.action) {
    case BatchAction::Refuse:
    case BatchAction::Pass:
        break;
    case BatchAction::SetAUCmax: cfg.AUCmax = o.number; break;
    case BatchAction::SetColumnActivity: setOnColumns(cfg, o, cfg.fi, o.activity); break;
    case BatchAction::SetWeight: setLabelOfLastMatch(cfg, o, cfg.Weight); break;
    case BatchAction::SetTargetColumn:
        // The type changes only with a hit.
        if (setLabelOfLastMatch(cfg, o, cfg.targetColumn))
            cfg.targetType = 'C';
        break;
    case BatchAction::SetTargetExpression:
        rebuildExpression(o, cfg.targetType, cfg.targetVars, cfg.targetExpression);
        break;
    case BatchAction::SetLineSelectionFile:
        cfg.lineSelectionType = 'F';
        cfg.lineSelectionFile = o.text;
        break;
    case BatchAction::SetLineSelectionExpression:
        rebuildExpression(o, cfg.lineSelectionType, cfg.lineSelectionVars,
                          cfg.lineSelectionExpression);
        break;
    case BatchAction::SetP1: cfg.p1 = o.number; break;
    case BatchAction::SetP2: cfg.p2 = o.number; break;
    case BatchAction::SetPruning: cfg.pruning = truncateOptionNumber(o.number); break;
    case BatchAction::SetAlpha: cfg.alpha = o.number; break;
    case BatchAction::SetLambda: cfg.lambda = o.number; break;
    case BatchAction::SetColumnPenality: setOnColumns(cfg, o, cfg.penality, o.number); break;
    case BatchAction::SetCpuCount: cfg.cpuCount = truncateOptionNumber(o.number); break;
    case BatchAction::SetVarCm:
        // Anything but 0 switches it on, NaN included.
        setOnFirstColumns(cfg, o, cfg.cm, o.number != 0.0);
        break;
    case BatchAction::SetRandomSeed: cfg.randomSeed = truncateOptionNumber(o.number); break;
    case BatchAction::SetMinSizeNominal: cfg.minSizeModalityForNominalVar = o.text; break;
    case BatchAction::SetMinSizeOrdered: cfg.minSizeModalityForOrderedVar = o.text; break;
    case BatchAction::SetAllowedAUCLoss: cfg.allowedAUCLoss = o.number; break;
    case BatchAction::SetMaxMemoryDS: cfg.maxMemoryDS = truncateOptionNumber(o.number); break;
    case BatchAction::SetMaxTargetDensity: cfg.maxTargetDensity = o.number; break;
    case BatchAction::SetMaxTestDSSize: cfg.maxTestDSSize = o.number; break;
    case BatchAction::SetVarMinSizeModality:
        setOnFirstColumns(cfg, o, cfg.minSizeModality, o.number);
        break;
    }
}

} // namespace

BatchOptionResult applyBatchOption(CfgModel &cfg, const QString &option)
{
    const BatchOption o = parseBatchOption(option);
    BatchOptionResult result;
    if (o.action == BatchAction::Refuse) {
        result.outcome = BatchOutcome::Refused;
        result.refusal = o.refusal;
        return result;
    }
    if (o.action == BatchAction::Pass) {
        result.outcome = BatchOutcome::Passed;
        return result;
    }
    apply(cfg, o);
    return result;
}
