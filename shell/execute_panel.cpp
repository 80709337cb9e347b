#include "shell/execute_panel.h"
#include "shell/application_directory.h"
#include "shell/gui_reporter.h"

#include "shell/settings.h"
#include "ui_execute_panel.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>

#include <cstdlib>

bool ExecutePanel::isExecuting = false;
bool ExecutePanel::allowRestart = true;

namespace {

// Output is shown as the child wrote it in the local 8-bit encoding, up to
// the first zero byte.
QString localText(const char *bytes)
{
    return QString::fromLocal8Bit(bytes);
}

const char finishBanner[] =
    "\n\n================================================================================\n"
    "Execution finished (ErrorLevel=%1).\n";

const char abortBanner[] =
    "\n\n**************************************************************\n"
    "*                      USER ABORT                            *\n"
    "**************************************************************\n";

// Waiting this long for the start of a child tells a program that cannot be
// started from one that runs, before execute returns.
constexpr int startTimeoutMs = 30000;

} // namespace

ExecutePanel::ExecutePanel(QWidget *parent, bool showProgress)
    : QWidget(parent), ui(new Ui::ExecutePanelClass), showProgress(showProgress)
{
    ui->setupUi(this);
    ui->pteLog->setMaximumBlockCount(logMaxLines);
    connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &ExecutePanel::on_finished);
    connect(&process, &QProcess::readyReadStandardOutput, this,
            &ExecutePanel::on_readyReadStandardOutput);
    process.setProcessChannelMode(QProcess::MergedChannels);
}

ExecutePanel::~ExecutePanel()
{
    // A child still running is not left behind the panel.
    if (process.state() != QProcess::NotRunning) {
        process.disconnect(this);
        process.kill();
        process.waitForFinished(3000);
    }
    delete ui;
}

void ExecutePanel::execute(const QString &program, const QStringList &arguments,
                           const QString &directory, int taskNumber)
{
    start(program, arguments, directory, taskNumber);
}

void ExecutePanel::executeCommandLine(const QString &commandLine, const QString &directory,
                                      int taskNumber)
{
    start(commandLine, QStringList(), directory, taskNumber);
}

void ExecutePanel::start(const QString &program, const QStringList &arguments,
                         const QString &directory, int taskNumber)
{
    if (!allowRestart && isExecuting) {
        askUser(this, {QMessageBox::Information, tr("Execution Log"),
                       tr("Abort the current execution first."), QMessageBox::Ok,
                       QMessageBox::Ok});
        return;
    }
    setRunning(true);

    QString header = QStringLiteral("Running: ") + program;
    for (const QString &argument : arguments)
        header += QLatin1Char(' ') + argument;
    header += QStringLiteral("\nFrom directory:") + directory + QStringLiteral("\n\n");
    ui->pteLog->setPlainText(header);

    program_ = program;
    arguments_ = arguments;
    directory_ = directory;
    taskNumber_ = taskNumber;

    if (showProgress)
        emit myProgressBar(1, tr("RUNNING ..."));

    process.setWorkingDirectory(directory);
    if (!arguments.isEmpty()) {
        process.start(program, arguments, QIODevice::ReadWrite);
    } else {
        // A whole command line: the first word is the program.
        QStringList words = QProcess::splitCommand(program);
        const QString executable = words.isEmpty() ? QString() : words.takeFirst();
        process.start(executable, words, QIODevice::ReadWrite);
    }
    // The start of a child is told asynchronously; waiting for it here is
    // what lets a missing program end inside this call.
    process.waitForStarted(startTimeoutMs);
    if (process.state() == QProcess::NotRunning)
        on_finished(-1, QProcess::CrashExit);
}

void ExecutePanel::setRunning(bool running)
{
    isExecuting = running;
    ui->pbAbort->setEnabled(running);
    QWidget *target = parentWidget() ? parentWidget() : this;
    target->setCursor(running ? Qt::WaitCursor : Qt::ArrowCursor);
}

// One piece per call; what is left is taken at the next turn of the event
// loop, so that a program that prints faster than the log can show does not
// hold the window.
void ExecutePanel::on_readyReadStandardOutput()
{
    appendOutput(process.read(readPieceBytes));
    if (process.bytesAvailable() > 0)
        QTimer::singleShot(0, this, &ExecutePanel::on_readyReadStandardOutput);
}

