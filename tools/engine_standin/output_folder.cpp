#include "tools/engine_standin/output_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

int highestNumberInUse(const QDir &dir, const QString &base)
{
    const QRegularExpression pattern(
        QStringLiteral("^%1_(\\d\\d\\d)$").arg(QRegularExpression::escape(base)),
        QRegularExpression::CaseInsensitiveOption);
    int highest = 0;
    const QStringList entries = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        const QRegularExpressionMatch match = pattern.match(entry);
        if (match.hasMatch())
            highest = qMax(highest, match.captured(1).toInt());
    }
    return highest;
}

} // namespace

QString configurationBaseName(const QString &cfgPath)
{
    QString base = QFileInfo(cfgPath).fileName();
    const int suffix = base.lastIndexOf(QLatin1String(".CfgXML"));
    if (suffix >= 0)
        base.truncate(suffix);
    return base;
}

QString makeNextOutputFolder(const QString &cfgPath, QString *why)
{
    const QDir dir = QFileInfo(cfgPath).absoluteDir();
    const QString base = configurationBaseName(cfgPath);
    const int next = highestNumberInUse(dir, base) + 1;
    if (next > 999) {
        *why = QStringLiteral("every folder number up to %1_999 is taken").arg(base);
        return QString();
    }
    const QString name = base + QStringLiteral("_%1").arg(next, 3, 10, QLatin1Char('0'));
    if (!dir.mkdir(name)) {
        *why = QStringLiteral("cannot make the folder %1").arg(dir.filePath(name));
        return QString();
    }
    return dir.filePath(name);
}
