// The file readers: byte-order marks, the 8-bit code page, the UTF-8
// datasource, the wide-text conversion, and the quva-xmlcat tool.

#include "xml_test_support.h"

#include "text/code_page.h"
#include "xml/file_read.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using xmltest::dump;

namespace {

QString dataPath(const char *name)
{
    return QStringLiteral(QUVA_TEST_DATA "/xml/") + QLatin1String(name);
}

QByteArray dataPath8(const char *name)
{
    return dataPath(name).toLocal8Bit();
}

} // namespace

class tst_xml_file : public QObject
{
    Q_OBJECT

private slots:
    void parseFile_data();
    void parseFile();
    void guessedUnicode();
    void readWithBom();
    void readUtf8WithoutBom();
    void readWindows1252();
    void readDatasourceAgainAsUtf8();
    void readDatasourceKeptWithoutFlag();
    void readMissingFile();
    void readSays_data();
    void readSays();
    void readStopsAtTheLimit();
    void toUtf8FromWideText();
    void codePage();
    void xmlcat_data();
    void xmlcat();
};

void tst_xml_file::parseFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");

    QTest::newRow("3 empty file") << QByteArray("empty.xml") << QByteArray() << QByteArray("-") << 3
                                  << 0 << 0;
    QTest::newRow("10 no such file")
        << QByteArray("no_such_file.xml") << QByteArray() << QByteArray("-") << 10 << 0 << 0;
    QTest::newRow("UTF-8 mark skipped")
        << QByteArray("bom_utf8.xml") << QByteArray()
        << QByteArray("r{v=\xC3\xA9}(\"\xC3\xBC \xE2\x82\xAC\")") << 0 << 0 << 0;
    // With the 16-bit guess off, a 16-bit mark is stepped over and the rest
    // is read as bytes.
    QTest::newRow("FF FE skipped")
        << QByteArray("mark_fffe.xml") << QByteArray() << QByteArray("a{k=v}") << 0 << 0 << 0;
    QTest::newRow("EF FF skipped")
        << QByteArray("mark_efff.xml") << QByteArray() << QByteArray("a{k=v}") << 0 << 0 << 0;
    // The text ends at the zero byte behind '<': without any element the
    // status is noElements, whatever went wrong before.
    QTest::newRow("16-bit text read as bytes stops at its first zero byte")
        << QByteArray("utf16le.xml") << QByteArray() << QByteArray("#root") << 2 << 1 << 2;
    QTest::newRow("bytes without mark, by tag")
        << QByteArray("small.xml") << QByteArray("ROOT")
        << QByteArray("root{a=1,flag}(\"text & more\" item(\"one\") [<!--| note |-->] item)") << 0
        << 0 << 0;
    QTest::newRow("6 and the tree dropped")
        << QByteArray("broken.xml") << QByteArray() << QByteArray("-") << 6 << 2 << 8;
}

void tst_xml_file::parseFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, tag);
    QFETCH(QByteArray, tree);
    QFETCH(int, status);
    QFETCH(int, line);
    QFETCH(int, column);
    XmlResult result;
    result.line = result.column = 99;
    const XmlNode node = parseXmlFile(dataPath8(file.constData()).constData(),
                                      tag.isNull() ? nullptr : tag.constData(), &result);
    QCOMPARE(dump(node), tree);
    QCOMPARE(result.status, status);
    QCOMPARE(result.line, line);
    QCOMPARE(result.column, column);
}

