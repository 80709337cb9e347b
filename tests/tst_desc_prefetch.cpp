// The description read on a second thread while its configuration is
// parsed: the guess of its path from the raw bytes, the hand-over of the
// result, and loads that must come out the same whether the guess was
// right, wrong or not made at all.

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "core/desc_model.h"
#include "core/desc_prefetch.h"
#include "xml/xml_file.h"
#include "xml/xml_node.h"

#include <QtTest>

#include <QFile>
#include <QTemporaryDir>

namespace {

const char coreData[] = QUVA_TEST_DATA "/core";

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The defaults configuration with its DescriptionFile element replaced.
QByteArray configurationNaming(const QByteArray &element)
{
    QByteArray text = readFile(QStringLiteral("%1/defaults.CfgXML").arg(QLatin1String(coreData)));
    const int begin = text.indexOf("<DescriptionFile>");
    const int end = text.indexOf("</DescriptionFile>") + int(qstrlen("</DescriptionFile>"));
    if (begin < 0 || end < begin)
        return QByteArray();
    return text.replace(begin, end - begin, element);
}

QStringList columnNames(const DescModel &desc)
{
    QStringList names;
    for (const DatasetColumn &column : desc.columns)
        names.append(columnFullName(column));
    return names;
}

} // namespace

class tst_desc_prefetch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void guess_data();
    void guess();
    void guessOfNothing();
    void takesWhatWasStarted();
    void refusesAnotherPath();
    void takesOnce();
    void missingDescription();
    void loadsAlike_data();
    void loadsAlike();

private:
    // Starts reading the copied description under the name the fixture's
    // configuration gives it; returns the path read.
    QString startGolden(DescPrefetch &prefetch)
    {
        const QString readPath = dir.filePath(QStringLiteral("golden.DescXML"));
        prefetch.start(QStringLiteral("golden.DescXML"), readPath);
        return readPath;
    }

    QTemporaryDir dir;
    QStringList expectedColumns;
};

void tst_desc_prefetch::initTestCase()
{
    // Loads read the description ahead only in a one-shot process.
    setOneShotLoading(true);
    QVERIFY(dir.isValid());
    QVERIFY(QFile::copy(QStringLiteral("%1/golden.DescXML").arg(QLatin1String(coreData)),
                        dir.filePath(QStringLiteral("golden.DescXML"))));
    const XmlNode root = readXmlFile(dir.filePath(QStringLiteral("golden.DescXML")), "DESCRIPTION");
    const DescModel desc(QStringLiteral("golden.DescXML"), root);
    expectedColumns = columnNames(desc);
    QVERIFY(expectedColumns.size() > 3);
}

void tst_desc_prefetch::guess_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QByteArray head = "<?xml version=\"1.0\"?>\n<QUV_Config version='3'>\n";
    QTest::newRow("the writer's layout") << head + " <DescriptionFile>\n  /data/run.DescXML\n </DescriptionFile>\n</QUV_Config>"
                                         << "/data/run.DescXML";
    QTest::newRow("relative, on one line") << head + "<DescriptionFile>run.DescXML</DescriptionFile>"
                                           << "run.DescXML";
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + head + "<DescriptionFile>caf\xC3\xA9.DescXML</DescriptionFile>"
                                         << QString::fromUtf8("caf\xC3\xA9.DescXML");
    QTest::newRow("8-bit text without the mark") << head + "<DescriptionFile>caf\xE9.DescXML</DescriptionFile>"
                                                 << QString();
    QTest::newRow("an entity") << head + "<DescriptionFile>a&amp;b.DescXML</DescriptionFile>"
                               << QString();
    QTest::newRow("markup inside") << head + "<DescriptionFile><!-- x -->a.DescXML</DescriptionFile>"
                                   << QString();
    QTest::newRow("no closing tag") << head + "<DescriptionFile>a.DescXML" << QString();
    QTest::newRow("no element") << head + "<Vars/></QUV_Config>" << QString();
    QTest::newRow("attributes on the tag") << head + "<DescriptionFile x='1'>a.DescXML</DescriptionFile>"
                                           << QString();
}

void tst_desc_prefetch::guess()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QCOMPARE(guessDescPath(bytes), expected);
}

// The path is looked for in the head of the file only.
void tst_desc_prefetch::guessOfNothing()
{
    QCOMPARE(guessDescPath(QByteArray()), QString());
    const QByteArray far = QByteArray(64 * 1024, ' ') + "<DescriptionFile>a.DescXML</DescriptionFile>";
    QCOMPARE(guessDescPath(far), QString());
    QCOMPARE(guessDescPath(far.mid(100)), QStringLiteral("a.DescXML"));
}

