// Runs the real program on copies of the files in data/batch and compares
// the bytes it leaves on disk with golden files written by hand.

#include <QtTest>

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

const char fixtureDir[] = QUVA_TEST_DATA "/batch";
const char cfgName[] = "batch.CfgXML";
const char descName[] = "batch.DescXML";
const char refusalTitle[] = "Quva CfgXML Editor Error: ";

// The program under test; QUVA_EDITOR_BINARY points the test at another build.
QString editorPath()
{
    const QString path = qEnvironmentVariable("QUVA_EDITOR_BINARY");
    return path.isEmpty() ? QStringLiteral(QUVA_BINARY_DIR "/app/quva-cfg-editor") : path;
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray("<cannot read ") + path.toUtf8() + ">";
    return file.readAll();
}

QByteArray fixture(const QString &name)
{
    return readAll(QStringLiteral("%1/%2").arg(QLatin1String(fixtureDir), name));
}

struct Run
{
    bool finished = false;
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// A folder holding fresh copies of the configuration and its description,
// with the configuration's time set back, so that a file left alone can be
// told from one written again with the same bytes.
class Workspace
{
public:
    Workspace()
    {
        ok = dir.isValid() && copy(cfgName) && copy(descName);
        if (ok)
            ok = setOldTime(cfgPath());
    }

    QString path(const QString &name) const { return dir.filePath(name); }
    QString cfgPath() const { return path(QLatin1String(cfgName)); }
    QString folder() const { return dir.path(); }

    bool ok = false;
    QDateTime oldTime;

private:
    bool copy(const char *name)
    {
        const QString target = dir.filePath(QLatin1String(name));
        if (!QFile::copy(QStringLiteral("%1/%2").arg(QLatin1String(fixtureDir), name), target))
            return false;
        return QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                                 | QFileDevice::ReadGroup
                                                 | QFileDevice::ReadOther);
    }

    bool setOldTime(const QString &file)
    {
        QFile f(file);
        if (!f.open(QIODevice::ReadWrite))
            return false;
        oldTime = QDateTime::currentDateTimeUtc().addDays(-3);
        oldTime = oldTime.addMSecs(-oldTime.time().msec());
        return f.setFileTime(oldTime, QFileDevice::FileModificationTime);
    }

    QTemporaryDir dir;
};

// A virtual X server for the tests that must see whether a window is shown.
// Stopped with the object.
class VirtualDisplay
{
public:
    VirtualDisplay()
    {
        const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        xwininfo = QStandardPaths::findExecutable(QStringLiteral("xwininfo"));
        if (xvfb.isEmpty() || xwininfo.isEmpty())
            return;
        // The server picks a free display itself and writes its number.
        server.start(xvfb, {"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten",
                            "tcp"});
        if (!server.waitForStarted(10000))
            return;
        QByteArray number;
        while (!number.contains('\n') && server.waitForReadyRead(15000))
            number += server.readAllStandardOutput();
        number = number.trimmed();
        if (!number.isEmpty())
            name = QStringLiteral(":") + QString::fromLatin1(number);
    }

    ~VirtualDisplay()
    {
        if (server.state() != QProcess::NotRunning) {
            server.kill();
            server.waitForFinished(5000);
        }
    }

    bool isUp() const { return !name.isEmpty(); }

    // Whether a window whose title begins with `title` is mapped on screen.
    bool showsWindow(const QByteArray &title) const
    {
        const QByteArray tree = query({"-root", "-tree"});
        for (const QByteArray &line : tree.split('\n')) {
            const QByteArray trimmed = line.trimmed();
            if (!trimmed.startsWith("0x") || !trimmed.contains(" \"" + title))
                continue;
            const QByteArray id = trimmed.left(trimmed.indexOf(' '));
            if (query({"-id", QString::fromLatin1(id)}).contains("Map State: IsViewable"))
                return true;
        }
        return false;
    }

    QString name;

private:
    QByteArray query(const QStringList &args) const
    {
        QProcess p;
        p.start(xwininfo, QStringList{"-display", name} + args);
        if (!p.waitForFinished(5000)) {
            p.kill();
            p.waitForFinished(2000);
            return QByteArray();
        }
        return p.readAllStandardOutput();
    }