// conversionFailed (14) can only come from the 16-bit path, which the switch
// guessUnicode keeps closed in this program; it is opened here to test it.
void tst_xml_file::guessedUnicode()
{
    xmlOptions.guessUnicode = true;
    XmlResult good;
    const XmlNode node = parseXmlFile(dataPath8("utf16le.xml").constData(), nullptr, &good);
    XmlResult bad;
    const XmlNode none = parseXmlFile(dataPath8("utf16le_bad.xml").constData(), nullptr, &bad);
    XmlResult plain;
    const XmlNode bytes = parseXmlFile(dataPath8("bom_utf8.xml").constData(), nullptr, &plain);
    xmlOptions.guessUnicode = false;
    QCOMPARE(good.status, 0);
    QCOMPARE(dump(node), QByteArray("a{v=\xC3\xA9\xE2\x82\xAC}"));
    QCOMPARE(bad.status, int(XmlResult::conversionFailed));
    QVERIFY(none.isEmpty());
    QCOMPARE(plain.status, 0);
    QCOMPARE(dump(bytes), QByteArray("r{v=\xC3\xA9}(\"\xC3\xBC \xE2\x82\xAC\")"));
}

void tst_xml_file::readWithBom()
{
    bool isUtf8 = false;
    const XmlNode node = readXmlFile(dataPath("bom_utf8.xml"), "r", &isUtf8);
    QVERIFY(isUtf8);
    QCOMPARE(dump(node), QByteArray("r{v=\xC3\xA9}(\"\xC3\xBC \xE2\x82\xAC\")"));
    QVERIFY(readXmlFile(dataPath("bom_utf8.xml"), "other", nullptr).isEmpty());
}

void tst_xml_file::readUtf8WithoutBom()
{
    bool isUtf8 = true;
    const XmlNode node = readXmlFile(dataPath("utf8_nobom.xml"), nullptr, &isUtf8);
    QVERIFY(!isUtf8);
    QCOMPARE(dump(node), QByteArray("r{v=\xC3\xA9}(\"\xC3\xBC \xE2\x82\xAC\")"));
}

void tst_xml_file::readWindows1252()
{
    bool isUtf8 = true;
    const XmlNode node = readXmlFile(dataPath("cp1252.xml"), "r", &isUtf8);
    QVERIFY(!isUtf8);
    QCOMPARE(QString::fromUtf8(node.attribute("v")), QString::fromUtf8("caf\xC3\xA9"));
    QCOMPARE(QString::fromUtf8(node.textAt(0)),
             QString::fromUtf8("\xE2\x82\xAC \xE2\x80\x9Cq\xE2\x80\x9D \xC2\x81 \xC3\xBF"));
}

void tst_xml_file::readDatasourceAgainAsUtf8()
{
    const XmlNode root = readXmlFile(dataPath("datasource_utf8.xml"), "QUV_Config", nullptr);
    QCOMPARE(QByteArray(root.attribute("name")), QByteArray("caf\xC3\xA9"));
    QCOMPARE(root.childCount(), 2);
    // The re-read element comes last, decoded as UTF-8.
    QCOMPARE(root.childAt(0).name(), "Target");
    const XmlNode ds = root.childAt(1);
    QCOMPARE(ds.name(), "datasource");
    QCOMPARE(ds.parent().data(), root.data());
    QCOMPARE(QByteArray(ds.attribute("path")), QByteArray("C:/donn\xC3\xA9"
                                                          "es/x.csv"));
    QCOMPARE(QByteArray(ds.childNode("col").attribute("n")), QByteArray("\xC3\xA9"));
    QCOMPARE(xmltest::text(ds, true), QByteArray("<datasource utf8=\"1\" path=\"C:/donn\xC3\xA9"
                                                 "es/x.csv\">\n"
                                                 "\t<col n=\"\xC3\xA9\"/>\n</datasource>\n"));
}

void tst_xml_file::readDatasourceKeptWithoutFlag()
{
    const XmlNode root = readXmlFile(dataPath("datasource_cp1252.xml"), "QUV_Config", nullptr);
    QCOMPARE(root.childAt(0).name(), "datasource");
    // Read in the 8-bit page: each byte of the UTF-8 pair is a character.
    QCOMPARE(QByteArray(root.childAt(0).attribute("path")), QByteArray("C:/donn\xC3\x83\xC2\xA9"
                                                                       "es/x.csv"));
}

void tst_xml_file::readMissingFile()
{
    bool isUtf8 = true;
    QVERIFY(readXmlFile(dataPath("no_such_file.xml"), nullptr, &isUtf8).isEmpty());
}

