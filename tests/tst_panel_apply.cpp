// The page "Apply model": the command it composes from its fields, byte for
// byte, the newest run it takes the model from, the command file, and a run
// of the apply command on the stand-in engine.

#include "shell/apply_command.h"
#include "shell/execute_panel.h"
#include "shell/panel_apply.h"
#include "window_test_support.h"
#include "shell/window_broker.h"
#include "url_sink.h"
#include "window_test_main.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

class RecordingBroker final : public WindowBroker
{
public:
    bool open(QWidget *, const QString &product, const QString &file) override
    {
        opened << product + ' ' + file;
        return false;
    }
    int checkAlreadyOpen(QWidget *, const QString &, const QString &, const QString &) override
    {
        return 0;
    }
    void switchFile(QWidget *, const QString &, const QString &, const QString &) override {}
    QStringList opened;
};

} // namespace

class tst_panel_apply : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void startState();
    void composed_data();
    void composed();
    void pathsBelowOutputFolder_data();
    void pathsBelowOutputFolder();
    void quoting_data();
    void quoting();
    void driftLetters_data();
    void driftLetters();
    void gelKindWaitsForNextChange();
    void densityCorrection();
    void useLatestModel();
    void useLatestWithoutRunKeepsFields();
    void useLatestNeedsRecord();
    void browseModelSetsOutputFolderOnce();
    void browseDatasource();
    void outputFolderChoiceAndUp();
    void editDatasourceAsksBroker();
    void commandFileNames_data();
    void commandFileNames();
    void commandFileRunsAndIsShown();
    void runOnStandIn();
    void runFailureTellsCode();
    void otherTasksIgnored();

private:
    template <typename T>
    T *control(const char *name) { return childOf<T>(panel.get(), name); }
    void setText(const char *name, const QString &text) { control<QLineEdit>(name)->setText(text); }
    QString command() { return control<QPlainTextEdit>("pteCommand")->toPlainText(); }
    QString program() { return QCoreApplication::applicationDirPath() + "/quva"; }

    WindowTestSupport support;
    UrlSink sink;
    RecordingBroker broker;
    std::unique_ptr<ExecutePanel> execute;
    std::unique_ptr<PanelApply> panel;
};

void tst_panel_apply::initTestCase()
{
    support.install();
    QDesktopServices::setUrlHandler("file", &sink, "openUrl");
    setWindowBroker(&broker);
}

void tst_panel_apply::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler("file");
    setWindowBroker(nullptr);
    support.uninstall();
}

void tst_panel_apply::init()
{
    support.reset();
    sink.urls.clear();
    broker.opened.clear();
    execute = std::make_unique<ExecutePanel>(nullptr, true);
    panel = std::make_unique<PanelApply>(nullptr, nullptr, execute.get());
}

void tst_panel_apply::cleanup()
{
    panel.reset();
    execute.reset();
}

void tst_panel_apply::startState()
{
    QVERIFY(control<QWidget>("widgetModel")->isHidden());
    QVERIFY(control<QRadioButton>("rbCSVDatasource")->isChecked());
    QCOMPARE(control<QComboBox>("cmbSeparator")->currentText(), QStringLiteral("COMMA"));
    QVERIFY(control<QComboBox>("cmbSeparator")->isEditable());
    QCOMPARE(control<QComboBox>("cmbSeparator")->count(), 4);
    QVERIFY(control<QCheckBox>("cbXMLDrift")->isChecked());
    QVERIFY(control<QCheckBox>("cbWordDrift")->isChecked());
    QVERIFY(!control<QCheckBox>("cbForceApply")->isChecked());
    QCOMPARE(control<QLineEdit>("leTargetDensity")->text(), QStringLiteral("5"));
    QVERIFY(control<QLineEdit>("leTargetDensity")->isHidden());
    QVERIFY(control<QLabel>("lblTargetDensity")->isHidden());
    QCOMPARE(control<QComboBox>("cmbAprioriMode")->currentIndex(), 0);
    QCOMPARE(control<QPushButton>("pbOuputDirectoryUp")->maximumWidth(), 35);
    QCOMPARE(command(), QString());
    QVERIFY(!control<QPlainTextEdit>("pteCommand")->isReadOnly());
}

