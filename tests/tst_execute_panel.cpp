#include "shell/execute_panel.h"
#include "shell/settings.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QTextBlock>
#include <QTimer>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString printer()
{
    return QStringLiteral(PROGRESS_PRINTER);
}

const QString finishLine = QStringLiteral("Execution finished (ErrorLevel=%1).\n");
const QString abortLine =
    QStringLiteral("*                      USER ABORT                            *");

QString banner(int exitCode)
{
    return QStringLiteral("\n\n================================================================"
                          "================\n")
           + finishLine.arg(exitCode);
}

QStringList progressOf(const QSignalSpy &spy)
{
    QStringList out;
    for (const QList<QVariant> &args : spy)
        out << args.at(0).toString() + QLatin1Char('|') + args.at(1).toString();
    return out;
}

// The longest wait of the event loop while `running` holds: a timer asks
// every 10 ms, and each late tick tells how long the loop was held.
template <class Predicate> qint64 longestStall(Predicate running, int timeoutMs)
{
    QElapsedTimer clock, sinceTick;
    clock.start();
    sinceTick.start();
    qint64 longest = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longest = qMax(longest, sinceTick.restart());
    });
    tick.start(10);
    while (running() && clock.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return longest;
}

QByteArray unescape(const QString &text)
{
    QByteArray bytes = text.toLatin1();
    bytes.replace("\\r", "\r").replace("\\n", "\n").replace("\\0", QByteArray(1, '\0'));
    return bytes;
}

} // namespace

class tst_execute_panel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void formAtStart();
    void progressLines_data();
    void progressLines();
    void noProgressWithoutReporting();
    void carriageReturnReplacesLastLine_data();
    void carriageReturnReplacesLastLine();
    void zeroByteEndsChunkText();
    void runWithChunks();
    void missingProgramEndsAtOnce();
    void missingCommandLineEndsAtOnce();
    void commandLineRuns();
    void waitCursorOnParent();
    void abortRunningProgram();
    void abortWithoutProcess();
    void executeDuringRun();
    void autoScrollOffKeepsView();
    void autoScrollOnFollowsText();
    void soundNeedsTheme_data();
    void soundNeedsTheme();
    void longLinesAreBroken();
    void unrulyChildren_data();
    void unrulyChildren();

private:
    QPlainTextEdit *log(ExecutePanel &panel) { return panel.findChild<QPlainTextEdit *>("pteLog"); }
    QPushButton *abortButton(ExecutePanel &panel)
    {
        return panel.findChild<QPushButton *>("pbAbort");
    }
    QString soundLog() const { return home.path() + QStringLiteral("/sounds.txt"); }
    QString playerPath() const
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/QuvaPlaySound");
    }

    QTemporaryDir home;
};

