#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "core/reporter.h"

#include "xml/xml_node.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString dataDir = QStringLiteral(QUVA_TEST_DATA "/core");

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable " + path.toUtf8() + ">");
    return file.readAll();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// A record on the golden description, under the name the golden files carry.
std::unique_ptr<CfgModel> goldenModel(const QByteArray &cfgText, const QString &cfgPath)
{
    const XmlNode descRoot = readXmlFile(dataDir + "/golden.DescXML", "DESCRIPTION");
    const XmlNode root = parseXmlText(cfgText.constData(), "QUV_Config", nullptr);
    return std::make_unique<CfgModel>(new DescModel(QStringLiteral("golden.DescXML"), descRoot),
                                      cfgPath, root);
}

// Shows where two byte strings part, so that a golden mismatch reads quickly.
QByteArray firstDifference(const QByteArray &actual, const QByteArray &expected)
{
    int i = 0;
    while (i < actual.size() && i < expected.size() && actual.at(i) == expected.at(i))
        ++i;
    return "at byte " + QByteArray::number(i) + ":\n  actual:   "
        + actual.mid(qMax(0, i - 30), 80).toPercentEncoding(" <>='/\n") + "\n  expected: "
        + expected.mid(qMax(0, i - 30), 80).toPercentEncoding(" <>='/\n");
}

#define COMPARE_BYTES(actual, expected)                                                   \
    do {                                                                                  \
        const QByteArray a_ = (actual);                                                   \
        const QByteArray e_ = (expected);                                                 \
        if (a_ != e_)                                                                     \
            QFAIL(firstDifference(a_, e_).constData());                                   \
    } while (false)

// Keeps the messages and the state of the wait cursor at each of them.
class RecordingReporter : public Reporter
{
public:
    QStringList messages;
    int busy = 0;
    int busyAtMessage = -1;
    int busyCalls = 0;

    void message(MessageIcon, const QString &title, const QString &text) override
    {
        messages.append(title + ": " + text);
        busyAtMessage = busy;
    }
    void setBusy(bool on) override
    {
        busy += on ? 1 : -1;
        ++busyCalls;
    }
};

// Answers the question about other windows and remembers what was asked.
class ScriptedQuery
{
public:
    int answer = 0;
    QStringList asked;
    OtherWindowCheck check()
    {
        return [this](const QString &file) {
            asked.append(file);
            return answer;
        };
    }
};

// The place a load read, in the words of a window that takes it.
QStringList placeCalls(const std::optional<WorkingSpace> &place)
{
    if (!place)
        return {};
    return {QStringLiteral("resize %1x%2").arg(place->w).arg(place->h),
            QStringLiteral("move %1,%2").arg(place->x).arg(place->y)};
}

} // namespace

class tst_cfg_file : public QObject
{
    Q_OBJECT

private:
    RecordingReporter recorder;
    ScriptedQuery query;
    QTemporaryDir tmp;

    // Copies the golden description (and optionally a configuration) into a
    // fresh folder and returns that folder.
    QString fixtureDir(const QString &name);

private slots:
    void init();
    void cleanup();
    void golden_data();
    void golden();
    void aucMaxMarker();
    void workingSpaceFromWindow();
    void workingSpaceCondition_data();
    void workingSpaceCondition();
    void goldenLoadSave_data();
    void goldenLoadSave();
    void lambdaLosesDigits();
    void saveTwiceSameBytes();
    void unknownTargetLabel();
    void textsThatNeedEscapingReadBack();
    void staleNamesSurviveLoadAndSave_data();
    void staleNamesSurviveLoadAndSave();
    void lineSelectionOtherLetter();
    void saveKeepsRelativeDescription();
    void saveWatchesAndStamps();
    void saveFailure_data();
    void saveFailure();
    void saveFailureKeepsExistingFile();
    void saveOntoImmutableFolder();
    void loadCfgErrors_data();
    void loadCfgErrors();
    void loadOddFiles_data();
    void loadOddFiles();
    void loadCfgWithoutSuffix();
    void loadCfgAsksOtherWindows();
    void loadCfgAnswerTwoEndsProcess();
    void loadCfgPlacesWindow();
    void workingSpaceOf_data();
    void workingSpaceOf();
    void loadDescErrors_data();
    void loadDescErrors();
    void loadDescSibling();
    void loadDescSiblingHeldElsewhere();
    void buildModelsErrors_data();
    void buildModelsErrors();
    void buildModelsDefaultConfiguration();
    void examplesRoundTrip();
};

QString tst_cfg_file::fixtureDir(const QString &name)
{
    const QString dir = tmp.filePath(name);
    QDir().mkpath(dir);
    QFile::remove(dir + "/golden.DescXML");
    QFile::copy(dataDir + "/golden.DescXML", dir + "/golden.DescXML");
    return dir;
}

void tst_cfg_file::init()
{
    recorder = RecordingReporter();
    query.answer = 0;
    query.asked.clear();
    setReporter(&recorder);
    QVERIFY(tmp.isValid());
}

void tst_cfg_file::cleanup()
{
    setReporter(nullptr);
}

void tst_cfg_file::golden_data()
{
    QTest::addColumn<QString>("golden");
    QTest::addColumn<QByteArray>("input");

    QTest::newRow("all defaults") << "defaults" << QByteArray("<QUV_Config/>");
    QTest::newRow("every root attribute") << "root_changed" << QByteArray("<QUV_Config/>");
    QTest::newRow("AUCmax at 100") << "aucmax_100" << QByteArray("<QUV_Config/>");
    QTest::newRow("expression selection, column target")
        << "ls_expression_target_column" << QByteArray("<QUV_Config/>");
    QTest::newRow("file selection, file target")
        << "ls_file_target_file" << QByteArray("<QUV_Config/>");
    QTest::newRow("segment selection, expression target")
        << "ls_segment_target_expression" << QByteArray("<QUV_Config/>");
    QTest::newRow("Var attributes") << "vars" << QByteArray("<QUV_Config/>");
    QTest::newRow("WorkingSpace") << "working_space" << QByteArray("<QUV_Config/>");
    QTest::newRow("datasource overriding the description's")
        << "datasource_override"
        << QByteArray("<QUV_Config><datasource type=\"s\">\n"
                      "  <path>/data/credit.sas7bdat</path>\n"
                      "  <filter>year &gt; 2015</filter>\n</datasource></QUV_Config>");
}