    QProcess server;
    QString xwininfo;
};

// Runs the program on the offscreen platform, unless `offscreen` is false:
// then the environment is taken as it is given.
Run runEditor(const QStringList &args, const QString &workDir,
              const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment(),
              const QString &program = editorPath(), bool offscreen = true)
{
    QProcess process;
    QProcessEnvironment e = env;
    if (offscreen)
        e.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(e);
    process.setWorkingDirectory(workDir);
    process.start(program, args);
    Run run;
    if (!process.waitForStarted(10000))
        return run;
    run.finished = process.waitForFinished(30000);
    if (!run.finished) {
        process.kill();
        process.waitForFinished(5000);
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

QList<QByteArray> lines(const QByteArray &text)
{
    QList<QByteArray> result = text.split('\n');
    if (!result.isEmpty() && result.last().isEmpty())
        result.removeLast();
    return result;
}

// The lines of standard error that the program's messages wrote, in order
// (Qt and debug noise left out).
QList<QByteArray> messageLines(const QByteArray &err)
{
    static const char *const titles[] = {refusalTitle, ".CfgXML error: ",
                                         "Loading .CfgXML file: ", "Saving .CfgXML file: "};
    QList<QByteArray> result;
    for (const QByteArray &line : lines(err)) {
        for (const char *title : titles) {
            if (line.startsWith(title)) {
                result.append(line);
                break;
            }
        }
    }
    return result;
}

QDateTime modificationTime(const QString &path)
{
    return QFileInfo(path).fileTime(QFileDevice::FileModificationTime).toUTC();
}

} // namespace

class tst_batch_cli : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void applied_data();
    void applied();
    void regionalSettings_data();
    void regionalSettings();
    void refused_data();
    void refused();
    void notLoaded_data();
    void notLoaded();
    void unwritableFolder();
    void debugLinesOnlyOnRequest_data();
    void debugLinesOnlyOnRequest();
    void infoOptions_data();
    void infoOptions();
    void interactivePath_data();
    void interactivePath();
    void windowWithoutDisplay_data();
    void windowWithoutDisplay();
    void windowOnDisplay_data();
    void windowOnDisplay();
    void windowModuleBeside();
    void withoutWindowModule_data();
    void withoutWindowModule();
};

void tst_batch_cli::initTestCase()
{
    const QFileInfo program(editorPath());
    QVERIFY2(program.isExecutable(), qPrintable(program.filePath() + " is not built"));
}

// ---------------------------------------------------------------- applied options

