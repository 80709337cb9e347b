#pragma once

#include <QString>

// One column of the engine, derived from a variable of the dataset. A
// configuration addresses its per-column settings through these records.
struct DatasetColumn
{
    QString name;     // the variable's name
    QString label;    // the variable's label
    QString modality; // label of the modality for a dummy column, empty otherwise
    QString group;    // the variable's grpName
    QString kind;     // "RTT", "PASSTHROUGH" or "Dummy"
    char derived = 0; // 0 for the "RTT" column of a variable, 1 for the others
    int loc = 0;      // column number over the whole dataset
    double auc = -2.0;
};
// Its texts are implicitly shared handles: the record may be moved in memory
// as it stands, which lets the column list grow without copying each text.
Q_DECLARE_TYPEINFO(DatasetColumn, Q_MOVABLE_TYPE);

// The identifier of a column on the command line and in the lists:
// group.kind.label, and .modality when there is one.
QString columnFullName(const DatasetColumn &column);
// The same name appended to `out`, for callers that reuse one buffer.
void appendColumnFullName(QString &out, const DatasetColumn &column);
