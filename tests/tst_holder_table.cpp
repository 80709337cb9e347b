#include "app/server/holder_table.h"
#include "app/server/process_probe.h"

#include <QProcess>
#include <QtTest>

#include <climits>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

// Which process holds which file, and what the server learns of processes.

class tst_holder_table : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void holderKeepsItsFile();
    void killedHolderForgotten();
    void endedProcessNotRecorded();
    void laterProcessWithSameIdIsNotTheHolder();
    void zombieCountsAsEnded();
    void idsThatNameNoProcess_data();
    void idsThatNameNoProcess();
    void peerOfSocket();

private:
    qint64 startSleeper();

    QProcess sleeper;
};

void tst_holder_table::cleanup()
{
    if (sleeper.state() != QProcess::NotRunning) {
        sleeper.kill();
        sleeper.waitForFinished(5000);
    }
}

qint64 tst_holder_table::startSleeper()
{
    sleeper.start(QStringLiteral("sleep"), {QStringLiteral("600")});
    return sleeper.waitForStarted(5000) ? sleeper.processId() : 0;
}

void tst_holder_table::holderKeepsItsFile()
{
    const qint64 holder = startSleeper();
    QVERIFY(holder > 0);
    const qint64 self = QCoreApplication::applicationPid();
    HolderTable table;
    QVERIFY(holdFile(table, holder, QStringLiteral("/a.CfgXML")));
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), holder);
    QCOMPARE(liveHolder(table, QStringLiteral("/b.CfgXML")), qint64(0));
    QVERIFY(!releaseFile(table, self, QStringLiteral("/a.CfgXML")));
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), holder);
    QVERIFY(holdFile(table, self, QStringLiteral("/a.CfgXML")));
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), self);
    QVERIFY(releaseFile(table, self, QStringLiteral("/a.CfgXML")));
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), qint64(0));
    QVERIFY(table.holders.isEmpty());
}

void tst_holder_table::killedHolderForgotten()
{
    const qint64 holder = startSleeper();
    HolderTable table;
    QVERIFY(holdFile(table, holder, QStringLiteral("/a.CfgXML")));
    sleeper.kill();
    QVERIFY(sleeper.waitForFinished(5000));
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), qint64(0));
    QVERIFY(table.holders.isEmpty());
}

void tst_holder_table::endedProcessNotRecorded()
{
    const qint64 holder = startSleeper();
    sleeper.kill();
    QVERIFY(sleeper.waitForFinished(5000));
    HolderTable table;
    QVERIFY(!holdFile(table, holder, QStringLiteral("/a.CfgXML")));
    QVERIFY(table.holders.isEmpty());
}

// Stands for a holder that died and whose id went to a new process.
void tst_holder_table::laterProcessWithSameIdIsNotTheHolder()
{
    const qint64 self = QCoreApplication::applicationPid();
    const qint64 started = processStartTicks(self);
    QVERIFY(started > 0);
    QVERIFY(processRunning(self, started));
    QVERIFY(!processRunning(self, started - 1));
    HolderTable table;
    table.holders.insert(QStringLiteral("/a.CfgXML"), Holder{self, started - 1});
    QCOMPARE(liveHolder(table, QStringLiteral("/a.CfgXML")), qint64(0));
}

void tst_holder_table::zombieCountsAsEnded()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    QVERIFY(child > 0);
    QTRY_VERIFY_WITH_TIMEOUT(!processRunning(child), 5000);
    QCOMPARE(::kill(child, 0), 0); // still there, as a zombie
    waitpid(child, nullptr, 0);
}

void tst_holder_table::idsThatNameNoProcess_data()
{
    QTest::addColumn<qint64>("pid");
    QTest::newRow("zero, the own group") << qint64(0);
    QTest::newRow("minus one, every process") << qint64(-1);
    QTest::newRow("a group") << qint64(-QCoreApplication::applicationPid());
    QTest::newRow("beyond an int") << qint64(INT_MAX) + 1 + QCoreApplication::applicationPid();
}

void tst_holder_table::idsThatNameNoProcess()
{
    QFETCH(qint64, pid);
    QVERIFY(!processRunning(pid));
    QCOMPARE(processStartTicks(pid), qint64(-1));
    HolderTable table;
    QVERIFY(!holdFile(table, pid, QStringLiteral("/a.CfgXML")));
}

void tst_holder_table::peerOfSocket()
{
    int fds[2];
    QCOMPARE(socketpair(AF_UNIX, SOCK_STREAM, 0, fds), 0);
    QCOMPARE(peerProcessId(fds[0]), QCoreApplication::applicationPid());
    ::close(fds[0]);
    ::close(fds[1]);
    QCOMPARE(peerProcessId(-1), qint64(0));
}

QTEST_GUILESS_MAIN(tst_holder_table)
#include "tst_holder_table.moc"
