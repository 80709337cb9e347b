#include "text/text_convert.h"

#include <QtTest>

#include <random>

namespace {

QByteArray randomBytes(std::mt19937 &random, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = char(random() & 0xFF);
    return bytes;
}

// Line breaks every 76 characters and a blank here and there, but none in
// the last group, where white space would stop the size count's walk back.
QByteArray withWhiteSpace(const QByteArray &text)
{
    QByteArray out;
    for (int i = 0; i < text.size(); ++i) {
        if (i >= text.size() - 4) {
            out.append(text.at(i));
            continue;
        }
        if (i > 0 && i % 76 == 0)
            out.append("\r\n");
        if (i % 13 == 5)
            out.append(i % 2 ? ' ' : '\t');
        out.append(text.at(i));
    }
    return out;
}

} // namespace

class tst_base64 : public QObject
{
    Q_OBJECT

private slots:
    void roundTrips();
    void decodesLikeQt();
    void decodedSize_data();
    void decodedSize();
    void decodeOutcome_data();
    void decodeOutcome();
    void statusUntouchedOnSuccess();
    void toBufferNullText();
    void toBufferGrowsOnly();
    void toBufferFailure();
};

void tst_base64::roundTrips()
{
    std::mt19937 random(42);
    QVector<int> sizes;
    for (int i = 0; i <= 300; ++i)
        sizes << i;
    sizes << 1000 << 1023 << 4096 << 65537;
    for (int size : qAsConst(sizes)) {
        const QByteArray bytes = randomBytes(random, size);
        const QByteArray forms[] = {bytes.toBase64(),
                                    bytes.toBase64(QByteArray::OmitTrailingEquals),
                                    withWhiteSpace(bytes.toBase64())};
        for (const QByteArray &text : forms) {
            int status = 0;
            QCOMPARE(base64DecodedSize(text.constData(), &status), size);
            QByteArray target(size, '\0');
            // Without padding a last partial group ends at its third or
            // fourth place: all bytes are there, but the decoder says it
            // stopped early.
            const bool unpadded = !text.endsWith('=') && size % 3 != 0;
            QCOMPARE(base64Decode(text.constData(), target.data(), size), unpadded ? 1 : 2);
            QCOMPARE(target, bytes);
            int got = -1;
            const char *decoded = base64DecodeToBuffer(&base64Buffer, text.constData(), &got);
            QVERIFY(decoded);
            QCOMPARE(got, size);
            QCOMPARE(QByteArray(decoded, got), bytes);
            QCOMPARE(decoded[got], '\0');
        }
    }
}

void tst_base64::decodesLikeQt()
{
    // Our decoder on Qt's encoding, and Qt's decoder on texts we decode.
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        const QByteArray text = randomBytes(random, int(random() % 200)).toBase64();
        int size = 0;
        const char *decoded = base64DecodeToBuffer(&base64Buffer, text.constData(), &size);
        QVERIFY(decoded);
        QCOMPARE(QByteArray(decoded, size), QByteArray::fromBase64(text));
    }
}

void tst_base64::decodedSize_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("status");

    QTest::newRow("empty") << QByteArray("") << 0 << 0;
    QTest::newRow("three bytes") << QByteArray("TWFu") << 3 << 0;
    QTest::newRow("two bytes padded") << QByteArray("TWE=") << 2 << 0;
    QTest::newRow("one byte padded") << QByteArray("TQ==") << 1 << 0;
    QTest::newRow("two bytes unpadded") << QByteArray("TWE") << 2 << 17;
    QTest::newRow("one byte unpadded") << QByteArray("TQ") << 1 << 17;
    QTest::newRow("blank inside") << QByteArray("TW Fu\nTQ==") << 4 << 0;
    QTest::newRow("blank behind is too high") << QByteArray("TQ==\n") << 3 << 0;
    QTest::newRow("illegal") << QByteArray("TW!u") << 0 << 18;
    QTest::newRow("padding only") << QByteArray("====") << 0 << 0;
}

void tst_base64::decodedSize()
{
    QFETCH(QByteArray, text);
    QFETCH(int, size);
    QFETCH(int, status);
    int gotStatus = 0;
    QCOMPARE(base64DecodedSize(text.constData(), &gotStatus), size);
    QCOMPARE(gotStatus, status);
    QCOMPARE(base64DecodedSize(text.constData(), nullptr), size);
}

