#include "core/cfg_model.h"

#include "xml/xml_node.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QString dataDir = QStringLiteral(QUVA_TEST_DATA "/core");

DescModel *goldenDescription()
{
    const XmlNode root = readXmlFile(dataDir + "/golden.DescXML", "DESCRIPTION");
    return new DescModel(QStringLiteral("golden.DescXML"), root);
}

std::unique_ptr<CfgModel> modelOf(const QByteArray &cfgText)
{
    const XmlNode root = parseXmlText(cfgText.constData(), "QUV_Config", nullptr);
    return std::make_unique<CfgModel>(goldenDescription(), QStringLiteral("/tmp/x.CfgXML"), root);
}

} // namespace

class tst_cfg_model : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void columnBlock();
    void rootAttributes_data();
    void rootAttributes();
    void textAttributes();
    void aucMax_data();
    void aucMax();
    void weightAndTreatment_data();
    void weightAndTreatment();
    void partitioningTrimmed();
    void workingSpace_data();
    void workingSpace();
    void datasource();
    void target_data();
    void target();
    void targetExpression();
    void lineSelection_data();
    void lineSelection();
    void lineSelectionExpression();
    void vars();
    void varsTurnsPerChild_data();
    void varsTurnsPerChild();
    void activeValuesOfFi_data();
    void activeValuesOfFi();
    void olderLayout();
    void olderLayoutIgnoredWithVars();
    void hasTarget_data();
    void hasTarget();
    void watchFiles();
    void renameKeepsDescription_data();
    void renameKeepsDescription();
};

void tst_cfg_model::defaults()
{
    const auto model = modelOf("<QUV_Config/>");
    QCOMPARE(model->targetType, 'C');
    QCOMPARE(model->lineSelectionType, 'E');
    QCOMPARE(model->allowedAUCLoss, 0.02);
    QCOMPARE(model->minSizeModalityForNominalVar, QStringLiteral("10.0"));
    QCOMPARE(model->minSizeModalityForOrderedVar, QStringLiteral("10.0"));
    QCOMPARE(model->lowerBoundCorrelationReport, 0.85);
    QCOMPARE(model->AUCmax, 85.0);
    QCOMPARE(model->quantileRegression, 0.5);
    QCOMPARE(model->p1, 0.2);
    QCOMPARE(model->p2, 0.45);
    QCOMPARE(model->zTestModalities, 2.5);
    QCOMPARE(model->purifyTarget, -1.0);
    QCOMPARE(model->cpuCount, 1);
    QCOMPARE(model->stopComputationAfterXHours, 5.0);
    QCOMPARE(model->nBagging, 1);
    QCOMPARE(model->bootstrapRepeat, 4000);
    QCOMPARE(model->nMaxValSet, 5);
    QCOMPARE(model->nMaxVar, 30);
    QCOMPARE(model->nTestSet, 6);
    QCOMPARE(model->nValSet, 5);
    QCOMPARE(model->randomSeed, 0);
    QCOMPARE(model->hotstart, 0);
    QCOMPARE(model->predictionFile, 0);
    QCOMPARE(model->confidenceInterval, 0);
    QCOMPARE(model->useAUCToOptimizePenalization, 0);
    QCOMPARE(model->deNormalize, 0);
    QCOMPARE(model->lambda, -1.0);
    QCOMPARE(model->alpha, 1.0);
    QCOMPARE(model->pruning, 1);
    QCOMPARE(model->thirdOptim, 0);
    QCOMPARE(model->graphicHeader, QString());
    QCOMPARE(model->cfgFileName, QStringLiteral("/tmp/x.CfgXML"));
    QCOMPARE(model->PartioningModel, QString());
    QCOMPARE(model->version, QString());
    QCOMPARE(model->Weight, QString());
    QCOMPARE(model->Treatment, QString());
    QCOMPARE(model->penalityForProfile, 1.0);
    QCOMPARE(model->penalityForTreatment, 1.0);
    QVERIFY(model->lineSelectionSegmentFile.isEmpty());
    QVERIFY(model->lineSelectionFile.isEmpty());
    QVERIFY(model->lineSelectionExpression.isEmpty());
    QVERIFY(model->segmentNames.isEmpty());
    QVERIFY(model->segmentActive.isEmpty());
    QCOMPARE(model->lsAddN, false);
    QCOMPARE(model->lsTruncate, false);
    QCOMPARE(model->targetAddN, false);
    QVERIFY(model->targetColumn.isEmpty());
    QVERIFY(model->targetFile.isEmpty());
    QVERIFY(model->targetExpression.isEmpty());
    QCOMPARE(model->maxMemoryDS, 500);
    QCOMPARE(model->maxTargetDensity, 0.4);
    QCOMPARE(model->maxTestDSSize, 0.5);
    QVERIFY(model->lineSelectionVars.isEmpty());
    QVERIFY(model->targetVars.isEmpty());
    QVERIFY(model->watcher.files().isEmpty());
    QVERIFY(!model->cfgLastModified.isValid());
    QVERIFY(!model->descLastModified.isValid());
    QCOMPARE(model->workingSpaceX, 0);
    QCOMPARE(model->workingSpaceY, 0);
    QCOMPARE(model->workingSpaceW, -1);
    QCOMPARE(model->workingSpaceH, -1);

    // Without Vars and without the older elements, every array keeps its default.
    QCOMPARE(model->columnCount(), 12);
    for (int i = 0; i < model->columnCount(); ++i) {
        QCOMPARE(model->minSizeModality[i], -1.0);
        QCOMPARE(model->penality[i], 1.0);
        QCOMPARE(int(model->illus[i]), 0);
        QCOMPARE(int(model->cm[i]), 0);
        QCOMPARE(model->fi[i], model->desc->columnAt(i)->derived);
        QCOMPARE(model->monoto[i], 'N');
    }
    QCOMPARE(int(model->fi[0]), 0);
    QCOMPARE(int(model->fi[1]), 1);
}

