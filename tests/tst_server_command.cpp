#include "app/server/server_command.h"

#include <QtTest>

// The commands that editors send the server, read from their text.

Q_DECLARE_METATYPE(ServerCommand::Verb)

class tst_server_command : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void refused_data();
    void refused();
};

void tst_server_command::read_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<ServerCommand::Verb>("verb");
    QTest::addColumn<qint64>("pid");
    QTest::addColumn<QString>("file");
    QTest::newRow("open") << QStringLiteral("[Open \"/d/a.CfgXML\"]") << ServerCommand::Open
                          << qint64(0) << QStringLiteral("/d/a.CfgXML");
    QTest::newRow("open a kind") << QStringLiteral("[Open \".CfgXML\"]") << ServerCommand::Open
                                 << qint64(0) << QStringLiteral(".CfgXML");
    QTest::newRow("is open") << QStringLiteral("[IsOpen \"/d/a.CfgXML\"]") << ServerCommand::IsOpen
                             << qint64(0) << QStringLiteral("/d/a.CfgXML");
    QTest::newRow("get") << QStringLiteral("[Get 4711 \"/d/a b.CfgXML\"]") << ServerCommand::Get
                         << qint64(4711) << QStringLiteral("/d/a b.CfgXML");
    QTest::newRow("get largest pid")
        << QStringLiteral("[Get 2147483647 \"x\"]") << ServerCommand::Get << qint64(2147483647)
        << QStringLiteral("x");
    QTest::newRow("close") << QStringLiteral("[Close \"/d/a.DescXML\"]") << ServerCommand::Close
                           << qint64(0) << QStringLiteral("/d/a.DescXML");
    QTest::newRow("quote inside") << QStringLiteral("[Close \"/d/a\"b.CfgXML\"]")
                                  << ServerCommand::Close << qint64(0)
                                  << QStringLiteral("/d/a\"b.CfgXML");
    QTest::newRow("quote and bracket inside")
        << QStringLiteral("[Get 7 \"/d/\"]x[\".CfgXML\"]") << ServerCommand::Get << qint64(7)
        << QStringLiteral("/d/\"]x[\".CfgXML");
    QTest::newRow("one character") << QStringLiteral("[IsOpen \"a\"]") << ServerCommand::IsOpen
                                   << qint64(0) << QStringLiteral("a");
}

void tst_server_command::read()
{
    QFETCH(QString, text);
    QFETCH(ServerCommand::Verb, verb);
    QFETCH(qint64, pid);
    QFETCH(QString, file);
    ServerCommand command;
    QVERIFY(parseServerCommand(text, &command));
    QCOMPARE(command.verb, verb);
    QCOMPARE(command.pid, pid);
    QCOMPARE(command.file, file);
}

void tst_server_command::refused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("brackets alone") << QStringLiteral("[]");
    QTest::newRow("no closing bracket") << QStringLiteral("[Open \"a\"");
    QTest::newRow("blank behind") << QStringLiteral("[Open \"a\"] ");
    QTest::newRow("unknown verb") << QStringLiteral("[Raise \"a\"]");
    QTest::newRow("verb in lower case") << QStringLiteral("[open \"a\"]");
    QTest::newRow("two blanks") << QStringLiteral("[Open  \"a\"]");
    QTest::newRow("no name") << QStringLiteral("[Open ]");
    QTest::newRow("empty name") << QStringLiteral("[Open \"\"]");
    QTest::newRow("one quote") << QStringLiteral("[Open \"]");
    QTest::newRow("unquoted") << QStringLiteral("[Close a]");
    QTest::newRow("open quote only") << QStringLiteral("[Close \"a]");
    QTest::newRow("pid on is open") << QStringLiteral("[IsOpen 12 \"a\"]");
    QTest::newRow("get without pid") << QStringLiteral("[Get \"a\"]");
    QTest::newRow("get pid 0") << QStringLiteral("[Get 0 \"a\"]");
    QTest::newRow("get leading zero") << QStringLiteral("[Get 012 \"a\"]");
    QTest::newRow("get signed") << QStringLiteral("[Get +12 \"a\"]");
    QTest::newRow("get beyond int") << QStringLiteral("[Get 2147483648 \"a\"]");
    QTest::newRow("get eleven digits") << QStringLiteral("[Get 12345678901 \"a\"]");
    QTest::newRow("get no blank") << QStringLiteral("[Get 12\"a\"]");
    QTest::newRow("get letters") << QStringLiteral("[Get 1a \"a\"]");
}

void tst_server_command::refused()
{
    QFETCH(QString, text);
    ServerCommand command;
    command.file = QStringLiteral("unchanged");
    QVERIFY(!parseServerCommand(text, &command));
    QCOMPARE(command.file, QStringLiteral("unchanged"));
}

QTEST_GUILESS_MAIN(tst_server_command)
#include "tst_server_command.moc"
