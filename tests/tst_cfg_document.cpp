// The document behind the window: what it tells the window, the broker and
// the recent list on open and save, and the watch on its two files.

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "shell/cfg_document.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"
#include "shell/window_broker.h"

#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

#include <utime.h>

namespace {

const QString dataDir = QStringLiteral(QUVA_TEST_DATA "/core");

class RecordingBroker final : public WindowBroker
{
public:
    bool open(QWidget *, const QString &, const QString &) override { return false; }
    int checkAlreadyOpen(QWidget *parent, const QString &product, const QString &file,
                         const QString &title) override
    {
        asked << product + '|' + file + '|' + title;
        parents << parent;
        return answer;
    }
    void switchFile(QWidget *, const QString &product, const QString &oldFile,
                    const QString &newFile) override
    {
        switches << product + '|' + oldFile + '|' + newFile;
    }
    QStringList asked;
    QList<QWidget *> parents;
    QStringList switches;
    int answer = 0;
};

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Moves the file's modification time by `seconds`, as an edit elsewhere would.
void touch(const QString &path, int seconds)
{
    const QDateTime when = QFileInfo(path).lastModified().addSecs(seconds);
    utimbuf times{when.toSecsSinceEpoch(), when.toSecsSinceEpoch()};
    QCOMPARE(utime(QFile::encodeName(path).constData(), &times), 0);
}

} // namespace

class tst_cfg_document : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void openTellsPreviousFile();
    void placeComesFirstAndAlsoOnFailure();
    void failedOpenKeepsRecord();
    void notifyingOpenAsksAndAnnounces();
    void otherWindowKeepsFile();
    void otherWindowTakesOver();
    void quietOpenNeitherAsksNorAnnounces();
    void descriptionNeverEntersRecentList();
    void stackEmptiedBeforeRecordGoes();
    void saveWritesWindowPlace();
    void saveAsCancelled();
    void saveAsElsewhereOpensAgain();
    void saveWithoutRecord();
    void releaseHandsBackBothFiles();
    void watcherReportsChange();
    void activationComparesTimes();

private:
    QString copyFixture(const QString &name, const QString &as);

    QTemporaryDir home;
    std::unique_ptr<QTemporaryDir> files;
    RecordingBroker broker;
    QWidget window;
    GuiReporter boxes{&window};
    QStringList fileAnswers;
};

void tst_cfg_document::initTestCase()
{
    QVERIFY(home.isValid());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
    setWindowBroker(&broker);
    setReporter(&boxes);
    setQuestionHook([](const UserQuestion &q) -> QMessageBox::StandardButton {
        qWarning("unexpected box: %s", qPrintable(q.text));
        return QMessageBox::Ok;
    });
    setFileDialogHook([this](const FileQuestion &) {
        return fileAnswers.isEmpty() ? QString() : fileAnswers.takeFirst();
    });
}

void tst_cfg_document::init()
{
    QSettings("Brandolin", "QUV").clear();
    files.reset(new QTemporaryDir);
    QVERIFY(files->isValid());
    QVERIFY(QFile::copy(dataDir + "/golden.DescXML", files->filePath("golden.DescXML")));
    broker = RecordingBroker();
    fileAnswers.clear();
}

void tst_cfg_document::cleanupTestCase()
{
    setWindowBroker(nullptr);
    setReporter(nullptr);
    setQuestionHook(nullptr);
    setFileDialogHook(nullptr);
}

QString tst_cfg_document::copyFixture(const QString &name, const QString &as)
{
    const QString path = files->filePath(as);
    QFile::copy(dataDir + "/" + name, path);
    return path;
}

void tst_cfg_document::openTellsPreviousFile()
{
    CfgDocument doc(&window);
    QSignalSpy loaded(&doc, &CfgDocument::loaded);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    const QString b = copyFixture("vars.CfgXML", "b.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    QVERIFY(doc.openConfigFile(b, false));
    QCOMPARE(loaded.count(), 2);
    QCOMPARE(loaded.at(0).at(0).toString(), QString());
    QCOMPARE(loaded.at(1).at(0).toString(), a);
    QCOMPARE(doc.fileName(), b);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), (QStringList{b, a}));
    QVERIFY(doc.undoStack()->isClean());
    QCOMPARE(doc.undoStack()->count(), 0);
}

void tst_cfg_document::placeComesFirstAndAlsoOnFailure()
{
    CfgDocument doc(&window);
    QStringList events;
    connect(&doc, &CfgDocument::placeRead, this, [&](const WorkingSpace &p) {
        events << QStringLiteral("place %1,%2 %3x%4").arg(p.x).arg(p.y).arg(p.w).arg(p.h);
    });
    connect(&doc, &CfgDocument::loaded, this, [&] { events << "loaded"; });
    const QString path = copyFixture("working_space.CfgXML", "p.CfgXML");
    QVERIFY(doc.openConfigFile(path, false));
    QCOMPARE(events, (QStringList{"place 10,20 800x600", "loaded"}));

    // A description that is missing: the place was read all the same.
    events.clear();
    QByteArray text = fileBytes(path);
    text.replace("golden.DescXML", "gone.DescXML");
    QFile out(files->filePath("q.CfgXML"));
    QVERIFY(out.open(QIODevice::WriteOnly) && out.write(text) == text.size());
    out.close();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("unexpected box: .*Empty Description"));
    QVERIFY(!doc.openConfigFile(out.fileName(), false));
    QCOMPARE(events, (QStringList{"place 10,20 800x600"}));
}

