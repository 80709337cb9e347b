// The one decision of a start: every row of the start-up and batch rules,
// in-process.

#include "app/start_up.h"

#include <QtTest>

Q_DECLARE_METATYPE(LaunchMode)

namespace {

const QByteArray unset = "<not set>";

LaunchEnvironment environment(const QByteArray &platform, bool hasDisplay)
{
    LaunchEnvironment env;
    env.platformSet = platform != unset;
    env.platform = env.platformSet ? platform : QByteArray();
    env.hasDisplay = hasDisplay;
    return env;
}

} // namespace

class tst_start_up : public QObject
{
    Q_OBJECT

private slots:
    void decideLaunch_data();
    void decideLaunch();
    void batchPathRule_data();
    void batchPathRule();
};

void tst_start_up::decideLaunch_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QByteArray>("platform"); // unset: QT_QPA_PLATFORM not set
    QTest::addColumn<bool>("display");
    QTest::addColumn<LaunchMode>("mode");
    QTest::addColumn<QByteArray>("setPlatform");

    using M = LaunchMode;
    const QString prog = QStringLiteral("/opt/quva/quva-cfg-editor");
    QTest::newRow("no argument") << QStringList{prog} << unset << true
                                 << M::Interactive << QByteArray();
    QTest::newRow("one file") << QStringList{prog, "a.CfgXML"} << unset << true
                              << M::Interactive << QByteArray();
    QTest::newRow("one file, no display")
        << QStringList{prog, "a.CfgXML"} << unset << false << M::NoDisplay << QByteArray();
    QTest::newRow("no argument, no display")
        << QStringList{prog} << unset << false << M::NoDisplay << QByteArray();
    QTest::newRow("no display, xcb asked for")
        << QStringList{prog} << QByteArray("xcb") << false << M::NoDisplay << QByteArray();
    QTest::newRow("no display, wayland asked for")
        << QStringList{prog} << QByteArray("wayland-egl") << false << M::NoDisplay
        << QByteArray();
    QTest::newRow("no display, platform set empty")
        << QStringList{prog} << QByteArray("") << false << M::NoDisplay << QByteArray();
    QTest::newRow("no display, offscreen window")
        << QStringList{prog} << QByteArray("offscreen") << false << M::Interactive
        << QByteArray();
    QTest::newRow("-h") << QStringList{prog, "-h"} << unset << false << M::Info << QByteArray();
    QTest::newRow("help") << QStringList{prog, "--help"} << unset << false
                          << M::Info << QByteArray();
    QTest::newRow("version") << QStringList{prog, "--version"} << unset
                             << false << M::Info << QByteArray();
    QTest::newRow("help with an option is a batch")
        << QStringList{prog, "--help", "-x"} << QByteArray("offscreen") << false << M::HeadlessBatch
        << QByteArray();
    QTest::newRow("batch on a display")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << unset << true
        << M::BatchWithBoxes << QByteArray();
    QTest::newRow("batch without display gets offscreen")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << unset << false
        << M::HeadlessBatch << QByteArray("offscreen");
    QTest::newRow("batch, platform offscreen")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << QByteArray("offscreen") << true << M::HeadlessBatch
        << QByteArray();
    QTest::newRow("batch, platform minimal with arguments")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << QByteArray("Minimal:fontengine=x") << true
        << M::HeadlessBatch << QByteArray();
    QTest::newRow("batch, platform xcb")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << QByteArray("xcb") << true << M::BatchWithBoxes
        << QByteArray();
    QTest::newRow("batch, platform set empty, no display")
        << QStringList{prog, "a.CfgXML", "-seed=1"} << QByteArray("") << false << M::BatchWithBoxes
        << QByteArray();
    QTest::newRow("batch with a GUI option stays with the GUI object")
        << QStringList{prog, "a.CfgXML", "-style=fusion", "-seed=1"} << QByteArray("offscreen") << false
        << M::BatchWithBoxes << QByteArray();
    QTest::newRow("-d as the program's path")
        << QStringList{"-d", "a.DescXML", "-seed=1"} << QByteArray("offscreen") << false << M::Interactive
        << QByteArray();
    QTest::newRow("-d as the first word is a batch")
        << QStringList{prog, "-d", "a.DescXML"} << QByteArray("offscreen") << false << M::HeadlessBatch
        << QByteArray();
}

void tst_start_up::decideLaunch()
{
    QFETCH(QStringList, args);
    QFETCH(QByteArray, platform);
    QFETCH(bool, display);
    QFETCH(LaunchMode, mode);
    QFETCH(QByteArray, setPlatform);
    const LaunchDecision decision = ::decideLaunch(args, environment(platform, display));
    QCOMPARE(int(decision.mode), int(mode));
    QCOMPARE(decision.platform, setPlatform);
}

void tst_start_up::batchPathRule_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<bool>("batch");
    QTest::newRow("program alone") << QStringList{"p"} << false;
    QTest::newRow("a file") << QStringList{"p", "f"} << false;
    QTest::newRow("a file and an option") << QStringList{"p", "f", "-a=x"} << true;
    QTest::newRow("many options") << QStringList{"p", "f", "-a=x", "-b", "-c"} << true;
    QTest::newRow("entry 0 is -d") << QStringList{"-d", "f", "-a=x"} << false;
    QTest::newRow("entry 1 is -d") << QStringList{"p", "-d", "f"} << true;
}

void tst_start_up::batchPathRule()
{
    QFETCH(QStringList, args);
    QFETCH(bool, batch);
    QCOMPARE(takesBatchPath(args), batch);
}

QTEST_GUILESS_MAIN(tst_start_up)
#include "tst_start_up.moc"