// The four kinds and the separators, byte for byte.
void tst_panel_apply::composed_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("tail");
    QTest::newRow("csv comma") << "rbCSVDatasource" << "COMMA" << " -c COMMA /data/d.csv";
    QTest::newRow("csv tab") << "rbCSVDatasource" << "TAB" << " -c TAB /data/d.csv";
    QTest::newRow("csv semicolon") << "rbCSVDatasource" << "SEMICOLON" << " -c SEMICOLON /data/d.csv";
    QTest::newRow("csv hash") << "rbCSVDatasource" << "HASH" << " -c HASH /data/d.csv";
    QTest::newRow("csv typed") << "rbCSVDatasource" << "|" << " -c | /data/d.csv";
    QTest::newRow("sas") << "rbSASDatasource" << "COMMA" << " -s /data/d.csv";
    QTest::newRow("standard") << "rbStandardDatasource" << "COMMA" << " /data/d.csv";
}

void tst_panel_apply::composed()
{
    QFETCH(QString, kind);
    QFETCH(QString, separator);
    QFETCH(QString, tail);
    setText("leOutputDirectory", "/runs/r_002");
    setText("leModel", "/runs/r_002/r.ModelXML");
    control<QComboBox>("cmbSeparator")->setEditText(separator);
    setText("leDatasource", "/data/d.csv");
    QTest::mouseClick(control<QRadioButton>(kind.toLatin1().constData()), Qt::LeftButton);
    QCOMPARE(command(), program() + " -adw r.ModelXML" + tail);
}

void tst_panel_apply::pathsBelowOutputFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("expected");
    QTest::newRow("both below") << "D:/x" << "D:/x/m.ModelXML" << "D:/x/d.csv"
                                << " m.ModelXML -c COMMA /d.csv";
    QTest::newRow("mere prefix of the folder") << "D:/x" << "D:/xy/m.ModelXML" << "D:/xy/d.csv"
                                               << " /m.ModelXML -c COMMA y/d.csv";
    QTest::newRow("empty folder") << "" << "/m/m.ModelXML" << "/d/d.csv"
                                  << " m/m.ModelXML -c COMMA /d/d.csv";
    QTest::newRow("elsewhere") << "/out" << "/m/m.ModelXML" << "/d/d.csv"
                               << " /m/m.ModelXML -c COMMA /d/d.csv";
}

void tst_panel_apply::pathsBelowOutputFolder()
{
    QFETCH(QString, folder);
    QFETCH(QString, model);
    QFETCH(QString, data);
    QFETCH(QString, expected);
    setText("leModel", model);
    setText("leDatasource", data);
    setText("leOutputDirectory", folder);
    QCOMPARE(command(), program() + " -adw" + expected);
}

void tst_panel_apply::quoting_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("written");
    QTest::newRow("plain") << "/m/a.ModelXML" << "/m/a.ModelXML";
    QTest::newRow("blank") << "/m/a b.ModelXML" << "\"/m/a b.ModelXML\"";
    QTest::newRow("ampersand") << "/m/a&b.ModelXML" << "\"/m/a&b.ModelXML\"";
}

void tst_panel_apply::quoting()
{
    QFETCH(QString, path);
    QFETCH(QString, written);
    QCOMPARE(quotedPath(path), written);
    setText("leOutputDirectory", "/out");
    setText("leModel", path);
    QVERIFY(command().contains(" " + written + " -c COMMA"));
}

void tst_panel_apply::driftLetters_data()
{
    QTest::addColumn<bool>("xml");
    QTest::addColumn<bool>("word");
    QTest::addColumn<bool>("force");
    QTest::addColumn<QString>("flags");
    QTest::newRow("both") << true << true << false << " -adw ";
    QTest::newRow("none") << false << false << false << " -a ";
    QTest::newRow("xml alone") << true << false << false << " -ad ";
    QTest::newRow("word alone") << false << true << false << " -adw ";
    QTest::newRow("force") << false << false << true << " -af ";
    QTest::newRow("all") << true << true << true << " -adwf ";
}