void tst_desc_prefetch::takesWhatWasStarted()
{
    DescPrefetch prefetch;
    const QString readPath = startGolden(prefetch);
    XmlNode root;
    DescModel *desc = nullptr;
    QVERIFY(prefetch.take(QStringLiteral("golden.DescXML"), readPath, &root, &desc));
    QVERIFY(!root.isEmpty());
    QCOMPARE(QByteArray(root.name()), QByteArray("DESCRIPTION"));
    QVERIFY(desc != nullptr);
    QCOMPARE(desc->fileName, QStringLiteral("golden.DescXML"));
    QCOMPARE(columnNames(*desc), expectedColumns);
    delete desc;
}

void tst_desc_prefetch::refusesAnotherPath()
{
    DescPrefetch prefetch;
    const QString readPath = startGolden(prefetch);
    XmlNode root;
    DescModel *desc = nullptr;
    // Same file, but named otherwise in the configuration: the record would
    // carry another name.
    QVERIFY(!prefetch.take(QStringLiteral("./golden.DescXML"), readPath, &root, &desc));
    QVERIFY(!prefetch.take(QStringLiteral("golden.DescXML"), readPath + "x", &root, &desc));
    QVERIFY(root.isEmpty());
    QVERIFY(desc == nullptr);
    // The guess itself is still there to be taken.
    QVERIFY(prefetch.take(QStringLiteral("golden.DescXML"), readPath, &root, &desc));
    QVERIFY(desc != nullptr);
    delete desc;
}

void tst_desc_prefetch::takesOnce()
{
    XmlNode root;
    DescModel *desc = nullptr;
    DescPrefetch idle;
    QVERIFY(!idle.take(QString(), QString(), &root, &desc));
    QVERIFY(!idle.take(QStringLiteral("golden.DescXML"), QStringLiteral("golden.DescXML"), &root,
                       &desc));

    DescPrefetch prefetch;
    const QString readPath = startGolden(prefetch);
    QVERIFY(prefetch.take(QStringLiteral("golden.DescXML"), readPath, &root, &desc));
    delete desc;
    desc = nullptr;
    root = XmlNode();
    QVERIFY(!prefetch.take(QStringLiteral("golden.DescXML"), readPath, &root, &desc));
    QVERIFY(root.isEmpty());
    QVERIFY(desc == nullptr);

    // A result nobody takes is freed with the object.
    DescPrefetch untaken;
    startGolden(untaken);
}

void tst_desc_prefetch::missingDescription()
{
    const QString readPath = dir.filePath(QStringLiteral("absent.DescXML"));
    DescPrefetch prefetch;
    prefetch.start(QStringLiteral("absent.DescXML"), readPath);
    XmlNode root = XmlNode();
    DescModel *desc = nullptr;
    QVERIFY(prefetch.take(QStringLiteral("absent.DescXML"), readPath, &root, &desc));
    QVERIFY(root.isEmpty());
    QVERIFY(desc == nullptr);
}

// Whatever the guess, a load gives the record the configuration names.
void tst_desc_prefetch::loadsAlike_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("guessed right") << QByteArray("<DescriptionFile>\n  golden.DescXML\n </DescriptionFile>")
                                   << "golden.DescXML";
    QTest::newRow("no guess: entity")
        << QByteArray("<DescriptionFile>golden&#46;DescXML</DescriptionFile>") << "golden.DescXML";
    QTest::newRow("wrong guess: a commented-out element first")
        << QByteArray("<!-- <DescriptionFile>other.DescXML</DescriptionFile> -->\n"
                      " <DescriptionFile>golden.DescXML</DescriptionFile>")
        << "golden.DescXML";
    QTest::newRow("wrong guess: the path of a file that is there")
        << QByteArray("<!-- <DescriptionFile>decoy.DescXML</DescriptionFile> -->\n"
                      " <DescriptionFile>golden.DescXML</DescriptionFile>")
        << "golden.DescXML";
}

void tst_desc_prefetch::loadsAlike()
{
    QFETCH(QByteArray, element);
    QFETCH(QString, fileName);
    // A description with other columns, to be read if the wrong guess won.
    const QString decoy = dir.filePath(QStringLiteral("decoy.DescXML"));
    QByteArray decoyText = readFile(dir.filePath(QStringLiteral("golden.DescXML")));
    decoyText.replace("name=\"", "name=\"decoy_").replace("label=\"", "label=\"decoy_");
    QVERIFY(writeFile(decoy, decoyText));

    const QString path = dir.filePath(QStringLiteral("alike.CfgXML"));
    const QByteArray text = configurationNaming(element);
    QVERIFY(!text.isEmpty());
    QVERIFY(writeFile(path, text));
    QScopedPointer<CfgModel> model(loadCfgFile(path, false, nullptr, QString()).model.release());
    QVERIFY(model);
    QCOMPARE(model->desc->fileName, fileName);
    QCOMPARE(columnNames(*model->desc), expectedColumns);
}

QTEST_GUILESS_MAIN(tst_desc_prefetch)
#include "tst_desc_prefetch.moc"
