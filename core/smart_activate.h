#pragma once

#include <QVector>

struct CfgModel;

// "Activate" in the analyst's sense: a variable that is in use in one of its
// recodings comes into use in all of them. Walks every column of the
// description in order, whatever a table shows: within each run of adjacent
// columns of the same variable name, if at least one column is not ignored
// ('F' counts as not ignored), the addresses of the `fi` entries that are
// 'I' are collected. A wholly ignored variable is left alone.
QVector<char *> collectSmartActivateRows(CfgModel &model);
