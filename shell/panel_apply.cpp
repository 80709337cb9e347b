#include "shell/panel_apply.h"

#include "core/cfg_model.h"
#include "core/model_probe.h"
#include "shell/apply_command.h"
#include "shell/model_run.h"
#include "shell/desktop_notification.h"
#include "shell/execute_panel.h"
#include "shell/gui_reporter.h"
#include "shell/open_document.h"
#include "shell/settings.h"
#include "shell/window_broker.h"
#include "ui_panel_apply.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

PanelApply::PanelApply(QWidget *parent, CfgModel *cfg, ExecutePanel *executePanel)
    : QWidget(parent), ui(new Ui::PanelApply), cfg(cfg), executePanel(executePanel)
{
    ui->setupUi(this);
    ui->widgetModel->setVisible(cfg != nullptr);
    ui->leTargetDensity->hide();
    ui->lblTargetDensity->hide();
    if (executePanel)
        connect(executePanel, &ExecutePanel::myFinishExe, this, &PanelApply::on_myFinishExe);
}

PanelApply::~PanelApply()
{
    delete ui;
}

void PanelApply::setCfg(CfgModel *record)
{
    cfg = record;
    ui->widgetModel->setVisible(cfg != nullptr);
}

QString PanelApply::command() const
{
    return ui->pteCommand->toPlainText();
}

void PanelApply::composeCommand()
{
    ApplyCommandFields f;
    f.program = enginePath();
    f.xmlDrift = ui->cbXMLDrift->isChecked();
    f.wordDrift = ui->cbWordDrift->isChecked();
    f.forceApply = ui->cbForceApply->isChecked();
    f.densityCorrection = ui->cmbAprioriMode->currentIndex() != 0;
    f.targetDensity = ui->leTargetDensity->text();
    f.model = ui->leModel->text();
    f.outputDirectory = ui->leOutputDirectory->text();
    f.kind = ui->rbCSVDatasource->isChecked()   ? 'c'
             : ui->rbGelDatasource->isChecked() ? 'g'
             : ui->rbSASDatasource->isChecked() ? 's'
                                                : 0;
    f.separator = ui->cmbSeparator->currentText();
    f.datasource = ui->leDatasource->text();
    ui->pteCommand->setPlainText(composeApplyCommand(f));
}

// --- the newest run and the model ------------------------------------------

void PanelApply::on_pbUseLatest_clicked()
{
    if (!cfg)
        return;
    const ModelProbe probe = probeLatestModel(*cfg);
    if (!probe.found)
        return;
    ui->leModel->setText(probe.modelPath);
    ui->leOutputDirectory->setText(probe.outputDirectory);
    switch (probe.kind) {
    case 'c':
        ui->rbCSVDatasource->setChecked(true);
        ui->cmbSeparator->setEditText(probe.separatorText);
        ui->leDatasource->setText(probe.datasourcePath);
        break;
    case 'g':
        ui->rbGelDatasource->setChecked(true);
        ui->leDatasource->setText(probe.datasourcePath);
        break;
    case 's':
        ui->rbSASDatasource->setChecked(true);
        ui->leDatasource->setText(probe.datasourcePath);
        break;
    default:
        ui->rbStandardDatasource->setChecked(true);
        break;
    }
}

void PanelApply::setModelFile(const QString &path)
{
    ui->leModel->setText(path);
    if (ui->leOutputDirectory->text().trimmed().isEmpty())
        ui->leOutputDirectory->setText(QFileInfo(path).absolutePath());
}

void PanelApply::on_pbBrowseModel_clicked()
{
    const QString start = ui->leModel->text().isEmpty() ? lastDir() : ui->leModel->text();
    const QString name = askOpenFileName(
        this, QStringLiteral("Choose model file"), start,
        QStringLiteral("Quva model (*.ModelXML);; Quva Segmentation Model (*.SModelXML) ;;All (*.*)"));
    if (!name.isEmpty())
        setModelFile(name);
}

// --- the data source ----------------------------------------------------------

void PanelApply::on_pbEditDatasource_clicked()
{
    const QString text = ui->leDatasource->text();
    const bool isSource = !text.isEmpty() && text.endsWith(QLatin1String(".DSourceXML"));
    windowBroker()->open(this, brokerProductWord(),
                         isSource ? text : QStringLiteral(".DSourceXML"));
}

