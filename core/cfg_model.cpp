#include "core/cfg_model.h"

#include <QDir>
#include <QFileInfo>

#include <cstdlib>

CfgModel::~CfgModel()
{
    std::free(minSizeModality); // the whole per-column block
    delete desc;
}

bool CfgModel::hasTarget() const
{
    switch (targetType) {
    case 'E':
        return !targetExpression.isEmpty();
    case 'F':
        return !targetFile.isEmpty();
    default:
        return !targetColumn.isEmpty();
    }
}

void watchFiles(CfgModel &model, const QString &first, const QString &second)
{
    const QStringList watched = model.watcher.files() + model.watcher.directories();
    if (!watched.isEmpty())
        model.watcher.removePaths(watched);
    // The second file only counts along with the first.
    if (first.isEmpty())
        return;
    model.watcher.addPath(first);
    if (!second.isEmpty())
        model.watcher.addPath(second);
}

QString resolveDescPath(const QString &descPath, const QString &cfgPath)
{
    if (descPath.isEmpty() || cfgPath.isEmpty() || !QFileInfo(descPath).isRelative())
        return descPath;
    return QFileInfo(cfgPath).absoluteDir().filePath(descPath);
}

QString descFilePath(const CfgModel &model)
{
    return resolveDescPath(model.desc->fileName, model.cfgFileName);
}

void renameCfgFile(CfgModel &model, const QString &path)
{
    const QString desc = model.desc->fileName;
    if (!desc.isEmpty() && QFileInfo(desc).isRelative() && !model.cfgFileName.isEmpty()) {
        const QString target = QFileInfo(descFilePath(model)).absoluteFilePath();
        model.desc->fileName = QFileInfo(path).absoluteDir().relativeFilePath(target);
    }
    model.cfgFileName = path;
}
