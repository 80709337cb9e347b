#include "shell/var_list_window.h"
#include "modal_helper.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QElapsedTimer>
#include <QtTest>

#include <sys/stat.h>

namespace {

QStringList nonEmptyLines(const QString &text)
{
    return text.split('\n', Qt::SkipEmptyParts);
}

// Runs `act` on the modal widget as soon as one is shown.
} // namespace

class tst_var_list_window : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void specialTrimLine_data();
    void specialTrimLine();
    void form();
    void thirdBoxHidden();
    void trimReversesList();
    void trimTwiceShortensTrailingDigits();
    void okKeepsNames();
    void okWithEmptyList();
    void boxesMapToFlags();
    void cancelRestoresAcceptedState();
    void loadFile_data();
    void loadFile();
    void oddListFiles();
    void returnInFileNameLoads();
    void execIsReused();
    void browseLoadsChosenFile();

private:
    QPlainTextEdit *list(VarListWindow &w) { return w.findChild<QPlainTextEdit *>("pteVarList"); }
    QLineEdit *fileName(VarListWindow &w) { return w.findChild<QLineEdit *>("leFilename"); }
    QCheckBox *box(VarListWindow &w, const char *name) { return w.findChild<QCheckBox *>(name); }
    QPushButton *button(VarListWindow &w, const char *name)
    {
        return w.findChild<QPushButton *>(name);
    }
    QString writeFile(const QByteArray &bytes)
    {
        static int count = 0;
        const QString path = home.path() + QStringLiteral("/list%1.txt").arg(++count);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return path;
    }

    QTemporaryDir home;
};

void tst_var_list_window::initTestCase()
{
    QVERIFY(home.isValid());
    qputenv("HOME", QFile::encodeName(home.path()));
    qunsetenv("XDG_CONFIG_HOME");
    QStandardPaths::setTestModeEnabled(true);
}

void tst_var_list_window::specialTrimLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("report line") << "12) age 0.35" << "age";
    QTest::newRow("bare name") << "age" << "age";
    QTest::newRow("single digit") << "7" << "7";
    QTest::newRow("comma number") << "12, age" << "age";
    QTest::newRow("number alone") << "123" << "1";
    QTest::newRow("letter before trailing digits") << "age2" << "ag";
    // The scan stops on the "b" and leaves the dot in front of it.
    QTest::newRow("dots and trailing digit") << "a.b.5" << "a.";
    QTest::newRow("no blank after sign") << "12)age" << "ge";
    QTest::newRow("sign at the end") << "12)" << "12)";
    QTest::newRow("report line with percent") << "3) income_log 12.5" << "income_log";
    QTest::newRow("windows line end") << "4) region 0.1\r" << "region 0.1";
    QTest::newRow("blank in front") << " name" << "name";
    QTest::newRow("nothing left") << "1) 5" << "";
}

void tst_var_list_window::specialTrimLine()
{
    QFETCH(QString, line);
    QFETCH(QString, name);
    QCOMPARE(specialTrim(line), name);
}

void tst_var_list_window::form()
{
    VarListWindow w(nullptr, true);
    QCOMPARE(w.findChild<QLabel *>("label")->text(),
             QStringLiteral("Filename that contains the variables to select "
                            "(One Variable per line):"));
    QCOMPARE(w.findChild<QLabel *>("label_2")->text(),
             QStringLiteral("..or enter the variables manually below (one variable per line)"));
    QCOMPARE(box(w, "cbColumnName")->text(), QStringLiteral("match column name"));
    QCOMPARE(box(w, "cbAlias")->text(), QStringLiteral("match alias"));
    QCOMPARE(box(w, "cbFullName")->text(), QStringLiteral("match full variable name"));
    for (const char *name : {"cbColumnName", "cbAlias", "cbFullName"})
        QVERIFY2(box(w, name)->isChecked(), name);
    QCOMPARE(button(w, "pbBrowse")->text(), QStringLiteral("Browse"));
    QCOMPARE(button(w, "pbTrim")->text(), QStringLiteral("Special Trim"));
    QCOMPARE(button(w, "pbOk")->text(), QStringLiteral("Ok"));
    QCOMPARE(button(w, "pbCancel")->text(), QStringLiteral("Cancel"));
    for (const char *name : {"pbBrowse", "pbTrim", "pbOk", "pbCancel"})
        QVERIFY2(!button(w, name)->autoDefault(), name);
    QVERIFY(!box(w, "cbFullName")->isHidden());
    QVERIFY(w.lookUpNames.isEmpty());
    QVERIFY(w.lookUpByLabel && w.lookUpByFullName && w.matchFullName);
    QVERIFY(w.fileNameText.isEmpty() && w.listText.isEmpty());
}

