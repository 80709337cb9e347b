#include "shell/model_run.h"

#include "core/cfg_model.h"
#include "panels/page.h"
#include "shell/application_directory.h"
#include "shell/desktop_notification.h"
#include "shell/execute_panel.h"
#include "shell/gui_reporter.h"
#include "shell/open_document.h"

#include <QFileInfo>
#include <QProgressBar>
#include <QUndoStack>

namespace {

const QString htmlReport = QStringLiteral("_analysisReport.html");

} // namespace

QString enginePath()
{
    return applicationDirectory() + QStringLiteral("/quva");
}

QString converterPath()
{
    return applicationDirectory() + QStringLiteral("/xml2html");
}

ModelRun::ModelRun(PageContext &context, ExecutePanel *executePanel, QProgressBar *bar,
                   QWidget *window)
    : QObject(window), context(context), executePanel(executePanel), bar(bar), window(window)
{
}

void ModelRun::tell(const QString &title, const QString &text, bool critical)
{
    askUser(window, UserQuestion{critical ? QMessageBox::Critical : QMessageBox::Information,
                                 title, text, QMessageBox::Ok, QMessageBox::Ok});
}

// "Cancel" runs the engine all the same, on the file as it stands on disk:
// only a save that fails stops the run.
bool ModelRun::saveIfChanged()
{
    if (context.undoStack()->isClean())
        return true;
    UserQuestion question{QMessageBox::Information,
                          QStringLiteral("WARNING The settings have changed"),
                          QStringLiteral("To run Quva on the changed settings,\n"
                                         "You will need to save the XML configuration file "
                                         "first."),
                          QMessageBox::NoButton, QMessageBox::NoButton};
    question.acceptText = QStringLiteral("Save current changes & Launch Quva");
    question.rejectText = QStringLiteral("Cancel");
    if (askUser(window, question) != QMessageBox::Ok)
        return true;
    return context.writeRecord();
}

void ModelRun::run()
{
    const CfgModel *cfg = context.cfg();
    const QString title = QStringLiteral("Run error");
    if (!cfg || cfg->cfgFileName.isEmpty()) {
        tell(title, QStringLiteral("You must save your settings before running Quva"), true);
        return;
    }
    if (!cfg->hasTarget()) {
        tell(title, QStringLiteral("Please define a target before launching Quva"), true);
        return;
    }
    if (!saveIfChanged())
        return;
    const QFileInfo file(context.cfg()->cfgFileName);
    executePanel->execute(enginePath(), {QStringLiteral("-m"), file.fileName()},
                          file.absolutePath(), engineTask);
}

void ModelRun::openReport(const QString &suffix)
{
    const CfgModel *cfg = context.cfg();
    const QString prefix = cfg ? latestOutputPrefix(cfg->cfgFileName) : QString();
    if (prefix.isEmpty())
        return;
    const QFileInfo stem(prefix);
    if (suffix == htmlReport && !QFileInfo::exists(prefix + suffix)) {
        executePanel->execute(converterPath(),
                              {stem.fileName() + QStringLiteral("_analysisReport.xml")},
                              stem.absolutePath(), converterTask);
        return;
    }
    // The folder itself for an empty suffix.
    openDocument(suffix.isEmpty() ? stem.absolutePath() : prefix + suffix);
}

// Task 1001 is the apply page's. The converter's end opens the HTML report,
// whatever became of it; any other end is told in a box, and in a notice
// of the desktop when the user works in another window.
void ModelRun::finished(int taskNumber, int exitCode, int exitStatus)
{
    if (taskNumber == 1001)
        return;
    playSound(3);
    if (taskNumber == converterTask) {
        const CfgModel *cfg = context.cfg();
        if (cfg)
            openDocument(latestOutputPrefix(cfg->cfgFileName) + htmlReport);
        return;
    }
    const bool success = exitCode == 0 && exitStatus == 0;
    const QString text =
        success ? QStringLiteral("Analysis finished successfully.")
                : QStringLiteral("Error in Model Creation.\nCheck the Execution Log.\nError Code=%1")
                      .arg(exitCode);
    if (!window->isActiveWindow())
        notifyDesktop(QStringLiteral("Quva Modeler"), text);
    tell(QStringLiteral("Execution Log"), text, false);
    bar->setValue(0);
}

void ModelRun::progressed(int progress, const QString &text)
{
    bar->setValue(progress);
    bar->setFormat(text);
}