void tst_execute_panel::initTestCase()
{
    QVERIFY(home.isValid());
    qputenv("HOME", QFile::encodeName(home.path()));
    qunsetenv("XDG_CONFIG_HOME");
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY(QFile::exists(printer()));

    // A stand-in for the sound player: it writes its argument to a file.
    QFile player(playerPath());
    QVERIFY(player.open(QIODevice::WriteOnly | QIODevice::Truncate));
    player.write("#!/bin/sh\necho \"$1\" >> '" + QFile::encodeName(soundLog()) + "'\n");
    player.close();
    QVERIFY(player.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void tst_execute_panel::init()
{
    setSoundTheme(QStringLiteral("0"));
    QFile::remove(soundLog());
}

void tst_execute_panel::cleanupTestCase()
{
    QFile::remove(playerPath());
}

void tst_execute_panel::formAtStart()
{
    ExecutePanel panel(nullptr, true);
    QCOMPARE(panel.windowTitle(), QStringLiteral("ExecutePanel"));
    QPlainTextEdit *pte = log(panel);
    QVERIFY(pte);
    QVERIFY(pte->isReadOnly());
    QVERIFY(!pte->isUndoRedoEnabled());
    QVERIFY(!pte->acceptDrops());
    QCOMPARE(pte->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(pte->font().family(), QStringLiteral("Courier"));
    QCOMPARE(abortButton(panel)->text(), QStringLiteral("Abort"));
    QVERIFY(abortButton(panel)->isEnabled());
    auto *box = panel.findChild<QCheckBox *>("cbAutoScroll");
    QCOMPARE(box->text(), QStringLiteral("auto-scroll"));
    QVERIFY(box->isChecked());
    QVERIFY(panel.autoScroll());
    QVERIFY(!ExecutePanel::isExecuting);
    QVERIFY(ExecutePanel::allowRestart);
}

void tst_execute_panel::progressLines_data()
{
    QTest::addColumn<QString>("chunk");
    QTest::addColumn<QStringList>("progress");
    QTest::newRow("carriage return ends") << "$P|10|Loading\\r\\n" << QStringList{"10|Loading"};
    QTest::newRow("line feed ends") << "$P|20|Step two\\n" << QStringList{"20|Step two"};
    QTest::newRow("no end: empty message") << "$P|30|Half" << QStringList{"30|"};
    QTest::newRow("not a number") << "$P|abc|x\\n" << QStringList{"0|x"};
    QTest::newRow("leading digits") << "$P|42%|x\\n" << QStringList{"42|x"};
    QTest::newRow("second bar missing") << "$P|40" << QStringList{};
    QTest::newRow("no P") << "$Q|40|x\\n" << QStringList{};
    QTest::newRow("empty message") << "$P|50|\\n" << QStringList{"50|"};
    QTest::newRow("two lines") << "$P|10|a\\n$P|20|b\\n" << QStringList{"10|a", "20|b"};
    QTest::newRow("text around") << "abc $P|60|go\\r\\nmore" << QStringList{"60|go"};
    QTest::newRow("dollar before") << "$$P|70|x\\n" << QStringList{"70|x"};
    QTest::newRow("carriage return later wins")
        << "$P|10|a\\nxx\\r" << QStringList{"10|a\nxx"};
    QTest::newRow("no end stops the scan") << "$P|5|a$P|6|b" << QStringList{"5|"};
    QTest::newRow("starts with carriage return") << "\\r$P|50|x\\n" << QStringList{};
}

void tst_execute_panel::progressLines()
{
    QFETCH(QString, chunk);
    QFETCH(QStringList, progress);
    ExecutePanel panel(nullptr, true);
    QSignalSpy spy(&panel, &ExecutePanel::myProgressBar);
    panel.appendOutput(unescape(chunk));
    QCOMPARE(progressOf(spy), progress);
    // Progress lines stay in the log, except behind a leading carriage return.
    if (!chunk.startsWith("\\r"))
        QVERIFY(log(panel)->toPlainText().contains(QString::fromLatin1(unescape(chunk).left(3))));
}

void tst_execute_panel::noProgressWithoutReporting()
{
    ExecutePanel panel(nullptr, false);
    QSignalSpy spy(&panel, &ExecutePanel::myProgressBar);
    panel.appendOutput("$P|10|Loading\n");
    QCOMPARE(spy.count(), 0);
    QCOMPARE(log(panel)->toPlainText(), QStringLiteral("$P|10|Loading\n"));

    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    panel.execute(printer(), {"out:$P|10|x\\n"}, QDir::tempPath(), 0);
    QVERIFY(finished.wait(10000));
    QCOMPARE(spy.count(), 0);
}

void tst_execute_panel::carriageReturnReplacesLastLine_data()
{
    QTest::addColumn<QStringList>("chunks");
    QTest::addColumn<QString>("expected");
    QTest::newRow("counter") << QStringList{"count 1", "\\rcount 2"} << "count 2";
    QTest::newRow("many returns in one chunk")
        << QStringList{"count 1", "\\ra\\rb\\rcount 9"} << "count 9";
    QTest::newRow("earlier lines stay")
        << QStringList{"line 1\\ncount 1", "\\rcount 2", "\\rcount 3"} << "line 1\ncount 3";
    QTest::newRow("text behind") << QStringList{"x\\nc 1", "\\rc 2\\ndone\\n"}
                                 << "x\nc 2\ndone\n";
    QTest::newRow("plain chunk goes behind") << QStringList{"a", "b"} << "ab";
}

void tst_execute_panel::carriageReturnReplacesLastLine()
{
    QFETCH(QStringList, chunks);
    QFETCH(QString, expected);
    ExecutePanel panel(nullptr, true);
    for (const QString &chunk : chunks)
        panel.appendOutput(unescape(chunk));
    QCOMPARE(log(panel)->toPlainText(), expected);
}

void tst_execute_panel::zeroByteEndsChunkText()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy spy(&panel, &ExecutePanel::myProgressBar);
    panel.appendOutput(QByteArray("abc\0def $P|9|x\n", 16));
    QCOMPARE(log(panel)->toPlainText(), QStringLiteral("abc"));
    // The raw bytes are still searched for progress.
    QCOMPARE(progressOf(spy), QStringList{"9|x"});
    panel.appendOutput("ghi\n");
    QCOMPARE(log(panel)->toPlainText(), QStringLiteral("abcghi\n"));
}

void tst_execute_panel::runWithChunks()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy progress(&panel, &ExecutePanel::myProgressBar);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    const QStringList args{"out:$P|10|Start\\n", "sleep:400", "out:$P|2",   "sleep:400",
                           "out:0|Split\\n",     "sleep:400", "out:$P|30|Cut", "sleep:400",
                           "out:off\\n",         "sleep:400", "out:tick 1",  "sleep:400",
                           "out:\\rtick 2",      "sleep:400", "out:\\rtick 3\\n", "sleep:400",
                           "out:zero\\0hidden\\n", "exit:3"};
    const QString dir = QDir::tempPath();
    panel.execute(printer(), args, dir, 0);
    QVERIFY(ExecutePanel::isExecuting);
    QVERIFY(abortButton(panel)->isEnabled());
    QCOMPARE(panel.taskNumber(), 0);
    QCOMPARE(panel.arguments(), args);
    QCOMPARE(panel.workingDirectory(), dir);
    QVERIFY(finished.wait(15000));

    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0), (QList<QVariant>{0, 3, 0}));
    QCOMPARE(progressOf(progress),
             (QStringList{"1|RUNNING ...", "10|Start", "30|", "100|Done"}));
    const QString header =
        "Running: " + printer() + " " + args.join(' ') + "\nFrom directory:" + dir + "\n\n";
    const QString text = log(panel)->toPlainText();
    QVERIFY(text.startsWith(header));
    QCOMPARE(text.mid(header.size()), "$P|10|Start\n$P|20|Split\n$P|30|Cutoff\ntick 3\nzero\n"
                                          + banner(3));
    QVERIFY(!ExecutePanel::isExecuting);
    QVERIFY(!abortButton(panel)->isEnabled());
}