namespace {

InputVar incomeVar()
{
    InputVar var(QStringLiteral("Monthly income"), QLatin1Char('V'), 1500.5);
    var.label2 = QStringLiteral("Income (EUR)");
    return var;
}

// The changes of each golden case, made through the record's fields.
void prepare(CfgModel &m, const QString &golden)
{
    if (golden == "root_changed") {
        m.version = "2.0.1";
        m.graphicHeader = QString::fromUtf8("Crédit <2021> & \"co\"");
        m.nTestSet = 8;
        m.nMaxValSet = 7;
        m.nValSet = 4;
        m.maxMemoryDS = 2048;
        m.maxTargetDensity = 0.35;
        m.maxTestDSSize = 0.25;
        m.nBagging = 10;
        m.purifyTarget = 0.05;
        m.minSizeModalityForNominalVar = "5%";
        m.minSizeModalityForOrderedVar = "";
        m.zTestModalities = 3;
        m.nMaxVar = -1;
        m.lambda = 123456789;
        m.alpha = -1;
        m.stopComputationAfterXHours = 0.5;
        m.pruning = 3;
        m.AUCmax = 92.5;
        m.quantileRegression = 0.05;
        m.hotstart = 1;
        m.useAUCToOptimizePenalization = 1;
        m.thirdOptim = 1;
        m.deNormalize = 1;
        m.allowedAUCLoss = 0.001;
        m.lowerBoundCorrelationReport = 0.9;
        m.p1 = 0.1;
        m.p2 = 0.6;
        m.predictionFile = 1;
        m.bootstrapRepeat = 1000;
        m.confidenceInterval = 1;
        m.cpuCount = 4;
        m.randomSeed = 42;
        m.penalityForProfile = 1e-5;
        m.penalityForTreatment = 2e6;
        m.datasource.clear();
        m.targetColumn = "Default";
        m.Weight = "Monthly income";
        m.Treatment = "unknown label";
        m.PartioningModel = "  age;purpose ";
    } else if (golden == "aucmax_100") {
        m.AUCmax = 100.0;
    } else if (golden == "ls_expression_target_column") {
        m.lineSelectionType = 'E';
        m.lineSelectionExpression = "  age > 30 && purpose == \"car\"\n ";
        m.lineSelectionVars = {InputVar("age", QLatin1Char('V'), 30.0),
                               InputVar("purpose", QLatin1Char('N'), QStringLiteral("car"))};
        m.targetType = 'C';
        m.targetColumn = "  Age ";
    } else if (golden == "ls_file_target_file") {
        m.lineSelectionType = 'F';
        m.lineSelectionFile = " /data/selection & more.txt ";
        m.lineSelectionExpression = "ignored";
        m.targetType = 'F';
        m.targetFile = "/data/target.csv ";
        m.targetColumn = "Age";
    } else if (golden == "ls_segment_target_expression") {
        m.lineSelectionType = 'S';
        m.lineSelectionSegmentFile = "/models/seg.SModelXML";
        m.segmentActive = {true, false, true};
        m.targetType = 'E';
        m.targetVars = {incomeVar()};
        m.targetExpression = "Monthly_income < 1000";
    } else if (golden == "vars") {
        m.fi[0] = 'I';
        m.fi[1] = 'F';
        m.illus[1] = 1;
        m.monoto[2] = 'D';
        m.minSizeModality[3] = 5.5;
        m.fi[4] = ' ';
        m.penality[5] = 2.5;
        m.cm[6] = 1;
        m.fi[7] = 'I';
        m.illus[7] = 1;
        m.monoto[7] = 'I';
        m.minSizeModality[7] = 0.001234567;
        m.penality[7] = 0;
        m.cm[7] = 1;
        m.minSizeModality[8] = 1e6;
        m.fi[9] = 0;
    } else if (golden == "working_space") {
        m.workingSpaceX = 10;
        m.workingSpaceY = 20;
        m.workingSpaceW = 800;
        m.workingSpaceH = 600;
    }
}

} // namespace

void tst_cfg_file::golden()
{
    QFETCH(QString, golden);
    QFETCH(QByteArray, input);
    const QString path = tmp.filePath(golden + ".CfgXML");
    const auto model = goldenModel(input, path);
    prepare(*model, golden);
    QVERIFY(saveCfgFile(*model, nullptr));
    const QByteArray expected = fileBytes(dataDir + "/" + golden + ".CfgXML");
    COMPARE_BYTES(fileBytes(path), expected);
    COMPARE_BYTES(cfgFileBytes(*model), expected);
    QVERIFY(recorder.messages.isEmpty());
}

void tst_cfg_file::aucMaxMarker()
{
    const QString path = tmp.filePath("auc.CfgXML");
    auto model = goldenModel("<QUV_Config/>", path);
    model->AUCmax = 100.0;
    QVERIFY(saveCfgFile(*model, nullptr));
    const QByteArray golden = fileBytes(dataDir + "/aucmax_100.CfgXML");
    COMPARE_BYTES(fileBytes(path), golden);

    // 200 comes back as 20000 percent, which writes 200 again.
    model = goldenModel(fileBytes(path).mid(3), path);
    QCOMPARE(model->AUCmax, 20000.0);
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(path), golden);
}

void tst_cfg_file::workingSpaceFromWindow()
{
    const WorkingSpace window{10, 20, 800, 600};
    const QString path = tmp.filePath("window.CfgXML");
    const auto model = goldenModel("<QUV_Config/>", path);
    QVERIFY(saveCfgFile(*model, &window));
    COMPARE_BYTES(fileBytes(path), fileBytes(dataDir + "/working_space.CfgXML"));
    QCOMPARE(model->workingSpaceX, 10);
    QCOMPARE(model->workingSpaceY, 20);
    QCOMPARE(model->workingSpaceW, 800);
    QCOMPARE(model->workingSpaceH, 600);
}

