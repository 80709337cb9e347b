#include "core/desc_model.h"

#include "xml/xml_node.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

namespace {

const QString dataDir = QStringLiteral(QUVA_TEST_DATA "/core");

XmlNode parseDescription(const QByteArray &text)
{
    return parseXmlText(text.constData(), "DESCRIPTION", nullptr);
}

// Base64 of raw little-endian values, as the preparation step writes them.
template <class T>
QByteArray base64Of(std::initializer_list<T> values)
{
    QByteArray bytes;
    for (T v : values) {
        char raw[sizeof(T)];
        std::memcpy(raw, &v, sizeof v);
        bytes.append(raw, int(sizeof v));
    }
    return bytes.toBase64();
}

QByteArray description(const QByteArray &cols)
{
    return "<DESCRIPTION><QUV_Config/><COLS>" + cols + "</COLS></DESCRIPTION>";
}

// A description of `count` binary variables, or numeric ones with dummies.
QByteArray generatedDescription(int count, bool numeric)
{
    QByteArray cols = numeric ? "<VALUE>" : "<BIN>";
    const QByteArray dummies = base64Of<qint32>({0, 1});
    const QByteArray limits = base64Of<double>({1.0, 2.0, 3.0});
    for (int i = 0; i < count; ++i) {
        cols += "<COL name='v" + QByteArray::number(i) + "'>";
        if (numeric && i % 3 == 0)
            cols += "<LIMITS>" + limits + "</LIMITS><DUMMIES>" + dummies + "</DUMMIES>";
        cols += "</COL>";
    }
    cols += numeric ? "</VALUE>" : "</BIN>";
    return description(cols);
}

} // namespace

class tst_desc_model : public QObject
{
    Q_OBJECT

private:
    DescModel *golden = nullptr;

private slots:
    void initTestCase();
    void cleanupTestCase();
    void columns_data();
    void columns();
    void variables_data();
    void variables();
    void configurationTexts();
    void limitTexts_data();
    void limitTexts();
    void nominalEmptyLabelFallsBackToValue();
    void dummyZeroIsMissing_data();
    void dummyZeroIsMissing();
    void binaryDummyWithoutTexts();
    void dummyIndexBeyondList();
    void sameNameTwice();
    void labelAndNameLookups_data();
    void labelAndNameLookups();
    void onlyBinary();
    void varAtLoc_data();
    void varAtLoc();
    void varAtLocLarge();
    void columnIndexOfLoc();
    void missingStructure_data();
    void missingStructure();
    void nominalWithoutValues_data();
    void nominalWithoutValues();
    void colWithoutName();
    void valueWithoutLimits();
    void brokenLimits();
    void fiveThousandVariables();
    void latestOutputPrefix_data();
    void latestOutputPrefix();
    void latestOutputPrefixMissingFolder();
};

void tst_desc_model::initTestCase()
{
    const XmlNode root = readXmlFile(dataDir + "/golden.DescXML", "DESCRIPTION");
    QVERIFY(!root.isEmpty());
    golden = new DescModel(QStringLiteral("golden.DescXML"), root);
}

void tst_desc_model::cleanupTestCase()
{
    delete golden;
}

void tst_desc_model::columns_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("fullName");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("derived");
    QTest::addColumn<double>("auc");

    QTest::newRow("age main") << 0 << "VALUE.RTT.Age" << "age" << 0 << 0.61;
    QTest::newRow("age pass-through") << 1 << "VALUE.PASSTHROUGH.Age" << "age" << 1 << 0.61;
    QTest::newRow("age dummy 0") << 2 << "VALUE.Dummy.Age.missing" << "age" << 1 << 0.61;
    QTest::newRow("age dummy 1") << 3 << "VALUE.Dummy.Age.18 <x<= 25" << "age" << 1 << 0.61;
    QTest::newRow("age dummy 2") << 4 << "VALUE.Dummy.Age.25 <x<= 35" << "age" << 1 << 0.61;
    QTest::newRow("income, empty grpName") << 5 << "VALUE.RTT.Monthly income" << "income" << 0
                                           << 0.7;
    QTest::newRow("income pass-through")
        << 6 << "VALUE.PASSTHROUGH.Monthly income" << "income" << 1 << 0.7;
    QTest::newRow("purpose main, no auc") << 7 << "PURPOSE.RTT.Loan purpose" << "purpose" << 0
                                          << -2.0;
    QTest::newRow("purpose labelled dummy")
        << 8 << "PURPOSE.Dummy.Loan purpose.Car" << "purpose" << 1 << -2.0;
    QTest::newRow("purpose dummy of empty label")
        << 9 << "PURPOSE.Dummy.Loan purpose.edu" << "purpose" << 1 << -2.0;
    QTest::newRow("binary") << 10 << "BINARY.RTT.Has phone" << "has_phone" << 0 << -2.0;
    QTest::newRow("binary target") << 11 << "BINARY.RTT.Default" << "default_flag" << 0 << -2.0;
}