void tst_execute_panel::missingProgramEndsAtOnce()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy progress(&panel, &ExecutePanel::myProgressBar);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    const QString program = QStringLiteral("/nonexistent/quva-missing-program");
    panel.execute(program, {"-m", "x.CfgXML"}, QStringLiteral("/tmp"), 7);
    // No event loop ran: the end is told inside execute.
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0), (QList<QVariant>{7, -1, 1}));
    QCOMPARE(progressOf(progress), (QStringList{"1|RUNNING ...", "100|Done"}));
    QCOMPARE(log(panel)->toPlainText(),
             "Running: " + program + " -m x.CfgXML\nFrom directory:/tmp\n\n\n" + banner(-1));
    QVERIFY(!ExecutePanel::isExecuting);
    QVERIFY(!abortButton(panel)->isEnabled());
}

void tst_execute_panel::missingCommandLineEndsAtOnce()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    panel.executeCommandLine(QStringLiteral("/nonexistent/quva-missing -a b"),
                             QStringLiteral("/tmp"), 1001);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0), (QList<QVariant>{1001, -1, 1}));
    QVERIFY(log(panel)->toPlainText().startsWith(
        "Running: /nonexistent/quva-missing -a b\nFrom directory:/tmp\n\n"));
}

void tst_execute_panel::commandLineRuns()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    const QString line = printer() + " \"out:hello world\\n\" exit:2";
    panel.executeCommandLine(line, QDir::tempPath(), 1);
    QCOMPARE(panel.program(), line);
    QVERIFY(panel.arguments().isEmpty());
    QVERIFY(finished.wait(10000));
    QCOMPARE(finished.at(0), (QList<QVariant>{1, 2, 0}));
    QVERIFY(log(panel)->toPlainText().contains("\n\nhello world\n"));
}

void tst_execute_panel::waitCursorOnParent()
{
    QWidget parent;
    auto *panel = new ExecutePanel(&parent, true);
    QSignalSpy finished(panel, &ExecutePanel::myFinishExe);
    panel->execute(printer(), {"sleep:300"}, QDir::tempPath(), 0);
    QCOMPARE(parent.cursor().shape(), Qt::WaitCursor);
    QVERIFY(finished.wait(10000));
    QCOMPARE(parent.cursor().shape(), Qt::ArrowCursor);
}

