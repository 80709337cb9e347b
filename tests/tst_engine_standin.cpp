// The stand-in for the engine and its report converter, run as processes
// from the folder that the build makes for them, on copies of the example:
// its progress lines as the execute panel reads them, the numbered output
// folders, the files of a run and what the report says, the exit code and
// crash it is asked for, the converter and the apply command.

#include "core/desc_model.h"
#include "shell/execute_panel.h"
#include "xml/xml_node.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

// A change made to the example's configuration before a run.
using CfgEdit = std::function<void(QByteArray &)>;
Q_DECLARE_METATYPE(CfgEdit)

namespace {

const QStringList runFiles = {
    "credit.ModelXML",           "credit_4_CheckOverfitting2.png", "credit_5_FinalModel.png",
    "credit_analysisReport.doc", "credit_analysisReport.xlsx",     "credit_analysisReport.xml"};

const QStringList standinVariables = {"QUVA_STANDIN_DELAY_MS", "QUVA_STANDIN_EXIT",
                                      "QUVA_STANDIN_CRASH"};

QString standin(const char *name)
{
    return QStringLiteral(QUVA_BINARY_DIR "/standin/") + QLatin1String(name);
}

struct Run
{
    int exitCode = -1;
    QProcess::ExitStatus exitStatus = QProcess::NormalExit;
    QString out;
    QString err;
};

// Runs a stand-in in `dir` at full speed, with `extra` variables set.
Run runStandin(const char *name, const QStringList &args, const QString &dir,
               const QStringList &extra = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QUVA_STANDIN_DELAY_MS"), QStringLiteral("0"));
    for (const QString &pair : extra)
        env.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
    QProcess process;
    process.setProcessEnvironment(env);
    process.setWorkingDirectory(dir);
    process.start(standin(name), args);
    Run run;
    if (!process.waitForFinished(15000)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.exitCode = process.exitCode();
    run.exitStatus = process.exitStatus();
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.err = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

bool copyExample(const QString &dir)
{
    const QString source = QStringLiteral(QUVA_SOURCE_DIR "/examples/credit.");
    return QFile::copy(source + "CfgXML", dir + "/credit.CfgXML") &&
           QFile::copy(source + "DescXML", dir + "/credit.DescXML");
}

bool editFile(const QString &path, const CfgEdit &edit)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    QByteArray text = file.readAll();
    edit(text);
    return file.seek(0) && file.resize(0) && file.write(text) == text.size();
}

QStringList filesIn(const QString &dir)
{
    return QDir(dir).entryList(QDir::Files, QDir::Name);
}

XmlNode section(const XmlNode &root, const char *name)
{
    int iterator = 0;
    for (XmlNode node = root.childNode("section", &iterator); !node.isEmpty();
         node = root.childNode("section", &iterator)) {
        if (qstrcmp(node.attribute("name"), name) == 0)
            return node;
    }
    return XmlNode();
}

// The row of a section whose attribute `key` has `value`.
XmlNode row(const XmlNode &section, const char *key, const char *value)
{
    int iterator = 0;
    for (XmlNode node = section.childNode("row", &iterator); !node.isEmpty();
         node = section.childNode("row", &iterator)) {
        if (qstrcmp(node.attribute(key), value) == 0)
            return node;
    }
    return XmlNode();
}

QStringList rowTexts(const XmlNode &section, const char *key)
{
    QStringList texts;
    int iterator = 0;
    for (XmlNode node = section.childNode("row", &iterator); !node.isEmpty();
         node = section.childNode("row", &iterator))
        texts << QString::fromUtf8(node.attribute(key));
    return texts;
}

// "active/ignored/illustrative/stateF/total" of a group's row.
QString counts(const XmlNode &columns, const char *group)
{
    const XmlNode r = row(columns, "group", group);
    QStringList out;
    for (const char *key : {"active", "ignored", "illustrative", "stateF", "total"})
        out << QString::fromUtf8(r.attribute(key));
    return out.join(QLatin1Char('/'));
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint32 little32(const QByteArray &bytes, int at)
{
    const auto *p = reinterpret_cast<const uchar *>(bytes.constData() + at);
    return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
}

// The progress values of the lines "$P|n|text" of a standard output; every
// such line must have the whole form, with a message.
QList<int> progressValues(const QString &out)
{
    static const QRegularExpression form(QStringLiteral("^\\$P\\|(\\d+)\\|(.+)$"));
    QList<int> values;
    for (const QString &line : out.split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("$P")))
            continue;
        const QRegularExpressionMatch match = form.match(line);
        values << (match.hasMatch() ? match.captured(1).toInt() : -1);
    }
    return values;
}

// The share of the pixels that are neither white nor grey.
double colouredShare(const QImage &image)
{
    int coloured = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            coloured += qRed(p) != qGreen(p) || qGreen(p) != qBlue(p);
        }
    }
    return double(coloured) / (image.width() * image.height());
}