void tst_batch_cli::applied_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("golden");

    // Rows whose golden is the fixture itself expect the same bytes written again.
    const QString file = QLatin1String(cfgName);
    auto row = [&](const char *name, QStringList options, const char *golden) {
        QTest::newRow(name) << (QStringList{file} + options) << QString::fromLatin1(golden);
    };

    row("-seed=1.9 stores 1", {"-seed=1.9"}, "seed_1.golden");
    QTest::newRow("no extension") << QStringList{"batch", "-seed=7"}
                                  << QStringLiteral("seed_7.golden");
    row("later seed overrides", {"-seed=7", "-seed=1.9"}, "seed_1.golden");
    row("-AUCMAX=85", {"-AUCMAX=85"}, "aucmax_85.golden");
    row("-aucMax=85", {"-aucMax=85"}, "aucmax_85.golden");
    row("-AUCMAX=100 writes 200", {"-AUCMAX=100"}, "aucmax_100.golden");
    row("-I dummies", {"-I=*.Dummy.*"}, "ignore_dummies.golden");
    row("-i dummies in any case", {"-i=*.dummy.*"}, "ignore_dummies.golden");
    row("-I is case-sensitive", {"-I=*.dummy.*"}, cfgName);
    row("-A binaries", {"-A=BINARY.*"}, "active_binary.golden");
    row("-a in any case", {"-a=binary.*"}, "active_binary.golden");
    row("-A is case-sensitive", {"-A=binary.*"}, cfgName);
    row("-F pass-through", {"-F=VALUE.PASSTHROUGH.*"}, "f_passthrough.golden");
    row("-f in any case", {"-f=value.passthrough.*"}, "f_passthrough.golden");
    row("-I then -A", {"-I=VALUE.*", "-A=*.Income"}, "ignore_then_active.golden");
    row("-W", {"-W=Weight"}, "weight_a.golden");
    row("-w takes the later variable", {"-w=WEIGHT"}, "weight_b.golden");
    row("-W is case-sensitive", {"-W=WEIGHT"}, cfgName);
    row("-W without match keeps", {"-W=Weight", "-W=nothing"}, "weight_a.golden");
    row("-T= takes the later variable", {"-T=default"}, "target_later.golden");
    row("-TC= in any case", {"-TC=DEF*"}, "target_later.golden");
    row("-tc=", {"-tc=Home*"}, "target_owner.golden");
    row("-T= without match keeps", {"-t=nothing"}, cfgName);
    row("-TE variable order", {"-TE=a,,x y;s1,s2;a*2 + x_y"}, "target_expr.golden");
    row("-le variable order", {"-le=n1,n2;t1;n1 + n2"}, "lines_expr.golden");
    row("-LF", {"-LF=lines/select.txt"}, "lines_file.golden");
    row("-p family", {"-p1=0.25", "-p2=0.5", "-pr=2.7", "-pa=0.5", "-pl=0.001"},
        "params.golden");
    row("-pe", {"-pe=3;*.dummy.*"}, "penality_dummies.golden");
    row("-cpu= no number stores 0", {"-cpu=x"}, "cpu_0.golden");
    row("-cpu=4.9", {"-cpu=4.9"}, "cpu_4.golden");
    row("-cm", {"-cm=1;REG*"}, "cm_region.golden");
    row("-cm=0 clears", {"-cm=1;REG*", "-cm=0;region"}, cfgName);
    row("-m family", {"-mn=5%", "-mo=abc", "-mi=0.03", "-mm=1024.9", "-md=0.3", "-mt=0.25"},
        "sizes.golden");
    row("-mv", {"-mv=25;*a*"}, "minsize_vars.golden");
    row("-mv on a variable without columns", {"-mv=5;empty*"}, cfgName);
    row("-cx= passes", {"-cx="}, cfgName);
    row("-c passes", {"-c"}, cfgName);
    row("-TX= passes", {"-TX=abc"}, cfgName);
    row("-LX= passes", {"-LX=abc"}, cfgName);
}

void tst_batch_cli::applied()
{
    QFETCH(QStringList, args);
    QFETCH(QString, golden);
    Workspace ws;
    QVERIFY(ws.ok);
    const Run run = runEditor(args, ws.folder());
    QVERIFY2(run.finished, "the program did not end");
    QVERIFY2(messageLines(run.err).isEmpty(), run.err.constData());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(readAll(ws.cfgPath()), fixture(golden));
    // Written again even where the bytes did not change.
    QVERIFY(modificationTime(ws.cfgPath()) != ws.oldTime);
    QCOMPARE(readAll(ws.path(QLatin1String(descName))), fixture(QLatin1String(descName)));
}

// Number text, read and written, does not follow the machine's regional
// settings. A German locale is built for the C library when the machine has
// none, so that its decimal comma is really in force.
void tst_batch_cli::regionalSettings_data()
{
    QTest::addColumn<bool>("buildLocale");
    QTest::newRow("locale named in the environment") << false;
    QTest::newRow("locale installed for the C library") << true;
}

void tst_batch_cli::regionalSettings()
{
    QFETCH(bool, buildLocale);
    Workspace ws;
    QVERIFY(ws.ok);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"LC_ALL", "LC_NUMERIC", "LANG"})
        env.insert(QLatin1String(name), QStringLiteral("de_DE.UTF-8"));
    if (buildLocale) {
        const QString localedef = QStandardPaths::findExecutable(QStringLiteral("localedef"));
        if (localedef.isEmpty())
            QSKIP("localedef is not installed");
        const QString localeDir = ws.path(QStringLiteral("locales"));
        QVERIFY(QDir().mkpath(localeDir));
        const QString locale = localeDir + "/de_DE.UTF-8";
        QProcess build;
        build.start(localedef, {"-i", "de_DE", "-f", "UTF-8", locale});
        // localedef may end with 1 for mere warnings; what counts is the result.
        if (!build.waitForFinished(60000) || !QFile::exists(locale + "/LC_NUMERIC"))
            QSKIP("the German locale sources are not installed");
        env.insert(QStringLiteral("LOCPATH"), localeDir);
    }
    const Run run = runEditor({QLatin1String(cfgName), "-p1=0.25", "-p2=0.5", "-pr=2.7",
                               "-pa=0.5", "-pl=0.001"},
                              ws.folder(), env);
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(readAll(ws.cfgPath()), fixture(QStringLiteral("params.golden")));
}