void tst_execute_panel::abortRunningProgram()
{
    setSoundTheme(QStringLiteral("1"));
    QWidget parent;
    auto *panel = new ExecutePanel(&parent, true);
    QSignalSpy finished(panel, &ExecutePanel::myFinishExe);
    panel->execute(printer(), {"out:begin\\n", "sleep:20000"}, QDir::tempPath(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(log(*panel)->toPlainText().contains("begin"), 10000);

    QTest::mouseClick(abortButton(*panel), Qt::LeftButton);
    QVERIFY(log(*panel)->toPlainText().contains(abortLine));
    QVERIFY(!ExecutePanel::isExecuting);
    QVERIFY(!abortButton(*panel)->isEnabled());
    QCOMPARE(parent.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(finished.count(), 0);

    // The kill ends the child: its end follows through the event loop.
    QVERIFY(finished.wait(10000));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), 0);
    QCOMPARE(finished.at(0).at(2).toInt(), int(QProcess::CrashExit));
    const QString text = log(*panel)->toPlainText();
    QVERIFY(text.indexOf(abortLine) < text.indexOf("Execution finished"));
    QTRY_COMPARE_WITH_TIMEOUT(QFile::exists(soundLog()), true, 5000);
    QFile sounds(soundLog());
    QVERIFY(sounds.open(QIODevice::ReadOnly));
    QCOMPARE(sounds.readAll(), QByteArray("4\n"));
}

void tst_execute_panel::abortWithoutProcess()
{
    QWidget parent;
    auto *panel = new ExecutePanel(&parent, true);
    QSignalSpy finished(panel, &ExecutePanel::myFinishExe);
    parent.setCursor(Qt::WaitCursor);
    panel->on_pbAbort_clicked();
    const QString text = log(*panel)->toPlainText();
    QVERIFY(text.contains(abortLine));
    QCOMPARE(text.count("**************************************************************"), 2);
    QCOMPARE(parent.cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!abortButton(*panel)->isEnabled());
    QVERIFY(!finished.wait(200));
}

void tst_execute_panel::executeDuringRun()
{
    ExecutePanel panel(nullptr, true);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    panel.execute(printer(), {"sleep:800", "out:first done\\n", "exit:4"}, QDir::tempPath(), 0);
    QTest::ignoreMessage(QtWarningMsg, "QProcess::start: Process is already running");
    panel.execute(printer(), {"out:second"}, QDir::tempPath(), 5);
    // The start is refused, the process still runs: no end is faked.
    QCOMPARE(finished.count(), 0);
    QCOMPARE(panel.taskNumber(), 5);
    QVERIFY(log(panel)->toPlainText().startsWith("Running: " + printer() + " out:second\n"));
    QVERIFY(finished.wait(10000));
    QVERIFY(!finished.wait(200)); // and no second end
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0), (QList<QVariant>{5, 4, 0}));
    QVERIFY(log(panel)->toPlainText().contains("first done"));
}

void tst_execute_panel::autoScrollOffKeepsView()
{
    ExecutePanel panel(nullptr, true);
    panel.resize(400, 200);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    for (int i = 0; i < 200; ++i)
        panel.appendOutput(QByteArray("line ") + QByteArray::number(i) + '\n');
    auto *box = panel.findChild<QCheckBox *>("cbAutoScroll");
    QTest::mouseClick(box, Qt::LeftButton);
    QVERIFY(!panel.autoScroll());
    QScrollBar *bar = log(panel)->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(10);
    panel.appendOutput("more\nand more\n");
    QCOMPARE(bar->value(), 10);
    panel.appendOutput("\rreplaced");
    QCOMPARE(bar->value(), 10);
    panel.on_pbAbort_clicked();
    QCOMPARE(bar->value(), 10);
}

void tst_execute_panel::autoScrollOnFollowsText()
{
    ExecutePanel panel(nullptr, true);
    panel.resize(400, 200);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    for (int i = 0; i < 200; ++i)
        panel.appendOutput(QByteArray("line ") + QByteArray::number(i) + '\n');
    QScrollBar *bar = log(panel)->verticalScrollBar();
    bar->setValue(10);
    panel.appendOutput("more\n");
    // The view is at the bottom (the empty line behind "more" may be cut).
    QVERIFY(bar->value() >= bar->maximum() - 1);
}