void tst_var_list_window::thirdBoxHidden()
{
    VarListWindow w(nullptr, false);
    QVERIFY(box(w, "cbFullName")->isHidden());
    QVERIFY(!box(w, "cbAlias")->isHidden());
}

void tst_var_list_window::trimReversesList()
{
    VarListWindow w;
    list(w)->setPlainText("1) alpha 0.5\n2) beta 0.4\n\n3) gamma 0.1\n4) 7");
    QTest::mouseClick(button(w, "pbTrim"), Qt::LeftButton);
    const QString text = list(w)->toPlainText();
    QCOMPARE(nonEmptyLines(text), (QStringList{"gamma", "beta", "alpha"}));
    // Each name but the last is followed by a blank paragraph.
    QVERIFY(text.contains("gamma\n\n"));
    QVERIFY(!text.endsWith('\n'));
    QTest::mouseClick(button(w, "pbOk"), Qt::LeftButton);
    QCOMPARE(w.lookUpNames.keys().size(), 3);
    for (const char *name : {"alpha", "beta", "gamma"})
        QVERIFY2(w.lookUpNames.value(name), name);
}

void tst_var_list_window::trimTwiceShortensTrailingDigits()
{
    VarListWindow w;
    list(w)->setPlainText("v1 x2\nab");
    w.on_pbTrim_clicked();
    QCOMPARE(nonEmptyLines(list(w)->toPlainText()), (QStringList{"ab", "v1"}));
    w.on_pbTrim_clicked();
    QCOMPARE(nonEmptyLines(list(w)->toPlainText()), (QStringList{"v", "ab"}));
}

void tst_var_list_window::okKeepsNames()
{
    VarListWindow w;
    list(w)->setPlainText("a\n b \n\na\nc");
    fileName(w)->setText("/some/list.txt");
    QSignalSpy accepted(&w, &QDialog::accepted);
    QTest::mouseClick(button(w, "pbOk"), Qt::LeftButton);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(w.result(), int(QDialog::Accepted));
    QCOMPARE(w.lookUpNames.size(), 3);
    for (const char *name : {"a", "b", "c"})
        QVERIFY2(w.lookUpNames.value(name), name);
    QCOMPARE(w.listText, QStringLiteral("a\n b \n\na\nc"));
    QCOMPARE(w.fileNameText, QStringLiteral("/some/list.txt"));
}

void tst_var_list_window::okWithEmptyList()
{
    VarListWindow w;
    w.lookUpNames.insert("old", true);
    w.on_pbOk_clicked();
    QVERIFY(w.lookUpNames.isEmpty());
}

void tst_var_list_window::boxesMapToFlags()
{
    VarListWindow w;
    box(w, "cbAlias")->setChecked(false);
    w.on_pbOk_clicked();
    QCOMPARE(w.lookUpByLabel, false);
    QCOMPARE(w.lookUpByFullName, true);
    QCOMPARE(w.matchFullName, true);

    box(w, "cbAlias")->setChecked(true);
    box(w, "cbColumnName")->setChecked(false);
    w.on_pbOk_clicked();
    QCOMPARE(w.lookUpByLabel, true);
    QCOMPARE(w.lookUpByFullName, false);
    QCOMPARE(w.matchFullName, true);

    box(w, "cbColumnName")->setChecked(true);
    box(w, "cbFullName")->setChecked(false);
    w.on_pbOk_clicked();
    QCOMPARE(w.lookUpByLabel, true);
    QCOMPARE(w.lookUpByFullName, true);
    QCOMPARE(w.matchFullName, false);
}

void tst_var_list_window::cancelRestoresAcceptedState()
{
    VarListWindow w;
    list(w)->setPlainText("x\ny");
    fileName(w)->setText("/a.txt");
    box(w, "cbColumnName")->setChecked(false);
    w.on_pbOk_clicked();

    list(w)->setPlainText("typed but not accepted");
    fileName(w)->setText("/b.txt");
    box(w, "cbColumnName")->setChecked(true);
    box(w, "cbAlias")->setChecked(false);
    box(w, "cbFullName")->setChecked(false);
    QSignalSpy rejected(&w, &QDialog::rejected);
    QTest::mouseClick(button(w, "pbCancel"), Qt::LeftButton);
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(list(w)->toPlainText(), QStringLiteral("x\ny"));
    QCOMPARE(fileName(w)->text(), QStringLiteral("/a.txt"));
    QVERIFY(!box(w, "cbColumnName")->isChecked());
    QVERIFY(box(w, "cbAlias")->isChecked());
    QVERIFY(box(w, "cbFullName")->isChecked());
    QCOMPARE(w.lookUpNames.size(), 2);
    QVERIFY(w.lookUpNames.contains("x") && w.lookUpNames.contains("y"));
}