bool strictlyRising(const QList<int> &values)
{
    for (int i = 1; i < values.size(); ++i) {
        if (values.at(i) <= values.at(i - 1))
            return false;
    }
    return true;
}

} // namespace

class tst_engine_standin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void runThroughExecutePanel();
    void nextRunTakesNextNumber();
    void numberFollowsHighestFolder();
    void reportNamesTargetAndCounts();
    void otherFilesOfARun();
    void paceFollowsDelay();
    void exitCodeAsked_data();
    void exitCodeAsked();
    void crashAsked_data();
    void crashAsked();
    void crashInApplyAndConverter();
    void misfits_data();
    void misfits();
    void unreadableConfiguration();
    void converterWritesHtml();
    void converterWithoutReport();
    void applyCommand_data();
    void applyCommand();
    void commandLineErrors_data();
    void commandLineErrors();
    void help();

private:
    QTemporaryDir home;
    QScopedPointer<QTemporaryDir> work;
    QString dir() const { return work->path(); }
};

void tst_engine_standin::initTestCase()
{
    QVERIFY(home.isValid());
    qputenv("HOME", QFile::encodeName(home.path()));
    qunsetenv("XDG_CONFIG_HOME");
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY2(QFileInfo(standin("quva")).isExecutable(), qPrintable(standin("quva")));
    QVERIFY2(QFileInfo(standin("xml2html")).isExecutable(), qPrintable(standin("xml2html")));
}

void tst_engine_standin::init()
{
    for (const QString &name : standinVariables)
        qunsetenv(name.toLatin1().constData());
    work.reset(new QTemporaryDir);
    QVERIFY(work->isValid());
    QVERIFY(copyExample(dir()));
}

void tst_engine_standin::runThroughExecutePanel()
{
    // The editor's own start of a run: "-m <file name>" in the file's folder.
    qputenv("QUVA_STANDIN_DELAY_MS", "0");
    ExecutePanel panel(nullptr, true);
    QSignalSpy progress(&panel, &ExecutePanel::myProgressBar);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    panel.execute(standin("quva"), {"-m", "credit.CfgXML"}, dir(), TaskEngineRun);
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 15000);
    QCOMPARE(finished.at(0), (QList<QVariant>{TaskEngineRun, 0, 0}));

    // Between the panel's own first and last signals come the stand-in's.
    QVERIFY(progress.count() >= 7);
    QCOMPARE(progress.first().at(0).toInt(), 1);
    QCOMPARE(progress.last().at(1).toString(), QStringLiteral("Done"));
    QList<int> values;
    for (int i = 1; i < progress.count() - 1; ++i) {
        values << progress.at(i).at(0).toInt();
        QVERIFY(!progress.at(i).at(1).toString().isEmpty());
    }
    QVERIFY(strictlyRising(values));
    QCOMPARE(values.last(), 100);
    QCOMPARE(progress.at(progress.count() - 2).at(1).toString(),
             QStringLiteral("Finished: no model was fitted (stand-in)"));

    QCOMPARE(filesIn(dir() + "/credit_001"), runFiles);
    QCOMPARE(latestOutputPrefix(dir() + "/credit.CfgXML"), dir() + "/credit_001/credit");
}

void tst_engine_standin::nextRunTakesNextNumber()
{
    const Run first = runStandin("quva", {"-m", "credit.CfgXML"}, dir());
    QCOMPARE(first.exitCode, 0);
    const Run second = runStandin("quva", {"-m", "credit"}, dir());
    QCOMPARE(second.exitStatus, QProcess::NormalExit);
    QCOMPARE(second.exitCode, 0);

    const QList<int> values = progressValues(second.out);
    QVERIFY2(!values.contains(-1), qPrintable(second.out));
    QVERIFY(values.size() >= 5);
    QVERIFY(strictlyRising(values));
    QCOMPARE(values.last(), 100);

    QCOMPARE(filesIn(dir() + "/credit_001"), runFiles);
    QCOMPARE(filesIn(dir() + "/credit_002"), runFiles);
    QCOMPARE(latestOutputPrefix(dir() + "/credit.CfgXML"), dir() + "/credit_002/credit");
}