void tst_execute_panel::soundNeedsTheme_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("plays");
    QTest::newRow("zero") << "0" << false;
    QTest::newRow("not a number") << "loud" << false;
    QTest::newRow("one") << "1" << true;
}

void tst_execute_panel::soundNeedsTheme()
{
    QFETCH(QString, theme);
    QFETCH(bool, plays);
    setSoundTheme(theme);
    playSound(3);
    if (plays) {
        // The player may have made the file and not yet written its line.
        const auto played = [this] {
            QFile sounds(soundLog());
            return sounds.open(QIODevice::ReadOnly) ? sounds.readAll() : QByteArray();
        };
        QTRY_COMPARE_WITH_TIMEOUT(played(), QByteArray("3\n"), 5000);
    } else {
        // A sound that does play afterwards is the only line of the log:
        // the first call started no player.
        setSoundTheme(QStringLiteral("1"));
        playSound(5);
        QTRY_COMPARE_WITH_TIMEOUT(QFile::exists(soundLog()), true, 5000);
        QFile sounds(soundLog());
        QVERIFY(sounds.open(QIODevice::ReadOnly));
        QCOMPARE(sounds.readAll(), QByteArray("5\n"));
    }
}

// No line of the log grows beyond its limit, whatever the chunks; the
// counter of a carriage return still replaces the last piece.
void tst_execute_panel::longLinesAreBroken()
{
    ExecutePanel panel(nullptr, true);
    panel.appendOutput(QByteArray(2500, 'a'));
    panel.appendOutput(QByteArray(700, 'b') + "\nshort");
    panel.appendOutput("\rlast");
    const QStringList lines = log(panel)->toPlainText().split('\n');
    QCOMPARE(lines, (QStringList{QString(1000, 'a'), QString(1000, 'a'),
                                 QString(500, 'a') + QString(500, 'b'), QString(200, 'b'), "last"}));
}

void tst_execute_panel::unrulyChildren_data()
{
    QTest::addColumn<QStringList>("pieces");
    QTest::addColumn<bool>("ends"); // on its own, or only when aborted

    QTest::newRow("100 MB without a line end") << QStringList{"flood:100000000"} << true;
    QTest::newRow("zero bytes and broken UTF-8") << QStringList{"garbage:20000000"} << true;
    QTest::newRow("closes its output, goes on") << QStringList{"out:bye\\n", "close", "sleep:600000"}
                                                << false;
    QTest::newRow("never ends") << QStringList{"out:hello\\n", "sleep:600000"} << false;
}

// Programs that print without measure or never end: the window answers all
// the while (the event loop is never held long), the log keeps its limits,
// and the abort ends what does not end by itself.
void tst_execute_panel::unrulyChildren()
{
    QFETCH(QStringList, pieces);
    QFETCH(bool, ends);
    ExecutePanel panel(nullptr, true);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    QElapsedTimer clock;
    clock.start();
    panel.execute(printer(), pieces, QDir::tempPath(), 0);
    // One that does not end is watched for a second. The flood may take
    // minutes in a sanitized build on a busy machine.
    const qint64 stall =
        longestStall([&] { return finished.isEmpty() && (ends || clock.elapsed() < 1000); }, 300000);
    if (!ends) {
        QVERIFY(finished.isEmpty());
        QTest::mouseClick(abortButton(panel), Qt::LeftButton);
        QVERIFY(finished.wait(10000));
    }
    QCOMPARE(finished.count(), 1);
    QVERIFY2(stall < 1000, qPrintable(QString::number(stall)));
    QPlainTextEdit *text = log(panel);
    QVERIFY(text->blockCount() <= ExecutePanel::logMaxLines);
    for (QTextBlock b = text->document()->begin(); b.isValid(); b = b.next())
        QVERIFY(b.length() <= ExecutePanel::logMaxLineLength + 1);
    QVERIFY(text->toPlainText().contains("Execution finished"));
    qInfo("longest stall of the event loop: %lld ms; the log holds %d lines", stall,
          text->blockCount());
}

QTEST_MAIN(tst_execute_panel)
#include "tst_execute_panel.moc"