void tst_desc_model::columns()
{
    QFETCH(int, index);
    QFETCH(QString, fullName);
    QFETCH(QString, name);
    QFETCH(int, derived);
    QFETCH(double, auc);

    QCOMPARE(golden->columnCount(), 12);
    const DatasetColumn *column = golden->columnAt(index);
    QCOMPARE(columnFullName(*column), fullName);
    QCOMPARE(column->name, name);
    QCOMPARE(int(column->derived), derived);
    QCOMPARE(column->loc, index);
    QCOMPARE(golden->columnLoc(index), index);
    QCOMPARE(column->auc, auc);
}

void tst_desc_model::variables_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("group");
    QTest::addColumn<char>("type");
    QTest::addColumn<int>("firstLoc");
    QTest::addColumn<int>("columnCount");

    QTest::newRow("numeric") << 0 << "age" << "Age" << "VALUE" << 'V' << 0 << 5;
    QTest::newRow("numeric, no dummies") << 1 << "income" << "Monthly income" << "VALUE" << 'V'
                                         << 5 << 2;
    QTest::newRow("nominal") << 2 << "purpose" << "Loan purpose" << "PURPOSE" << 'N' << 7 << 3;
    QTest::newRow("binary") << 3 << "has_phone" << "Has phone" << "BINARY" << 'B' << 10 << 1;
    QTest::newRow("last") << 4 << "default_flag" << "Default" << "BINARY" << 'B' << 11 << 1;
}

void tst_desc_model::variables()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(QString, label);
    QFETCH(QString, group);
    QFETCH(char, type);
    QFETCH(int, firstLoc);
    QFETCH(int, columnCount);

    QCOMPARE(golden->varCount(), 5);
    const DatasetVar *var = golden->varAt(index);
    QCOMPARE(var->name, name);
    QCOMPARE(var->label, label);
    QCOMPARE(var->grpName, group);
    QCOMPARE(var->type, type);
    QCOMPARE(var->varIndex, index);
    QCOMPARE(var->firstLoc, firstLoc);
    QCOMPARE(var->columnCount, columnCount);
}

void tst_desc_model::configurationTexts()
{
    QCOMPARE(golden->fileName, QStringLiteral("golden.DescXML"));
    QCOMPARE(golden->target, QStringLiteral("default_flag"));
    QCOMPARE(golden->datasource,
             QStringLiteral("<datasource type=\"c\" sep=\";\">C:\\data\\credit.csv</datasource>\n"));
    QCOMPARE(golden->timePeriod,
             QStringLiteral("<TimePeriod from=\"2019-01\" to=\"2021-12\">monthly</TimePeriod>\n"));

    const auto *age = dynamic_cast<const LowerOrEqVar *>(golden->varAt(0));
    QVERIFY(age);
    QCOMPARE(age->limitCount, 5);
    QCOMPARE(age->limits[4], 65.0);

    const XmlNode bare = parseDescription("<DESCRIPTION><QUV_Config><TimePeriod/></QUV_Config>"
                                          "<COLS><BIN><COL name='b'/></BIN></COLS></DESCRIPTION>");
    DescModel model(QStringLiteral("bare"), bare);
    QVERIFY(model.timePeriod.isEmpty());
    QVERIFY(model.datasource.isEmpty());
    QVERIFY(model.target.isEmpty());
    QCOMPARE(model.columnCount(), 1);
}

void tst_desc_model::limitTexts_data()
{
    QTest::addColumn<QVector<double>>("limits");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("interval, equality, interval")
        << QVector<double>{1, 2, 2, 3}
        << QStringList{QString(), "1 <x<= 2", "x=2", "2 <x<= 3"};
    QTest::newRow("single limit") << QVector<double>{7.5} << QStringList{QString()};
    QTest::newRow("no limit") << QVector<double>{} << QStringList{QString()};
    QTest::newRow("six digits") << QVector<double>{1.23456789, 2}
                                << QStringList{QString(), "1.23457 <x<= 2"};
    QTest::newRow("large and negative") << QVector<double>{-0.5, 1e6, 1234567}
                                        << QStringList{QString(), "-0.5 <x<= 1e+06",
                                                       "1e+06 <x<= 1.23457e+06"};
}

