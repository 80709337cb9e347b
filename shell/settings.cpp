#include "shell/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

const char organisation[] = "Brandolin";
const char application[] = "QUV";
// Home of the values that other programs of the family write.
const char familyStore[] = "Quva";
const char velmorinGroup[] = "Velmorin";

QSettings ownStore()
{
    return QSettings(QString::fromLatin1(organisation), QString::fromLatin1(application));
}

QSettings familySettings()
{
    return QSettings(QString::fromLatin1(organisation), QString::fromLatin1(familyStore));
}

QString velmorinKey(const char *name)
{
    return QString::fromLatin1(velmorinGroup) + QLatin1Char('/') + QLatin1String(name);
}

} // namespace

QString defaultDocumentsDir()
{
    QString dir = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dir.replace(QLatin1Char('\\'), QLatin1Char('/'));
    dir += QLatin1String("/Quva");
    if (!QDir(dir).exists())
        QDir().mkpath(dir);
    return dir;
}

QString lastDir()
{
    const QString dir = ownStore().value(QStringLiteral("LastDir")).toString();
    return dir.isEmpty() ? defaultDocumentsDir() : dir;
}

void setLastDir(const QString &path)
{
    ownStore().setValue(QStringLiteral("LastDir"), QFileInfo(path).absolutePath());
}

QString universDir()
{
    const QString dir =
        ownStore().value(QStringLiteral("UniversDir"), QStringLiteral(".")).toString();
    if (!dir.isEmpty())
        return dir;
    const QString datasets = defaultDocumentsDir() + QLatin1String("/datasets");
    QDir().mkpath(datasets);
    return datasets;
}

void setUniversDir(const QString &dir)
{
    ownStore().setValue(QStringLiteral("UniversDir"), dir);
}

bool isAdvancedUser()
{
    return ownStore().value(QStringLiteral("advancedUser"), false).toBool();
}

void setAdvancedUser(bool on)
{
    ownStore().setValue(QStringLiteral("advancedUser"), on);
}

QStringList settingsStringList(const QString &key)
{
    return ownStore().value(key).toStringList();
}

void addRecentFile(const QString &key, const QString &path)
{
    QSettings store = ownStore();
    QStringList files = store.value(key).toStringList();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > maxRecentFiles)
        files.removeLast();
    store.setValue(key, files);
}

int soundTheme()
{
    const QString text =
        familySettings().value(QStringLiteral("soundTheme"), QStringLiteral("0")).toString();
    return text.toInt(nullptr, 10);
}

void setSoundTheme(const QString &value)
{
    familySettings().setValue(QStringLiteral("soundTheme"), value);
}

QString useVelmorinServer()
{
    return familySettings()
        .value(velmorinKey("useVelmorinServer"), QStringLiteral("1"))
        .toString();
}

void setUseVelmorinServer(const QString &value)
{
    familySettings().setValue(velmorinKey("useVelmorinServer"), value);
}
