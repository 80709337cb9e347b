#pragma once

#include "panels/page.h"

class ExecutePanel;
class ModelRun;

namespace Ui {
class CreateModelPage;
}

// Page "CREATE MODEL", which every user sees: the run of the engine on the
// saved file, its progress, and the reports and charts of its newest output
// folder. Runs and reports go through the log page's panel.
class CreateModelPage : public Page
{
    Q_OBJECT

public:
    CreateModelPage(PageContext &context, ExecutePanel *executePanel,
                    QWidget *parent = nullptr);
    ~CreateModelPage() override;

private slots:
    void on_pbRunQuva_clicked();
    void on_pbWordReport_clicked();
    void on_pbExcelReport_clicked();
    void on_pbHTMLReport_clicked();
    void on_pbOpenLastestDir_clicked();
    void on_pbOverFit2_clicked();
    void on_pbFinal_clicked();
    void on_myFinishExe(int taskNumber, int exitCode, int exitStatus);
    void on_myProgressBar(int progress, QString arg);

private:
    void refreshControls() override;
    // The report buttons need a file name only, not an output folder: a
    // click before any run simply finds nothing.
    void refreshReportButtons();

    Ui::CreateModelPage *ui;
    ModelRun *run;
};
