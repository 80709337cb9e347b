#include "panels/modality_recodings_page.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/slider_setup.h"
#include "ui_modality_recodings_page.h"

namespace {

Ui::ModalityRecodingsPage *formOf(QWidget *page)
{
    auto *ui = new Ui::ModalityRecodingsPage;
    ui->setupUi(page);
    return ui;
}

} // namespace

ModalityRecodingsPage::ModalityRecodingsPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(formOf(this)),
      nominal(context,
              {ui->rbModalityMinRowsNominalVar, ui->rbModalityMinTargetNominalVar,
               ui->rbModalityMinPercentNominalVar, ui->sbModalityMinRowsNominalVar,
               ui->leModalityMinTargetNominalVar, ui->leModalityMinPercentNominalVar,
               ui->leMinSizeModalityForNominalVar},
              &CfgModel::minSizeModalityForNominalVar,
              QStringLiteral("minSizeModalityForNominalVar")),
      ordered(context,
              {ui->rbModalityMinRowsOrderedVar, ui->rbModalityMinTargetOrderedVar,
               ui->rbModalityMinPercentOrderedVar, ui->sbModalityMinRowsOrderedVar,
               ui->leModalityMinTargetOrderedVar, ui->leModalityMinPercentOrderedVar,
               ui->leMinSizeModalityForOrderedVar},
              &CfgModel::minSizeModalityForOrderedVar,
              QStringLiteral("minSizeModalityForOrderedVar"))
{
    // This slider alone keeps its tracking: it follows the spin box, and
    // each step of a drag reaches the spin box's slot.
    PanelRefreshScope scope(context);
    setUpSlider(ui->sliderAUCMax, 70, 100, 1, true);
    ui->sliderAUCMax->setValue(ui->dsbAUCMax->value());
}

ModalityRecodingsPage::~ModalityRecodingsPage()
{
    delete ui;
}

void ModalityRecodingsPage::refreshControls()
{
    const CfgModel *record = cfg();
    if (!record)
        return;
    nominal.refresh(*record);
    ordered.refresh(*record);
    ui->dsbZscore->setValue(record->zTestModalities);
    ui->dsbAUCMax->setValue(record->AUCmax);
    ui->sliderAUCMax->setValue(record->AUCmax);
    ui->sbRandomSeed->setValue(record->randomSeed);
    ui->sbNCpu->setValue(record->cpuCount);
    ui->cbDisplayCF->setChecked(record->confidenceInterval != 0);
    ui->sbNBagging->setValue(record->nBagging);
    ui->dsbLowerBoundCorrelationReport->setValue(record->lowerBoundCorrelationReport);
}

template <typename T>
void ModalityRecodingsPage::pushValue(T CfgModel::*field, T value, const char *name,
                                      bool mergeable)
{
    if (updatingPanel() || !cfg())
        return;
    push(new UpdateTemplateCommand<T>(&(cfg()->*field), value, QString::fromLatin1(name),
                                      PageModalityRecodings, mergeable));
}

// --- the two groups of the general minimum size ------------------------------

void ModalityRecodingsPage::on_leMinSizeModalityForNominalVar_editingFinished()
{
    nominal.summaryEdited();
}

void ModalityRecodingsPage::on_rbModalityMinRowsNominalVar_clicked()
{
    nominal.rowsChosen();
}

void ModalityRecodingsPage::on_rbModalityMinTargetNominalVar_clicked()
{
    nominal.targetChosen();
}

void ModalityRecodingsPage::on_rbModalityMinPercentNominalVar_clicked()
{
    nominal.percentChosen();
}

void ModalityRecodingsPage::on_sbModalityMinRowsNominalVar_editingFinished()
{
    nominal.rowsCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinTargetNominalVar_editingFinished()
{
    nominal.targetCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinTargetNominalVar_returnPressed()
{
    nominal.targetCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinPercentNominalVar_editingFinished()
{
    nominal.percentEdited();
}

void ModalityRecodingsPage::on_leModalityMinPercentNominalVar_returnPressed()
{
    nominal.percentEdited();
}

void ModalityRecodingsPage::on_leMinSizeModalityForOrderedVar_editingFinished()
{
    ordered.summaryEdited();
}

void ModalityRecodingsPage::on_rbModalityMinRowsOrderedVar_clicked()
{
    ordered.rowsChosen();
}

void ModalityRecodingsPage::on_rbModalityMinTargetOrderedVar_clicked()
{
    ordered.targetChosen();
}

void ModalityRecodingsPage::on_rbModalityMinPercentOrderedVar_clicked()
{
    ordered.percentChosen();
}

void ModalityRecodingsPage::on_sbModalityMinRowsOrderedVar_editingFinished()
{
    ordered.rowsCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinTargetOrderedVar_editingFinished()
{
    ordered.targetCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinTargetOrderedVar_returnPressed()
{
    ordered.targetCountEdited();
}

void ModalityRecodingsPage::on_leModalityMinPercentOrderedVar_editingFinished()
{
    ordered.percentEdited();
}

void ModalityRecodingsPage::on_leModalityMinPercentOrderedVar_returnPressed()
{
    ordered.percentEdited();
}

// --- the other values of the page --------------------------------------------

void ModalityRecodingsPage::on_dsbZscore_valueChanged(double value)
{
    pushValue(&CfgModel::zTestModalities, value, "zTestModalities");
}

void ModalityRecodingsPage::on_dsbAUCMax_valueChanged(double value)
{
    pushValue(&CfgModel::AUCmax, value, "AUCmax");
}

void ModalityRecodingsPage::on_sbRandomSeed_valueChanged(int value)
{
    pushValue(&CfgModel::randomSeed, value, "randomSeed");
}

void ModalityRecodingsPage::on_sbNCpu_valueChanged(int value)
{
    pushValue(&CfgModel::cpuCount, value, "cpuCount");
}

void ModalityRecodingsPage::on_sbNBagging_valueChanged(int value)
{
    pushValue(&CfgModel::nBagging, value, "nBagging");
}

void ModalityRecodingsPage::on_dsbLowerBoundCorrelationReport_valueChanged(double value)
{
    pushValue(&CfgModel::lowerBoundCorrelationReport, value, "lowerBoundCorrelationReport");
}

void ModalityRecodingsPage::on_cbDisplayCF_toggled(bool checked)
{
    pushValue(&CfgModel::confidenceInterval, checked ? 1 : 0, "confidenceInterval", false);
}
