#include "core/dataset_column.h"

QString columnFullName(const DatasetColumn &column)
{
    QString full;
    appendColumnFullName(full, column);
    return full;
}

void appendColumnFullName(QString &out, const DatasetColumn &column)
{
    // One allocation at most: a batch option may name every column of a
    // dataset of tens of thousands.
    const QLatin1Char dot('.');
    const int size = column.group.size() + column.kind.size() + column.label.size() + 2
                     + (column.modality.isEmpty() ? 0 : column.modality.size() + 1);
    out.reserve(out.size() + size);
    out += column.group;
    out += dot;
    out += column.kind;
    out += dot;
    out += column.label;
    if (!column.modality.isEmpty()) {
        out += dot;
        out += column.modality;
    }
}
