#pragma once

#include "core/dataset_column.h"
#include "core/dataset_var.h"

#include <QString>
#include <QVector>

class XmlNode;

// The dataset as the engine's preparation step described it in a .DescXML:
// the variables, and the flat list of columns derived from them. Read-only
// once built; owned by the configuration record that uses it.
struct DescModel
{
    // Reads the description below `root`, the DESCRIPTION element. Trouble in
    // its structure goes to the debug output only; a description that could
    // not be read has no columns.
    DescModel(const QString &path, const XmlNode &root);
    ~DescModel();
    DescModel(const DescModel &) = delete;
    DescModel &operator=(const DescModel &) = delete;

    QVector<DatasetColumn> columns; // in the order of reading; loc equals the position
    QVector<DatasetVar *> vars;     // owned; numeric, then nominal, then binary
    QString target;                 // the target that the description names, if any
    QString fileName;               // path of the .DescXML as given
    QString timePeriod;             // the TimePeriod element as XML text
    QString datasource;             // the datasource element as XML text

    int columnCount() const { return columns.size(); }
    const DatasetColumn *columnAt(int i) const { return columns.constData() + i; }
    int columnLoc(int i) const { return columns.at(i).loc; }
    // First index of a column with that loc, or -1.
    int columnIndexOfLoc(int loc) const;

    int varCount() const { return vars.size(); }
    DatasetVar *varAt(int i) const { return vars.at(i); }
    // The variable whose first column is exactly `loc`, or null; a loc inside
    // a variable gives null.
    DatasetVar *varAtLoc(int loc) const;
    int varIndexOfName(const QString &name) const;
    DatasetVar *varOfName(const QString &name) const;
    // The label of the first variable of that name, or the name itself, so
    // that a name unknown to the description survives a load and a save.
    QString labelOfName(const QString &name) const;
    // The name of the first variable of that label, or the label itself.
    QString nameOfLabel(const QString &label) const;
};

// Stem of the newest run folder of a configuration: for run.CfgXML with the
// folders run_001 and run_002 beside it, ".../run_002/run". Empty when there
// is none. Callers append the file's own suffix.
QString latestOutputPrefix(const QString &cfgPath);
