#include "tools/engine_standin/run_charts.h"

#include "core/cfg_model.h"

#include <algorithm>

namespace {

const char noModel[] = "stand-in: no model fitted";
const int aucBars = 15;

struct VariableAuc
{
    QString label;
    double auc;
};

// Variables whose main column is active and whose AUC the description gives.
QVector<VariableAuc> activeAucs(const CfgModel &cfg)
{
    QVector<VariableAuc> out;
    for (int i = 0; i < cfg.columnCount(); ++i) {
        const DatasetColumn *column = cfg.desc->columnAt(i);
        if (column->derived == 0 && column->auc >= 0.0 && isActiveColumn(cfg, i))
            out.append({column->label, column->auc});
    }
    std::stable_sort(out.begin(), out.end(),
                     [](const VariableAuc &a, const VariableAuc &b) { return a.auc > b.auc; });
    if (out.size() > aucBars)
        out.resize(aucBars);
    return out;
}

} // namespace

BarChart columnsChart(const QVector<GroupCounts> &groups)
{
    BarChart chart;
    chart.title = QStringLiteral("Columns per group, as the configuration sets them");
    chart.footnote = QLatin1String(noModel) + QStringLiteral(" (in place of Overfitting Check 2)");
    chart.series = QStringList{QStringLiteral("active"), QStringLiteral("ignored"),
                               QStringLiteral("illustrative"), QStringLiteral("state F")};
    for (const GroupCounts &g : groups) {
        chart.categories << g.group;
        chart.values.append(
            {double(g.active), double(g.ignored), double(g.illustrative), double(g.stateF)});
    }
    return chart;
}

BarChart aucChart(const CfgModel &cfg)
{
    BarChart chart;
    chart.title = QStringLiteral("Univariate AUC of the active variables, from the description");
    chart.footnote = QLatin1String(noModel) + QStringLiteral(" (in place of the Final Model)");
    chart.series = QStringList{QStringLiteral("univariate AUC")};
    chart.decimals = 2;
    for (const VariableAuc &v : activeAucs(cfg)) {
        chart.categories << v.label;
        chart.values.append(QVector<double>{v.auc});
    }
    return chart;
}