void tst_base64::decodeOutcome_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("complete") << QByteArray("TWFu") << 3 << 2 << 0 << QByteArray("Man");
    QTest::newRow("end at first place with room left")
        << QByteArray("TWFu") << 5 << 2 << 0 << QByteArray("Man");
    QTest::newRow("empty") << QByteArray("") << 3 << 2 << 0 << QByteArray();
    QTest::newRow("white space anywhere")
        << QByteArray(" T W\nF\tu\r\n") << 3 << 2 << 0 << QByteArray("Man");
    QTest::newRow("illegal first") << QByteArray("!WFu") << 3 << 0 << 18 << QByteArray();
    QTest::newRow("illegal fourth") << QByteArray("TWF*") << 3 << 0 << 18 << QByteArray("Ma");
    QTest::newRow("pad at first place, full")
        << QByteArray("TWFu=") << 3 << 2 << 0 << QByteArray("Man");
    QTest::newRow("pad at first place, room left")
        << QByteArray("TWFu=") << 4 << 1 << 19 << QByteArray("Man");
    QTest::newRow("pad at second place") << QByteArray("TWFuT=") << 6 << 1 << 19 << QByteArray("Man");
    QTest::newRow("end at second place") << QByteArray("TWFuT") << 6 << 1 << 19 << QByteArray("Man");
    QTest::newRow("second place, target full")
        << QByteArray("TWFuTWFu") << 3 << 0 << 20 << QByteArray("Man");
    QTest::newRow("end at third place") << QByteArray("TW") << 3 << 1 << 19 << QByteArray("M");
    QTest::newRow("end at fourth place") << QByteArray("TWF") << 3 << 1 << 19 << QByteArray("Ma");
    QTest::newRow("pad at third place, full") << QByteArray("TQ==") << 1 << 2 << 0 << QByteArray("M");
    QTest::newRow("pad at fourth place, full") << QByteArray("TWE=") << 2 << 2 << 0 << QByteArray("Ma");
    QTest::newRow("pad at third place, room left")
        << QByteArray("TQ==") << 2 << 1 << 19 << QByteArray("M");
    QTest::newRow("pad at fourth place, room left")
        << QByteArray("TWE=") << 3 << 1 << 19 << QByteArray("Ma");
    QTest::newRow("data at third place, target full")
        << QByteArray("TWFu") << 1 << 0 << 20 << QByteArray("M");
    QTest::newRow("data at fourth place, target full")
        << QByteArray("TWFu") << 2 << 0 << 20 << QByteArray("Ma");
}

void tst_base64::decodeOutcome()
{
    QFETCH(QByteArray, text);
    QFETCH(int, size);
    QFETCH(int, result);
    QFETCH(int, status);
    QFETCH(QByteArray, bytes);
    QByteArray target(size + 4, '#');
    int gotStatus = 0;
    QCOMPARE(base64Decode(text.constData(), target.data(), size, &gotStatus), result);
    QCOMPARE(gotStatus, status);
    QCOMPARE(target.left(bytes.size()), bytes);
    // Nothing is written past what was decoded, and never past `size`.
    QCOMPARE(target.mid(bytes.size()), QByteArray(size + 4 - bytes.size(), '#'));
    QCOMPARE(base64Decode(text.constData(), target.data(), size, nullptr), result);
}

void tst_base64::statusUntouchedOnSuccess()
{
    int status = 123;
    char target[3];
    QCOMPARE(base64Decode("TWFu", target, 3, &status), 2);
    QCOMPARE(base64DecodedSize("TWFu", &status), 3);
    QCOMPARE(status, 123);
}

void tst_base64::toBufferNullText()
{
    Base64Buffer buffer;
    int size = 7;
    const char *got = base64DecodeToBuffer(&buffer, nullptr, &size);
    QVERIFY(got);
    QCOMPARE(got, "");
    QCOMPARE(size, 0);
    QCOMPARE(buffer.capacity, 0);
}

void tst_base64::toBufferGrowsOnly()
{
    Base64Buffer buffer;
    const QByteArray big = QByteArray(300, 'x').toBase64();
    int size = 0;
    QVERIFY(base64DecodeToBuffer(&buffer, big.constData(), &size));
    QCOMPARE(size, 300);
    QCOMPARE(buffer.capacity, 301);
    const char *small = base64DecodeToBuffer(&buffer, "TWFu", &size);
    QCOMPARE(small, "Man");
    QCOMPARE(size, 3);
    QCOMPARE(buffer.capacity, 301);
    std::free(buffer.buffer);
}

void tst_base64::toBufferFailure()
{
    Base64Buffer buffer;
    int size = 5;
    int status = 0;
    // The size pass stops at the illegal character and finds no room, so the
    // decoding pass reports the overflow last.
    QVERIFY(!base64DecodeToBuffer(&buffer, "TW!u", &size, &status));
    QCOMPARE(status, 20);
    status = 0;
    QVERIFY(!base64DecodeToBuffer(&buffer, "!TWFu", &size, &status));
    QCOMPARE(status, 18);
    QCOMPARE(size, 0);
    std::free(buffer.buffer);
}

QTEST_APPLESS_MAIN(tst_base64)
#include "tst_base64.moc"
