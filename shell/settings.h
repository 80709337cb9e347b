#pragma once

#include <QString>
#include <QStringList>

// What the editor remembers from one start to the next. Every function opens
// the store, does one read or write and closes it again: nothing is cached,
// so a value written by a second running editor is seen at the next read.
//
// The editor's own values live in QSettings("Brandolin", "QUV"). The values
// that other programs of the family write (sound theme, server use) live in
// QSettings("Brandolin", "Quva"), the second under the group "Velmorin".

// Key of the recent-file list of the main window.
inline QString recentCfgXmlKey() { return QStringLiteral("RecentCfgXML"); }

// Most entries the recent-file list keeps.
constexpr int maxRecentFiles = 10;

// The user's documents folder with "/Quva" behind it, made (with its
// parents) when missing. The path is returned also when making it failed.
QString defaultDocumentsDir();

// "LastDir", or defaultDocumentsDir() when nothing is stored.
QString lastDir();
// Stores the absolute directory of path taken as a file: a directory handed
// in stores its parent.
void setLastDir(const QString &path);

// "UniversDir", "." when absent; an empty stored text gives
// defaultDocumentsDir() + "/datasets", which is then made.
QString universDir();
void setUniversDir(const QString &dir);

bool isAdvancedUser();
void setAdvancedUser(bool on);

// A stored string list, empty when absent.
QStringList settingsStringList(const QString &key);
// Puts path at the head of the list under key, without duplicates, and
// keeps at most maxRecentFiles entries.
void addRecentFile(const QString &key, const QString &path);

// Values written by other programs of the family.

// "soundTheme" turned into an integer (base 10); text that is no number and
// an absent value give 0, which means no sound.
int soundTheme();
void setSoundTheme(const QString &value);

// "useVelmorinServer", "1" when absent.
QString useVelmorinServer();
void setUseVelmorinServer(const QString &value);
