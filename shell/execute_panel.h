#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace Ui {
class ExecutePanelClass;
}

// Task numbers handed to ExecutePanel by its callers and given back by
// myFinishExe, so that the receiver knows which end it is told about.
enum ExecuteTask : int {
    TaskEngineRun = 0,
    TaskReportToHtml = 1,
    TaskModelApply = 1001
};

// Runs one outside program at a time, shows its output in a read-only log,
// reads the progress lines "$P|n|text" out of it, offers an abort and tells
// its owner by myFinishExe when the program has ended. There is no queue:
// what follows a task is up to the receiver of myFinishExe.
//
// A program may print without measure. So that the window stays responsive
// and its memory bounded, the output is taken in pieces of at most
// readPieceBytes per turn of the event loop, a line longer than
// logMaxLineLength characters is shown as several lines of that length, and
// the log keeps the last logMaxLines lines (the oldest, the "Running:" head
// among them, give way first).
class ExecutePanel : public QWidget
{
    Q_OBJECT

public:
    static constexpr int logMaxLines = 10000;
    static constexpr int logMaxLineLength = 1000;
    static constexpr qint64 readPieceBytes = 256 * 1024;

    explicit ExecutePanel(QWidget *parent = nullptr, bool showProgress = true);
    ~ExecutePanel() override;

    // Starts program with arguments in directory. A program that cannot be
    // started ends at once, inside this call, with exit code -1 and the
    // crash status.
    void execute(const QString &program, const QStringList &arguments,
                 const QString &directory, int taskNumber);
    // The same for a whole command line, split the way a shell would.
    void executeCommandLine(const QString &commandLine, const QString &directory,
                            int taskNumber);

    // Handles one chunk of the child's output, whatever its boundaries are:
    // progress lines are read out of it unless it starts with a carriage
    // return, which instead makes it replace the last line of the log.
    void appendOutput(const QByteArray &chunk);

    // Reactions to the child; connected to the process by the constructor.
    void on_readyReadStandardOutput();
    void on_finished(int exitCode, QProcess::ExitStatus exitStatus);

    QString logText() const;
    int taskNumber() const { return taskNumber_; }
    QString program() const { return program_; }
    QStringList arguments() const { return arguments_; }
    QString workingDirectory() const { return directory_; }
    bool autoScroll() const { return autoScroll_; }
    QProcess::ProcessState processState() const { return process.state(); }

    // Class-wide: true from a start until the end or an abort.
    static bool isExecuting;
    // Class-wide and never changed: a second start during a run is let
    // through (the refusal branch stays for a caller that wants it).
    static bool allowRestart;

signals:
    void myFinishExe(int taskNumber, int exitCode, int exitStatus);
    void myProgressBar(int progress, QString arg);

public slots:
    void on_pbAbort_clicked();
    void on_cbAutoScroll_clicked();

private:
    void start(const QString &program, const QStringList &arguments,
               const QString &directory, int taskNumber);
    void parseProgressLines(const QByteArray &chunk);
    void insertLogText(const QString &text);
    void setRunning(bool running);

    Ui::ExecutePanelClass *ui;
    QProcess process;
    QString program_;
    QStringList arguments_;
    QString directory_;
    int taskNumber_ = 0;
    bool autoScroll_ = true;
    bool showProgress;
};

// Plays sound number `sound` (3 at the end of a task, 4 at an abort) with
// the player beside the program, unless the sound theme is 0.
void playSound(int sound);