void tst_panel_apply::driftLetters()
{
    QFETCH(bool, xml);
    QFETCH(bool, word);
    QFETCH(bool, force);
    QFETCH(QString, flags);
    const auto clickTo = [this](const char *name, bool state) {
        auto *box = control<QCheckBox>(name);
        if (box->isChecked() != state)
            QTest::mouseClick(box, Qt::LeftButton);
    };
    clickTo("cbXMLDrift", xml);
    clickTo("cbWordDrift", word);
    clickTo("cbForceApply", force);
    setText("leOutputDirectory", "/o");
    setText("leModel", "/o/m.ModelXML");
    QCOMPARE(command(), program() + flags + "m.ModelXML -c COMMA ");
}

void tst_panel_apply::gelKindWaitsForNextChange()
{
    setText("leOutputDirectory", "/o");
    setText("leDatasource", "/d/g.gel_velmorin");
    QVERIFY(command().contains(" -c COMMA "));
    QTest::mouseClick(control<QRadioButton>("rbGelDatasource"), Qt::LeftButton);
    QVERIFY(command().contains(" -c COMMA ")); // no slot of its own
    setText("leModel", "/o/m.ModelXML");
    QCOMPARE(command(), program() + " -adw m.ModelXML -g /d/g.gel_velmorin");
}

void tst_panel_apply::densityCorrection()
{
    auto *mode = control<QComboBox>("cmbAprioriMode");
    mode->setCurrentIndex(1);
    QVERIFY(!control<QLineEdit>("leTargetDensity")->isHidden());
    QVERIFY(!control<QLabel>("lblTargetDensity")->isHidden());
    QCOMPARE(command(), program() + " -adw -p=5  -c COMMA ");
    setText("leTargetDensity", "2.5%");
    QCOMPARE(command(), program() + " -adw -p=2.5%  -c COMMA ");
    mode->setCurrentIndex(0);
    QVERIFY(control<QLineEdit>("leTargetDensity")->isHidden());
    QCOMPARE(command(), program() + " -adw  -c COMMA ");
}

void tst_panel_apply::useLatestModel()
{
    support.copy("core/golden.DescXML", "golden.DescXML");
    const QString cfgPath = support.copy("core/defaults.CfgXML", "run.CfgXML");
    QDir(support.path("")).mkdir("run_001");
    QDir(support.path("")).mkdir("run_010");
    auto w = support.openWindow(cfgPath);
    PanelApply *page = w->applyPanel();
    QVERIFY(!childOf<QWidget>(page, "widgetModel")->isHidden());
    QTest::mouseClick(childOf<QPushButton>(page, "pbUseLatest"), Qt::LeftButton);
    QCOMPARE(childOf<QLineEdit>(page, "leModel")->text(), support.path("run_010/run.ModelXML"));
    QCOMPARE(childOf<QLineEdit>(page, "leOutputDirectory")->text(), support.path("run_010"));
    QVERIFY(childOf<QRadioButton>(page, "rbCSVDatasource")->isChecked());
    QCOMPARE(childOf<QComboBox>(page, "cmbSeparator")->currentText(), QStringLiteral("SEMICOLON"));
    QCOMPARE(childOf<QLineEdit>(page, "leDatasource")->text(), QStringLiteral("C:\\data\\credit.csv"));
    QCOMPARE(page->command(), QCoreApplication::applicationDirPath()
                                  + "/quva -adw run.ModelXML -c SEMICOLON C:\\data\\credit.csv");
}

void tst_panel_apply::useLatestWithoutRunKeepsFields()
{
    support.copy("core/golden.DescXML", "golden.DescXML");
    auto w = support.openWindow(support.copy("core/defaults.CfgXML", "run.CfgXML"));
    PanelApply *page = w->applyPanel();
    childOf<QLineEdit>(page, "leModel")->setText("/kept.ModelXML");
    QTest::mouseClick(childOf<QPushButton>(page, "pbUseLatest"), Qt::LeftButton);
    QCOMPARE(childOf<QLineEdit>(page, "leModel")->text(), QStringLiteral("/kept.ModelXML"));
}

