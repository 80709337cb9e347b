#pragma once

#include "tools/engine_standin/column_counts.h"

#include <QString>
#include <QStringList>
#include <QVector>

struct CfgModel;
struct Report;

// What a run of the stand-in found out, before anything is written.
struct RunFindings
{
    const CfgModel *cfg = nullptr;
    QString folderName;          // <name>_NNN
    QString base;                // <name>, the stem of every file of the run
    QVector<GroupCounts> groups; // columns per group
    QStringList misfits;         // what does not fit the description
};

// The analysis report: the run, the target, the line selection, the columns
// per group, the mode, what does not fit, and the charts beside it.
Report analysisReport(const RunFindings &run);

// The model file: a plain statement that no model was fitted, the target,
// and the columns that would have been its inputs.
Report modelReport(const RunFindings &run);

// File names of the charts in the run folder, after the stem <name>.
extern const char overfittingChartSuffix[]; // "_4_CheckOverfitting2.png"
extern const char finalModelChartSuffix[];  // "_5_FinalModel.png"
