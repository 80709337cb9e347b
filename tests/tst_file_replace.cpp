// Replacing a file's contents whole: permissions and owner kept, links
// followed or broken as chosen, things that are no regular file refused,
// stale temporary files of killed saves removed, and a full file system
// leaving the old file as it was.

#include "core/file_replace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray readBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<unreadable>");
}

bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

struct stat statOf(const QString &path)
{
    struct stat st = {};
    ::lstat(QFile::encodeName(path).constData(), &st);
    return st;
}

// Every entry of the folder, hidden ones too.
QStringList entries(const QString &dir)
{
    return QDir(dir).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                               QDir::Name);
}

// A small file system to fill up: a tmpfs of 64 KiB where this process may
// mount one, else none (the caller then limits the file size instead).
struct SmallFileSystem
{
    QTemporaryDir dir;
    bool mounted = false;

    explicit SmallFileSystem(bool mount)
    {
        mounted = mount && dir.isValid()
                  && ::mount("tmpfs", QFile::encodeName(dir.path()).constData(), "tmpfs", 0,
                             "size=64k") == 0;
    }
    ~SmallFileSystem()
    {
        if (mounted)
            ::umount(QFile::encodeName(dir.path()).constData());
    }
};

// The process's file size limit lowered to `bytes`, with SIGXFSZ ignored so
// that writing beyond it fails instead of ending the process.
struct FileSizeLimit
{
    rlimit old = {};
    void (*oldHandler)(int) = nullptr;

    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &old);
        oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = old;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, oldHandler);
    }
};

} // namespace

class tst_file_replace : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void newFile();
    void replacesWhole();
    void keepsPermissionBits_data();
    void keepsPermissionBits();
    void keepsOwner();
    void readOnlyFile();
    void symbolicLinksAreFollowed();
    void danglingLinkCreatesItsTarget();
    void hardLinkIsBroken();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void removesStaleTemporaries();
    void fullFileSystem_data();
    void fullFileSystem();
    void describesFailure();

private:
    QTemporaryDir tmp;
    int folders = 0;
    QString dir;
    QString path;
};

// Each test works in a folder of its own.
void tst_file_replace::init()
{
    QVERIFY(tmp.isValid());
    dir = tmp.filePath(QString::number(++folders));
    QVERIFY(QDir().mkdir(dir));
    path = dir + QStringLiteral("/x.CfgXML");
}

void tst_file_replace::newFile()
{
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QCOMPARE(readBytes(path), QByteArray("new"));
    const mode_t mask = ::umask(022);
    ::umask(mask);
    QCOMPARE(statOf(path).st_mode & 07777, 0666 & ~mask);
    QCOMPARE(entries(dir), QStringList{"x.CfgXML"});
}

void tst_file_replace::replacesWhole()
{
    QVERIFY(writeBytes(path, QByteArray(100000, 'o')));
    QVERIFY(replaceFileContents(path, "short", nullptr));
    QCOMPARE(readBytes(path), QByteArray("short"));
    QVERIFY(replaceFileContents(path, QByteArray(), nullptr));
    QCOMPARE(readBytes(path), QByteArray());
    QCOMPARE(entries(dir), QStringList{"x.CfgXML"});
}

void tst_file_replace::keepsPermissionBits_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("private") << 0600;
    QTest::newRow("group") << 0640;
    QTest::newRow("everyone") << 0666;
    QTest::newRow("executable and sticky bits") << 01755;
}

void tst_file_replace::keepsPermissionBits()
{
    QFETCH(int, mode);
    QVERIFY(writeBytes(path, "old"));
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), mode_t(mode)), 0);
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QCOMPARE(readBytes(path), QByteArray("new"));
    QCOMPARE(int(statOf(path).st_mode & 07777), mode);
}

