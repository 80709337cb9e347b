#include "core/smart_activate.h"

#include "core/cfg_model.h"

QVector<char *> collectSmartActivateRows(CfgModel &model)
{
    QVector<char *> rows;
    const QVector<DatasetColumn> &columns = model.desc->columns;
    const int count = columns.size();
    int begin = 0;
    while (begin < count) {
        int end = begin + 1;
        while (end < count && columns.at(end).name == columns.at(begin).name)
            ++end;
        bool anyActive = false;
        for (int i = begin; i < end && !anyActive; ++i)
            anyActive = model.fi[i] != 'I';
        for (int i = begin; i < end && anyActive; ++i) {
            if (model.fi[i] == 'I')
                rows.append(model.fi + i);
        }
        begin = end;
    }
    return rows;
}