void ExecutePanel::appendOutput(const QByteArray &chunk)
{
    QScrollBar *bar = ui->pteLog->verticalScrollBar();
    const int scrollValue = bar->value();
    ui->pteLog->moveCursor(QTextCursor::End);

    if (chunk.isEmpty() || chunk.at(0) != '\r') {
        if (showProgress)
            parseProgressLines(chunk);
        insertLogText(localText(chunk.constData()));
    } else {
        // A counter on one line: the last line gives way to the text behind
        // the chunk's last carriage return, as on a terminal.
        ui->pteLog->moveCursor(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
        int start = 1;
        for (int cr = chunk.indexOf('\r', start); cr >= 0; cr = chunk.indexOf('\r', start))
            start = cr + 1;
        insertLogText(localText(chunk.constData() + start));
    }

    if (!autoScroll_)
        bar->setValue(scrollValue);
}

// Inserts at the cursor, breaking the text so that no line of the log grows
// beyond logMaxLineLength characters. The cursor is at the end of the last
// line or at its start, replacing it.
void ExecutePanel::insertLogText(const QString &text)
{
    const QTextCursor cursor = ui->pteLog->textCursor();
    int column = cursor.selectionStart() - cursor.block().position();
    QString broken;
    broken.reserve(text.size() + text.size() / logMaxLineLength + 1);
    for (const QChar c : text) {
        if (c == QLatin1Char('\n')) {
            column = 0;
        } else if (column == logMaxLineLength) {
            broken += QLatin1Char('\n');
            column = 0;
        }
        if (c != QLatin1Char('\n'))
            ++column;
        broken += c;
    }
    ui->pteLog->insertPlainText(broken);
}

// Progress lines are "$P|<n>|<message>" ended by a carriage return or, when
// none follows in the chunk, a line feed. Only what one chunk holds is read:
// a line cut by a chunk boundary is skipped or read in part.
void ExecutePanel::parseProgressLines(const QByteArray &chunk)
{
    const int size = chunk.size();
    int i = chunk.indexOf('$');
    while (i >= 0) {
        int next = i + 1;
        if (i + 2 < size && chunk.at(i + 1) == 'P' && chunk.at(i + 2) == '|') {
            const int j = chunk.indexOf('|', i + 3);
            if (j >= 0) {
                int e = chunk.indexOf('\r', j + 1);
                if (e < 0)
                    e = chunk.indexOf('\n', j + 1);
                QString message;
                if (e >= 0 && e != j + 1)
                    message = localText(chunk.mid(j + 1, e - j - 1).constData());
                const int progress = std::atoi(chunk.mid(i + 3, j - i - 3).constData());
                emit myProgressBar(progress, message);
                next = e >= 0 ? e : size - 1;
            }
        }
        i = chunk.indexOf('$', next);
    }
}

void ExecutePanel::on_cbAutoScroll_clicked()
{
    autoScroll_ = ui->cbAutoScroll->isChecked();
}

void ExecutePanel::on_finished(int exitCode, QProcess::ExitStatus exitStatus)
{
    // What the program printed last comes before the banner.
    while (process.bytesAvailable() > 0)
        appendOutput(process.read(readPieceBytes));
    ui->pteLog->appendPlainText(QString::fromLatin1(finishBanner).arg(exitCode));
    if (showProgress)
        emit myProgressBar(100, tr("Done"));
    setRunning(false);
    emit myFinishExe(taskNumber_, exitCode, exitStatus);
}

void ExecutePanel::on_pbAbort_clicked()
{
    if (process.state() == QProcess::Running)
        process.kill();
    QScrollBar *bar = ui->pteLog->verticalScrollBar();
    const int scrollValue = bar->value();
    ui->pteLog->appendPlainText(QString::fromLatin1(abortBanner));
    if (!autoScroll_)
        bar->setValue(scrollValue);
    setRunning(false);
    playSound(4);
}

QString ExecutePanel::logText() const
{
    return ui->pteLog->toPlainText();
}

void playSound(int sound)
{
    if (soundTheme() == 0)
        return;
    const QString player = applicationDirectory() + QStringLiteral("/QuvaPlaySound");
    QProcess::startDetached(player, QStringList{QString::number(sound)});
}