namespace {

// A folder with a FIFO that nobody writes, a huge sparse file and files of
// every other kind that a configuration may turn out to be.
struct Oddities
{
    QTemporaryDir dir;
    bool ok = dir.isValid();

    Oddities()
    {
        ok = ok && mkfifo(QFile::encodeName(path("fifo")).constData(), 0600) == 0;
        QFile huge(path("huge.xml"));
        ok = ok && huge.open(QIODevice::WriteOnly) && huge.resize(qint64(200) << 20);
        ok = ok && writeBytes("empty.xml", QByteArray()) && writeBytes("random.xml", randomBytes());
        ok = ok && writeBytes("other.xml", "<other/>") && QDir().mkdir(path("folder"));
    }
    QString path(const char *name) const { return dir.filePath(QLatin1String(name)); }
    // An absolute path as it stands, a name inside the folder.
    QString resolve(const QString &name) const
    {
        return name.startsWith('/') ? name : dir.filePath(name);
    }
    bool writeBytes(const char *name, const QByteArray &bytes) const
    {
        QFile f(path(name));
        return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
    }
    static QByteArray randomBytes()
    {
        QByteArray bytes(4096, 0);
        quint32 x = 12345;
        for (char &c : bytes) {
            x = x * 1664525u + 1013904223u;
            c = static_cast<char>(x >> 24);
        }
        return bytes;
    }
};

} // namespace

void tst_xml_file::readSays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("problem");
    QTest::addColumn<QString>("sentence");

    const auto row = [](const char *tag, const char *name, XmlFileProblem problem,
                        const char *sentence) {
        QTest::newRow(tag) << QString::fromLatin1(name) << int(problem)
                           << QString::fromLatin1(sentence);
    };
    row("folder", "folder", XmlFileProblem::folder, "File '%1' is a folder, not a file.");
    row("FIFO without writer", "fifo", XmlFileProblem::notRegular,
        "File '%1' is a FIFO (named pipe), not a regular file.");
    row("character device", "/dev/zero", XmlFileProblem::notRegular,
        "File '%1' is a character device, not a regular file.");
    row("200 MB", "huge.xml", XmlFileProblem::tooLarge,
        "File '%1' is larger than 128 MiB, the most that is read of a file.");
    row("missing", "absent.xml", XmlFileProblem::notFound, "File '%1' does not exist.");
    row("below a file", "empty.xml/x", XmlFileProblem::notFound, "File '%1' does not exist.");
    // Read at offset 0, where nothing is mapped: refused even to root.
    row("unreadable", "/proc/self/mem", XmlFileProblem::unreadable,
        "File '%1' cannot be read: Input/output error.");
    // Read, but no tree of that root.
    row("empty", "empty.xml", XmlFileProblem::empty, "File '%1' is empty.");
    row("random bytes", "random.xml", XmlFileProblem::rootMissing,
        "File '%1' has no element QUV_Config.");
    row("syntax error", QUVA_TEST_DATA "/xml/broken.xml", XmlFileProblem::notXml,
        "File '%1' is not XML that can be read: error at line 2, column 8.");
    row("other root", "other.xml", XmlFileProblem::rootMissing,
        "File '%1' has no element QUV_Config.");
}