QString PanelApply::browseDatasourceFile(const QString &startDir)
{
    const QString start = ui->leDatasource->text().isEmpty() ? startDir : ui->leDatasource->text();
    if (ui->rbGelDatasource->isChecked())
        return askOpenFileName(this, QStringLiteral("Open Velmorin Gel file"), start,
                               QStringLiteral("Velmorin Gel files (*.gel_velmorin);;All (*.*)"));
    if (ui->rbSASDatasource->isChecked())
        return askOpenFileName(this, QStringLiteral("Choose SAS file"), start,
                               QStringLiteral("SAS dataset (*.SAS7bdat);;All (*.*)"));
    if (ui->rbStandardDatasource->isChecked())
        return askOpenFileName(this, QStringLiteral("Choose Data Source file"), start,
                               QStringLiteral("DataSource file(*.DSourceXML);;All (*.*)"));
    return askOpenFileName(this, QStringLiteral("Choose CSV/TXT file"), start,
                           QStringLiteral("Compressed CSV/TXT file(*.zip;*.rar;*.gz;*.lzo);; "
                                          "CSV/TXT file(*.csv;*.txt);;All (*.*)"));
}

void PanelApply::on_pbBrowseDatasource_clicked()
{
    const QString name = browseDatasourceFile(universDir());
    if (name.isEmpty())
        return;
    ui->leDatasource->setText(name);
    setUniversDir(QFileInfo(name).absolutePath());
}

// The last folder is stored from the file's folder, taken as a file: it
// ends up one level above. So it has always been.
void PanelApply::on_pbBrowseDatasource2_clicked()
{
    const QString name = browseDatasourceFile(lastDir());
    if (name.isEmpty())
        return;
    ui->leDatasource->setText(name);
    setLastDir(QFileInfo(name).absolutePath());
}

void PanelApply::on_rbStandardDatasource_clicked()
{
    composeCommand();
}

void PanelApply::on_rbSASDatasource_clicked()
{
    composeCommand();
}

void PanelApply::on_rbCSVDatasource_clicked()
{
    composeCommand();
}

// --- the output folder --------------------------------------------------------

void PanelApply::on_pbBrowseOutputDirectory_clicked()
{
    const QString text = ui->leOutputDirectory->text();
    const QString name = askExistingDirectory(this, QStringLiteral("Choose Output Directory"),
                                              text.isEmpty() ? lastDir() : text);
    if (!name.isEmpty())
        ui->leOutputDirectory->setText(name);
}

void PanelApply::on_pbOuputDirectoryUp_clicked()
{
    ui->leOutputDirectory->setText(QFileInfo(ui->leOutputDirectory->text()).absolutePath());
}

void PanelApply::on_pbOpenOutputDirectory_clicked()
{
    openDocument(ui->leOutputDirectory->text());
}

// --- the options and the fields that recompose the command -----------------------

void PanelApply::on_cbXMLDrift_clicked()
{
    composeCommand();
}

void PanelApply::on_cbWordDrift_clicked()
{
    composeCommand();
}

void PanelApply::on_cbForceApply_clicked()
{
    composeCommand();
}

void PanelApply::on_leModel_textChanged(const QString &)
{
    composeCommand();
}

void PanelApply::on_leDatasource_textChanged(const QString &)
{
    composeCommand();
}

void PanelApply::on_leOutputDirectory_textChanged(const QString &)
{
    composeCommand();
}

void PanelApply::on_cmbSeparator_editTextChanged(const QString &)
{
    composeCommand();
}

void PanelApply::on_leTargetDensity_textChanged(const QString &)
{
    composeCommand();
}

void PanelApply::on_cmbAprioriMode_currentIndexChanged(int index)
{
    ui->leTargetDensity->setVisible(index != 0);
    ui->lblTargetDensity->setVisible(index != 0);
    composeCommand();
}

// --- running and saving ----------------------------------------------------------

void PanelApply::on_pbRunApply_clicked()
{
    executePanel->executeCommandLine(command(), ui->leOutputDirectory->text(), taskNumber);
}

void PanelApply::on_myFinishExe(int task, int exitCode, int exitStatus)
{
    if (task != taskNumber)
        return;
    playSound(3);
    const QString text =
        exitCode == 0 && exitStatus == 0
            ? QStringLiteral("Model Apply finished successfully.")
            : QStringLiteral("Error in Model Apply.\nCheck the Execution Log.\nError Code=%1")
                  .arg(exitCode);
    if (!isActiveWindow())
        notifyDesktop(QStringLiteral("Quva Modeler"), text);
    askUser(this, UserQuestion{QMessageBox::Information, QStringLiteral("Execution Log"), text,
                               QMessageBox::Ok, QMessageBox::Ok});
}

QString PanelApply::commandFilePath() const
{
    return applyCommandFile(ui->leOutputDirectory->text(), ui->leModel->text(),
                            ui->leDatasource->text());
}

// A shell script that can be run later, shown in the desktop's editor so
// that the analyst sees it and may change it. Whether it could be written
// is not looked at.
void PanelApply::on_pbSaveCommand_clicked()
{
    const QString path = commandFilePath();
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(command().toLocal8Bit());
        file.close();
        file.setPermissions(file.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeGroup
                            | QFileDevice::ExeOther);
    }
    openDocument(path);
}