void tst_desc_model::limitTexts()
{
    QFETCH(QVector<double>, limits);
    QFETCH(QStringList, texts);
    QCOMPARE(::limitTexts(limits.constData(), limits.size()), texts);
}

void tst_desc_model::nominalEmptyLabelFallsBackToValue()
{
    const auto *purpose = dynamic_cast<const EqualVar *>(golden->varAt(2));
    QVERIFY(purpose);
    QCOMPARE(purpose->values, (QStringList{"missing", "car", "home", "edu"}));
    // An empty label stays empty: only a missing one falls back to the value.
    QCOMPARE(purpose->labels, (QStringList{"missing", "Car", "Home", ""}));
    QCOMPARE(golden->columnAt(9)->modality, QStringLiteral("edu"));

    const XmlNode root = parseDescription(description(
        "<NOMINAL><COL name='n'><POSSIBLEVALUES><VAL val='x'/><VAL val='y' label='Why'/>"
        "</POSSIBLEVALUES></COL></NOMINAL>"));
    DescModel model(QStringLiteral("n"), root);
    const auto *n = dynamic_cast<const EqualVar *>(model.varAt(0));
    QVERIFY(n);
    QCOMPARE(n->labels, (QStringList{"missing", "x", "Why"}));
    QCOMPARE(model.columnCount(), 1);
}

void tst_desc_model::dummyZeroIsMissing_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QByteArray>("inner");
    QTest::addColumn<int>("firstDummy");

    const QByteArray values = "<POSSIBLEVALUES><VAL val='a'/></POSSIBLEVALUES>";
    QTest::newRow("numeric") << QByteArray("VALUE") << QByteArray() << 2;
    QTest::newRow("nominal") << QByteArray("NOMINAL") << values << 1;
    QTest::newRow("binary") << QByteArray("BIN") << QByteArray() << 1;
}

void tst_desc_model::dummyZeroIsMissing()
{
    QFETCH(QByteArray, group);
    QFETCH(QByteArray, inner);
    QFETCH(int, firstDummy);

    const QByteArray dummies = "<DUMMIES>" + base64Of<qint32>({0, 0}) + "</DUMMIES>";
    const XmlNode root = parseDescription(description(
        "<" + group + "><COL name='v' label='V'>" + inner + dummies + "</COL></" + group + ">"));
    DescModel model(QStringLiteral("d"), root);
    QCOMPARE(model.columnCount(), firstDummy + 2);
    for (int i = firstDummy; i < firstDummy + 2; ++i) {
        QCOMPARE(model.columnAt(i)->kind, QStringLiteral("Dummy"));
        QCOMPARE(model.columnAt(i)->modality, QStringLiteral("missing"));
        QCOMPARE(int(model.columnAt(i)->derived), 1);
        QCOMPARE(model.columnAt(i)->loc, i);
    }
    QCOMPARE(model.varAt(0)->columnCount, firstDummy + 2);
}

void tst_desc_model::binaryDummyWithoutTexts()
{
    // A binary variable has no modality texts: a non-zero index gives an
    // empty modality.
    const XmlNode root = parseDescription(description(
        "<BIN><COL name='b'><DUMMIES>" + base64Of<qint32>({1, 0}) + "</DUMMIES></COL></BIN>"));
    DescModel model(QStringLiteral("b"), root);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.columnAt(1)->modality, QString());
    QCOMPARE(columnFullName(*model.columnAt(1)), QStringLiteral("BINARY.Dummy.b"));
    QCOMPARE(model.columnAt(2)->modality, QStringLiteral("missing"));
}

void tst_desc_model::dummyIndexBeyondList()
{
    const XmlNode root = parseDescription(description(
        "<NOMINAL><COL name='n'><POSSIBLEVALUES><VAL val='a'/></POSSIBLEVALUES><DUMMIES>"
        + base64Of<qint32>({1, 5, -3}) + "</DUMMIES></COL></NOMINAL>"));
    DescModel model(QStringLiteral("n"), root);
    QCOMPARE(model.columnCount(), 4);
    QCOMPARE(model.columnAt(1)->modality, QStringLiteral("a"));
    QCOMPARE(model.columnAt(2)->modality, QString());
    QCOMPARE(model.columnAt(3)->modality, QString());
}

