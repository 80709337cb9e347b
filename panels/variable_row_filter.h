#pragma once

#include <QHash>
#include <QString>
#include <QVector>

struct CfgModel;

// The three filters above the two variable tables, which both tables share.
// Filters 1 and 2 match a wildcard pattern against a row's full name
// (group.kind.label[.modality]) in any case; filter 3 looks the row up in
// the list of the variable list window, by label and/or by full name. A
// filter's invert box turns its answer round. With all three off, every row
// passes; an empty list lets filter 3 pass everything.
//
// Which rows pass is worked out once per change of the filters or of the
// record, so that the proxies of both tables only look it up.
class VariableRowFilter
{
public:
    struct Pattern
    {
        bool on = false;
        QString text;
        bool invert = false;
    };

    Pattern first;
    Pattern second;
    bool listOn = false;
    bool listInvert = false;
    // The accepted state of the variable list window.
    const QHash<QString, bool> *lookUpNames = nullptr;
    const bool *lookUpByLabel = nullptr;
    const bool *lookUpByFullName = nullptr;

    // Takes the rows of `record` (or none) and works out which pass.
    void setRecord(const CfgModel *record);
    // Works the answer out again after a change of the filters.
    void update();
    bool accepts(int row) const { return row < passes.size() && passes.at(row); }
    int passingCount() const;

private:
    bool anyOn() const;
    bool listFinds(int row) const;

    const CfgModel *cfg = nullptr;
    QVector<QString> fullNames; // per row of the record
    QVector<bool> passes;
};
