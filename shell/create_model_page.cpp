#include "shell/create_model_page.h"

#include "core/cfg_model.h"
#include "core/smart_activate.h"
#include "panels/model_modes.h"
#include "panels/push_value.h"
#include "shell/execute_panel.h"
#include "shell/model_run.h"
#include "shell/settings.h"
#include "ui_create_model_page.h"

CreateModelPage::CreateModelPage(PageContext &context, ExecutePanel *executePanel,
                                 QWidget *parent)
    : Page(context, parent), ui(new Ui::CreateModelPage)
{
    ui->setupUi(this);
    run = new ModelRun(context, executePanel, ui->progressBar, this);
    connect(executePanel, &ExecutePanel::myFinishExe, this, &CreateModelPage::on_myFinishExe);
    connect(executePanel, &ExecutePanel::myProgressBar, this,
            &CreateModelPage::on_myProgressBar);
}

CreateModelPage::~CreateModelPage()
{
    delete ui;
}

void CreateModelPage::setUpAfterLoad()
{
    if (cfg())
        ui->cbSmartActivate->setChecked(true);
}

// The two buttons are not exclusive, so that neither shows for a record in
// another mode (high quality among them).
void CreateModelPage::refreshModes()
{
    ui->rbModelPerform_2->setChecked(false);
    ui->rbModelStandard_2->setChecked(false);
    if (!cfg())
        return;
    const ModelMode mode = shownModelMode(*cfg());
    ui->rbModelPerform_2->setChecked(mode == ModelMode::Performance);
    ui->rbModelStandard_2->setChecked(mode == ModelMode::Standard);
}

// A click on a mode the record counts as in force pushes nothing. Since the
// buttons are not exclusive, the click has unchecked a checked one: it is
// checked again, as a radio button stays.
void CreateModelPage::keepChecked(QRadioButton *button)
{
    PanelRefreshScope scope(context);
    button->setChecked(true);
}

// Unlike the mode on the parameter page, this one leaves the limit on
// variables alone, and may bring in use every recoding of a variable that
// is in use in one of them: undoing the mode ignores those again.
void CreateModelPage::on_rbModelPerform_2_clicked()
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    QUndoCommandPanel *group = shortPerformanceModeCommand(*record, PageCreateModel);
    if (!group) {
        keepChecked(ui->rbModelPerform_2);
        return;
    }
    const QVector<char *> rows =
        ui->cbSmartActivate->isChecked() ? collectSmartActivateRows(*record) : QVector<char *>();
    if (!rows.isEmpty())
        new UpdateTemplateVector2Command<char>(rows, ' ', QStringLiteral("smart activate"),
                                               PageCreateModel, false, group);
    push(group);
}

void CreateModelPage::on_rbModelStandard_2_clicked()
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    QUndoCommandPanel *group = insightModeCommand(*record, PruningFast, PageCreateModel);
    if (group)
        push(group);
    else
        keepChecked(ui->rbModelStandard_2);
}

void CreateModelPage::refreshControls()
{
    refreshReportButtons();
    refreshModes();
}

void CreateModelPage::refreshReportButtons()
{
    const bool named = cfg() && !cfg()->cfgFileName.isEmpty();
    ui->pbOverFit2->setEnabled(named && isAdvancedUser());
    ui->pbFinal->setEnabled(named && isAdvancedUser());
    for (QWidget *button : {ui->pbOpenLastestDir, ui->pbWordReport, ui->pbExcelReport,
                            ui->pbHTMLReport})
        button->setEnabled(named);
}

void CreateModelPage::on_pbRunQuva_clicked()
{
    run->run();
}

void CreateModelPage::on_pbWordReport_clicked()
{
    run->openReport(QStringLiteral("_analysisReport.doc"));
}

void CreateModelPage::on_pbExcelReport_clicked()
{
    run->openReport(QStringLiteral("_analysisReport.xlsx"));
}

void CreateModelPage::on_pbHTMLReport_clicked()
{
    run->openReport(QStringLiteral("_analysisReport.html"));
}

void CreateModelPage::on_pbOpenLastestDir_clicked()
{
    run->openReport(QString());
}

void CreateModelPage::on_pbOverFit2_clicked()
{
    run->openReport(QStringLiteral("_4_CheckOverfitting2.png"));
}

void CreateModelPage::on_pbFinal_clicked()
{
    run->openReport(QStringLiteral("_5_FinalModel.png"));
}

void CreateModelPage::on_myFinishExe(int taskNumber, int exitCode, int exitStatus)
{
    run->finished(taskNumber, exitCode, exitStatus);
}

void CreateModelPage::on_myProgressBar(int progress, QString arg)
{
    run->progressed(progress, arg);
}
