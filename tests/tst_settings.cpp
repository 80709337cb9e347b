#include "shell/settings.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

// Every test runs with a home folder of its own, so that no user's settings
// or documents folder is read or touched.
class tst_settings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void lastDirDefaultsToDocumentsFolder();
    void setLastDirStoresDirectory_data();
    void setLastDirStoresDirectory();
    void universDir_data();
    void universDir();
    void advancedUser();
    void valuesAreNotCached();
    void recentListDropsOldest();
    void recentListMovesExistingEntry();
    void recentListComparesExactly();
    void emptyStringList();
    void soundTheme_data();
    void soundTheme();
    void useVelmorinServer();

private:
    QTemporaryDir home;
    QString documents() const { return home.path() + QStringLiteral("/Documents/Quva"); }
};

void tst_settings::initTestCase()
{
    QVERIFY(home.isValid());
    qputenv("HOME", QFile::encodeName(home.path()));
    qunsetenv("XDG_CONFIG_HOME");
    QStandardPaths::setTestModeEnabled(true);
}

void tst_settings::init()
{
    QSettings(QStringLiteral("Brandolin"), QStringLiteral("QUV")).clear();
    QSettings(QStringLiteral("Brandolin"), QStringLiteral("Quva")).clear();
    QDir(home.path() + QStringLiteral("/Documents")).removeRecursively();
}

void tst_settings::lastDirDefaultsToDocumentsFolder()
{
    QVERIFY(!QDir(documents()).exists());
    QCOMPARE(lastDir(), documents());
    QVERIFY(QDir(documents()).exists());
}

void tst_settings::setLastDirStoresDirectory_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("stored");
    QTest::newRow("file") << "/data/credit/credit.CfgXML" << "/data/credit";
    QTest::newRow("directory gives its parent") << "/data/credit" << "/data";
    QTest::newRow("trailing slash") << "/data/credit/" << "/data/credit";
    QTest::newRow("relative") << "sub/file.txt" << QDir::currentPath() + "/sub";
}

void tst_settings::setLastDirStoresDirectory()
{
    QFETCH(QString, path);
    QFETCH(QString, stored);
    setLastDir(path);
    QCOMPARE(lastDir(), stored);
}

void tst_settings::universDir_data()
{
    QTest::addColumn<bool>("store");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("makesFolder");
    QTest::newRow("absent") << false << QString() << "." << false;
    QTest::newRow("empty text") << true << "" << "<documents>/datasets" << true;
    QTest::newRow("stored") << true << "/srv/datasets" << "/srv/datasets" << false;
}

void tst_settings::universDir()
{
    QFETCH(bool, store);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QFETCH(bool, makesFolder);
    if (store)
        setUniversDir(value);
    expected.replace(QStringLiteral("<documents>"), documents());
    QCOMPARE(::universDir(), expected);
    QCOMPARE(QDir(documents() + "/datasets").exists(), makesFolder);
}

void tst_settings::advancedUser()
{
    QCOMPARE(isAdvancedUser(), false);
    setAdvancedUser(true);
    QCOMPARE(isAdvancedUser(), true);
    setAdvancedUser(false);
    QCOMPARE(isAdvancedUser(), false);
}

void tst_settings::valuesAreNotCached()
{
    QCOMPARE(isAdvancedUser(), false);
    // A second editor writes the same store.
    QSettings(QStringLiteral("Brandolin"), QStringLiteral("QUV"))
        .setValue(QStringLiteral("advancedUser"), true);
    QCOMPARE(isAdvancedUser(), true);
    QSettings(QStringLiteral("Brandolin"), QStringLiteral("QUV"))
        .setValue(QStringLiteral("LastDir"), QStringLiteral("/elsewhere"));
    QCOMPARE(lastDir(), QStringLiteral("/elsewhere"));
}

static QStringList fill(int count)
{
    QStringList files;
    for (int i = count - 1; i >= 0; --i) {
        const QString name = QStringLiteral("/f/%1.CfgXML").arg(i);
        addRecentFile(recentCfgXmlKey(), name);
        files.prepend(name);
    }
    return files; // newest first
}

void tst_settings::recentListDropsOldest()
{
    const QStringList before = fill(10);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), before);
    addRecentFile(recentCfgXmlKey(), QStringLiteral("/f/new.CfgXML"));
    const QStringList after = settingsStringList(recentCfgXmlKey());
    QCOMPARE(after.size(), 10);
    QCOMPARE(after.first(), QStringLiteral("/f/new.CfgXML"));
    QCOMPARE(after.mid(1), before.mid(0, 9));
    QVERIFY(!after.contains(before.last()));
}

void tst_settings::recentListMovesExistingEntry()
{
    const QStringList before = fill(10);
    addRecentFile(recentCfgXmlKey(), before.at(6));
    const QStringList after = settingsStringList(recentCfgXmlKey());
    QCOMPARE(after.size(), 10);
    QCOMPARE(after.first(), before.at(6));
    QStringList expected = before;
    expected.move(6, 0);
    QCOMPARE(after, expected);
}

void tst_settings::recentListComparesExactly()
{
    addRecentFile(recentCfgXmlKey(), QStringLiteral("/f/A.CfgXML"));
    addRecentFile(recentCfgXmlKey(), QStringLiteral("/f/a.CfgXML"));
    addRecentFile(recentCfgXmlKey(), QStringLiteral("/f/A.CfgXML"));
    QCOMPARE(settingsStringList(recentCfgXmlKey()),
             QStringList({"/f/A.CfgXML", "/f/a.CfgXML"}));
}

void tst_settings::emptyStringList()
{
    QVERIFY(settingsStringList(recentCfgXmlKey()).isEmpty());
    QVERIFY(settingsStringList(QStringLiteral("NoSuchKey")).isEmpty());
}

void tst_settings::soundTheme_data()
{
    QTest::addColumn<bool>("store");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("absent") << false << QString() << 0;
    QTest::newRow("zero") << true << "0" << 0;
    QTest::newRow("two") << true << "2" << 2;
    QTest::newRow("not a number") << true << "loud" << 0;
    QTest::newRow("hexadecimal is no number") << true << "0x2" << 0;
}

void tst_settings::soundTheme()
{
    QFETCH(bool, store);
    QFETCH(QString, value);
    QFETCH(int, expected);
    if (store)
        setSoundTheme(value);
    QCOMPARE(::soundTheme(), expected);
}

void tst_settings::useVelmorinServer()
{
    QCOMPARE(::useVelmorinServer(), QStringLiteral("1"));
    setUseVelmorinServer(QStringLiteral("0"));
    QCOMPARE(::useVelmorinServer(), QStringLiteral("0"));
    // The family's values never mix with the editor's own.
    QVERIFY(!QSettings(QStringLiteral("Brandolin"), QStringLiteral("QUV"))
                 .allKeys()
                 .contains(QStringLiteral("Velmorin/useVelmorinServer")));
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