void tst_desc_model::sameNameTwice()
{
    const XmlNode root = parseDescription(
        description("<BIN><COL name='x' label='first'/><COL name='x' label='second'/></BIN>"));
    DescModel model(QStringLiteral("x"), root);
    QCOMPARE(model.varCount(), 2);
    QCOMPARE(model.varIndexOfName(QStringLiteral("x")), 0);
    QCOMPARE(model.varOfName(QStringLiteral("x")), model.varAt(0));
    QCOMPARE(model.labelOfName(QStringLiteral("x")), QStringLiteral("first"));
    QCOMPARE(model.nameOfLabel(QStringLiteral("second")), QStringLiteral("x"));
}

void tst_desc_model::labelAndNameLookups_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("index");

    QTest::newRow("known") << "income" << "Monthly income" << 1;
    QTest::newRow("unknown name stays") << "stale_weight" << "stale_weight" << -1;
    QTest::newRow("case matters") << "AGE" << "AGE" << -1;
}

void tst_desc_model::labelAndNameLookups()
{
    QFETCH(QString, name);
    QFETCH(QString, label);
    QFETCH(int, index);
    QCOMPARE(golden->labelOfName(name), label);
    QCOMPARE(golden->nameOfLabel(label), name);
    QCOMPARE(golden->varIndexOfName(name), index);
    QCOMPARE(golden->varOfName(name), index < 0 ? nullptr : golden->varAt(index));
}

void tst_desc_model::onlyBinary()
{
    QByteArray cols = "<BIN>";
    for (int i = 0; i < 7; ++i)
        cols += "<COL name='b" + QByteArray::number(i) + "'/>";
    cols += "</BIN>";
    DescModel model(QStringLiteral("b"), parseDescription(description(cols)));
    QCOMPARE(model.varCount(), 7);
    for (int i = 0; i < model.varCount(); ++i)
        QCOMPARE(model.varAt(i)->firstLoc, model.varAt(i)->varIndex);
}

void tst_desc_model::varAtLoc_data()
{
    QTest::addColumn<int>("loc");
    QTest::addColumn<int>("index");

    QTest::newRow("first") << 0 << 0;
    QTest::newRow("inside the first") << 1 << -1;
    QTest::newRow("last dummy of the first") << 4 << -1;
    QTest::newRow("second") << 5 << 1;
    QTest::newRow("inside the second") << 6 << -1;
    QTest::newRow("third") << 7 << 2;
    QTest::newRow("inside the third") << 9 << -1;
    QTest::newRow("fourth") << 10 << 3;
    QTest::newRow("last") << 11 << 4;
    QTest::newRow("beyond") << 12 << -1;
    QTest::newRow("negative") << -1 << -1;
}

void tst_desc_model::varAtLoc()
{
    QFETCH(int, loc);
    QFETCH(int, index);
    QCOMPARE(golden->varAtLoc(loc), index < 0 ? nullptr : golden->varAt(index));
}

void tst_desc_model::varAtLocLarge()
{
    DescModel model(QStringLiteral("large"), parseDescription(generatedDescription(1001, true)));
    QCOMPARE(model.varCount(), 1001);
    int misses = 0;
    for (int loc = -2; loc < model.columnCount() + 2; ++loc) {
        const DatasetVar *var = model.varAtLoc(loc);
        const DatasetVar *expected = nullptr;
        for (const DatasetVar *v : qAsConst(model.vars)) {
            if (v->firstLoc == loc)
                expected = v;
        }
        if (var != expected)
            ++misses;
    }
    QCOMPARE(misses, 0);

    DescModel empty(QStringLiteral("empty"), parseDescription(description("<BIN/>")));
    QCOMPARE(empty.varAtLoc(0), nullptr);
    DescModel single(QStringLiteral("one"), parseDescription(description("<BIN><COL/></BIN>")));
    QCOMPARE(single.varAtLoc(0), single.varAt(0));
    QCOMPARE(single.varAtLoc(1), nullptr);
}