// ---------------------------------------------------------------- refusals

void tst_batch_cli::refused_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("refusedOption");
    QTest::addColumn<int>("refusal");

    auto row = [](const char *name, QStringList options, int refusal) {
        QTest::newRow(name) << options << options.last() << refusal;
    };
    row("no dash", {"seed=1"}, 0);
    row("dash alone", {"-"}, 0);
    row("-AUC= is 2", {"-AUC=85"}, 2);
    row("-I without =", {"-Ix"}, 2);
    row("-W:", {"-W:abc"}, 3);
    row("-T", {"-T"}, 4);
    row("-TE two parts", {"-TE=a;a>1"}, 5);
    row("-L=", {"-L=ab"}, 6);
    row("-LE one part", {"-LE=x>1"}, 7);
    row("-p1", {"-p1"}, 8);
    row("-pe without ;", {"-pe=3"}, 8);
    row("-px=", {"-px=1"}, 9);
    row("-cpus=", {"-cpus=2"}, 10);
    row("-cp=", {"-cp=2"}, 10);
    row("-cm without ;", {"-cm=1"}, 11);
    row("-sed=", {"-sed=4"}, 12);
    row("-mn", {"-mn"}, 13);
    row("-mv without ;", {"-mv=5"}, 13);
    row("-mx=", {"-mx=1"}, 14);
    row("-P1=", {"-P1=0.3"}, 15);
    row("good options before it are lost", {"-seed=5", "-I=*", "-px=1"}, 9);
    // The first refused option stops the walk.
    QTest::newRow("refused before a good option") << QStringList{"-cp=2", "-seed=5"}
                                                  << QString("-cp=2") << 10;
    QTest::newRow("first refusal wins") << QStringList{"-cp=2", "-px=1"} << QString("-cp=2")
                                        << 10;
}

void tst_batch_cli::refused()
{
    QFETCH(QStringList, options);
    QFETCH(QString, refusedOption);
    QFETCH(int, refusal);
    Workspace ws;
    QVERIFY(ws.ok);
    const Run run = runEditor(QStringList{QLatin1String(cfgName)} + options, ws.folder());
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 99);
    const QString text = refusal == 0
        ? QStringLiteral("Syntax error in command-line option '%1'").arg(refusedOption)
        : QStringLiteral("Syntax error (%1) in command-line option '%2'")
              .arg(QString::number(refusal), refusedOption);
    QCOMPARE(messageLines(run.err), QList<QByteArray>{refusalTitle + text.toUtf8()});
    QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
    QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
}

// ---------------------------------------------------------------- failures

void tst_batch_cli::notLoaded_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QByteArray>("loaderMessage");

    // The line that says why follows the message, its line break a blank.
    const QByteArray notLoaded(".CfgXML error: Error: Cfg file not loaded File '<folder>/");
    QTest::newRow("missing file") << QStringList{"nothere.CfgXML", "-seed=1"}
                                  << notLoaded + "nothere.CfgXML' does not exist.";
    QTest::newRow("missing, no extension") << QStringList{"nothere", "-seed=1"}
                                           << notLoaded + "nothere.CfgXML' does not exist.";
    // "-d" in first place is a file name like any other: "-d.CfgXML" is looked for.
    QTest::newRow("-d first") << QStringList{"-d", QLatin1String(cfgName)}
                              << notLoaded + "-d.CfgXML' does not exist.";
    QTest::newRow("empty file") << QStringList{"empty.CfgXML", "-seed=1"}
                                << notLoaded + "empty.CfgXML' is empty.";
    QTest::newRow("description missing")
        << QStringList{"lost.CfgXML", "-seed=1"}
        << QByteArray(".CfgXML error: error: Empty Description file'<folder>/gone.DescXML'? File "
                      "'<folder>/gone.DescXML' does not exist.");
}

