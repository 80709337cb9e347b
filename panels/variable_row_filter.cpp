#include "panels/variable_row_filter.h"

#include "core/batch_match.h"
#include "core/cfg_model.h"

#include <algorithm>

void VariableRowFilter::setRecord(const CfgModel *record)
{
    cfg = record;
    fullNames.clear();
    if (cfg) {
        const int count = cfg->columnCount();
        fullNames.reserve(count);
        for (int i = 0; i < count; ++i)
            fullNames.append(columnFullName(*cfg->desc->columnAt(i)));
    }
    update();
}

bool VariableRowFilter::anyOn() const
{
    return first.on || second.on || listOn;
}

bool VariableRowFilter::listFinds(int row) const
{
    const bool byLabel = lookUpByLabel && *lookUpByLabel
                         && lookUpNames->value(cfg->desc->columnAt(row)->label, false);
    return byLabel
           || (lookUpByFullName && *lookUpByFullName
               && lookUpNames->value(fullNames.at(row), false));
}

void VariableRowFilter::update()
{
    const int count = fullNames.size();
    passes.fill(true, count);
    if (!anyOn())
        return;
    // A pattern that is no valid wildcard matches nothing.
    const WildcardPattern pattern1(first.text, Qt::CaseInsensitive);
    const WildcardPattern pattern2(second.text, Qt::CaseInsensitive);
    const bool useList = listOn && lookUpNames && !lookUpNames->isEmpty();
    for (int row = 0; row < count; ++row) {
        const QString &full = fullNames.at(row);
        bool pass = !(first.on && pattern1.exactMatch(full) == first.invert);
        pass = pass && !(second.on && pattern2.exactMatch(full) == second.invert);
        pass = pass && !(useList && listFinds(row) == listInvert);
        passes[row] = pass;
    }
}

int VariableRowFilter::passingCount() const
{
    return int(std::count(passes.cbegin(), passes.cend(), true));
}