void tst_cfg_file::workingSpaceCondition_data()
{
    QTest::addColumn<QVector<int>>("place");
    QTest::addColumn<QByteArray>("element"); // empty: none written

    QTest::newRow("at the origin") << QVector<int>{0, 0, 800, 600} << QByteArray();
    QTest::newRow("x only") << QVector<int>{5, 0, 800, 600}
                            << QByteArray("\n <WorkingSpace x='5' y='0' w='800' h='600'/>\n");
    QTest::newRow("y only") << QVector<int>{0, 7, 0, 0}
                            << QByteArray("\n <WorkingSpace x='0' y='7' w='0' h='0'/>\n");
    QTest::newRow("negative width") << QVector<int>{5, 5, -1, 600} << QByteArray();
    QTest::newRow("negative height") << QVector<int>{5, 5, 800, -3} << QByteArray();
    QTest::newRow("negative position")
        << QVector<int>{-8, -30, 1, 2}
        << QByteArray("\n <WorkingSpace x='-8' y='-30' w='1' h='2'/>\n");
}

void tst_cfg_file::workingSpaceCondition()
{
    QFETCH(QVector<int>, place);
    QFETCH(QByteArray, element);
    const auto model = goldenModel("<QUV_Config/>", tmp.filePath("c.CfgXML"));
    model->workingSpaceX = place[0];
    model->workingSpaceY = place[1];
    model->workingSpaceW = place[2];
    model->workingSpaceH = place[3];
    const QByteArray bytes = cfgFileBytes(*model);
    if (element.isEmpty()) {
        QVERIFY(!bytes.contains("WorkingSpace"));
        QVERIFY(bytes.contains("penalityForTreatment='1'>\n <DescriptionFile>"));
    } else {
        QVERIFY(bytes.contains("penalityForTreatment='1'>" + element + " <DescriptionFile>"));
    }
}

void tst_cfg_file::goldenLoadSave_data()
{
    QTest::addColumn<QString>("golden");
    QTest::addColumn<bool>("sameAsGolden");

    QTest::newRow("defaults") << "defaults" << true;
    // PartioningModel is trimmed on reading and written as held.
    QTest::newRow("root attributes") << "root_changed" << false;
    QTest::newRow("AUCmax") << "aucmax_100" << true;
    QTest::newRow("expression selection") << "ls_expression_target_column" << true;
    QTest::newRow("file selection") << "ls_file_target_file" << true;
    QTest::newRow("segments") << "ls_segment_target_expression" << true;
    QTest::newRow("vars") << "vars" << true;
    QTest::newRow("working space") << "working_space" << true;
    QTest::newRow("datasource") << "datasource_override" << true;
}

void tst_cfg_file::goldenLoadSave()
{
    QFETCH(QString, golden);
    QFETCH(bool, sameAsGolden);

    // The files name their description relatively, so it lies beside them.
    const QString dir = fixtureDir("loadsave_" + golden);
    const QString first = dir + "/first.CfgXML";
    const QString second = dir + "/second.CfgXML";
    QVERIFY(QFile::copy(dataDir + "/" + golden + ".CfgXML", first));

    std::unique_ptr<CfgModel> model(loadCfgFile(first, true, nullptr, QString()).model.release());
    QVERIFY(model);
    QVERIFY(saveCfgFile(*model, nullptr));
    const QByteArray once = fileBytes(first);

    QVERIFY(QFile::copy(first, second));
    model.reset(loadCfgFile(second, true, nullptr, QString()).model.release());
    QVERIFY(model);
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(second), once);

    const QByteArray goldenBytes = fileBytes(dataDir + "/" + golden + ".CfgXML");
    if (sameAsGolden) {
        COMPARE_BYTES(once, goldenBytes);
    } else {
        QVERIFY(once != goldenBytes);
        QVERIFY(once.contains(" <PartioningModel>age;purpose</PartioningModel>\n"));
    }
    QVERIFY(recorder.messages.isEmpty());
}

void tst_cfg_file::lambdaLosesDigits()
{
    const QString dir = fixtureDir("lambda");
    const QString path = dir + "/l.CfgXML";
    auto model = goldenModel("<QUV_Config/>", path);
    model->lambda = 123456789;
    model->p1 = 0.123456789;
    QVERIFY(saveCfgFile(*model, nullptr));
    QVERIFY(fileBytes(path).contains("\n lambda='1.23457e+008'\n"));
    model.reset(loadCfgFile(path, true, nullptr, QString()).model.release());
    QVERIFY(model);
    QCOMPARE(model->lambda, 123457000.0);
    QCOMPARE(model->p1, 0.123457);
}

void tst_cfg_file::saveTwiceSameBytes()
{
    const QString path = tmp.filePath("twice.CfgXML");
    const auto model = goldenModel("<QUV_Config/>", path);
    prepare(*model, "ls_segment_target_expression");
    QVERIFY(saveCfgFile(*model, nullptr));
    const QByteArray first = fileBytes(path);
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(path), first);

    // Only a moved window changes them.
    const WorkingSpace window{3, 4, 640, 480};
    QVERIFY(saveCfgFile(*model, &window));
    const QByteArray moved = fileBytes(path);
    QVERIFY(moved != first);
    QVERIFY(saveCfgFile(*model, &window));
    COMPARE_BYTES(fileBytes(path), moved);
    QVERIFY(moved.contains("<WorkingSpace x='3' y='4' w='640' h='480'/>"));
}

void tst_cfg_file::unknownTargetLabel()
{
    const auto model = goldenModel("<QUV_Config/>", tmp.filePath("t.CfgXML"));
    model->targetColumn = "Nobody & co";
    QVERIFY(cfgFileBytes(*model).contains("<Target type='C'>Nobody &amp; co</Target>\n"));
    model->targetColumn = "   ";
    QVERIFY(cfgFileBytes(*model).contains("<Target type='C'></Target>\n"));
}