void tst_cfg_model::columnBlock()
{
    const auto model = modelOf("<QUV_Config/>");
    const int n = model->columnCount();
    const char *start = reinterpret_cast<const char *>(model->minSizeModality);
    QCOMPARE(reinterpret_cast<const char *>(model->penality), start + 8 * n);
    QCOMPARE(model->fi, start + 16 * n);
    QCOMPARE(reinterpret_cast<const char *>(model->illus), start + 17 * n);
    QCOMPARE(model->monoto, start + 18 * n);
    QCOMPARE(reinterpret_cast<const char *>(model->cm), start + 19 * n);
}

void tst_cfg_model::rootAttributes_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<int>("expectedInt");
    QTest::addColumn<double>("expectedDouble");

    QTest::newRow("nTestSet") << QByteArray("nTestSet='9'") << 9 << 0.0;
    QTest::newRow("empty gives default") << QByteArray("nTestSet=''") << 6 << 0.0;
    QTest::newRow("no number reads 0") << QByteArray("nTestSet='abc'") << 0 << 0.0;
    QTest::newRow("number with letters") << QByteArray("nTestSet='12abc'") << 12 << 0.0;
    QTest::newRow("lambda nine digits") << QByteArray("lambda='123456789'") << 0 << 123456789.0;
    QTest::newRow("lambda three exponent digits") << QByteArray("lambda='1.23457e+008'") << 0
                                                  << 123457000.0;
    QTest::newRow("lambda empty") << QByteArray("lambda=''") << 0 << -1.0;
    QTest::newRow("lambda garbage") << QByteArray("lambda='x'") << 0 << 0.0;
}

void tst_cfg_model::rootAttributes()
{
    QFETCH(QByteArray, attribute);
    QFETCH(int, expectedInt);
    QFETCH(double, expectedDouble);
    const auto model = modelOf("<QUV_Config " + attribute + "/>");
    if (attribute.startsWith("nTestSet"))
        QCOMPARE(model->nTestSet, expectedInt);
    else
        QCOMPARE(model->lambda, expectedDouble);
}

void tst_cfg_model::textAttributes()
{
    // An empty text attribute stays empty; only a missing one gives the default.
    auto model = modelOf("<QUV_Config version='' minSizeModalityForNominalVar=''"
                         " graphicHeader='A &amp; B'/>");
    QCOMPARE(model->version, QString());
    QCOMPARE(model->minSizeModalityForNominalVar, QString());
    QCOMPARE(model->minSizeModalityForOrderedVar, QStringLiteral("10.0"));
    QCOMPARE(model->graphicHeader, QStringLiteral("A & B"));

    model = modelOf("<QUV_Config version='7.3 (build 12)' minSizeModalityForOrderedVar='2%'/>");
    QCOMPARE(model->version, QStringLiteral("7.3 (build 12)"));
    QCOMPARE(model->minSizeModalityForOrderedVar, QStringLiteral("2%"));
}

