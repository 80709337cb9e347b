#pragma once

#include "tools/engine_standin/bar_chart.h"
#include "tools/engine_standin/column_counts.h"

struct CfgModel;

// The two pictures of a run. Neither shows a result: one counts the columns
// per group as the configuration sets them, the other shows the univariate
// AUC that the description gives for the active variables.
BarChart columnsChart(const QVector<GroupCounts> &groups);
BarChart aucChart(const CfgModel &cfg);