// Texts and letters that the engine's files hold plainly are escaped all
// the same where they hold a quote, '<' or '&', or a byte that is no
// character alone: written as they stand they made a file that no reader
// takes (found by fuzzing the load).
void tst_cfg_file::textsThatNeedEscapingReadBack()
{
    const QString path = tmp.filePath("escape.CfgXML");
    QFile::copy(dataDir + "/golden.DescXML", tmp.filePath("golden.DescXML"));
    const auto model = goldenModel("<QUV_Config/>", path);
    model->version = "3'2 <beta> & co";
    model->Weight = "R&D";
    model->Treatment = "a<b";
    model->PartioningModel = "x > 1 & y";
    model->targetType = '\xC8'; // a lone byte of a character that a file began
    model->monoto[0] = '\'';
    QVERIFY(saveCfgFile(*model, nullptr));
    const QByteArray bytes = fileBytes(path);
    QVERIFY(bytes.contains("version='3&apos;2 &lt;beta&gt; &amp; co'"));
    QVERIFY(bytes.contains(" <Weight>R&amp;D</Weight>\n"));
    QVERIFY(bytes.contains("<Target type='&#200;'>"));
    QVERIFY(bytes.contains(" monoto='&apos;'"));
    const CfgLoad again = loadCfgFile(path, true, nullptr, QString());
    QVERIFY(again.model);
    QCOMPARE(again.model->version, model->version);
    QCOMPARE(again.model->Weight, model->Weight);
    QCOMPARE(again.model->Treatment, model->Treatment);
    QCOMPARE(again.model->PartioningModel, model->PartioningModel);
    QCOMPARE(again.model->targetType, model->targetType);
    QCOMPARE(again.model->monoto[0], model->monoto[0]);
    QCOMPARE(cfgFileBytes(*again.model), bytes);
}

// Weight and Treatment hold labels in memory and names on disk. A name the
// description no longer knows is kept as it stands, silently, so that a
// stale file goes through a load and a save unchanged.
void tst_cfg_file::staleNamesSurviveLoadAndSave_data()
{
    QTest::addColumn<QByteArray>("weight");
    QTest::addColumn<QByteArray>("treatment");
    QTest::addColumn<QString>("weightLabel");
    QTest::addColumn<QString>("treatmentLabel");

    QTest::newRow("both unknown") << QByteArray("stale_weight") << QByteArray("old_treatment")
                                  << "stale_weight" << "old_treatment";
    QTest::newRow("unknown weight, known treatment")
        << QByteArray("stale_weight") << QByteArray("has_phone") << "stale_weight"
        << "Has phone";
    QTest::newRow("known weight") << QByteArray("income") << QByteArray() << "Monthly income"
                                  << QString();
}

void tst_cfg_file::staleNamesSurviveLoadAndSave()
{
    QFETCH(QByteArray, weight);
    QFETCH(QByteArray, treatment);
    QFETCH(QString, weightLabel);
    QFETCH(QString, treatmentLabel);
    const QString dir = fixtureDir("stale_" + QString::fromLatin1(QTest::currentDataTag()));
    const QString path = dir + "/stale.CfgXML";
    QByteArray text = fileBytes(dataDir + "/defaults.CfgXML");
    QByteArray tail = "</Target>\n <Weight>" + weight + "</Weight>\n";
    if (!treatment.isEmpty())
        tail += " <Treatment>" + treatment + "</Treatment>\n";
    QCOMPARE(text.count("</Target>\n"), 1);
    text.replace("</Target>\n", tail);
    QVERIFY(writeFile(path, text));

    std::unique_ptr<CfgModel> model(loadCfgFile(path, true, nullptr, QString()).model.release());
    QVERIFY(model);
    QCOMPARE(model->Weight, weightLabel);
    QCOMPARE(model->Treatment, treatmentLabel);
    QVERIFY2(recorder.messages.isEmpty(), qPrintable(recorder.messages.join('\n')));
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(path), text);
    QVERIFY2(recorder.messages.isEmpty(), qPrintable(recorder.messages.join('\n')));
}

void tst_cfg_file::lineSelectionOtherLetter()
{
    const auto model = goldenModel("<QUV_Config/>", tmp.filePath("t.CfgXML"));
    model->lineSelectionType = 'X';
    model->lineSelectionSegmentFile = "seg";
    QVERIFY(cfgFileBytes(*model).contains("\n<LineSelected type='S' segment=''>seg</LineSelected>\n"));
    model->lineSelectionSegmentFile = " ";
    QVERIFY(!cfgFileBytes(*model).contains("lineSelection"));
    model->lineSelectionType = 'F';
    model->lineSelectionSegmentFile = "seg";
    QVERIFY(!cfgFileBytes(*model).contains("LineSelected"));
}

void tst_cfg_file::saveKeepsRelativeDescription()
{
    // A relative DescriptionFile is read from the configuration's folder and
    // written back as it was.
    const QString dir = fixtureDir("relative");
    QDir().mkpath(dir + "/sub");
    QVERIFY(QFile::rename(dir + "/golden.DescXML", dir + "/sub/golden.DescXML"));
    QByteArray text = fileBytes(dataDir + "/defaults.CfgXML");
    text.replace("  golden.DescXML\n", "  sub/golden.DescXML\n");
    QVERIFY(writeFile(dir + "/r.CfgXML", text));

    const std::unique_ptr<CfgModel> model(
        loadCfgFile(dir + "/r.CfgXML", true, nullptr, QString()).model.release());
    QVERIFY(model);
    QCOMPARE(model->desc->fileName, QStringLiteral("sub/golden.DescXML"));
    QCOMPARE(descFilePath(*model), dir + "/sub/golden.DescXML");
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(dir + "/r.CfgXML"), text);
}

