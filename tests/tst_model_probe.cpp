// What the apply page takes from the newest run of a configuration.

#include "core/cfg_model.h"
#include "core/model_probe.h"

#include "xml/xml_node.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

std::unique_ptr<CfgModel> recordWith(const QByteArray &datasource, const QString &cfgPath)
{
    const XmlNode descRoot =
        readXmlFile(QStringLiteral(QUVA_TEST_DATA "/core/golden.DescXML"), "DESCRIPTION");
    const QByteArray cfgText = "<QUV_Config>" + datasource + "</QUV_Config>";
    const XmlNode root = parseXmlText(cfgText.constData(), "QUV_Config", nullptr);
    auto model = std::make_unique<CfgModel>(new DescModel(QStringLiteral("golden.DescXML"), descRoot),
                                            cfgPath, root);
    if (datasource.isEmpty())
        model->datasource.clear();
    return model;
}

} // namespace

class tst_model_probe : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void newestFolder();
    void noFolderNoChange();
    void datasource_data();
    void datasource();
    void separatorNames_data();
    void separatorNames();

private:
    std::unique_ptr<QTemporaryDir> dir;
    QString cfgPath;
};

void tst_model_probe::init()
{
    dir = std::make_unique<QTemporaryDir>();
    cfgPath = dir->filePath("run.CfgXML");
}

// The newest of run_001 and run_010, whether or not it holds a model.
void tst_model_probe::newestFolder()
{
    QDir(dir->path()).mkdir("run_001");
    QDir(dir->path()).mkdir("run_010");
    const auto model = recordWith("<datasource type='c' sep=';'>d.csv</datasource>", cfgPath);
    const ModelProbe probe = probeLatestModel(*model);
    QVERIFY(probe.found);
    QCOMPARE(probe.modelPath, dir->filePath("run_010/run.ModelXML"));
    QCOMPARE(probe.outputDirectory, dir->filePath("run_010"));
    QVERIFY(!QFileInfo::exists(probe.modelPath));
}

void tst_model_probe::noFolderNoChange()
{
    const auto model = recordWith("<datasource type='c'>d.csv</datasource>", cfgPath);
    const ModelProbe probe = probeLatestModel(*model);
    QVERIFY(!probe.found);
    QVERIFY(probe.modelPath.isEmpty());
    QVERIFY(probe.datasourcePath.isEmpty());
}

void tst_model_probe::datasource_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("path");
    QTest::newRow("text file") << QByteArray("<datasource type='csv' sep=';'>C:\\d\\a.csv</datasource>")
                               << int('c') << "SEMICOLON" << "C:\\d\\a.csv";
    QTest::newRow("text file without sep") << QByteArray("<datasource type='c'>a.txt</datasource>")
                                           << int('c') << "COMMA" << "a.txt";
    QTest::newRow("other sep as it stands")
        << QByteArray("<datasource type='c' sep='|'>a.txt</datasource>") << int('c') << "|"
        << "a.txt";
    QTest::newRow("gel file") << QByteArray("<datasource type='gel'>b.gel_velmorin</datasource>")
                              << int('g') << "" << "b.gel_velmorin";
    QTest::newRow("SAS file") << QByteArray("<datasource type='s'>c.sas7bdat</datasource>")
                              << int('s') << "" << "c.sas7bdat";
    QTest::newRow("capital letter is none")
        << QByteArray("<datasource type='C' sep=';'>a.csv</datasource>") << 0 << "" << "";
    QTest::newRow("no type") << QByteArray("<datasource>a.csv</datasource>") << 0 << "" << "";
    QTest::newRow("no element") << QByteArray() << 0 << "" << "";
}

void tst_model_probe::datasource()
{
    QFETCH(QByteArray, element);
    QFETCH(int, kind);
    QFETCH(QString, separator);
    QFETCH(QString, path);
    QDir(dir->path()).mkdir("run_002");
    const auto model = recordWith(element, cfgPath);
    const ModelProbe probe = probeLatestModel(*model);
    QVERIFY(probe.found);
    QCOMPARE(int(probe.kind), kind);
    QCOMPARE(probe.separatorText, separator);
    QCOMPARE(probe.datasourcePath, path);
}

void tst_model_probe::separatorNames_data()
{
    QTest::addColumn<QString>("sep");
    QTest::addColumn<QString>("name");
    QTest::newRow("comma") << "," << "COMMA";
    QTest::newRow("semicolon") << ";" << "SEMICOLON";
    QTest::newRow("tab") << "\t" << "TAB";
    QTest::newRow("hash") << "#" << "HASH";
    QTest::newRow("other") << "::" << "::";
}

void tst_model_probe::separatorNames()
{
    QFETCH(QString, sep);
    QFETCH(QString, name);
    QCOMPARE(separatorName(sep), name);
}

QTEST_GUILESS_MAIN(tst_model_probe)
#include "tst_model_probe.moc"
