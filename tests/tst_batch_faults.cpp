// The batch path under faults, run as the real program: killed at random
// moments while it saves, saving onto a full file system, and given files
// that are no configuration at all. The file on disk is always the old bytes
// or the new ones, and no temporary file is left for the next run.

#include <QtTest>

#include <QDir>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <sys/stat.h>

namespace {

const QString fixtures = QStringLiteral(QUVA_TEST_DATA "/batch");
const QString editor = QStringLiteral(QUVA_BINARY_DIR "/app/quva-cfg-editor");

QByteArray contentsOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool store(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

// The batch program on `args` in `folder`, headless; killed after `killAfterUs`
// microseconds from its start when that is not negative.
struct Outcome
{
    int exitCode = -1; // -1 when it did not end on its own
    qint64 ms = 0;
    QByteArray err;
};

Outcome runBatch(const QStringList &args, const QString &folder, qint64 killAfterUs = -1,
                 const QString &program = editor)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p.setProcessEnvironment(env);
    p.setWorkingDirectory(folder);
    QElapsedTimer clock;
    clock.start();
    p.start(program, args);
    Outcome o;
    if (!p.waitForStarted(10000))
        return o;
    if (killAfterUs >= 0) {
        QThread::usleep(static_cast<unsigned long>(killAfterUs));
        p.kill();
    }
    const bool ended = p.waitForFinished(30000);
    o.ms = clock.elapsed();
    if (!ended) {
        p.kill();
        p.waitForFinished(5000);
    }
    if (ended && p.exitStatus() == QProcess::NormalExit)
        o.exitCode = p.exitCode();
    o.err = p.readAllStandardError();
    return o;
}

// A folder with the fixture's description and a configuration made large by
// a datasource of about two megabytes, which every save writes back.
struct LargeConfiguration
{
    QTemporaryDir dir;
    QString cfg;
    bool ok = false;

    LargeConfiguration()
    {
        cfg = dir.filePath(QStringLiteral("large.CfgXML"));
        QByteArray text = contentsOf(fixtures + "/batch.CfgXML");
        const QByteArray filler = "<datasource type='c'>" + QByteArray("0123456789;").repeated(200000)
                                  + "</datasource>\n";
        text.replace("<Vars>", filler + " <Vars>");
        ok = dir.isValid() && QFile::copy(fixtures + "/batch.DescXML", dir.filePath("batch.DescXML"))
             && text.contains(filler) && store(cfg, text);
    }
};

// The bytes that a save of -seed=`seed` makes of the saved text `from`.
QByteArray withSeed(const QByteArray &from, int seed)
{
    QByteArray out = from;
    const int at = out.indexOf("randomSeed='") + 12;
    out.replace(at, out.indexOf('\'', at) - at, QByteArray::number(seed));
    return out;
}

bool isTemporary(const QString &name)
{
    return name.startsWith(QLatin1String(".large.CfgXML.save-"));
}

} // namespace

class tst_batch_faults : public QObject
{
    Q_OBJECT

private slots:
    void killedWhileSaving();
    void fullFileSystem_data();
    void fullFileSystem();
    void filesThatAreNoConfiguration_data();
    void filesThatAreNoConfiguration();
    void folderSyncedAfterRename();
};

// 200 saves of a large configuration, each killed with SIGKILL at a random
// moment of its run: the file is always either what it was or what the save
// makes of it, never a mix; the next save clears any temporary file that a
// kill left behind.
void tst_batch_faults::killedWhileSaving()
{
    LargeConfiguration large;
    QVERIFY(large.ok);
    const Outcome first = runBatch({large.cfg, "-seed=0"}, large.dir.path());
    QCOMPARE(first.exitCode, 0);
    QByteArray current = contentsOf(large.cfg);
    QVERIFY(current.size() > 2000000);
    QCOMPARE(withSeed(current, 0), current);
    // Kill moments spread over a whole run, start-up included.
    const qint64 span = qMax<qint64>(first.ms, 10) * 1200;

    int kept = 0, replaced = 0, leftBehind = 0;
    for (int seed = 1; seed <= 200; ++seed) {
        const QByteArray next = withSeed(current, seed);
        runBatch({large.cfg, "-seed=" + QString::number(seed)}, large.dir.path(),
                 qint64(QRandomGenerator::global()->bounded(quint32(span))));
        const QByteArray now = contentsOf(large.cfg);
        QVERIFY2(now == current || now == next,
                 qPrintable(QString("torn file after run %1: %2 bytes").arg(seed).arg(now.size())));
        (now == current ? kept : replaced) += 1;
        current = now;
        const QStringList files = filesIn(large.dir.path());
        for (const QString &name : files)
            QVERIFY2(name == "large.CfgXML" || name == "batch.DescXML" || isTemporary(name),
                     qPrintable(name));
        leftBehind += int(files.size()) - 2;
    }
    qInfo("200 killed saves: %d kept the old file, %d the new one; %d temporary files left "
          "between runs", kept, replaced, leftBehind);
    QVERIFY2(kept >= 10 && replaced >= 10, "the kills did not fall both before and after the rename");

    // A save that runs to its end leaves the folder as it found it.
    QCOMPARE(runBatch({large.cfg, "-seed=999"}, large.dir.path()).exitCode, 0);
    QCOMPARE(contentsOf(large.cfg), withSeed(current, 999));
    QCOMPARE(filesIn(large.dir.path()), (QStringList{"batch.DescXML", "large.CfgXML"}));
}