void tst_cfg_file::saveWatchesAndStamps()
{
    const QString dir = fixtureDir("watch");
    QVERIFY(QFile::copy(dataDir + "/defaults.CfgXML", dir + "/w.CfgXML"));
    const std::unique_ptr<CfgModel> model(
        loadCfgFile(dir + "/w.CfgXML", true, nullptr, QString()).model.release());
    QVERIFY(model);
    QVERIFY(saveCfgFile(*model, nullptr));
    QStringList watched = model->watcher.files();
    watched.sort();
    QCOMPARE(watched, (QStringList{dir + "/golden.DescXML", dir + "/w.CfgXML"}));
    QCOMPARE(model->cfgLastModified, QFileInfo(dir + "/w.CfgXML").lastModified());
    QCOMPARE(model->descLastModified, QFileInfo(dir + "/golden.DescXML").lastModified());
    QVERIFY(model->cfgLastModified.isValid());
    // No temporary file is left beside the target.
    QCOMPARE(QDir(dir).entryList(QDir::Files).size(), 2);

    model->cfgFileName = dir + "/missing/w.CfgXML";
    QVERIFY(!saveCfgFile(*model, nullptr));
    QVERIFY(model->watcher.files().isEmpty());
}

void tst_cfg_file::saveFailure_data()
{
    QTest::addColumn<QString>("target");

    QTest::newRow("missing folder") << QStringLiteral("missing/deeper/x.CfgXML");
    QTest::newRow("no name") << QString();
    // Nobody may create files at the top of /proc, not even root.
    QTest::newRow("read-only folder") << QStringLiteral("/proc/quva-test.CfgXML");
    QTest::newRow("folder as target") << QStringLiteral(".");
}

void tst_cfg_file::saveFailure()
{
    QFETCH(QString, target);
    const QString path = target.isEmpty() || target.startsWith('/') ? target : tmp.filePath(target);
    const auto model = goldenModel("<QUV_Config/>", path);
    QVERIFY(!saveCfgFile(*model, nullptr));
    QVERIFY(path.isEmpty() || !QFileInfo(path).isFile());
    QVERIFY(recorder.messages.isEmpty());
}

void tst_cfg_file::saveFailureKeepsExistingFile()
{
    // A write that fails half-way (here: a file size limit, as a full disk
    // would) leaves the file that was there before untouched.
    const QString dir = tmp.filePath("full");
    QDir().mkpath(dir);
    const QString path = dir + "/keep.CfgXML";
    const QByteArray before = "previous contents";
    QVERIFY(writeFile(path, before));

    const auto model = goldenModel("<QUV_Config/>", path);
    rlimit old;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = 100;
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool saved = saveCfgFile(*model, nullptr);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    QVERIFY(!saved);
    QCOMPARE(fileBytes(path), before);
    QCOMPARE(QDir(dir).entryList(QDir::Files), QStringList{"keep.CfgXML"});
}

void tst_cfg_file::saveOntoImmutableFolder()
{
    // A folder that refuses new entries, whoever asks: write permission is
    // taken away, and where that does not bind (root), the folder is made
    // immutable.
    const QString dir = tmp.filePath("readonly");
    QDir().mkpath(dir);
    const QString path = dir + "/kept.CfgXML";
    const QByteArray before = "previous contents";
    QVERIFY(writeFile(path, before));

    QVERIFY(QFile::setPermissions(dir, QFile::ReadOwner | QFile::ExeOwner));
    int fd = -1;
    int flags = 0;
    if (geteuid() == 0) {
        fd = ::open(QFile::encodeName(dir).constData(), O_RDONLY | O_DIRECTORY);
        QVERIFY(fd >= 0);
        if (ioctl(fd, FS_IOC_GETFLAGS, &flags) != 0) {
            ::close(fd);
            QSKIP("the file system keeps no immutable flag");
        }
        int immutable = flags | FS_IMMUTABLE_FL;
        if (ioctl(fd, FS_IOC_SETFLAGS, &immutable) != 0) {
            ::close(fd);
            QSKIP("running as root without the right to make a folder immutable");
        }
    }
    const auto model = goldenModel("<QUV_Config/>", path);
    const bool saved = saveCfgFile(*model, nullptr);
    if (fd >= 0) {
        ioctl(fd, FS_IOC_SETFLAGS, &flags);
        ::close(fd);
    }
    QFile::setPermissions(dir, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    QVERIFY(!saved);
    QCOMPARE(fileBytes(path), before);
}

void tst_cfg_file::loadCfgErrors_data()
{
    QTest::addColumn<QString>("file");      // name inside the fixture folder; "" for no path
    QTest::addColumn<QByteArray>("content"); // written first unless null
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("why");        // the line behind the message; %1 the folder

    const QString notLoaded = QStringLiteral("Error: Cfg file not loaded");
    const QString noDescription =
        "File '%1/%2' names no description: its DescriptionFile element is missing or empty.";
    QTest::newRow("no path") << QString() << QByteArray() << "Error: null Cfg file?" << QString();
    QTest::newRow("missing file") << "absent.CfgXML" << QByteArray() << notLoaded
                                  << "File '%1/absent.CfgXML' does not exist.";
    QTest::newRow("zero bytes") << "empty.CfgXML" << QByteArray("") << notLoaded
                                << "File '%1/empty.CfgXML' is empty.";
    QTest::newRow("no DescriptionFile") << "nodesc.CfgXML" << QByteArray("<QUV_Config/>")
                                        << notLoaded << noDescription.arg("%1", "nodesc.CfgXML");
    QTest::newRow("empty DescriptionFile")
        << "emptydesc.CfgXML" << QByteArray("<QUV_Config><DescriptionFile/></QUV_Config>")
        << notLoaded << noDescription.arg("%1", "emptydesc.CfgXML");
    QTest::newRow("syntax error") << "broken.CfgXML"
                                  << QByteArray("<QUV_Config <DescriptionFile>golden.DescXML"
                                                "</DescriptionFile></QUV_Config>")
                                  << notLoaded
                                  << "File '%1/broken.CfgXML' is not XML that can be read: error "
                                     "at line 1, column 14.";
    QTest::newRow("other root") << "other.CfgXML"
                                << QByteArray("<Other><DescriptionFile>golden.DescXML"
                                              "</DescriptionFile></Other>")
                                << notLoaded << "File '%1/other.CfgXML' has no element QUV_Config.";
    QTest::newRow("description missing")
        << "nodescfile.CfgXML"
        << QByteArray("<QUV_Config><DescriptionFile>gone.DescXML</DescriptionFile></QUV_Config>")
        << "error: Empty Description file'%1/gone.DescXML'?"
        << "File '%1/gone.DescXML' does not exist.";
    QTest::newRow("description without columns")
        << "nocols.CfgXML"
        << QByteArray("<QUV_Config><DescriptionFile>nocols.DescXML</DescriptionFile>"
                      "</QUV_Config>")
        << "error in Description file'%1/nocols.DescXML'" << QString();
}

void tst_cfg_file::loadCfgErrors()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QFETCH(QString, why);

    const QString dir = fixtureDir("loaderrors");
    QVERIFY(writeFile(dir + "/nocols.DescXML", "<DESCRIPTION><QUV_Config/></DESCRIPTION>"));
    const QString path = file.isEmpty() ? QString() : dir + "/" + file;
    if (!content.isNull())
        QVERIFY(writeFile(path, content));

    for (bool showErrors : {true, false}) {
        recorder = RecordingReporter();
        // The description keeps the path as the configuration names it.
        if (message.startsWith("error in"))
            QTest::ignoreMessage(QtDebugMsg, "No COLS tag in nocols.DescXML");
        const CfgModel *model = loadCfgFile(path, showErrors, nullptr, QString()).model.release();
        QCOMPARE(model, nullptr);
        if (showErrors) {
            QString text = message.contains("%1") ? message.arg(dir) : message;
            if (!why.isEmpty())
                text += '\n' + why.arg(dir);
            QCOMPARE(recorder.messages, QStringList{".CfgXML error: " + text});
            QCOMPARE(recorder.busyAtMessage, 0);
        } else {
            QVERIFY(recorder.messages.isEmpty());
        }
        QCOMPARE(recorder.busy, 0);
        QVERIFY(recorder.busyCalls >= 2);
    }
}