void tst_desc_model::columnIndexOfLoc()
{
    QCOMPARE(golden->columnIndexOfLoc(0), 0);
    QCOMPARE(golden->columnIndexOfLoc(11), 11);
    QCOMPARE(golden->columnIndexOfLoc(12), -1);
    QCOMPARE(golden->columnIndexOfLoc(-1), -1);
}

void tst_desc_model::missingStructure_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<int>("columns");

    QTest::newRow("no QUV_Config")
        << QByteArray("<DESCRIPTION><COLS><BIN><COL/></BIN></COLS></DESCRIPTION>")
        << QStringList{"No QUV_Config tag in some.DescXML"} << 0;
    QTest::newRow("no COLS") << QByteArray("<DESCRIPTION><QUV_Config/></DESCRIPTION>")
                             << QStringList{"No COLS tag in some.DescXML"} << 0;
    QTest::newRow("no group") << description(QByteArray())
                              << QStringList{"No VALUE tag in subtag <VALUE>",
                                             "No NOMINAL tag in subtag <VALUE>",
                                             "No BINARY tag in subtag <VALUE>"}
                              << 0;
    QTest::newRow("only nominal missing")
        << description("<VALUE><COL/></VALUE><BIN><COL/></BIN>")
        << QStringList{"No NOMINAL tag in subtag <VALUE>"} << 3;
}

void tst_desc_model::missingStructure()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, messages);
    QFETCH(int, columns);
    for (const QString &message : qAsConst(messages))
        QTest::ignoreMessage(QtDebugMsg, message.toUtf8().constData());
    DescModel model(QStringLiteral("some.DescXML"), parseDescription(text));
    QCOMPARE(model.columnCount(), columns);
}

void tst_desc_model::nominalWithoutValues_data()
{
    QTest::addColumn<QByteArray>("inner");
    QTest::addColumn<QString>("message");

    QTest::newRow("no POSSIBLEVALUES") << QByteArray()
                                       << "No MODALITIES subtag in VAR EQUAL.Colour";
    QTest::newRow("no VAL") << QByteArray("<POSSIBLEVALUES><OTHER/></POSSIBLEVALUES>")
                            << "No MOD subtag in VAR EQUAL. Colour";
}

void tst_desc_model::nominalWithoutValues()
{
    QFETCH(QByteArray, inner);
    QFETCH(QString, message);
    QTest::ignoreMessage(QtDebugMsg, message.toUtf8().constData());
    const XmlNode root = parseDescription(description(
        "<NOMINAL><COL name='c' label='Colour'>" + inner + "<DUMMIES>"
        + base64Of<qint32>({0}) + "</DUMMIES></COL><COL name='d'><POSSIBLEVALUES><VAL val='1'/>"
        "</POSSIBLEVALUES></COL></NOMINAL><BIN><COL name='e'/></BIN>"));
    DescModel model(QStringLiteral("n"), root);
    QCOMPARE(model.varCount(), 3);
    QCOMPARE(model.varAt(0)->columnCount, 0);
    QVERIFY(static_cast<const EqualVar *>(model.varAt(0))->values.isEmpty());
    // The variable adds no column, so the next one starts where it would have.
    QCOMPARE(model.varAt(1)->firstLoc, 0);
    QCOMPARE(model.varAt(2)->firstLoc, 1);
    QCOMPARE(model.columnCount(), 2);
    // Two variables start at 0; the search settles on the later one.
    QCOMPARE(model.varAtLoc(0), model.varAt(1));
    QCOMPARE(model.varAtLoc(1), model.varAt(2));
}

void tst_desc_model::colWithoutName()
{
    const XmlNode root = parseDescription(description("<VALUE><COL/></VALUE>"));
    DescModel model(QStringLiteral("n"), root);
    QCOMPARE(model.varCount(), 1);
    QVERIFY(model.varAt(0)->name.isEmpty());
    QVERIFY(model.varAt(0)->label.isEmpty());
    QCOMPARE(model.varAt(0)->grpName, QStringLiteral("VALUE"));
    QCOMPARE(columnFullName(*model.columnAt(0)), QStringLiteral("VALUE.RTT."));
}