void tst_panel_apply::useLatestNeedsRecord()
{
    panel->on_pbUseLatest_clicked();
    QCOMPARE(control<QLineEdit>("leModel")->text(), QString());
    QuvaCfgXMLEditor w;
    QVERIFY(childOf<QWidget>(w.applyPanel(), "widgetModel")->isHidden());
}

void tst_panel_apply::browseModelSetsOutputFolderOnce()
{
    support.fileAnswers << "/a/b/m.ModelXML";
    QTest::mouseClick(control<QPushButton>("pbBrowseModel"), Qt::LeftButton);
    QCOMPARE(support.fileQuestions, QStringList{"Choose model file"});
    QCOMPARE(control<QLineEdit>("leModel")->text(), QStringLiteral("/a/b/m.ModelXML"));
    QCOMPARE(control<QLineEdit>("leOutputDirectory")->text(), QStringLiteral("/a/b"));
    support.fileAnswers << "/c/n.ModelXML";
    QTest::mouseClick(control<QPushButton>("pbBrowseModel"), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>("leOutputDirectory")->text(), QStringLiteral("/a/b"));
    // Cancelled: nothing changes.
    QTest::mouseClick(control<QPushButton>("pbBrowseModel"), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>("leModel")->text(), QStringLiteral("/c/n.ModelXML"));
}

void tst_panel_apply::browseDatasource()
{
    const struct { const char *kind; const char *caption; } kinds[] = {
        {"rbGelDatasource", "Open Velmorin Gel file"},
        {"rbSASDatasource", "Choose SAS file"},
        {"rbStandardDatasource", "Choose Data Source file"},
        {"rbCSVDatasource", "Choose CSV/TXT file"}};
    for (const auto &k : kinds) {
        QTest::mouseClick(control<QRadioButton>(k.kind), Qt::LeftButton);
        QTest::mouseClick(control<QPushButton>("pbBrowseDatasource"), Qt::LeftButton);
        QCOMPARE(support.fileQuestions.takeLast(), QString::fromLatin1(k.caption));
    }
    support.fileAnswers << support.path("repo/d.csv");
    QTest::mouseClick(control<QPushButton>("pbBrowseDatasource"), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>("leDatasource")->text(), support.path("repo/d.csv"));
    QCOMPARE(universDir(), support.path("repo"));
    // From the last folder: LastDir ends up one level above the file's folder.
    support.fileAnswers << support.path("last/sub/e.csv");
    QTest::mouseClick(control<QPushButton>("pbBrowseDatasource2"), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>("leDatasource")->text(), support.path("last/sub/e.csv"));
    QCOMPARE(lastDir(), support.path("last"));
}

void tst_panel_apply::outputFolderChoiceAndUp()
{
    support.fileAnswers << "/a/b/c";
    QTest::mouseClick(control<QPushButton>("pbBrowseOutputDirectory"), Qt::LeftButton);
    QCOMPARE(support.fileQuestions, QStringList{"Choose Output Directory"});
    QCOMPARE(control<QLineEdit>("leOutputDirectory")->text(), QStringLiteral("/a/b/c"));
    QTest::mouseClick(control<QPushButton>("pbOuputDirectoryUp"), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>("leOutputDirectory")->text(), QStringLiteral("/a/b"));
    QTest::mouseClick(control<QPushButton>("pbOpenOutputDirectory"), Qt::LeftButton);
    QCOMPARE(sink.paths(), QStringList{"/a/b"});
}

void tst_panel_apply::editDatasourceAsksBroker()
{
    QTest::mouseClick(control<QPushButton>("pbEditDatasource"), Qt::LeftButton);
    setText("leDatasource", "/d/s.DSourceXML");
    QTest::mouseClick(control<QPushButton>("pbEditDatasource"), Qt::LeftButton);
    setText("leDatasource", "/d/s.dsourcexml");
    QTest::mouseClick(control<QPushButton>("pbEditDatasource"), Qt::LeftButton);
    QCOMPARE(broker.opened, (QStringList{"Quva .DSourceXML", "Quva /d/s.DSourceXML",
                                         "Quva .DSourceXML"}));
}