void tst_cfg_file::loadOddFiles_data()
{
    QTest::addColumn<QString>("configuration"); // what the configuration is
    QTest::addColumn<QString>("description");   // what the description it names is
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("why");

    const QString notLoaded = QStringLiteral("Error: Cfg file not loaded");
    const QString emptyDescription = QStringLiteral("error: Empty Description file'%1/odd.DescXML'?");
    for (bool asDescription : {false, true}) {
        const QString path = asDescription ? QStringLiteral("odd.DescXML") : QStringLiteral("odd.CfgXML");
        const auto row = [&](const char *what, const QString &sentence) {
            const QString name = QLatin1String(asDescription ? "description " : "configuration ") + what;
            QTest::newRow(qPrintable(name))
                << (asDescription ? QStringLiteral("good") : QString::fromLatin1(what))
                << (asDescription ? QString::fromLatin1(what) : QStringLiteral("good"))
                << (asDescription ? emptyDescription : notLoaded)
                << "File '%1/" + path + "' " + sentence;
        };
        row("folder", "is a folder, not a file.");
        row("fifo", "is a FIFO (named pipe), not a regular file.");
        row("device", "is a character device, not a regular file.");
        row("huge", "is larger than 128 MiB, the most that is read of a file.");
        row("random", "is not XML that can be read: error at line 1, column 10.");
        row("empty", "is empty.");
    }
}

// A configuration, or the description it names, that is a folder, a FIFO
// that nobody writes, a device, 200 MB, random bytes or nothing: the load
// tells why at once, and opens the file no more than once (a FIFO opened a
// second time would not come back).
void tst_cfg_file::loadOddFiles()
{
    QFETCH(QString, configuration);
    QFETCH(QString, description);
    QFETCH(QString, message);
    QFETCH(QString, why);

    QTemporaryDir tmpDir;
    const QString dir = tmpDir.path();
    const auto make = [&](const QString &what, const QString &path) {
        if (what == "good")
            return path.endsWith(".DescXML") ? QFile::copy(dataDir + "/golden.DescXML", path)
                                             : writeFile(path, "<QUV_Config><DescriptionFile>odd."
                                                               "DescXML</DescriptionFile></QUV_Config>");
        if (what == "folder")
            return QDir().mkdir(path);
        if (what == "fifo")
            return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
        if (what == "device")
            return QFile::link(QStringLiteral("/dev/zero"), path);
        if (what == "huge") {
            QFile f(path);
            return f.open(QIODevice::WriteOnly) && f.resize(qint64(200) << 20);
        }
        if (what == "random")
            return writeFile(path, QByteArray("\x8f<\x01>&q\xfe\x00 x").repeated(500));
        return writeFile(path, QByteArray());
    };
    QVERIFY(make(configuration, dir + "/odd.CfgXML"));
    QVERIFY(make(description, dir + "/odd.DescXML"));

    QElapsedTimer clock;
    clock.start();
    const CfgLoad load = loadCfgFile(dir + "/odd.CfgXML", true, nullptr, QString());
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(!load.model);
    QCOMPARE(recorder.messages,
             QStringList{".CfgXML error: " + message.arg(dir) + '\n' + why.arg(dir)});
}

void tst_cfg_file::loadCfgWithoutSuffix()
{
    const QString dir = fixtureDir("suffix");
    QVERIFY(QFile::copy(dataDir + "/vars.CfgXML", dir + "/plain.CfgXML"));
    const std::unique_ptr<CfgModel> model(
        loadCfgFile(dir + "/plain", true, nullptr, QString()).model.release());
    QVERIFY(model);
    QCOMPARE(model->cfgFileName, dir + "/plain.CfgXML");
    QCOMPARE(model->fi[0], 'I');
    QCOMPARE(recorder.busy, 0);

    // The suffix test is case-sensitive: a lower-case one gets another added.
    QVERIFY(QFile::copy(dataDir + "/vars.CfgXML", dir + "/low.cfgxml"));
    QVERIFY(!loadCfgFile(dir + "/low.cfgxml", false, nullptr, QString()).model);

    // A relative path is made absolute.
    const QString old = QDir::currentPath();
    QDir::setCurrent(dir);
    const std::unique_ptr<CfgModel> relative(
        loadCfgFile("plain.CfgXML", true, nullptr, QString()).model.release());
    QDir::setCurrent(old);
    QVERIFY(relative);
    QCOMPARE(relative->cfgFileName, dir + "/plain.CfgXML");
}