void tst_cfg_model::aucMax_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<double>("percent");

    QTest::newRow("fraction") << QByteArray("AUCmax='0.85'") << 85.0;
    QTest::newRow("absent") << QByteArray() << 85.0;
    QTest::newRow("marker") << QByteArray("AUCmax='200'") << 20000.0;
    QTest::newRow("one") << QByteArray("AUCmax='1'") << 100.0;
}

void tst_cfg_model::aucMax()
{
    QFETCH(QByteArray, attribute);
    QFETCH(double, percent);
    const auto model = modelOf("<QUV_Config " + attribute + "/>");
    QCOMPARE(model->AUCmax, percent);
}

void tst_cfg_model::weightAndTreatment_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<QString>("treatment");

    QTest::newRow("names become labels")
        << QByteArray("<Weight> income </Weight><Treatment>has_phone</Treatment>")
        << "Monthly income" << "Has phone";
    // A name the description does not know stays as the file has it.
    QTest::newRow("unknown name stays")
        << QByteArray("<Weight>old_weight</Weight>") << "old_weight" << QString();
    QTest::newRow("absent") << QByteArray() << QString() << QString();
}

void tst_cfg_model::weightAndTreatment()
{
    QFETCH(QByteArray, element);
    QFETCH(QString, weight);
    QFETCH(QString, treatment);
    const auto model = modelOf("<QUV_Config>" + element + "</QUV_Config>");
    QCOMPARE(model->Weight, weight);
    QCOMPARE(model->Treatment, treatment);
}

void tst_cfg_model::partitioningTrimmed()
{
    const auto model = modelOf("<QUV_Config><PartioningModel>\n  age;purpose\n</PartioningModel>"
                               "</QUV_Config>");
    QCOMPARE(model->PartioningModel, QStringLiteral("age;purpose"));
}

void tst_cfg_model::workingSpace_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QVector<int>>("place");

    QTest::newRow("absent") << QByteArray() << QVector<int>{0, 0, -1, -1};
    QTest::newRow("empty element") << QByteArray("<WorkingSpace/>")
                                   << QVector<int>{200, 200, 500, 400};
    QTest::newRow("complete") << QByteArray("<WorkingSpace x='1' y='2' w='3' h='4'/>")
                              << QVector<int>{1, 2, 3, 4};
    QTest::newRow("partly") << QByteArray("<WorkingSpace y='0' h='700'/>")
                            << QVector<int>{200, 0, 500, 700};
}

void tst_cfg_model::workingSpace()
{
    QFETCH(QByteArray, element);
    QFETCH(QVector<int>, place);
    const auto model = modelOf("<QUV_Config>" + element + "</QUV_Config>");
    QCOMPARE((QVector<int>{model->workingSpaceX, model->workingSpaceY, model->workingSpaceW,
                           model->workingSpaceH}),
             place);
}

void tst_cfg_model::datasource()
{
    auto model = modelOf("<QUV_Config/>");
    QCOMPARE(model->datasource, model->desc->datasource);
    QVERIFY(!model->datasource.isEmpty());

    model = modelOf("<QUV_Config><datasource type='g'>  /data/x.gel </datasource></QUV_Config>");
    QCOMPARE(model->datasource,
             QStringLiteral("<datasource type=\"g\">/data/x.gel</datasource>\n"));
}

void tst_cfg_model::target_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<char>("type");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("file");

    QTest::newRow("absent") << QByteArray() << 'C' << QString() << QString();
    QTest::newRow("column by name") << QByteArray("<Target type='C'>default_flag</Target>") << 'C'
                                    << "Default" << QString();
    QTest::newRow("no type is a column") << QByteArray("<Target>age</Target>") << 'C' << "Age"
                                         << QString();
    QTest::newRow("unknown column stays") << QByteArray("<Target>nobody</Target>") << 'C'
                                          << "nobody" << QString();
    QTest::newRow("empty column") << QByteArray("<Target type='C'></Target>") << 'C' << QString()
                                  << QString();
    QTest::newRow("file, padded") << QByteArray("<Target type='F'>\n  /data/t.csv\n</Target>")
                                  << 'F' << QString() << "/data/t.csv";
    QTest::newRow("other letter") << QByteArray("<Target type='Z'>age</Target>") << 'Z' << "Age"
                                  << QString();
}