void tst_cfg_document::failedOpenKeepsRecord()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    const CfgModel *record = doc.cfg();
    QSignalSpy loaded(&doc, &CfgDocument::loaded);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("unexpected box: .*not loaded"));
    QVERIFY(!doc.openConfigFile(files->filePath("none.CfgXML"), true));
    QCOMPARE(doc.cfg(), record);
    QCOMPARE(loaded.count(), 0);
    QCOMPARE(settingsStringList(recentCfgXmlKey()), QStringList{a});
    QVERIFY(broker.switches.isEmpty());
}

void tst_cfg_document::notifyingOpenAsksAndAnnounces()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    const QString b = copyFixture("vars.CfgXML", "b.CfgXML");
    QVERIFY(doc.openConfigFile(a, true));
    QVERIFY(doc.openConfigFile(b, true));
    QCOMPARE(broker.asked, (QStringList{"Quva|" + a + "|Quva Cfg XML Editor Warning",
                                        "Quva|" + b + "|Quva Cfg XML Editor Warning"}));
    QCOMPARE(broker.parents, (QList<QWidget *>{&window, &window}));
    QCOMPARE(broker.switches, (QStringList{"Quva||" + a, "Quva|" + a + "|" + b}));

    // The file this window holds is not asked about again.
    broker.asked.clear();
    QVERIFY(doc.openConfigFile(b, true));
    QVERIFY(broker.asked.isEmpty());
}

void tst_cfg_document::otherWindowKeepsFile()
{
    CfgDocument doc(&window);
    QSignalSpy end(&doc, &CfgDocument::endProcessRequested);
    broker.answer = 1;
    QVERIFY(!doc.openConfigFile(copyFixture("defaults.CfgXML", "a.CfgXML"), true));
    QVERIFY(!doc.cfg());
    QCOMPARE(end.count(), 0);
    QVERIFY(broker.switches.isEmpty());
}

void tst_cfg_document::otherWindowTakesOver()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    QSignalSpy end(&doc, &CfgDocument::endProcessRequested);
    int places = 0;
    connect(&doc, &CfgDocument::placeRead, this, [&] { ++places; });
    broker.answer = 2;
    QVERIFY(!doc.openConfigFile(copyFixture("working_space.CfgXML", "b.CfgXML"), true));
    QCOMPARE(end.count(), 1);
    QCOMPARE(places, 0);
    QCOMPARE(doc.fileName(), a);

    // For the sibling of a description the answer abandons the load only.
    end.clear();
    QDir().mkpath(files->filePath("d"));
    QVERIFY(QFile::copy(dataDir + "/golden.DescXML", files->filePath("d/x.DescXML")));
    QVERIFY(QFile::copy(dataDir + "/defaults.CfgXML", files->filePath("dx.CfgXML")));
    QVERIFY(!doc.openDescriptionFile(files->filePath("d/x.DescXML"), true));
    QCOMPARE(end.count(), 0);
    QCOMPARE(doc.fileName(), a);
}

void tst_cfg_document::quietOpenNeitherAsksNorAnnounces()
{
    CfgDocument doc(&window);
    QVERIFY(doc.openConfigFile(copyFixture("defaults.CfgXML", "a.CfgXML"), false));
    QVERIFY(broker.asked.isEmpty());
    QVERIFY(broker.switches.isEmpty());
}

void tst_cfg_document::descriptionNeverEntersRecentList()
{
    CfgDocument doc(&window);
    QVERIFY(doc.openDescriptionFile(files->filePath("golden.DescXML"), true));
    QVERIFY(doc.cfg());
    QVERIFY(doc.fileName().isEmpty());
    QVERIFY(settingsStringList(recentCfgXmlKey()).isEmpty());
}

void tst_cfg_document::stackEmptiedBeforeRecordGoes()
{
    CfgDocument doc(&window);
    QVERIFY(doc.openConfigFile(copyFixture("defaults.CfgXML", "a.CfgXML"), false));
    doc.undoStack()->push(new UpdateTemplateCommand<int>(&doc.cfg()->nValSet, 9,
                                                         "nbr Validation sets", 1, true));
    QCOMPARE(doc.undoStack()->count(), 1);
    QVERIFY(!doc.undoStack()->isClean());
    QVERIFY(doc.openConfigFile(copyFixture("vars.CfgXML", "b.CfgXML"), false));
    QCOMPARE(doc.undoStack()->count(), 0);
    QVERIFY(doc.undoStack()->isClean());
}