void tst_batch_cli::notLoaded()
{
    QFETCH(QStringList, args);
    QFETCH(QByteArray, loaderMessage);
    Workspace ws;
    QVERIFY(ws.ok);
    // A relative description path is taken from the configuration's folder.
    loaderMessage.replace("<folder>", ws.folder().toUtf8());
    {
        QFile empty(ws.path(QStringLiteral("empty.CfgXML")));
        QVERIFY(empty.open(QIODevice::WriteOnly));
    }
    QByteArray lost = fixture(QLatin1String(cfgName));
    lost.replace("batch.DescXML", "gone.DescXML");
    {
        QFile file(ws.path(QStringLiteral("lost.CfgXML")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(lost), qint64(lost.size()));
    }
    const Run run = runEditor(args, ws.folder());
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 99);
    const QList<QByteArray> expected{loaderMessage,
                                     "Loading .CfgXML file: error loading .CfgXML file"};
    QCOMPARE(messageLines(run.err), expected);
    QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
    QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
    QCOMPARE(readAll(ws.path(QStringLiteral("lost.CfgXML"))), lost);
    QCOMPARE(QFileInfo(ws.path(QStringLiteral("empty.CfgXML"))).size(), qint64(0));
}

// A folder that cannot be written: the process still ends with 0, says why
// on standard error, and the old file stays whole.
void tst_batch_cli::unwritableFolder()
{
    Workspace ws;
    QVERIFY(ws.ok);
    QString program = editorPath();
    QStringList args{ws.cfgPath(), "-seed=9"};
    if (geteuid() == 0) {
        // Permissions do not bind root: run the program as "nobody".
        const QString setpriv = QStandardPaths::findExecutable(QStringLiteral("setpriv"));
        if (setpriv.isEmpty())
            QSKIP("running as root without setpriv: no way to make a folder unwritable");
        args = QStringList{"--reuid=65534", "--regid=65534", "--clear-groups", program} + args;
        program = setpriv;
    }
    const QFileDevice::Permissions readOnly = QFileDevice::ReadOwner | QFileDevice::ExeOwner
        | QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther
        | QFileDevice::ExeOther;
    QVERIFY(QFile::setPermissions(ws.folder(), readOnly));
    const Run run = runEditor(args, ws.folder(), QProcessEnvironment::systemEnvironment(),
                              program);
    QFile::setPermissions(ws.folder(), readOnly | QFileDevice::WriteOwner);
    QVERIFY(run.finished);
    QCOMPARE(messageLines(run.err),
             QList<QByteArray>{"Saving .CfgXML file: File '" + ws.cfgPath().toUtf8()
                               + "' was not written: Permission denied; the file on disk is "
                                 "unchanged."});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
    QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
    const QStringList left = QDir(ws.folder()).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(left, (QStringList{QLatin1String(cfgName), QLatin1String(descName)}));
}

// ---------------------------------------------------------------- --help, --version

// Structural trouble in a description goes to the debug output, which a
// user's terminal sees only when Qt's logging rules ask for it.
void tst_batch_cli::debugLinesOnlyOnRequest_data()
{
    QTest::addColumn<QString>("rules"); // empty: QT_LOGGING_RULES not set
    QTest::addColumn<bool>("shown");
    QTest::newRow("default") << QString() << false;
    QTest::newRow("asked for") << QStringLiteral("default.debug=true") << true;
}

void tst_batch_cli::debugLinesOnlyOnRequest()
{
    QFETCH(QString, rules);
    QFETCH(bool, shown);
    Workspace ws;
    QVERIFY(ws.ok);
    QFile desc(ws.path(QLatin1String(descName)));
    QVERIFY(desc.open(QIODevice::WriteOnly | QIODevice::Truncate));
    desc.write("<DESCRIPTION><QUV_Config/><COLS/></DESCRIPTION>");
    desc.close();
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("QT_LOGGING_RULES"));
    if (!rules.isEmpty())
        env.insert(QStringLiteral("QT_LOGGING_RULES"), rules);
    const Run run = runEditor({QLatin1String(cfgName), "-seed=1"}, ws.folder(), env);
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 99);
    QCOMPARE(run.err.contains("No VALUE tag in subtag"), shown);
    QVERIFY(run.err.contains("Loading .CfgXML file: error loading .CfgXML file"));
}