void tst_cfg_file::loadCfgAsksOtherWindows()
{
    const QString dir = fixtureDir("ask");
    const QString path = dir + "/a.CfgXML";
    QVERIFY(QFile::copy(dataDir + "/defaults.CfgXML", path));

    query.answer = 1;
    CfgLoad kept = loadCfgFile(path, true, query.check(), QString());
    QVERIFY(!kept.model);
    QVERIFY(!kept.endProcess);
    QVERIFY(!kept.place);
    QCOMPARE(query.asked, QStringList{path});
    QVERIFY(recorder.messages.isEmpty());
    QCOMPARE(recorder.busy, 0);

    // The file this window holds needs no asking, nor a load that is told not to ask.
    query.asked.clear();
    std::unique_ptr<CfgModel> model = loadCfgFile(path, true, query.check(), path).model;
    QVERIFY(model);
    model = loadCfgFile(path, true, nullptr, QString()).model;
    QVERIFY(model);
    QVERIFY(query.asked.isEmpty());

    query.answer = 0;
    model = loadCfgFile(path, true, query.check(), dir + "/other.CfgXML").model;
    QVERIFY(model);
    QCOMPARE(query.asked.size(), 1);
}

void tst_cfg_file::loadCfgAnswerTwoEndsProcess()
{
    // The other window took the file over: the window is told to end this
    // process, and nothing is read.
    const QString dir = fixtureDir("answer2");
    const QString path = dir + "/a.CfgXML";
    QVERIFY(QFile::copy(dataDir + "/working_space.CfgXML", path));
    query.answer = 2;
    const CfgLoad load = loadCfgFile(path, true, query.check(), QString());
    QVERIFY(load.endProcess);
    QVERIFY(!load.model);
    QVERIFY(!load.place);
    QVERIFY(recorder.messages.isEmpty());
    QCOMPARE(recorder.busy, 0);
}

void tst_cfg_file::loadCfgPlacesWindow()
{
    const QString dir = fixtureDir("place");
    QVERIFY(QFile::copy(dataDir + "/working_space.CfgXML", dir + "/p.CfgXML"));
    const CfgLoad load = loadCfgFile(dir + "/p.CfgXML", true, nullptr, QString());
    QVERIFY(load.model);
    QCOMPARE(placeCalls(load.place), (QStringList{"resize 800x600", "move 10,20"}));

    // The window is placed even when the description then fails.
    QByteArray text = fileBytes(dir + "/p.CfgXML");
    text.replace("golden.DescXML", "gone.DescXML");
    QVERIFY(writeFile(dir + "/q.CfgXML", text));
    const CfgLoad failed = loadCfgFile(dir + "/q.CfgXML", false, nullptr, QString());
    QVERIFY(!failed.model);
    QCOMPARE(placeCalls(failed.place), (QStringList{"resize 800x600", "move 10,20"}));

    // A configuration that cannot be read has no place to give.
    QVERIFY(!loadCfgFile(dir + "/none.CfgXML", false, nullptr, QString()).place);
}

void tst_cfg_file::workingSpaceOf_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QStringList>("calls");

    QTest::newRow("absent") << QByteArray() << QStringList{"resize 500x400", "move 200,200"};
    QTest::newRow("defaults per attribute")
        << QByteArray("<WorkingSpace x='30'/>") << QStringList{"resize 500x400", "move 30,200"};
    QTest::newRow("all given") << QByteArray("<WorkingSpace x='5000' y='-7' w='300' h='250'/>")
                               << QStringList{"resize 300x250", "move 5000,-7"};
    QTest::newRow("no number") << QByteArray("<WorkingSpace x='abc' y='' w='12px'/>")
                               << QStringList{"resize 12x400", "move 0,200"};
}

void tst_cfg_file::workingSpaceOf()
{
    QFETCH(QByteArray, element);
    QFETCH(QStringList, calls);
    const XmlNode root =
        parseXmlText(("<QUV_Config>" + element + "</QUV_Config>").constData(), "QUV_Config",
                     nullptr);
    QCOMPARE(placeCalls(::workingSpaceOf(root)), calls);
    QCOMPARE(placeCalls(::workingSpaceOf(XmlNode())),
             (QStringList{"resize 500x400", "move 200,200"}));
}

void tst_cfg_file::loadDescErrors_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");

    QTest::newRow("no path") << QString() << "Error: null description file?";
    QTest::newRow("missing") << "nowhere/x.DescXML" << "Error: description file not found";
    QTest::newRow("suffix in another case") << "golden.descxml"
                                            << "Error: description file not found";
}

void tst_cfg_file::loadDescErrors()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    const QString dir = fixtureDir("descerrors");
    QFile::remove(dir + "/golden.descxml");
    QVERIFY(QFile::copy(dataDir + "/golden.DescXML", dir + "/golden.descxml"));
    const QString full = path.isEmpty() ? path : dir + "/" + path;
    QVERIFY(!loadDescFile(full, true, nullptr, QString()).model);
    QCOMPARE(recorder.messages, QStringList{".CfgXML error: " + message});
    QCOMPARE(recorder.busyAtMessage, 0);
    QCOMPARE(recorder.busy, 0);
    recorder.messages.clear();
    QVERIFY(!loadDescFile(full, false, nullptr, QString()).model);
    QVERIFY(recorder.messages.isEmpty());
}