void tst_desc_model::valueWithoutLimits()
{
    const XmlNode root = parseDescription(description(
        "<VALUE><COL name='v'><DUMMIES>" + base64Of<qint32>({0, 2}) + "</DUMMIES></COL></VALUE>"));
    DescModel model(QStringLiteral("v"), root);
    const auto *v = static_cast<const LowerOrEqVar *>(model.varAt(0));
    QCOMPARE(v->limits, nullptr);
    QCOMPARE(v->limitCount, 0);
    QCOMPARE(model.columnCount(), 4);
    QCOMPARE(model.columnAt(1)->kind, QStringLiteral("PASSTHROUGH"));
    QCOMPARE(model.columnAt(2)->modality, QStringLiteral("missing"));
    QCOMPARE(model.columnAt(3)->modality, QString());
}

void tst_desc_model::brokenLimits()
{
    // Two whole doubles, then the text breaks off: the first two are kept.
    QByteArray limits = base64Of<double>({4.0, 8.0, 16.0});
    limits.chop(8);
    const XmlNode root = parseDescription(
        description("<VALUE><COL name='v'><LIMITS>" + limits + "</LIMITS></COL></VALUE>"));
    DescModel model(QStringLiteral("v"), root);
    const auto *v = static_cast<const LowerOrEqVar *>(model.varAt(0));
    QVERIFY(v->limits);
    QVERIFY(v->limitCount >= 2);
    QCOMPARE(v->limits[0], 4.0);
    QCOMPARE(v->limits[1], 8.0);
    QCOMPARE(model.columnCount(), 2);
}

void tst_desc_model::fiveThousandVariables()
{
    DescModel model(QStringLiteral("big"), parseDescription(generatedDescription(5000, true)));
    QCOMPARE(model.varCount(), 5000);
    // Every third variable has two dummies.
    QCOMPARE(model.columnCount(), 5000 * 2 + 1667 * 2);
    for (int i = 0; i < model.columnCount(); ++i) {
        if (model.columnAt(i)->loc != i)
            QFAIL(qPrintable(QStringLiteral("loc %1 at %2").arg(model.columnAt(i)->loc).arg(i)));
    }
    for (int i = 1; i < model.varCount(); ++i) {
        const DatasetVar *previous = model.varAt(i - 1);
        QCOMPARE(model.varAt(i)->firstLoc, previous->firstLoc + previous->columnCount);
    }
}

void tst_desc_model::latestOutputPrefix_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QString>("cfgName");
    QTest::addColumn<QString>("expected"); // folder/stem inside the temporary folder

    QTest::newRow("newest of two") << QStringList{"run_001", "run_002"} << "run.CfgXML"
                                   << "run_002/run";
    QTest::newRow("by name, not by date") << QStringList{"run_010", "run_001"} << "run.CfgXML"
                                          << "run_010/run";
    QTest::newRow("four digits do not count") << QStringList{"run_003", "run_1000"}
                                              << "run.CfgXML" << "run_003/run";
    QTest::newRow("none") << QStringList{"run_1", "other_001"} << "run.CfgXML" << QString();
    QTest::newRow("case-insensitive") << QStringList{"RUN_004"} << "run.CfgXML"
                                      << "RUN_004/run";
    QTest::newRow("without suffix") << QStringList{"model_007"} << "model" << "model_007/model";
    QTest::newRow("cut at the last suffix")
        << QStringList{"a.CfgXML.b_005"} << "a.CfgXML.b.CfgXML" << "a.CfgXML.b_005/a.CfgXML.b";
    QTest::newRow("a dot in the name matches any character")
        << QStringList{"axb_002"} << "a.b.CfgXML" << "axb_002/a.b";
    QTest::newRow("files are no run folders") << QStringList{"run_001", "file:run_002"}
                                              << "run.CfgXML" << "run_001/run";
}

void tst_desc_model::latestOutputPrefix()
{
    QFETCH(QStringList, folders);
    QFETCH(QString, cfgName);
    QFETCH(QString, expected);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    for (const QString &folder : qAsConst(folders)) {
        if (folder.startsWith(QLatin1String("file:"))) {
            QFile file(dir.filePath(folder.mid(5)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        } else {
            QVERIFY(QDir(dir.path()).mkdir(folder));
        }
    }
    const QString result = ::latestOutputPrefix(dir.filePath(cfgName));
    QCOMPARE(result, expected.isEmpty() ? QString() : dir.path() + '/' + expected);
}

void tst_desc_model::latestOutputPrefixMissingFolder()
{
    QTemporaryDir dir;
    QCOMPARE(::latestOutputPrefix(dir.filePath("gone/run.CfgXML")), QString());
}

QTEST_GUILESS_MAIN(tst_desc_model)
#include "tst_desc_model.moc"