void tst_engine_standin::numberFollowsHighestFolder()
{
    // Numbers are found in any case of the name; a folder of four digits
    // is no run folder.
    for (const char *name : {"credit_002", "CREDIT_007", "credit_0100"})
        QVERIFY(QDir(dir()).mkdir(name));
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    QCOMPARE(filesIn(dir() + "/credit_008"), runFiles);
    QCOMPARE(latestOutputPrefix(dir() + "/credit.CfgXML"), dir() + "/credit_008/credit");
}

void tst_engine_standin::reportNamesTargetAndCounts()
{
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    XmlResult result;
    const QByteArray path = QFile::encodeName(dir() + "/credit_001/credit_analysisReport.xml");
    const XmlNode root = parseXmlFile(path.constData(), "analysisReport", &result);
    QCOMPARE(result.status, int(XmlResult::ok));
    QCOMPARE(root.attribute("modelFitted"), "no");
    QVERIFY(QByteArray(root.childNode("note").textAt(0)).contains("fitted no model"));

    const XmlNode target = section(root, "target");
    QCOMPARE(row(target, "item", "type").attribute("value"), "column");
    QCOMPARE(row(target, "item", "name").attribute("value"), "default_12m");
    QCOMPARE(row(target, "item", "label").attribute("value"), "Default within 12 months");

    const XmlNode lines = section(root, "lineSelection");
    QCOMPARE(row(lines, "item", "expression").attribute("value"),
             "age >= 18 && purpose != \"other\"");

    // Counted by hand from the example: loc 51 52 73 79 80 82 ignored,
    // 72 and 80 illustrative, and 80 counts as ignored.
    const XmlNode columns = section(root, "columns");
    QCOMPARE(counts(columns, "VALUE"), QStringLiteral("51/2/0/0/53"));
    QCOMPARE(counts(columns, "NOMINAL"), QStringLiteral("19/0/0/0/19"));
    QCOMPARE(counts(columns, "GEO"), QStringLiteral("5/1/1/0/7"));
    QCOMPARE(counts(columns, "BINARY"), QStringLiteral("1/3/0/0/4"));
    QCOMPARE(counts(columns, "all"), QStringLiteral("76/6/1/0/83"));

    const XmlNode mode = section(root, "mode");
    QCOMPARE(row(mode, "parameter", "nMaxVar").attribute("value"), "20");
    QCOMPARE(row(mode, "parameter", "pruning").attribute("meaning"), "fast pruning");
    QVERIFY(QByteArray(mode.childNode("p").textAt(0)).contains("none of the named modes"));

    const XmlNode problems = section(root, "problems");
    QCOMPARE(problems.namedChildCount("row"), 0);
    QCOMPARE(problems.childNode("p").textAt(0), "The configuration fits its description.");
    QCOMPARE(rowTexts(section(root, "charts"), "file"),
             (QStringList{"credit_4_CheckOverfitting2.png", "credit_5_FinalModel.png"}));
}

void tst_engine_standin::otherFilesOfARun()
{
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    const QString stem = dir() + "/credit_001/credit";

    for (const char *chart : {"_4_CheckOverfitting2.png", "_5_FinalModel.png"}) {
        QImage image;
        QVERIFY(image.load(stem + chart, "PNG"));
        QCOMPARE(image.width(), 900);
        // Not a blank page: bars cover a good part of it.
        QVERIFY2(colouredShare(image) > 0.05, chart);
    }

    const QByteArray rtf = readAll(stem + "_analysisReport.doc");
    QVERIFY(rtf.startsWith("{\\rtf1"));
    QVERIFY(rtf.contains("default_12m"));
    QVERIFY(rtf.trimmed().endsWith('}'));

    // A ZIP of five stored entries; the sheet lies in it as it is.
    const QByteArray xlsx = readAll(stem + "_analysisReport.xlsx");
    QVERIFY(xlsx.startsWith("PK\x03\x04"));
    const int end = xlsx.size() - 22;
    QCOMPARE(little32(xlsx, end), 0x06054b50u);
    QCOMPARE(little32(xlsx, end + 8), 0x00050005u);
    QCOMPARE(little32(xlsx, end + 16) + little32(xlsx, end + 12), quint32(end));
    QVERIFY(xlsx.contains("xl/worksheets/sheet1.xml"));
    QVERIFY(xlsx.contains("<t>default_12m</t>"));

    XmlResult result;
    const QByteArray model = QFile::encodeName(stem + ".ModelXML");
    const XmlNode root = parseXmlFile(model.constData(), "QuvaModel", &result);
    QCOMPARE(result.status, int(XmlResult::ok));
    QVERIFY(QByteArray(root.childNode("note").textAt(0)).startsWith("No model was fitted."));
    const XmlNode inputs = section(root, "columns");
    QCOMPARE(inputs.namedChildCount("row"), 76);
    QCOMPARE(row(inputs, "loc", "0").attribute("column"), "VALUE.RTT.Age");
    QVERIFY(row(inputs, "loc", "51").isEmpty());
}