void tst_cfg_model::target()
{
    QFETCH(QByteArray, element);
    QFETCH(char, type);
    QFETCH(QString, column);
    QFETCH(QString, file);
    const auto model = modelOf("<QUV_Config>" + element + "</QUV_Config>");
    QCOMPARE(model->targetType, type);
    QCOMPARE(model->targetColumn, column);
    QCOMPARE(model->targetFile, file);
    QVERIFY(model->targetExpression.isEmpty());
    QVERIFY(model->targetVars.isEmpty());
}

void tst_cfg_model::targetExpression()
{
    const auto model = modelOf(
        "<QUV_Config><Target type='E'>\n  <vars>\n"
        "    <InputVar column='age' meta='V' value='30'/>\n"
        "    <InputVar column='purpose' label='p' isNumber='0' meta='N' value='car'/>\n"
        "  </vars>\n  <expression> age &gt; 30 </expression>\n</Target></QUV_Config>");
    QCOMPARE(model->targetType, 'E');
    QCOMPARE(model->targetExpression, QStringLiteral("age > 30"));
    QCOMPARE(model->targetVars.size(), 2);
    QCOMPARE(model->targetVars.at(0).column.value(0), QStringLiteral("age"));
    QCOMPARE(model->targetVars.at(0).isNumber, true);
    QCOMPARE(model->targetVars.at(0).value, 30.0);
    QCOMPARE(model->targetVars.at(1).label, QStringLiteral("p"));
    QCOMPARE(model->targetVars.at(1).stringValue, QStringLiteral("car"));
    QVERIFY(model->targetColumn.isEmpty());
}

void tst_cfg_model::lineSelection_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<char>("type");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("segmentFile");
    QTest::addColumn<QVector<bool>>("segments");

    QTest::newRow("absent") << QByteArray() << 'E' << QString() << QString() << QVector<bool>{};
    QTest::newRow("file") << QByteArray("<LineSelected type='F'> /d/sel.txt </LineSelected>")
                          << 'F' << "/d/sel.txt" << QString() << QVector<bool>{};
    QTest::newRow("segments") << QByteArray("<LineSelected type='S' segment='AXAa'>/m/s.SModelXML"
                                            "</LineSelected>")
                              << 'S' << QString() << "/m/s.SModelXML"
                              << QVector<bool>{true, false, true, false};
    QTest::newRow("other letter is a segment")
        << QByteArray("<LineSelected type='Q'>/m/s</LineSelected>") << 'Q' << QString() << "/m/s"
        << QVector<bool>{};
}

void tst_cfg_model::lineSelection()
{
    QFETCH(QByteArray, element);
    QFETCH(char, type);
    QFETCH(QString, file);
    QFETCH(QString, segmentFile);
    QFETCH(QVector<bool>, segments);
    const auto model = modelOf("<QUV_Config>" + element + "</QUV_Config>");
    QCOMPARE(model->lineSelectionType, type);
    QCOMPARE(model->lineSelectionFile, file);
    QCOMPARE(model->lineSelectionSegmentFile, segmentFile);
    QCOMPARE(model->segmentActive, segments);
}

void tst_cfg_model::lineSelectionExpression()
{
    const auto model = modelOf("<QUV_Config><LineSelected><vars><InputVar column='income' "
                               "meta='V' value='1e+006'/></vars><expression>income &lt; 5"
                               "</expression></LineSelected></QUV_Config>");
    QCOMPARE(model->lineSelectionType, 'E');
    QCOMPARE(model->lineSelectionExpression, QStringLiteral("income < 5"));
    QCOMPARE(model->lineSelectionVars.size(), 1);
    QCOMPARE(model->lineSelectionVars.at(0).value, 1e6);
}

