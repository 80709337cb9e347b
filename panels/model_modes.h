#pragma once

#include <QtGlobal>

struct CfgModel;
class QUndoCommandPanel;

// The named modes of model construction. Each sets the penalization and
// the pruning together: performance lets the engine find lambda and alpha
// and prunes nothing; the two insight modes keep lambda optimal, use pure
// lasso, limit the model to a number of variables, and prune fast
// (standard) or slow (high quality).

enum Pruning { PruningNone = 0, PruningNoneWithImportances = 1, PruningFast = 2, PruningSlow = 3 };

enum class ModelMode { None, Performance, Standard, HighQuality };

// The mode the record's values make, as the pages show it. An insight mode
// shows only with a limit of exactly 30 variables.
ModelMode shownModelMode(const CfgModel &record);

// The group command that puts the record into a mode, with the mode's text
// ("performance mode", "standard mode", "high quality mode"), or null when
// the record counts as being in that mode already. The caller pushes it.
//
// Performance mode also lifts the limit on variables.
QUndoCommandPanel *performanceModeCommand(CfgModel &record, quint8 panel);
// The run page's performance mode leaves the limit alone and looks only at
// lambda, alpha and the pruning.
QUndoCommandPanel *shortPerformanceModeCommand(CfgModel &record, quint8 panel);
// Standard (PruningFast) or high quality (PruningSlow). Any limit of 0 or
// more counts as set; a negative one becomes 30.
QUndoCommandPanel *insightModeCommand(CfgModel &record, Pruning pruning, quint8 panel);
