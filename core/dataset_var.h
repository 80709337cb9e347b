#pragma once

#include "core/dataset_column.h"

#include <QString>
#include <QStringList>
#include <QVector>

class XmlNode;

// One variable of the dataset, as the description lists it, and the columns
// that the engine derives from it. Built once from a COL element; read-only
// afterwards.
class DatasetVar
{
public:
    virtual ~DatasetVar();
    DatasetVar(const DatasetVar &) = delete;
    DatasetVar &operator=(const DatasetVar &) = delete;

    QString name;
    QString label;   // the attribute, or the name when the attribute is absent
    QString grpName; // the attribute, or the class's default when absent or empty
    int varIndex = 0;
    int firstLoc = 0;
    char type = 0;   // 'V', 'N' or 'B'
    int columnCount = 0;

protected:
    DatasetVar(char varType, const char *defaultGroup, const XmlNode &col, int index, int loc);

    // Appends the variable's columns to `records`: its main column, a
    // pass-through column for a numeric variable, then one per entry of
    // DUMMIES. A dummy takes its modality from `labels`, or from `texts`
    // where that is empty or absent; index 0 is always "missing".
    void readColumns(const XmlNode &col, const QStringList *texts, const QStringList *labels,
                     QVector<DatasetColumn> &records);
};

// A numeric variable, cut into intervals by its limits.
class LowerOrEqVar final : public DatasetVar
{
public:
    LowerOrEqVar(const XmlNode &col, int index, int loc, QVector<DatasetColumn> &records);
    ~LowerOrEqVar() override;

    double *limits = nullptr; // decoded LIMITS, owned; null without the element
    int limitCount = 0;
};

// A nominal variable: its possible values, index 0 being "missing".
class EqualVar final : public DatasetVar
{
public:
    EqualVar(const XmlNode &col, int index, int loc, QVector<DatasetColumn> &records);

    QStringList values;
    QStringList labels;
};

// A binary variable.
class BinaryVar final : public DatasetVar
{
public:
    BinaryVar(const XmlNode &col, int index, int loc, QVector<DatasetColumn> &records);
};

// The modality texts of a numeric variable: an empty text at index 0, then
// "a <x<= b" for each pair of different neighbouring limits and "x=a" for
// equal ones.
QStringList limitTexts(const double *limits, int count);