void tst_cfg_file::loadDescSibling()
{
    const QString base = tmp.filePath("sibling");
    QDir().mkpath(base + "/data");
    const QString descPath = base + "/data/a.b.DescXML";
    QVERIFY(QFile::copy(dataDir + "/golden.DescXML", descPath));
    // Beside the description: not the file that is looked for.
    QByteArray beside = fileBytes(dataDir + "/defaults.CfgXML");
    beside.replace("nTestSet='6'", "nTestSet='11'");
    QVERIFY(writeFile(base + "/data/a.b.CfgXML", beside));

    CfgLoad load = loadDescFile(base + "/data/a.b", true, query.check(), QString());
    std::unique_ptr<CfgModel> model = std::move(load.model);
    QVERIFY(model);
    QVERIFY(model->cfgFileName.isEmpty());
    QCOMPARE(model->desc->fileName, descPath);
    QCOMPARE(model->nTestSet, 6); // the description's default configuration
    QCOMPARE(model->desc->columnCount(), 12);
    QVERIFY(query.asked.isEmpty());
    QCOMPARE(placeCalls(load.place), (QStringList{"resize 500x400", "move 200,200"}));

    // The folder and the name run together: /data + a.b.CfgXML.
    QByteArray sibling = fileBytes(dataDir + "/working_space.CfgXML");
    sibling.replace("nTestSet='6'", "nTestSet='9'");
    QVERIFY(writeFile(base + "/dataa.b.CfgXML", sibling));
    load = loadDescFile(descPath, true, query.check(), QString());
    model = std::move(load.model);
    QVERIFY(model);
    QCOMPARE(model->cfgFileName, base + "/dataa.b.CfgXML");
    QCOMPARE(model->nTestSet, 9);
    QCOMPARE(model->desc->fileName, descPath);
    QCOMPARE(query.asked, QStringList{base + "/dataa.b.CfgXML"});
    QCOMPARE(placeCalls(load.place), (QStringList{"resize 800x600", "move 10,20"}));
    QCOMPARE(recorder.busy, 0);
    QVERIFY(recorder.messages.isEmpty());
}

void tst_cfg_file::loadDescSiblingHeldElsewhere()
{
    const QString base = tmp.filePath("held");
    QDir().mkpath(base + "/d");
    QVERIFY(QFile::copy(dataDir + "/golden.DescXML", base + "/d/x.DescXML"));
    QVERIFY(QFile::copy(dataDir + "/defaults.CfgXML", base + "/dx.CfgXML"));
    for (int answer : {1, 2}) {
        query.answer = answer;
        QVERIFY(!loadDescFile(base + "/d/x.DescXML", true, query.check(), QString()).model);
    }
    QCOMPARE(query.asked.size(), 2);
    QVERIFY(recorder.messages.isEmpty());
    QCOMPARE(recorder.busy, 0);

    // The sibling this window holds already is not asked about.
    const std::unique_ptr<CfgModel> model =
        loadDescFile(base + "/d/x.DescXML", true, query.check(), base + "/dx.CfgXML").model;
    QVERIFY(model);
    QCOMPARE(query.asked.size(), 2);
}

void tst_cfg_file::buildModelsErrors_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QString>("message");

    QTest::newRow("not a description")
        << QByteArray("<OTHER/>")
        << "error: Empty Description file'%1'?\nFile '%1' has no element DESCRIPTION.";
    QTest::newRow("no columns") << QByteArray("<DESCRIPTION><QUV_Config/><COLS/></DESCRIPTION>")
                                << "error in Description file'%1'";
}

void tst_cfg_file::buildModelsErrors()
{
    QFETCH(QByteArray, description);
    QFETCH(QString, message);
    const QString path = tmp.filePath("build.DescXML");
    QVERIFY(writeFile(path, description));
    if (message.startsWith("error in")) {
        QTest::ignoreMessage(QtDebugMsg, "No VALUE tag in subtag <VALUE>");
        QTest::ignoreMessage(QtDebugMsg, "No NOMINAL tag in subtag <VALUE>");
        QTest::ignoreMessage(QtDebugMsg, "No BINARY tag in subtag <VALUE>");
    }
    QCOMPARE(buildModels(XmlNode(), QString(), path, true), nullptr);
    QCOMPARE(recorder.messages, QStringList{".CfgXML error: " + message.arg(path)});
    QCOMPARE(recorder.busyAtMessage, 0);
    QCOMPARE(recorder.busy, 0);
}

void tst_cfg_file::buildModelsDefaultConfiguration()
{
    const QString path = dataDir + "/golden.DescXML";
    std::unique_ptr<CfgModel> model(buildModels(XmlNode(), QString(), path, true));
    QVERIFY(model);
    QCOMPARE(model->version, QStringLiteral("3.2"));
    QCOMPARE(model->desc->fileName, path);
    QVERIFY(model->cfgFileName.isEmpty());

    // A configuration of its own wins over the description's default.
    const XmlNode own = parseXmlText("<QUV_Config nTestSet='3'/>", "QUV_Config", nullptr);
    model.reset(buildModels(own, "/x/y.CfgXML", path, true));
    QVERIFY(model);
    QCOMPARE(model->nTestSet, 3);
    QCOMPARE(model->version, QString());
    QCOMPARE(model->cfgFileName, QStringLiteral("/x/y.CfgXML"));
    QCOMPARE(recorder.busy, 0);
}

void tst_cfg_file::examplesRoundTrip()
{
    const QString source = QStringLiteral(QUVA_SOURCE_DIR "/examples");
    const QString dir = tmp.filePath("examples");
    QDir().mkpath(dir);
    for (const char *name : {"credit.DescXML", "credit.CfgXML"})
        QVERIFY(QFile::copy(source + "/" + name, dir + "/" + name));

    std::unique_ptr<CfgModel> model(
        loadCfgFile(dir + "/credit.CfgXML", true, nullptr, QString()).model.release());
    QVERIFY(model);
    QVERIFY(model->desc->varCount() >= 12);
    QVERIFY(model->hasTarget());
    QVERIFY(!model->lineSelectionVars.isEmpty());
    QVERIFY(saveCfgFile(*model, nullptr));
    COMPARE_BYTES(fileBytes(dir + "/credit.CfgXML"), fileBytes(source + "/credit.CfgXML"));
    QVERIFY(recorder.messages.isEmpty());

    model.reset(loadDescFile(dir + "/credit.DescXML", true, nullptr, QString()).model.release());
    QVERIFY(model);
    QVERIFY(model->cfgFileName.isEmpty());
    QCOMPARE(model->datasource, model->desc->datasource);
}

QTEST_GUILESS_MAIN(tst_cfg_file)
#include "tst_cfg_file.moc"