// Each gives its reason at once: nothing hangs on the FIFO, nothing reads
// the device or the huge file to its end.
void tst_xml_file::readSays()
{
    QFETCH(QString, name);
    QFETCH(int, problem);
    QFETCH(QString, sentence);
    const Oddities odd;
    QVERIFY(odd.ok);
    const QString path = odd.resolve(name);
    QElapsedTimer clock;
    clock.start();
    QByteArray bytes("left over");
    XmlFileFailure read;
    const bool readable = readWholeFile(path, &bytes, &read);
    XmlFileFailure failure;
    failure.problem = XmlFileProblem::folder; // must be replaced
    QVERIFY(readXmlFile(path, "QUV_Config", nullptr, &failure).isEmpty());
    XmlResult result;
    const XmlNode raw = parseXmlFile(QFile::encodeName(path).constData(), nullptr, &result);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(int(failure.problem), problem);
    QCOMPARE(describeXmlFileFailure(failure), sentence.arg(path));
    QCOMPARE(failure.path, path);
    // The last three are files that were read whole.
    QCOMPARE(readable, problem == int(XmlFileProblem::empty) || problem == int(XmlFileProblem::notXml)
                           || problem == int(XmlFileProblem::rootMissing));
    if (!readable) {
        QVERIFY(bytes.isEmpty());
        QCOMPARE(int(read.problem), problem);
        QCOMPARE(result.status, int(XmlResult::fileNotFound));
        QVERIFY(raw.isEmpty());
    }

    XmlFileFailure none;
    QVERIFY(!readXmlFile(dataPath("small.xml"), "ROOT", nullptr, &none).isEmpty());
    QCOMPARE(int(none.problem), int(XmlFileProblem::none));
    QCOMPARE(describeXmlFileFailure(none), QString());
}

// A file that grows beyond the limit while it is read, as a device would,
// is cut off there: here a file of /proc, whose size says 0.
void tst_xml_file::readStopsAtTheLimit()
{
    QByteArray bytes;
    XmlFileFailure failure;
    QVERIFY(readWholeFile(QStringLiteral("/proc/self/status"), &bytes, &failure));
    QVERIFY(bytes.contains("Name:"));
    QCOMPARE(int(failure.problem), int(XmlFileProblem::none));

    QTemporaryDir dir;
    const QString path = dir.filePath("limit.xml");
    QFile exact(path);
    QVERIFY(exact.open(QIODevice::WriteOnly) && exact.resize(xmlFileSizeLimit));
    exact.close();
    QVERIFY(readWholeFile(path, &bytes, &failure));
    QCOMPARE(qint64(bytes.size()), xmlFileSizeLimit);
    QVERIFY(exact.resize(xmlFileSizeLimit + 1));
    QVERIFY(!readWholeFile(path, &bytes, &failure));
    QCOMPARE(int(failure.problem), int(XmlFileProblem::tooLarge));
}