void tst_engine_standin::paceFollowsDelay()
{
    QElapsedTimer timer;
    timer.start();
    const Run run = runStandin("quva", {"-m", "credit.CfgXML", "--standin-delay", "40"}, dir());
    const qint64 elapsed = timer.elapsed();
    QCOMPARE(run.exitCode, 0);
    // A pause between each two progress lines.
    const int pauses = progressValues(run.out).size() - 1;
    QVERIFY(pauses >= 4);
    QVERIFY2(elapsed >= pauses * 40, qPrintable(QString::number(elapsed)));
}

void tst_engine_standin::exitCodeAsked_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("variable") << QStringList{} << QStringList{"QUVA_STANDIN_EXIT=3"} << 3;
    QTest::newRow("flag") << QStringList{"--standin-exit", "5"} << QStringList{} << 5;
    QTest::newRow("flag wins") << QStringList{"--standin-exit", "4"}
                               << QStringList{"QUVA_STANDIN_EXIT=3"} << 4;
    QTest::newRow("flag 0 wins") << QStringList{"--standin-exit", "0"}
                                 << QStringList{"QUVA_STANDIN_EXIT=3"} << 0;
}

void tst_engine_standin::exitCodeAsked()
{
    QFETCH(QStringList, args);
    QFETCH(QStringList, environment);
    QFETCH(int, exitCode);
    const Run run =
        runStandin("quva", QStringList{"-m", "credit.CfgXML"} + args, dir(), environment);
    QCOMPARE(run.exitStatus, QProcess::NormalExit);
    QCOMPARE(run.exitCode, exitCode);
    // The run goes through all the same.
    QCOMPARE(progressValues(run.out).last(), 100);
    QCOMPARE(filesIn(dir() + "/credit_001"), runFiles);
    QCOMPARE(run.out.contains(QStringLiteral("as asked")), exitCode != 0);
}

void tst_engine_standin::crashAsked_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QStringList>("environment");
    QTest::newRow("variable") << QStringList{} << QStringList{"QUVA_STANDIN_CRASH=1"};
    QTest::newRow("flag") << QStringList{"--standin-crash"} << QStringList{};
}

void tst_engine_standin::crashAsked()
{
    QFETCH(QStringList, args);
    QFETCH(QStringList, environment);
    const Run run =
        runStandin("quva", QStringList{"-m", "credit.CfgXML"} + args, dir(), environment);
    QCOMPARE(run.exitStatus, QProcess::CrashExit);
    QVERIFY(!progressValues(run.out).contains(100));
    // Half-way: the folder is made, the reports are not.
    QVERIFY(QFileInfo(dir() + "/credit_001").isDir());
    QCOMPARE(filesIn(dir() + "/credit_001"), QStringList());
}

void tst_engine_standin::crashInApplyAndConverter()
{
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    const QString folder = dir() + "/credit_001";
    const QStringList crash{"QUVA_STANDIN_CRASH=1"};
    const Run apply =
        runStandin("quva", {"-adw", "credit.ModelXML", "-g", "/data.gel"}, folder, crash);
    QCOMPARE(apply.exitStatus, QProcess::CrashExit);
    QVERIFY(apply.out.contains(QStringLiteral("Crashing now, as asked.")));
    const Run convert = runStandin("xml2html", {"credit_analysisReport.xml"}, folder, crash);
    QCOMPARE(convert.exitStatus, QProcess::CrashExit);
    QCOMPARE(filesIn(folder), runFiles);
}