void tst_var_list_window::loadFile_data()
{
    QTest::addColumn<QByteArray>("bytes"); // empty name: no file at all
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QString>("expected");
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBF\xC3\xA4ge\nbeta\n") << true << QString::fromUtf8("\xC3\xA4ge\nbeta");
    QTest::newRow("middle byte not looked at")
        << QByteArray("\xEF\x41\xBFname\n") << true << "name";
    QTest::newRow("no mark") << QByteArray("  alpha\r\nbeta\n\n") << true << "alpha\r\nbeta";
    QTest::newRow("blank file") << QByteArray(" \n\n ") << true << "old";
    QTest::newRow("empty file") << QByteArray() << true << "old";
    QTest::newRow("missing file") << QByteArray() << false << "old";
}

void tst_var_list_window::loadFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, exists);
    QFETCH(QString, expected);
    VarListWindow w;
    list(w)->setPlainText("old");
    fileName(w)->setText(exists ? writeFile(bytes) : home.path() + "/missing.txt");
    w.loadVariableFile();
    QCOMPARE(list(w)->toPlainText(), expected.replace("\r\n", "\n"));
}

// A list file that is no regular file leaves the list as it was, at once:
// nothing waits on a FIFO that nobody writes, nothing reads a device.
void tst_var_list_window::oddListFiles()
{
    const QString fifo = home.path() + "/list.fifo";
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const QString &path : {fifo, QStringLiteral("/dev/zero"), home.path()}) {
        VarListWindow w;
        list(w)->setPlainText("old");
        fileName(w)->setText(path);
        QElapsedTimer clock;
        clock.start();
        w.loadVariableFile();
        QVERIFY(clock.elapsed() < 1000);
        QCOMPARE(list(w)->toPlainText(), QStringLiteral("old"));
    }
    QFile::remove(fifo);
}

void tst_var_list_window::returnInFileNameLoads()
{
    VarListWindow w;
    fileName(w)->setText(writeFile("one\ntwo\n"));
    QTest::keyClick(fileName(w), Qt::Key_Return);
    QCOMPARE(list(w)->toPlainText(), QStringLiteral("one\ntwo"));
    QVERIFY(w.lookUpNames.isEmpty()); // loading accepts nothing
}

void tst_var_list_window::execIsReused()
{
    VarListWindow w;
    list(w)->setPlainText("first");
    whenModal([&w](QWidget *modal) {
        QCOMPARE(modal, &w);
        QTest::mouseClick(w.findChild<QPushButton *>("pbOk"), Qt::LeftButton);
    });
    QCOMPARE(w.exec(), int(QDialog::Accepted));
    QVERIFY(w.lookUpNames.contains("first"));

    whenModal([&w](QWidget *) {
        w.findChild<QPlainTextEdit *>("pteVarList")->setPlainText("second");
        QTest::mouseClick(w.findChild<QPushButton *>("pbCancel"), Qt::LeftButton);
    });
    QCOMPARE(w.exec(), int(QDialog::Rejected));
    QCOMPARE(list(w)->toPlainText(), QStringLiteral("first"));
    QCOMPARE(w.lookUpNames.keys(), QStringList{"first"});
}

void tst_var_list_window::browseLoadsChosenFile()
{
    const QString path = writeFile("chosen\n");
    VarListWindow w;
    fileName(w)->setText(home.path());
    FileQuestion asked{};
    setFileDialogHook([&asked, path](const FileQuestion &q) {
        asked = q;
        return path;
    });
    w.on_pbBrowse_clicked();
    QVERIFY(!asked.save);
    QCOMPARE(asked.caption, QStringLiteral("Choose file"));
    QCOMPARE(asked.directory, home.path());
    QCOMPARE(asked.filter, QStringLiteral("Variable list file (*.txt);;All (*.*)"));
    QCOMPARE(fileName(w)->text(), path);
    QCOMPARE(list(w)->toPlainText(), QStringLiteral("chosen"));
    QVERIFY(!QSettings("Brandolin", "QUV").contains("LastDir"));

    // A cancelled dialog changes nothing.
    setFileDialogHook([](const FileQuestion &) { return QString(); });
    w.on_pbBrowse_clicked();
    QCOMPARE(fileName(w)->text(), path);
    setFileDialogHook(nullptr);
}

QTEST_MAIN(tst_var_list_window)
#include "tst_var_list_window.moc"