void tst_xml_file::toUtf8FromWideText()
{
    char *s = toUtf8FromWide(L"a\u00e9\u20ac\U0001F600");
    QCOMPARE(QByteArray(s), QByteArray("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
    free(s);
    QCOMPARE(toUtf8FromWide(nullptr), nullptr);
    const wchar_t surrogate[] = {L'a', static_cast<wchar_t>(0xD800), 0};
    QCOMPARE(toUtf8FromWide(surrogate), nullptr);
    xmlOptions.encoding = XmlEncoding::ActiveCodePage;
    s = toUtf8FromWide(L"a\u00e9\u20ac\u4e00");
    xmlOptions.encoding = XmlEncoding::Utf8;
    QCOMPARE(QByteArray(s), QByteArray("a\xE9\x80?"));
    free(s);
    s = toUtf8FromWide(L"");
    QCOMPARE(QByteArray(s), QByteArray(""));
    free(s);
}

void tst_xml_file::codePage()
{
    QVERIFY(isValidUtf8("plain", 5));
    QVERIFY(isValidUtf8("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 9));
    QVERIFY(!isValidUtf8("\xC3", 1));
    QVERIFY(!isValidUtf8("\xC0\xAF", 2));         // overlong
    QVERIFY(!isValidUtf8("\xED\xA0\x80", 3));     // surrogate
    QVERIFY(!isValidUtf8("\xF4\x90\x80\x80", 4)); // above U+10FFFF
    QVERIFY(!isValidUtf8("caf\xE9", 4));
    for (int b = 0; b < 256; ++b) {
        const char32_t code = windows1252ToUnicode(static_cast<unsigned char>(b));
        QCOMPARE(static_cast<unsigned char>(windows1252FromUnicode(code)),
                 static_cast<unsigned char>(b));
    }
    QCOMPARE(int(windows1252ToUnicode(0x80)), 0x20AC);
    QCOMPARE(int(windows1252ToUnicode(0x9F)), 0x0178);
    QCOMPARE(int(windows1252ToUnicode(0xE9)), 0xE9);
    QCOMPARE(windows1252ToUtf8("\x80\x99", 2), QByteArray("\xE2\x82\xAC\xE2\x84\xA2"));
}

void tst_xml_file::xmlcat_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");

    QTest::newRow("whole file")
        << QStringList{dataPath("small.xml")} << 0
        << QByteArray(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root a=\"1\" flag>\n"
               "\ttext &amp; more\n\t<item>one</item>\n\t<!-- note -->\n\t<item/>\n</root>\n")
        << QByteArray("status 0 line 0 column 0\n");
    QTest::newRow("root not found") << QStringList{"--root", "item", dataPath("small.xml")} << 1
                                    << QByteArray() << QByteArray("status 11 line 0 column 0\n");
    QTest::newRow("root below the declaration")
        << QStringList{"--root", "ROOT", dataPath("small.xml")} << 0
        << QByteArray("<root a=\"1\" flag>\n\ttext &amp; more\n\t<item>one</item>\n\t<!-- note "
                      "-->\n\t<item/>\n</root>\n")
        << QByteArray("status 0 line 0 column 0\n");
    QTest::newRow("broken file") << QStringList{dataPath("broken.xml")} << 1 << QByteArray()
                                 << QByteArray("status 6 line 2 column 8\n");
    QTest::newRow("missing file")
        << QStringList{dataPath("no_such_file.xml")} << 1 << QByteArray()
        << "quva-xmlcat: File '" + dataPath("no_such_file.xml").toUtf8()
               + "' does not exist.\nstatus 10 line 0 column 0\n";
    QTest::newRow("empty file") << QStringList{dataPath("empty.xml")} << 1 << QByteArray()
                                << "quva-xmlcat: File '" + dataPath("empty.xml").toUtf8()
                                       + "' is empty.\nstatus 3 line 0 column 0\n";
    QTest::newRow("folder") << QStringList{QStringLiteral(QUVA_TEST_DATA)} << 1 << QByteArray()
                            << QByteArray("quva-xmlcat: File '" QUVA_TEST_DATA
                                          "' is a folder, not a file.\nstatus 10 line 0 column 0\n");
    QTest::newRow("device") << QStringList{"/dev/zero"} << 1 << QByteArray()
                            << QByteArray("quva-xmlcat: File '/dev/zero' is a character device, "
                                          "not a regular file.\nstatus 10 line 0 column 0\n");
    QTest::newRow("unreadable") << QStringList{"/proc/self/mem"} << 1 << QByteArray()
                                << QByteArray("quva-xmlcat: File '/proc/self/mem' cannot be read: "
                                              "Input/output error.\nstatus 10 line 0 column 0\n");
    QTest::newRow("no arguments") << QStringList{} << 2 << QByteArray()
                                  << QByteArray("usage: quva-xmlcat [--root NAME] FILE\n");
    QTest::newRow("root without name") << QStringList{"--root"} << 2 << QByteArray()
                                       << QByteArray("usage: quva-xmlcat [--root NAME] FILE\n");
    QTest::newRow("two files") << QStringList{"a.xml", "b.xml"} << 2 << QByteArray()
                               << QByteArray("usage: quva-xmlcat [--root NAME] FILE\n");
}

void tst_xml_file::xmlcat()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, err);
    QProcess process;
    process.start(QStringLiteral(QUVA_BINARY_DIR "/tools/quva-xmlcat"), arguments);
    QVERIFY2(process.waitForFinished(30000), "quva-xmlcat did not finish");
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.readAllStandardOutput(), out);
    QCOMPARE(process.readAllStandardError(), err);
    QCOMPARE(process.exitCode(), exitCode);
}

QTEST_GUILESS_MAIN(tst_xml_file)
#include "tst_xml_file.moc"