void tst_engine_standin::misfits_data()
{
    using Edit = CfgEdit;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("problems");
    QTest::newRow("target unknown")
        << Edit([](QByteArray &t) { t.replace(">default_12m<", ">no_such_column<"); })
        << QStringList{"The target column 'no_such_column' is not a variable of the description.",
                       "The description names the target 'Default within 12 months', the "
                       "configuration 'no_such_column'."};
    QTest::newRow("weight unknown") << Edit([](QByteArray &t) {
        t.replace("</QUV_Config>", "<Weight>w_x</Weight></QUV_Config>");
    }) << QStringList{"The weight column 'w_x' is not a variable of the description."};
    QTest::newRow("no target") << Edit([](QByteArray &t) { t.replace(">default_12m<", "><"); })
                               << QStringList{"No target is defined."};
    QTest::newRow("no active column") << Edit([](QByteArray &t) {
        QByteArray vars;
        for (int loc = 0; loc < 83; ++loc)
            vars += "<Var loc='" + QByteArray::number(loc) + "' fi='I'/>";
        const int from = t.indexOf("<Var ");
        t.replace(from, t.indexOf("\n", from) - from, vars);
    }) << QStringList{"No column is active: the model would have no input."};
    QTest::newRow("column beyond the description")
        << Edit([](QByteArray &t) {
               t.replace("<Var loc='0'", "<Var loc='90' fi='I'/><Var loc='0'");
           })
        << QStringList{
               "Settings of columns that the description lacks (loc 90); it has 83 columns."};
    QTest::newRow("unknown input variable")
        << Edit([](QByteArray &t) { t.replace("column='age'", "column='agee'"); })
        << QStringList{"The line selection uses 'agee', which is not a variable of the "
                       "description."};
}

void tst_engine_standin::misfits()
{
    QFETCH(CfgEdit, edit);
    QFETCH(QStringList, problems);
    QVERIFY(editFile(dir() + "/credit.CfgXML", edit));
    const Run run = runStandin("quva", {"-m", "credit.CfgXML"}, dir());
    QCOMPARE(run.exitCode, 0);
    for (const QString &problem : problems)
        QVERIFY2(run.out.contains("Does not fit the description: " + problem), qPrintable(run.out));

    const QByteArray path = QFile::encodeName(dir() + "/credit_001/credit_analysisReport.xml");
    const XmlNode root = readXmlFile(QString::fromLocal8Bit(path), "analysisReport");
    const XmlNode section = ::section(root, "problems");
    QCOMPARE(rowTexts(section, "problem"), problems);
    QVERIFY(QByteArray(section.childNode("p").textAt(0)).contains("do not fit its description"));
}

void tst_engine_standin::unreadableConfiguration()
{
    const Run run = runStandin("quva", {"-m", "nothing.CfgXML"}, dir());
    QCOMPARE(run.exitStatus, QProcess::NormalExit);
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.err.contains(QStringLiteral("Cannot read the configuration nothing.CfgXML.")));
    QVERIFY(!QFileInfo::exists(dir() + "/nothing_001"));
}

void tst_engine_standin::converterWritesHtml()
{
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    const QString folder = dir() + "/credit_001";
    const Run run = runStandin("xml2html", {"credit_analysisReport.xml"}, folder);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(progressValues(run.out).last(), 100);

    const QString html = QString::fromUtf8(readAll(folder + "/credit_analysisReport.html"));
    QVERIFY(html.startsWith(QStringLiteral("<!DOCTYPE html>")));
    QVERIFY(html.contains(QStringLiteral("<h1>Quva analysis report (stand-in): credit</h1>")));
    QVERIFY(html.contains(QStringLiteral("fitted no model")));
    QVERIFY(html.contains(QStringLiteral("<td>default_12m</td>")));
    QVERIFY(html.contains(QStringLiteral("<td>GEO</td><td>5</td><td>1</td><td>1</td>")));
    QVERIFY(html.contains(QStringLiteral("age &gt;= 18 &amp;&amp; purpose != &quot;other&quot;")));
    QVERIFY(html.contains(QStringLiteral("<img src=\"credit_5_FinalModel.png\"")));
    QVERIFY(html.trimmed().endsWith(QStringLiteral("</html>")));
}

void tst_engine_standin::converterWithoutReport()
{
    const Run run = runStandin("xml2html", {"credit_analysisReport.xml"}, dir());
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.err.contains(QStringLiteral("Cannot read the report credit_analysisReport.xml.")));
    QVERIFY(!QFileInfo::exists(dir() + "/credit_analysisReport.html"));
}