void tst_panel_apply::commandFileNames_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("file");
    QTest::newRow("model") << "/r/m.ModelXML" << "/d/credit.csv" << "/o/m_appliedOn_credit.sh";
    QTest::newRow("segmentation model keeps its dot")
        << "/r/s.SModelXML" << "/d/a.b.csv" << "/o/s._appliedOn_a.b.sh";
    QTest::newRow("no folders") << "m.ModelXML" << "credit.csv" << "/o/m_appliedOn_credit.sh";
}

void tst_panel_apply::commandFileNames()
{
    QFETCH(QString, model);
    QFETCH(QString, data);
    QFETCH(QString, file);
    QCOMPARE(applyCommandFile("/o", model, data), file);
}

// The saved file holds the command as it stands, runs in a shell, and is
// shown to the user.
void tst_panel_apply::commandFileRunsAndIsShown()
{
    setText("leOutputDirectory", support.path(""));
    setText("leModel", support.path("m.ModelXML"));
    setText("leDatasource", "/data/my data.csv");
    control<QPlainTextEdit>("pteCommand")->appendPlainText("# changed by hand");
    QTest::mouseClick(control<QPushButton>("pbSaveCommand"), Qt::LeftButton);
    const QString file = support.path("m_appliedOn_my data.sh");
    QCOMPARE(sink.paths(), QStringList{file});
    QCOMPARE(WindowTestSupport::bytes(file), command().toUtf8());
    QVERIFY(QFileInfo(file).permissions() & QFileDevice::ExeOwner);
    QProcess bash;
    bash.start("bash", {"-n", file});
    QVERIFY(bash.waitForFinished(10000));
    QCOMPARE(bash.exitCode(), 0);
}

void tst_panel_apply::runOnStandIn()
{
    QDir(support.path("")).mkdir("out");
    QFile model(support.path("out/m.ModelXML"));
    QVERIFY(model.open(QIODevice::WriteOnly));
    model.write("<Model/>");
    model.close();
    setText("leOutputDirectory", support.path("out"));
    setText("leModel", support.path("out/m.ModelXML"));
    setText("leDatasource", support.path("out/d.csv"));
    QString text = command();
    text.replace(program(), QStringLiteral(QUVA_BINARY_DIR "/standin/quva"));
    control<QPlainTextEdit>("pteCommand")->setPlainText(text);
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    qputenv("QUVA_STANDIN_DELAY_MS", "1");
    QTest::mouseClick(control<QPushButton>("pbRunApply"), Qt::LeftButton);
    QVERIFY(finished.wait(20000));
    qunsetenv("QUVA_STANDIN_DELAY_MS");
    QCOMPARE(finished.at(0).at(0).toInt(), PanelApply::taskNumber);
    QCOMPARE(execute->workingDirectory(), support.path("out"));
    QCOMPARE(support.questions, QStringList{"Model Apply finished successfully."});
    QVERIFY(QFileInfo::exists(support.path("out/m_appliedOn_d_apply.txt")));
}

void tst_panel_apply::runFailureTellsCode()
{
    setText("leOutputDirectory", support.path("missing-folder"));
    QSignalSpy finished(execute.get(), &ExecutePanel::myFinishExe);
    QTest::mouseClick(control<QPushButton>("pbRunApply"), Qt::LeftButton);
    QVERIFY(finished.count() == 1 || finished.wait(10000));
    QCOMPARE(support.questions,
             QStringList{"Error in Model Apply.\nCheck the Execution Log.\nError Code=-1"});
}

void tst_panel_apply::otherTasksIgnored()
{
    panel->on_myFinishExe(0, 0, 0);
    panel->on_myFinishExe(1, 3, 0);
    QVERIFY(support.questions.isEmpty());
    panel->on_myFinishExe(PanelApply::taskNumber, 3, 0);
    QCOMPARE(support.questions,
             QStringList{"Error in Model Apply.\nCheck the Execution Log.\nError Code=3"});
}

QUVA_WINDOW_TEST_MAIN(tst_panel_apply)
#include "tst_panel_apply.moc"