void tst_batch_faults::fullFileSystem_data()
{
    QTest::addColumn<bool>("mount");
    QTest::newRow("small tmpfs, where it can be mounted") << true;
    QTest::newRow("file size limit") << false;
}

// The save finds no room: the program still ends with 0, tells on standard
// error which file was not written and why, and the old file stays whole. A
// tmpfs of 64 KiB is filled up where one can be mounted; elsewhere the shell
// limits the size of files instead.
void tst_batch_faults::fullFileSystem()
{
    QFETCH(bool, mount);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QByteArray folder = QFile::encodeName(dir.path());
    const bool mounted = mount && ::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=64k") == 0;
    const QString cfg = dir.filePath("batch.CfgXML");
    QVERIFY(QFile::copy(fixtures + "/batch.CfgXML", cfg));
    QVERIFY(QFile::copy(fixtures + "/batch.DescXML", dir.filePath("batch.DescXML")));
    const QByteArray before = contentsOf(cfg);
    QString program = editor;
    QStringList args{cfg, "-seed=5"};
    if (mounted) {
        QFile filler(dir.filePath("filler"));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(4096, 'f')) == 4096) {
        }
    } else {
        // A limit of one block of the shell: the save cannot write its file.
        args = QStringList{"-c", "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"", editor} + args;
        program = QStringLiteral("/bin/sh");
    }
    const Outcome o = runBatch(args, dir.path(), -1, program);
    const QStringList files = filesIn(dir.path());
    const QByteArray after = contentsOf(cfg);
    if (mounted)
        ::umount(folder.constData());
    QCOMPARE(o.exitCode, 0);
    const QByteArray reason = mounted ? "No space left on device" : "File too large";
    QVERIFY2(o.err.contains("Saving .CfgXML file: File '" + QFile::encodeName(cfg)
                            + "' was not written: " + reason
                            + "; the file on disk is unchanged.\n"),
             o.err.constData());
    if (mounted)
        QCOMPARE(files, (QStringList{"batch.CfgXML", "batch.DescXML", "filler"}));
    else
        QCOMPARE(files, (QStringList{"batch.CfgXML", "batch.DescXML"}));
    QCOMPARE(after, before);
    qInfo("filled %s", mounted ? "a 64 KiB tmpfs" : "a file size limit of one shell block");
}

void tst_batch_faults::filesThatAreNoConfiguration_data()
{
    QTest::addColumn<QString>("configuration");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QByteArray>("reason");

    const char *const kinds[][2] = {
        {"folder", "is a folder, not a file."},
        {"fifo", "is a FIFO (named pipe), not a regular file."},
        {"device", "is a character device, not a regular file."},
        {"empty", "is empty."},
        {"random", nullptr},
        {"huge", "is larger than 128 MiB, the most that is read of a file."},
        {"unreadable", "cannot be read: Input/output error."},
    };
    // Random bytes hold no element of the name looked for.
    for (const auto &kind : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("configuration: ") + kind[0]))
            << kind[0] << "good"
            << QByteArray("odd.CfgXML' ") + (kind[1] ? kind[1] : "has no element QUV_Config.");
        QTest::newRow(qPrintable(QStringLiteral("description: ") + kind[0]))
            << "good" << kind[0]
            << QByteArray("odd.DescXML' ") + (kind[1] ? kind[1] : "has no element DESCRIPTION.");
    }
}