void tst_cfg_model::vars()
{
    const auto model = modelOf(
        "<QUV_Config><Vars>"
        "<Var loc='0' fi='I' illus='1' monoto='D' minSizeModality='5' penality='2' cm='1'/>"
        "<Var loc='3' fi='F'/>"
        "<Var loc='4' illus='2' cm='abc' monoto='' fi=''/>"
        "<Var loc='99' fi='I'/>"
        "<Var fi='I'/>"
        "<Var loc='-1' fi='I'/>"
        "</Vars></QUV_Config>");
    QCOMPARE(model->fi[0], 'I');
    QCOMPARE(int(model->illus[0]), 1);
    QCOMPARE(model->monoto[0], 'D');
    QCOMPARE(model->minSizeModality[0], 5.0);
    QCOMPARE(model->penality[0], 2.0);
    QCOMPARE(int(model->cm[0]), 1);
    QCOMPARE(model->fi[3], 'F');
    QCOMPARE(int(model->illus[3]), 0);
    // Any non-zero low byte is set; what is no number is 0; empty keeps the default.
    QCOMPARE(int(model->illus[4]), 1);
    QCOMPARE(int(model->cm[4]), 0);
    QCOMPARE(model->monoto[4], 'N');
    QCOMPARE(int(model->fi[4]), 1);
    // The unknown and missing locs touched nothing.
    for (int i = 5; i < model->columnCount(); ++i) {
        QCOMPARE(model->fi[i], model->desc->columnAt(i)->derived);
        QCOMPARE(int(model->illus[i]), 0);
    }
    QCOMPARE(int(model->fi[1]), 1);
    QCOMPARE(int(model->fi[2]), 1);
}

void tst_cfg_model::varsTurnsPerChild_data()
{
    QTest::addColumn<QByteArray>("children");
    QTest::addColumn<QString>("ignored"); // one char per column 0..3: I or -

    QTest::newRow("other children count as turns")
        << QByteArray("<Other/><Var loc='1' fi='I'/><Var loc='2' fi='I'/>") << "-II-";
    QTest::newRow("text is no child") << QByteArray("text<Var loc='3' fi='I'/>") << "---I";
}

void tst_cfg_model::varsTurnsPerChild()
{
    QFETCH(QByteArray, children);
    QFETCH(QString, ignored);
    const auto model = modelOf("<QUV_Config><Vars>" + children + "</Vars></QUV_Config>");
    QString seen;
    for (int i = 0; i < 4; ++i)
        seen += model->fi[i] == 'I' ? 'I' : '-';
    QCOMPARE(seen, ignored);
}

void tst_cfg_model::activeValuesOfFi_data()
{
    QTest::addColumn<char>("fi");
    QTest::addColumn<bool>("written");

    QTest::newRow("zero") << char(0) << false;
    QTest::newRow("one") << char(1) << false;
    QTest::newRow("blank") << ' ' << false;
    QTest::newRow("ignored") << 'I' << true;
    QTest::newRow("second state") << 'F' << true;
}

void tst_cfg_model::activeValuesOfFi()
{
    QFETCH(char, fi);
    QFETCH(bool, written);
    const auto model = modelOf("<QUV_Config/>");
    model->fi[5] = fi;
    // 0, 1 and blank all mean active, so the column goes out as a default one.
    QCOMPARE(cfgFileBytes(*model).contains("<Var loc='5'"), written);
}

void tst_cfg_model::olderLayout()
{
    const auto model = modelOf("<QUV_Config>"
                               "<IllustrativeVar><Var loc='1'/><Var loc='2'/></IllustrativeVar>"
                               "<VarToIgnore><Var loc='3'/><Var loc='4' value='F'/></VarToIgnore>"
                               "<VarMonotonicity><Var loc='5' value='I'/><Var loc='6'/>"
                               "<Var loc='77' value='D'/></VarMonotonicity>"
                               "</QUV_Config>");
    QCOMPARE(int(model->illus[1]), 1);
    QCOMPARE(int(model->illus[2]), 1);
    QCOMPARE(int(model->illus[3]), 0);
    QCOMPARE(model->fi[3], 'I');
    QCOMPARE(model->fi[4], 'F');
    QCOMPARE(model->monoto[5], 'I');
    QCOMPARE(model->monoto[6], 'N');
    QCOMPARE(model->monoto[7], 'N');
    // Never written back in that form.
    const QByteArray bytes = cfgFileBytes(*model);
    QVERIFY(!bytes.contains("IllustrativeVar"));
    QVERIFY(bytes.contains("<Var loc='1' illus='1'/>"));
    QVERIFY(bytes.contains("<Var loc='4' fi='F'/>"));
    QVERIFY(bytes.contains("<Var loc='5' monoto='I'/>"));
}