void tst_engine_standin::applyCommand_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("notes");
    const QString stem = QStringLiteral("credit_appliedOn_data_");
    // As the apply page composes it: the data source keeps the "/" behind
    // the output directory that was cut off.
    QTest::newRow("drift in both forms, CSV, density")
        << "-adw -p=5 credit.ModelXML -c SEMICOLON /data.csv" << 0
        << QStringList{"credit.ModelXML", stem + "apply.txt", stem + "driftReport.doc",
                       stem + "driftReport.xml", "data.csv"}
        << QStringList{"No model was applied.", "kind of data source: CSV/TXT file",
                       "separator: SEMICOLON",  "target density: 5 %",
                       "drift report: yes",     "Word drift report: yes",
                       "force apply: no",       "data source: /data.csv, found at "};
    QTest::newRow("no drift, SAS, forced")
        << "-af credit.ModelXML -s /data.sas7bdat" << 0
        << QStringList{"credit.ModelXML", stem + "apply.txt", "data.csv"}
        << QStringList{"kind of data source: SAS file", "target density: no a-priori correction",
                       "drift report: no", "force apply: yes",
                       "data source: /data.sas7bdat, not found; the stand-in reads no data"};
    QTest::newRow("standard data source")
        << "-ad credit.ModelXML data.DSourceXML" << 0
        << QStringList{"credit.ModelXML", stem + "apply.txt", stem + "driftReport.xml", "data.csv"}
        << QStringList{"kind of data source: standard data source", "Word drift report: no"};
    QTest::newRow("model missing") << "-a other.ModelXML -c COMMA /data.csv" << 1
                                   << QStringList{"credit.ModelXML", "data.csv"} << QStringList{};
}

void tst_engine_standin::applyCommand()
{
    QFETCH(QString, arguments);
    QFETCH(int, exitCode);
    QFETCH(QStringList, files);
    QFETCH(QStringList, notes);
    QCOMPARE(runStandin("quva", {"-m", "credit.CfgXML"}, dir()).exitCode, 0);
    const QString folder = dir() + "/credit_001";
    for (const QString &file : QDir(folder).entryList(QDir::Files)) {
        if (file != QLatin1String("credit.ModelXML"))
            QVERIFY(QFile::remove(folder + "/" + file));
    }
    QFile data(folder + "/data.csv");
    QVERIFY(data.open(QIODevice::WriteOnly));
    data.close();

    // Run as the apply page runs it: one command line, in the output directory.
    qputenv("QUVA_STANDIN_DELAY_MS", "0");
    ExecutePanel panel(nullptr, true);
    QSignalSpy finished(&panel, &ExecutePanel::myFinishExe);
    panel.executeCommandLine(standin("quva") + " " + arguments, folder, TaskModelApply);
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 15000);
    QCOMPARE(finished.at(0), (QList<QVariant>{TaskModelApply, exitCode, 0}));
    files.sort();
    QCOMPARE(filesIn(folder), files);
    const QString text = QString::fromUtf8(readAll(folder + "/credit_appliedOn_data_apply.txt"));
    for (const QString &note : notes)
        QVERIFY2(text.contains(note), qPrintable(note + "\n" + text));
    if (exitCode != 0)
        QVERIFY(panel.logText().contains(QStringLiteral("Cannot find the model other.ModelXML")));
}

void tst_engine_standin::commandLineErrors_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("message");
    QTest::newRow("nothing") << QStringList{} << "quva: expected -m FILE or an apply command";
    QTest::newRow("-m alone") << QStringList{"-m"} << "quva: expected -m FILE or an apply command";
    QTest::newRow("delay not a number") << QStringList{"--standin-delay", "x", "-m", "a"}
                                        << "--standin-delay needs a whole number, not 'x'";
    QTest::newRow("delay without value")
        << QStringList{"-m", "a", "--standin-delay"} << "--standin-delay needs a value";
    QTest::newRow("apply letter") << QStringList{"-ax", "m.ModelXML", "d.csv"}
                                  << "unknown letter 'x' in -ax";
}

void tst_engine_standin::commandLineErrors()
{
    QFETCH(QStringList, args);
    QFETCH(QString, message);
    const Run run = runStandin("quva", args, dir());
    QCOMPARE(run.exitStatus, QProcess::NormalExit);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
}

void tst_engine_standin::help()
{
    const Run run = runStandin("quva", {"--help"}, dir());
    QCOMPARE(run.exitCode, 0);
    for (const char *word :
         {"--standin-delay", "QUVA_STANDIN_DELAY_MS", "--standin-exit", "QUVA_STANDIN_EXIT",
          "--standin-crash", "QUVA_STANDIN_CRASH", "xml2html NAME_analysisReport.xml"})
        QVERIFY2(run.out.contains(QLatin1String(word)), word);
}

QTEST_MAIN(tst_engine_standin)
#include "tst_engine_standin.moc"