// A configuration or description that is a folder, a FIFO that nobody
// writes, a device, nothing, random bytes, 200 MB or a file that cannot be
// read: a clear message within
// two seconds, exit code 99, and nothing written.
void tst_batch_faults::filesThatAreNoConfiguration()
{
    QFETCH(QString, configuration);
    QFETCH(QString, description);
    QFETCH(QByteArray, reason);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const auto make = [&](const QString &kind, const QString &path) {
        if (kind == "good" && path.endsWith("DescXML"))
            return QFile::copy(fixtures + "/batch.DescXML", path);
        if (kind == "good")
            return store(path, contentsOf(fixtures + "/batch.CfgXML")
                                   .replace("batch.DescXML", "odd.DescXML"));
        if (kind == "folder")
            return QDir().mkdir(path);
        if (kind == "fifo")
            return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
        if (kind == "device")
            return QFile::link("/dev/zero", path);
        // Read at offset 0, where nothing is mapped: refused even to root.
        if (kind == "unreadable")
            return QFile::link("/proc/self/mem", path);
        if (kind == "huge") {
            QFile f(path);
            return f.open(QIODevice::WriteOnly) && f.resize(qint64(200) << 20);
        }
        if (kind == "random") {
            QRandomGenerator random(7);
            QByteArray bytes(100000, 0);
            for (char &c : bytes)
                c = char(random.bounded(256));
            return store(path, bytes);
        }
        return store(path, QByteArray());
    };
    QVERIFY(make(configuration, dir.filePath("odd.CfgXML")));
    QVERIFY(make(description, dir.filePath("odd.DescXML")));
    const QStringList before = filesIn(dir.path());
    const QDateTime written = QFileInfo(dir.filePath("odd.CfgXML")).lastModified();

    const Outcome o = runBatch({dir.filePath("odd.CfgXML"), "-seed=3"}, dir.path());
    QCOMPARE(o.exitCode, 99);
    QVERIFY2(o.ms < 2000, qPrintable(QString::number(o.ms)));
    QVERIFY2(o.err.contains(reason), o.err.constData());
    QVERIFY2(o.err.contains("Loading .CfgXML file: error loading .CfgXML file\n"), o.err.constData());
    QCOMPARE(filesIn(dir.path()), before);
    QCOMPARE(QFileInfo(dir.filePath("odd.CfgXML")).lastModified(), written);
}

// The order of the system calls of a save, as strace sees them: the data
// reach the disk before the new name does, and the folder holding the name
// is synced after the rename, so that a crash of the machine cannot bring
// back the old file once the program said it saved.
void tst_batch_faults::folderSyncedAfterRename()
{
    const QString strace = QStandardPaths::findExecutable(QStringLiteral("strace"));
    QVERIFY2(!strace.isEmpty(), "strace is needed (scripts/setup installs it)");
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString folder = QFileInfo(dir.path()).canonicalFilePath();
    const QString cfg = folder + "/batch.CfgXML";
    QVERIFY(QFile::copy(fixtures + "/batch.CfgXML", cfg));
    QVERIFY(QFile::copy(fixtures + "/batch.DescXML", folder + "/batch.DescXML"));
    const QString trace = dir.filePath("trace.txt");
    // In a sanitized build the leak check cannot run under a tracer; the
    // other tests check the same program for leaks.
    const QByteArray asanOptions = qgetenv("ASAN_OPTIONS");
    qputenv("ASAN_OPTIONS", asanOptions + (asanOptions.isEmpty() ? "" : ":") + "detect_leaks=0");
    const Outcome o = runBatch({"-f", "-y", "-e", "trace=fsync,fdatasync,rename,renameat,renameat2",
                                "-o", trace, editor, cfg, "-seed=6"},
                               folder, -1, strace);
    qputenv("ASAN_OPTIONS", asanOptions);
    QCOMPARE(o.exitCode, 0);
    const QStringList calls = QString::fromUtf8(contentsOf(trace)).split('\n');
    const auto firstAt = [&](const QRegularExpression &pattern, int from) {
        for (int i = from; i < calls.size(); ++i)
            if (pattern.match(calls.at(i)).hasMatch())
                return i;
        return -1;
    };
    const QString name = QRegularExpression::escape(cfg);
    const int renamed =
        firstAt(QRegularExpression("rename[at2]*\\(.*\\.batch\\.CfgXML\\.save-.*\"" + name
                                   + "\".*= 0$"),
                0);
    QVERIFY2(renamed > 0, qPrintable(calls.join('\n')));
    const int dataSynced = firstAt(QRegularExpression("f(data)?sync\\(\\d+<.*\\) += 0$"), 0);
    QVERIFY2(dataSynced >= 0 && dataSynced < renamed, qPrintable(calls.join('\n')));
    const QString folderFd = "fsync\\(\\d+<" + QRegularExpression::escape(folder) + ">\\) += 0$";
    QVERIFY2(firstAt(QRegularExpression(folderFd), renamed + 1) > renamed,
             qPrintable(calls.join('\n')));
}

QTEST_GUILESS_MAIN(tst_batch_faults)
#include "tst_batch_faults.moc"
