#include "broker_test_support.h"
#include "question_recorder.h"
#include "window_test_main.h"

#include "core/cfg_model.h"
#include "shell/broker_ensure_server.h"
#include "shell/cfg_document.h"
#include "shell/gui_reporter.h"
#include "shell/main_window.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

// Editors of the family meeting through the window broker: two real
// processes on one file, and what a window tells the server about files
// it opens and closes.

namespace {

// Copies a file of the core tests' data into the test's folder.
bool copyFixture(const QString &fixture, const QString &path)
{
    return QFile::copy(QStringLiteral(QUVA_TEST_DATA "/core/") + fixture, path);
}

bool listening(const QString &name, int msecs)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < msecs) {
        QLocalSocket probe;
        probe.connectToServer(name);
        if (probe.waitForConnected(1000))
            return true;
        QThread::msleep(50);
    }
    return false;
}

struct DriverRun
{
    bool finished = false;
    int exitCode = -1;
    QStringList questions;
    QStringList records;
};

} // namespace

class tst_broker_editors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void yesHandsOverAndEndsWithZero();
    void noKeepsOldRecord();
    void closingDescriptionWithoutConfiguration();
    void yesForSiblingKeepsOldState();
    void windowsMenuAndApplyPageOpenThroughServer();

private:
    QProcessEnvironment environment() const;
    qint64 startFirstEditor();
    DriverRun runDriver(const char *answer);

    QTemporaryDir dir;
    QString name;
    int serial = 0;
    QString descPath;
    QString oldPath;
    QString contestedPath;
    std::unique_ptr<ServerProcess> server;
    qint64 firstEditor = 0;
    QuestionRecorder boxes;
};

void tst_broker_editors::initTestCase()
{
    QVERIFY(dir.isValid());
    keepSettingsIn(dir.path());
    QVERIFY(QDir().mkpath(dir.filePath(QStringLiteral("home/.config"))));
    QVERIFY(QDir().mkpath(dir.filePath(QStringLiteral("sub"))));
    QVERIFY(QDir().mkpath(dir.filePath(QStringLiteral("other"))));
    descPath = dir.filePath(QStringLiteral("golden.DescXML"));
    oldPath = dir.filePath(QStringLiteral("old.CfgXML"));
    contestedPath = dir.filePath(QStringLiteral("contested.CfgXML"));
    // Both configurations name the description "golden.DescXML" beside them.
    QVERIFY(copyFixture(QStringLiteral("golden.DescXML"), descPath));
    QVERIFY(copyFixture(QStringLiteral("defaults.CfgXML"), oldPath));
    QVERIFY(copyFixture(QStringLiteral("defaults.CfgXML"), contestedPath));
    boxes.install();
    // The windows of this process find no server file.
    qputenv("QUVA_APP_DIR", dir.filePath(QStringLiteral("empty")).toLocal8Bit());
}

void tst_broker_editors::init()
{
    name = dir.filePath(QStringLiteral("s%1").arg(++serial));
    qputenv("QUVA_BROKER_NAME", name.toLocal8Bit());
    brokerForgetServer();
    boxes.questions.clear();
    server = std::make_unique<ServerProcess>();
    firstEditor = 0;
}

void tst_broker_editors::cleanup()
{
    if (firstEditor > 0) {
        ::kill(pid_t(firstEditor), SIGTERM);
        QVERIFY(processEnded(firstEditor));
    }
    server.reset();
}

QProcessEnvironment tst_broker_editors::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("HOME"), dir.filePath(QStringLiteral("home")));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), dir.filePath(QStringLiteral("home/.config")));
    env.insert(QStringLiteral("QUVA_BROKER_NAME"), name);
    env.remove(QStringLiteral("QUVA_APP_DIR"));
    return env;
}

// The server starts a real editor on the contested file and counts it as
// the holder; the editor is ready once it listens for the server.
qint64 tst_broker_editors::startFirstEditor()
{
    if (!server->start(name, {}, environment()))
        return 0;
    TestConversation c;
    if (!c.open(name) ||
        c.execute(QStringLiteral("[Open \"%1\"]").arg(contestedPath)) != BrokerAcknowledged)
        return 0;
    firstEditor = pidInLine(server->waitForLine(QStringLiteral("for ") + contestedPath));
    if (firstEditor <= 0 || !listening(brokerListenerName(name, firstEditor), 30000))
        return 0;
    return firstEditor;
}

DriverRun tst_broker_editors::runDriver(const char *answer)
{
    QProcess driver;
    driver.setProcessEnvironment(environment());
    driver.start(QStringLiteral(EDITOR_DRIVER),
                 {QString::fromLatin1(answer), oldPath, contestedPath});
    DriverRun run;
    run.finished = driver.waitForFinished(60000);
    if (!run.finished) {
        driver.kill();
        driver.waitForFinished(5000);
    }
    run.exitCode = driver.exitStatus() == QProcess::NormalExit ? driver.exitCode() : -2;
    for (const QString &line : QString::fromUtf8(driver.readAllStandardOutput()).split('\n')) {
        if (line.startsWith(QLatin1String("question: ")))
            run.questions << line.mid(10);
        else if (line.startsWith(QLatin1String("record: ")))
            run.records << line.mid(8);
    }
    return run;
}