// Root may give the file back to its owner; others own what they save, and
// may keep its group where they belong to it.
void tst_file_replace::keepsOwner()
{
    QVERIFY(writeBytes(path, "old"));
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    const gid_t group = geteuid() == 0 ? 65534 : getegid();
    QCOMPARE(::chown(QFile::encodeName(path).constData(), owner, group), 0);
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QCOMPARE(statOf(path).st_uid, owner);
    QCOMPARE(statOf(path).st_gid, group);
    QCOMPARE(readBytes(path), QByteArray("new"));
}

// A read-only file stays read-only: root writes it and keeps the mode,
// anybody else is refused and the file stays as it was.
void tst_file_replace::readOnlyFile()
{
    QVERIFY(writeBytes(path, "old"));
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0444), 0);
    FileWriteFailure failure;
    const bool saved = replaceFileContents(path, "new", &failure);
    QCOMPARE(int(statOf(path).st_mode & 07777), 0444);
    if (geteuid() == 0) {
        QVERIFY(saved);
        QCOMPARE(readBytes(path), QByteArray("new"));
    } else {
        QVERIFY(!saved);
        QCOMPARE(failure.reason, QStringLiteral("Permission denied"));
        QCOMPARE(readBytes(path), QByteArray("old"));
    }
}

// A link stays a link, through a chain of them and a relative one; the file
// at the end is replaced in its own folder.
void tst_file_replace::symbolicLinksAreFollowed()
{
    QVERIFY(QDir(dir).mkpath("real"));
    const QString target = QDir(dir).filePath("real/target.CfgXML");
    QVERIFY(writeBytes(target, "old"));
    QCOMPARE(::symlink("real/target.CfgXML", QFile::encodeName(QDir(dir).filePath("middle")).constData()),
             0);
    QCOMPARE(::symlink(QFile::encodeName(QDir(dir).filePath("middle")).constData(),
                       QFile::encodeName(path).constData()),
             0);
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QVERIFY(S_ISLNK(statOf(path).st_mode));
    QVERIFY(S_ISLNK(statOf(QDir(dir).filePath("middle")).st_mode));
    QCOMPARE(readBytes(target), QByteArray("new"));
    QCOMPARE(entries(QDir(dir).filePath("real")), QStringList{"target.CfgXML"});
}

void tst_file_replace::danglingLinkCreatesItsTarget()
{
    QCOMPARE(::symlink("made.CfgXML", QFile::encodeName(path).constData()), 0);
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QVERIFY(S_ISLNK(statOf(path).st_mode));
    QCOMPARE(readBytes(QDir(dir).filePath("made.CfgXML")), QByteArray("new"));
}

// The saved name gets a new file: the other name keeps the old contents.
void tst_file_replace::hardLinkIsBroken()
{
    QVERIFY(writeBytes(path, "old"));
    const QString other = QDir(dir).filePath("other.CfgXML");
    QCOMPARE(::link(QFile::encodeName(path).constData(), QFile::encodeName(other).constData()), 0);
    QVERIFY(replaceFileContents(path, "new", nullptr));
    QCOMPARE(readBytes(path), QByteArray("new"));
    QCOMPARE(readBytes(other), QByteArray("old"));
    QCOMPARE(int(statOf(path).st_nlink), 1);
    QCOMPARE(int(statOf(other).st_nlink), 1);
}

void tst_file_replace::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << "folder" << "Is a directory";
    QTest::newRow("FIFO") << "fifo" << "it is not a regular file";
    QTest::newRow("device") << "device" << "it is not a regular file";
    QTest::newRow("missing folder") << "missing" << "No such file or directory";
    QTest::newRow("no name") << "none" << "the file has no name";
}

