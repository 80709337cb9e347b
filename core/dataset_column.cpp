#include "core/dataset_column.h"

QString columnFullName(const DatasetColumn &column)
{
    const QLatin1Char dot('.');
    QString full = column.group + dot + column.kind + dot + column.label;
    if (!column.modality.isEmpty())
        full += dot + column.modality;
    return full;
}
