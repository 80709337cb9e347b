#include "core/desc_model.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExp>

QString latestOutputPrefix(const QString &cfgPath)
{
    const QFileInfo info(cfgPath);
    QString base = info.fileName();
    const int suffix = base.lastIndexOf(QLatin1String(".CfgXML"));
    if (suffix >= 0)
        base.truncate(suffix);

    const QDir dir = info.absoluteDir();
    if (!dir.exists())
        return QString();
    const QStringList entries = dir.entryList(
        QDir::Dirs | QDir::AllDirs | QDir::NoDot | QDir::NoDotDot, QDir::Name);

    // The name is not escaped: its special characters keep their meaning in
    // the pattern, as the engine's folders were always looked up this way.
    QRegExp pattern(base + QLatin1String("_\\d\\d\\d"), Qt::CaseInsensitive);
    for (int i = entries.size() - 1; i >= 0; --i) {
        if (pattern.exactMatch(entries.at(i)))
            return dir.absolutePath() + QLatin1Char('/') + entries.at(i) + QLatin1Char('/') + base;
    }
    return QString();
}