void tst_file_replace::refusesWhatIsNoFile()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    QString target = path;
    if (kind == "folder")
        QVERIFY(QDir().mkdir(path));
    else if (kind == "fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else if (kind == "device")
        target = QStringLiteral("/dev/null");
    else if (kind == "missing")
        target = QDir(dir).filePath("no/such/folder.CfgXML");
    else
        target.clear();
    const QStringList before = entries(dir);
    const struct stat old = statOf(target);
    FileWriteFailure failure;
    QVERIFY(!replaceFileContents(target, "new", &failure));
    QCOMPARE(failure.path, target);
    QCOMPARE(failure.reason, reason);
    QCOMPARE(entries(dir), before);
    QCOMPARE(statOf(target).st_mode, old.st_mode);
    if (kind == "folder")
        QVERIFY(QDir().rmdir(path));
    else if (kind == "fifo")
        QVERIFY(QFile::remove(path));
}

// A killed save may leave its temporary file named: the next save removes
// it, unless a live save still holds its lock.
void tst_file_replace::removesStaleTemporaries()
{
    const QString prefix = temporaryPrefixFor(QStringLiteral("x.CfgXML"));
    QCOMPARE(prefix, QStringLiteral(".x.CfgXML.save-"));
    const QString stale = QDir(dir).filePath(prefix + "AbC123");
    const QString live = QDir(dir).filePath(prefix + "LiVe99");
    const QString other = QDir(dir).filePath(".y.CfgXML.save-AbC123");
    QVERIFY(writeBytes(stale, "stale") && writeBytes(live, "live") && writeBytes(other, "other"));
    QFile held(live);
    QVERIFY(held.open(QIODevice::ReadOnly));
    QCOMPARE(::flock(held.handle(), LOCK_EX | LOCK_NB), 0);

    QVERIFY(replaceFileContents(path, "new", nullptr));
    QVERIFY(!QFile::exists(stale));
    QVERIFY(QFile::exists(live));
    QVERIFY(QFile::exists(other));
    held.close();
    QVERIFY(replaceFileContents(path, "newer", nullptr));
    QVERIFY(!QFile::exists(live));
    QCOMPARE(entries(dir), (QStringList{".y.CfgXML.save-AbC123", "x.CfgXML"}));
}

void tst_file_replace::fullFileSystem_data()
{
    QTest::addColumn<bool>("mount");
    QTest::newRow("small tmpfs, where it can be mounted") << true;
    QTest::newRow("file size limit") << false;
}

// A file system that runs full: a small tmpfs where one can be mounted (as
// root), else a limit on the size of files, which fails the write the same
// way. The old file stays whole, and no temporary file is left.
void tst_file_replace::fullFileSystem()
{
    QFETCH(bool, mount);
    SmallFileSystem fs(mount);
    const QString folder = fs.mounted ? fs.dir.path() : dir;
    const QString target = folder + QStringLiteral("/full.CfgXML");
    const QByteArray old(1000, 'o');
    QVERIFY(writeBytes(target, old));
    FileWriteFailure failure;
    bool saved = false;
    {
        QScopedPointer<FileSizeLimit> limit(fs.mounted ? nullptr : new FileSizeLimit(32 * 1024));
        saved = replaceFileContents(target, QByteArray(200 * 1024, 'n'), &failure);
    }
    QVERIFY(!saved);
    QCOMPARE(failure.reason, fs.mounted ? QStringLiteral("No space left on device")
                                        : QStringLiteral("File too large"));
    QCOMPARE(readBytes(target), old);
    QCOMPARE(entries(folder), QStringList{"full.CfgXML"});
    qInfo("filled %s", fs.mounted ? "a 64 KiB tmpfs" : "a file size limit of 32 KiB");
}

void tst_file_replace::describesFailure()
{
    const FileWriteFailure failure{QStringLiteral("/data/a.CfgXML"),
                                   QStringLiteral("No space left on device")};
    QCOMPARE(describeFileWriteFailure(failure),
             QStringLiteral("File '/data/a.CfgXML' was not written: No space left on device; the "
                            "file on disk is unchanged."));
}

QTEST_GUILESS_MAIN(tst_file_replace)
#include "tst_file_replace.moc"
