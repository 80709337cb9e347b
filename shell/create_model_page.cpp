#include "shell/create_model_page.h"

#include "core/cfg_model.h"
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

void CreateModelPage::refreshControls()
{
    refreshReportButtons();
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