// Yes: the first editor is asked to come forward and the second ends at
// once, with exit code 0 and no further box.
void tst_broker_editors::yesHandsOverAndEndsWithZero()
{
    QVERIFY(startFirstEditor() > 0);
    const DriverRun run = runDriver("yes");
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.questions,
             QStringList{QStringLiteral("Quva Cfg XML Editor Warning|The file\\n'%1'\\nis already "
                                        "opened in another window.\\n\\nDo nothing in this "
                                        "window and re-open the other one?")
                             .arg(contestedPath)});
    QVERIFY(run.records.isEmpty());
    QVERIFY(!server
                 ->waitForLine(QStringLiteral("raised process %1 for %2")
                                   .arg(QString::number(firstEditor), contestedPath))
                 .isEmpty());
    QVERIFY(!processEnded(firstEditor, 0));
    TestConversation c;
    QVERIFY(c.open(name));
    QCOMPARE(c.execute(QStringLiteral("[IsOpen \"%1\"]").arg(contestedPath)),
             int(BrokerAcknowledged));
    // The second editor gave back the file it held before.
    QCOMPARE(c.execute(QStringLiteral("[IsOpen \"%1\"]").arg(oldPath)), int(BrokerFailed));
}

// No: the second editor goes on with the record it had; nobody is raised.
void tst_broker_editors::noKeepsOldRecord()
{
    QVERIFY(startFirstEditor() > 0);
    const DriverRun run = runDriver("no");
    QVERIFY(run.finished);
    QCOMPARE(run.exitCode, 10);
    QCOMPARE(run.questions.size(), 1);
    QVERIFY(run.questions.at(0).startsWith(QLatin1String("Quva Cfg XML Editor Warning|")));
    QCOMPARE(run.records, QStringList{oldPath});
    QVERIFY(!server->journal().contains(QLatin1String("raised")));
    QVERIFY(!processEnded(firstEditor, 0));
}

// A description without its .CfgXML leaves the configuration without a
// name: closing sends no Close for it, only for the description.
void tst_broker_editors::closingDescriptionWithoutConfiguration()
{
    FakeBroker fake(name, [](const QString &) { return 0; });
    QVERIFY(fake.begin());
    const QString lone = dir.filePath(QStringLiteral("other/lone.DescXML"));
    QVERIFY(copyFixture(QStringLiteral("golden.DescXML"), lone));
    auto window = std::make_unique<QuvaCfgXMLEditor>();
    window->openDescriptionFile(lone, true);
    QVERIFY(window->cfg());
    QVERIFY(window->document().fileName().isEmpty());
    QVERIFY(fake.commandConversations().isEmpty());
    window->close();
    const QList<QStringList> sent{{"topic system", "execute [Close \"" + lone + "\"]"}};
    QCOMPARE(fake.commandConversations(), sent);
    QVERIFY(boxes.questions.isEmpty());
}

// Yes about the .CfgXML beside a description hands that file to the other
// window, and this one stays as it was.
void tst_broker_editors::yesForSiblingKeepsOldState()
{
    FakeBroker fake(name, [](const QString &command) {
        return command.startsWith(QLatin1String("[IsOpen")) ? BrokerAcknowledged : 0;
    });
    QVERIFY(fake.begin());
    // The sibling is found by gluing the folder and the name together.
    const QString desc = dir.filePath(QStringLiteral("sub/held.DescXML"));
    const QString sibling = dir.filePath(QStringLiteral("subheld.CfgXML"));
    QVERIFY(copyFixture(QStringLiteral("golden.DescXML"), desc));
    QVERIFY(copyFixture(QStringLiteral("defaults.CfgXML"), sibling));
    QuvaCfgXMLEditor window;
    window.show();
    window.openConfigFile(oldPath, false);
    QCOMPARE(window.document().fileName(), oldPath);
    CfgModel *before = window.cfg();
    QSignalSpy ended(&window.document(), &CfgDocument::endProcessRequested);
    boxes.answer = QMessageBox::Yes;
    window.openDescriptionFile(desc, true);
    QCOMPARE(boxes.questions.size(), 1);
    QVERIFY(boxes.questions.at(0).text.contains(sibling));
    QCOMPARE(ended.count(), 0);
    QVERIFY(window.isVisible());
    QCOMPARE(window.cfg(), before);
    QCOMPARE(window.document().fileName(), oldPath);
    const QList<QStringList> sent{{"topic system", "execute [IsOpen \"" + sibling + "\"]",
                                   "execute [Open \"" + sibling + "\"]"}};
    QCOMPARE(fake.commandConversations(), sent);
}

// "New Window", the menu of windows and the apply page's data source
// button, each an Open of its own with the real client.
void tst_broker_editors::windowsMenuAndApplyPageOpenThroughServer()
{
    FakeBroker fake(name, [](const QString &) { return 0; });
    QVERIFY(fake.begin());
    QuvaCfgXMLEditor window;
    window.openConfigFile(oldPath, false); // the apply page wants a record
    for (const char *action : {"actionNewWindow", "actionOpenWindowMain", "actionOpenWindowDSource",
                               "actionOpenWindowType", "actionOpenWindowModel"})
        window.findChild<QAction *>(QLatin1String(action))->trigger();
    auto *source = window.findChild<QLineEdit *>(QStringLiteral("leDatasource"));
    auto *edit = window.findChild<QPushButton *>(QStringLiteral("pbEditDatasource"));
    QVERIFY(source && edit);
    source->setText(QStringLiteral("/d/loans.DSourceXML"));
    edit->click();
    source->setText(QStringLiteral("/d/loans.csv"));
    edit->click();
    QStringList opened;
    for (const QStringList &c : fake.commandConversations())
        opened << c.mid(1);
    QCOMPARE(opened,
             (QStringList{"execute [Open \".CfgXML\"]", "execute [Open \".MainMenu\"]",
                          "execute [Open \".DSourceXML\"]", "execute [Open \".TypeXML\"]",
                          "execute [Open \".ModelXML\"]", "execute [Open \"/d/loans.DSourceXML\"]",
                          "execute [Open \".DSourceXML\"]"}));
    QVERIFY(boxes.questions.isEmpty());
}

QUVA_WINDOW_TEST_MAIN(tst_broker_editors)
#include "tst_broker_editors.moc"