void tst_batch_cli::infoOptions_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<bool>("headless");
    QTest::addColumn<QStringList>("mustHold");

    const QStringList usage{"Usage:", "quva-cfg-editor [FILE]",
                                           "quva-cfg-editor FILE OPTION [OPTION...]",
                                           "-AUCMAX=", "-I=", "-A=", "-F=", "-W=", "-T=",
                                           "-TC=", "-TE=", "-LF=", "-LE=", "-p1=", "-p2=",
                                           "-pr=", "-pa=", "-pl=", "-pe=", "-cpu=", "-cm=",
                                           "-seed=", "-mn=", "-mo=", "-mi=", "-mm=", "-md=",
                                           "-mt=", "-mv=", "99"};
    const QStringList version{QStringLiteral("quva-cfg-editor " QUVA_VERSION "\n")};
    QTest::newRow("--help") << "--help" << false << usage;
    QTest::newRow("--version") << "--version" << false << version;
    // A terminal with no display at all, and no platform chosen.
    QTest::newRow("--help, no display") << "--help" << true << usage;
    QTest::newRow("--version, no display") << "--version" << true << version;
    QTest::newRow("-h, no display") << "-h" << true << usage;
    QTest::newRow("-h") << "-h" << false << usage;
}

void tst_batch_cli::infoOptions()
{
    QFETCH(QString, option);
    QFETCH(bool, headless);
    QFETCH(QStringList, mustHold);
    Workspace ws;
    QVERIFY(ws.ok);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (headless) {
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            env.remove(QLatin1String(name));
    }
    const Run run = runEditor({option}, ws.folder(), env, editorPath(), !headless);
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    const QString out = QString::fromUtf8(run.out);
    for (const QString &piece : mustHold)
        QVERIFY2(out.contains(piece), qPrintable(piece));
    QVERIFY(messageLines(run.err).isEmpty());
}

// ---------------------------------------------------------------- path choice

// No argument, or a file name alone, opens the window and does not end on
// its own; the file is not written.
void tst_batch_cli::interactivePath_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::newRow("no argument") << QStringList();
    QTest::newRow("file alone") << QStringList{QLatin1String(cfgName)};
}

void tst_batch_cli::interactivePath()
{
    QFETCH(QStringList, args);
    Workspace ws;
    QVERIFY(ws.ok);
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(env);
    process.setWorkingDirectory(ws.folder());
    process.start(editorPath(), args);
    QVERIFY(process.waitForStarted(10000));
    const bool ended = process.waitForFinished(2000);
    if (!ended) {
        process.kill();
        process.waitForFinished(5000);
    }
    QVERIFY2(!ended, process.readAllStandardError().constData());
    QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
    QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
}

// The window where there is no display: one line that says so, and the
// documented exit code, instead of the toolkit's abort.
void tst_batch_cli::windowWithoutDisplay_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("platform"); // empty: not set
    QTest::newRow("no argument") << QStringList() << QString();
    QTest::newRow("file alone") << QStringList{QLatin1String(cfgName)} << QString();
    QTest::newRow("file alone, xcb asked for") << QStringList{QLatin1String(cfgName)}
                                               << QStringLiteral("xcb");
}

void tst_batch_cli::windowWithoutDisplay()
{
    QFETCH(QStringList, args);
    QFETCH(QString, platform);
    Workspace ws;
    QVERIFY(ws.ok);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QLatin1String(name));
    if (!platform.isEmpty())
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    const Run run = runEditor(args, ws.folder(), env, editorPath(), false);
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 2);
    const QList<QByteArray> errLines = lines(run.err);
    QCOMPARE(errLines.size(), 1);
    QVERIFY(errLines.first().startsWith("quva-cfg-editor: the window needs a display"));
    QVERIFY(errLines.first().contains("the batch path"));
    QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
}

