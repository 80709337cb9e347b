#include "shell/broker_wire.h"

#include <QtTest>

// The frames of the window broker and the text inside them.

class tst_broker_wire : public QObject
{
    Q_OBJECT

private slots:
    void frameLayout();
    void framesTakenOneByOne();
    void incompleteFrame_data();
    void incompleteFrame();
    void lengthOutOfBounds_data();
    void lengthOutOfBounds();
    void textRoundTrip_data();
    void textRoundTrip();
    void textRefused_data();
    void textRefused();
};

void tst_broker_wire::frameLayout()
{
    QCOMPARE(brokerFrame(frameExecute, QByteArray("ab")), QByteArray("\0\0\0\3Xab", 7));
    QCOMPARE(brokerFrame(char(BrokerBusy)), QByteArray("\0\0\0\1\1", 5));
    QCOMPARE(brokerText(QStringLiteral("[A]")), QByteArray("[\0A\0]\0\0\0", 8));
}

void tst_broker_wire::framesTakenOneByOne()
{
    QByteArray pending =
        brokerFrame(frameTopic, "t") + brokerFrame(frameRequest, "pid") + QByteArray("\0\0", 2);
    QByteArray frame;
    QCOMPARE(takeBrokerFrame(pending, &frame), FrameTake::Frame);
    QCOMPARE(frame, QByteArray("Tt"));
    QCOMPARE(takeBrokerFrame(pending, &frame), FrameTake::Frame);
    QCOMPARE(frame, QByteArray("Rpid"));
    QCOMPARE(takeBrokerFrame(pending, &frame), FrameTake::Incomplete);
    QCOMPARE(pending, QByteArray("\0\0", 2));
}

void tst_broker_wire::incompleteFrame_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("half a length") << QByteArray("\0\0", 2);
    QTest::newRow("length alone") << QByteArray("\0\0\0\5", 4);
    QTest::newRow("body short by one") << QByteArray("\0\0\0\5Xabc", 8);
}

void tst_broker_wire::incompleteFrame()
{
    QFETCH(QByteArray, bytes);
    QByteArray pending = bytes;
    QByteArray frame;
    QCOMPARE(takeBrokerFrame(pending, &frame), FrameTake::Incomplete);
    QCOMPARE(pending, bytes);
}

void tst_broker_wire::lengthOutOfBounds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zero") << QByteArray("\0\0\0\0X", 5);
    QTest::newRow("one past the most") << QByteArray("\0\1\0\1", 4);
    QTest::newRow("all bits") << QByteArray("\xff\xff\xff\xff", 4);
}

void tst_broker_wire::lengthOutOfBounds()
{
    QFETCH(QByteArray, bytes);
    QByteArray frame;
    QCOMPARE(takeBrokerFrame(bytes, &frame), FrameTake::Oversized);
    QByteArray largest = brokerFrame(frameExecute, QByteArray(maxBrokerFrame - 1, 'a'));
    QCOMPARE(takeBrokerFrame(largest, &frame), FrameTake::Frame);
    QCOMPARE(frame.size(), maxBrokerFrame);
}

void tst_broker_wire::textRoundTrip_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("command") << QStringLiteral("[Get 12 \"/a b/c.CfgXML\"]");
    QTest::newRow("beyond latin") << QStringLiteral("[Open \"/d/\u00e9t\u00e9 \u6587.CfgXML\"]");
    QTest::newRow("surrogate pair") << QString::fromUtf8("\xf0\x9f\x98\x80");
}

void tst_broker_wire::textRoundTrip()
{
    QFETCH(QString, text);
    QString back = QStringLiteral("unchanged");
    QVERIFY(readBrokerText(brokerText(text), &back));
    QCOMPARE(back, text);
}

void tst_broker_wire::textRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("odd count") << QByteArray("a\0\0", 3);
    QTest::newRow("no terminating zero") << QByteArray("a\0b\0", 4);
    QTest::newRow("zero inside") << QByteArray("a\0\0\0b\0\0\0", 8);
}

void tst_broker_wire::textRefused()
{
    QFETCH(QByteArray, bytes);
    QString text = QStringLiteral("unchanged");
    QVERIFY(!readBrokerText(bytes, &text));
    QCOMPARE(text, QStringLiteral("unchanged"));
}

QTEST_GUILESS_MAIN(tst_broker_wire)
#include "tst_broker_wire.moc"