void tst_cfg_model::olderLayoutIgnoredWithVars()
{
    const auto model = modelOf("<QUV_Config><Vars/>"
                               "<IllustrativeVar><Var loc='1'/></IllustrativeVar>"
                               "<VarToIgnore><Var loc='3'/></VarToIgnore></QUV_Config>");
    QCOMPARE(int(model->illus[1]), 0);
    QCOMPARE(int(model->fi[3]), 1);
}

void tst_cfg_model::hasTarget_data()
{
    QTest::addColumn<char>("type");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expression");
    QTest::addColumn<bool>("result");

    QTest::newRow("column set") << 'C' << "Default" << QString() << QString() << true;
    QTest::newRow("column empty, others set") << 'C' << QString() << "f" << "e" << false;
    QTest::newRow("file set") << 'F' << QString() << "f" << QString() << true;
    QTest::newRow("file empty") << 'F' << "c" << QString() << "e" << false;
    QTest::newRow("expression set") << 'E' << QString() << QString() << "a > 1" << true;
    QTest::newRow("expression empty") << 'E' << "c" << "f" << QString() << false;
    QTest::newRow("other letter reads the column") << 'X' << "c" << QString() << QString()
                                                   << true;
}

void tst_cfg_model::hasTarget()
{
    QFETCH(char, type);
    QFETCH(QString, column);
    QFETCH(QString, file);
    QFETCH(QString, expression);
    QFETCH(bool, result);
    const auto model = modelOf("<QUV_Config/>");
    model->targetType = type;
    model->targetColumn = column;
    model->targetFile = file;
    model->targetExpression = expression;
    QCOMPARE(model->hasTarget(), result);
}

void tst_cfg_model::watchFiles()
{
    QTemporaryDir dir;
    const QString a = dir.filePath("a.CfgXML");
    const QString b = dir.filePath("b.DescXML");
    for (const QString &path : {a, b}) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const auto model = modelOf("<QUV_Config/>");

    ::watchFiles(*model, a, b);
    QCOMPARE(model->watcher.files().size(), 2);
    QVERIFY(model->watcher.files().contains(a));
    QVERIFY(model->watcher.files().contains(b));

    ::watchFiles(*model, a, QString());
    QCOMPARE(model->watcher.files(), QStringList{a});

    // The second file is only watched along with the first.
    ::watchFiles(*model, QString(), b);
    QVERIFY(model->watcher.files().isEmpty());

    ::watchFiles(*model, b, a);
    ::watchFiles(*model, QString(), QString());
    QVERIFY(model->watcher.files().isEmpty());
}

void tst_cfg_model::renameKeepsDescription_data()
{
    QTest::addColumn<QString>("descPath"); // as the file gives it
    QTest::addColumn<QString>("oldPath");
    QTest::addColumn<QString>("newPath");
    QTest::addColumn<QString>("written"); // the description path afterwards

    QTest::newRow("same folder") << "golden.DescXML"
                                 << "/data/a/x.CfgXML" << "/data/a/y.CfgXML" << "golden.DescXML";
    QTest::newRow("into a sub-folder") << "golden.DescXML" << "/data/a/x.CfgXML"
                                       << "/data/a/runs/y.CfgXML" << "../golden.DescXML";
    QTest::newRow("to another tree") << "d/golden.DescXML" << "/data/a/x.CfgXML"
                                     << "/work/b/y.CfgXML" << "../../data/a/d/golden.DescXML";
    QTest::newRow("absolute stays") << "/descs/golden.DescXML" << "/data/a/x.CfgXML"
                                    << "/work/b/y.CfgXML" << "/descs/golden.DescXML";
    QTest::newRow("a new configuration") << "/descs/golden.DescXML" << ""
                                         << "/work/b/y.CfgXML" << "/descs/golden.DescXML";
}

void tst_cfg_model::renameKeepsDescription()
{
    QFETCH(QString, descPath);
    QFETCH(QString, oldPath);
    QFETCH(QString, newPath);
    QFETCH(QString, written);
    const auto model = modelOf("<QUV_Config/>");
    model->desc->fileName = descPath;
    model->cfgFileName = oldPath;
    const QString before = QDir::cleanPath(descFilePath(*model));
    renameCfgFile(*model, newPath);
    QCOMPARE(model->cfgFileName, newPath);
    QCOMPARE(model->desc->fileName, written);
    if (!oldPath.isEmpty())
        QCOMPARE(QDir::cleanPath(descFilePath(*model)), before);
}

QTEST_GUILESS_MAIN(tst_cfg_model)
#include "tst_cfg_model.moc"