void tst_cfg_document::saveWritesWindowPlace()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, true));
    broker.switches.clear();
    doc.undoStack()->push(new UpdateTemplateCommand<int>(&doc.cfg()->nValSet, 9,
                                                         "nbr Validation sets", 1, true));
    QSignalSpy saved(&doc, &CfgDocument::saved);
    QVERIFY(doc.saveConfig(false, WorkingSpace{3, 4, 640, 480}));
    QCOMPARE(saved.count(), 1);
    QVERIFY(doc.undoStack()->isClean());
    const QByteArray bytes = fileBytes(a);
    QVERIFY(bytes.contains("<WorkingSpace x='3' y='4' w='640' h='480'/>"));
    QVERIFY(bytes.contains("nValSet='9'"));
    QCOMPARE(broker.switches, QStringList{"Quva|" + a + "|" + a});

    // Save as: the name asked for, the old one given back.
    const QString b = files->filePath("b.CfgXML");
    fileAnswers << b;
    broker.switches.clear();
    QVERIFY(doc.saveConfig(true, WorkingSpace{3, 4, 640, 480}));
    QCOMPARE(doc.fileName(), b);
    QCOMPARE(broker.switches, QStringList{"Quva|" + a + "|" + b});
    QCOMPARE(settingsStringList(recentCfgXmlKey()).first(), b);
    QCOMPARE(lastDir(), files->path());
}

void tst_cfg_document::saveAsCancelled()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    const QByteArray before = fileBytes(a);
    QSignalSpy saved(&doc, &CfgDocument::saved);
    QVERIFY(!doc.saveConfig(true, WorkingSpace{}));
    QCOMPARE(saved.count(), 0);
    QCOMPARE(doc.fileName(), a);
    QCOMPARE(fileBytes(a), before);
}

// "Save As" to a bare name in another folder: the ending is added, and the
// relative description path follows, so that the file opens again.
void tst_cfg_document::saveAsElsewhereOpensAgain()
{
    CfgDocument doc(&window);
    QVERIFY(doc.openConfigFile(copyFixture("defaults.CfgXML", "a.CfgXML"), false));
    QCOMPARE(doc.cfg()->desc->fileName, QStringLiteral("golden.DescXML"));
    QVERIFY(QDir().mkpath(files->filePath("elsewhere")));
    fileAnswers << files->filePath("elsewhere/saveas1");
    QVERIFY(doc.saveConfig(true, WorkingSpace{}));
    const QString saved = files->filePath("elsewhere/saveas1.CfgXML");
    QCOMPARE(doc.fileName(), saved);
    QVERIFY(QFile::exists(saved));
    QVERIFY(fileBytes(saved).contains("../golden.DescXML"));
    QCOMPARE(settingsStringList(recentCfgXmlKey()).first(), saved);

    CfgDocument again(&window);
    QVERIFY(again.openConfigFile(saved, false));
    QCOMPARE(QDir::cleanPath(descFilePath(*again.cfg())), files->filePath("golden.DescXML"));
}

void tst_cfg_document::saveWithoutRecord()
{
    CfgDocument doc(&window);
    QVERIFY(!doc.saveConfig(false, WorkingSpace{}));
    QVERIFY(broker.switches.isEmpty());
}

void tst_cfg_document::releaseHandsBackBothFiles()
{
    CfgDocument doc(&window);
    doc.release(); // nothing open: nothing said
    QVERIFY(broker.switches.isEmpty());
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    doc.release();
    QCOMPARE(broker.switches, (QStringList{"Quva|" + a + "|",
                                           "Quva|" + files->filePath("golden.DescXML") + "|"}));
}

void tst_cfg_document::watcherReportsChange()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    QCOMPARE(doc.cfg()->watcher.files().size(), 2);
    QSignalSpy changed(&doc, &CfgDocument::changedOnDisk);
    QFile file(a);
    QVERIFY(file.open(QIODevice::Append));
    file.write("\n");
    file.close();
    QVERIFY(changed.wait(5000));
}

void tst_cfg_document::activationComparesTimes()
{
    CfgDocument doc(&window);
    const QString a = copyFixture("defaults.CfgXML", "a.CfgXML");
    QVERIFY(doc.openConfigFile(a, false));
    doc.stopWatching();
    QVERIFY(doc.cfg()->watcher.files().isEmpty());
    QSignalSpy changed(&doc, &CfgDocument::changedOnDisk);
    doc.checkOnActivation();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(doc.cfg()->watcher.files().size(), 2);

    doc.stopWatching();
    touch(a, -60); // older counts as changed too
    touch(files->filePath("golden.DescXML"), 60);
    doc.checkOnActivation();
    QCOMPARE(changed.count(), 2); // once per file, the question left to the window
}

QTEST_MAIN(tst_cfg_document)
#include "tst_cfg_document.moc"