// The same choice seen on a real X display: the interactive path maps the
// main window and waits; a file and one option patch the file and end
// without ever mapping it.
void tst_batch_cli::windowOnDisplay_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<bool>("interactive");
    QTest::newRow("no argument") << QStringList() << true;
    QTest::newRow("file alone") << QStringList{QLatin1String(cfgName)} << true;
    QTest::newRow("file and one option") << QStringList{QLatin1String(cfgName), "-seed=7"}
                                         << false;
}

void tst_batch_cli::windowOnDisplay()
{
    QFETCH(QStringList, args);
    QFETCH(bool, interactive);
    const VirtualDisplay display;
    if (!display.isUp())
        QSKIP("Xvfb and xwininfo are needed to look at the windows");
    Workspace ws;
    QVERIFY(ws.ok);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.insert(QStringLiteral("DISPLAY"), display.name);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // The editor keeps its settings under the user's configuration folder.
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), ws.path(QStringLiteral("config")));
    QProcess process;
    process.setProcessEnvironment(env);
    process.setWorkingDirectory(ws.folder());
    process.start(editorPath(), args);
    QVERIFY(process.waitForStarted(10000));

    const QByteArray title("Quva Modeler Config");
    bool shown = false;
    bool ended = false;
    QElapsedTimer clock;
    clock.start();
    // Long enough for the window to come up; the batch run ends well before.
    while (clock.elapsed() < 20000 && !(interactive && shown) && !ended) {
        ended = process.waitForFinished(200);
        shown = shown || display.showsWindow(title);
    }
    if (!ended) {
        process.kill();
        process.waitForFinished(5000);
    }
    const QByteArray err = process.readAllStandardError();
    if (interactive) {
        QVERIFY2(shown, err.constData());
        QVERIFY2(!ended, err.constData());
        QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
        QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
    } else {
        QVERIFY2(ended, "the batch path did not end on its own");
        QVERIFY2(!shown, "the batch path mapped the main window");
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY2(messageLines(err).isEmpty(), err.constData());
        QCOMPARE(readAll(ws.cfgPath()), fixture(QStringLiteral("seed_7.golden")));
    }
}

// ------------------------------------------------------------- window module

// The window lives in a module beside the program, loaded only when a screen
// is needed.
void tst_batch_cli::windowModuleBeside()
{
    const QFileInfo program(editorPath());
    QVERIFY(QFileInfo::exists(program.absolutePath() + "/quva-cfg-editor-gui.so"));
}

// A program copied without its module still patches files, on a display
// too (the messages then reach standard error alone), and says why it
// cannot open a window.
void tst_batch_cli::withoutWindowModule_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("display");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<bool>("toldMissing");
    QTest::addColumn<QString>("golden");
    QTest::newRow("window") << QStringList() << false << 1 << true << QString();
    QTest::newRow("batch, no display") << QStringList{"-seed=7"} << false << 0 << false
                                       << "seed_7.golden";
    QTest::newRow("batch, display") << QStringList{"-seed=7"} << true << 0 << true
                                    << "seed_7.golden";
}

void tst_batch_cli::withoutWindowModule()
{
    QFETCH(QStringList, options);
    QFETCH(bool, display);
    QFETCH(int, exitCode);
    QFETCH(bool, toldMissing);
    QFETCH(QString, golden);
    Workspace ws;
    QVERIFY(ws.ok);
    QTemporaryDir programDir;
    QVERIFY(programDir.isValid());
    const QString program = programDir.filePath(QStringLiteral("quva-cfg-editor"));
    QVERIFY(QFile::copy(editorPath(), program));
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    if (display)
        env.insert(QStringLiteral("DISPLAY"), QStringLiteral(":65000")); // never opened
    else
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QStringList args =
        options.isEmpty() ? QStringList() : QStringList{QLatin1String(cfgName)} + options;
    const Run run = runEditor(args, ws.folder(), env, program, false);
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.err.contains("cannot load the window module"), toldMissing);
    if (golden.isEmpty()) {
        QCOMPARE(readAll(ws.cfgPath()), fixture(QLatin1String(cfgName)));
        QCOMPARE(modificationTime(ws.cfgPath()), ws.oldTime);
    } else {
        QCOMPARE(readAll(ws.cfgPath()), fixture(golden));
    }
}

QTEST_GUILESS_MAIN(tst_batch_cli)
#include "tst_batch_cli.moc"
