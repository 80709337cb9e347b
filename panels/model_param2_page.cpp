#include "panels/model_param2_page.h"

#include "panels/control_state.h"
#include "panels/number_field.h"
#include "panels/push_value.h"
#include "panels/slider_setup.h"
#include "shell/gui_reporter.h"
#include "ui_model_param2_page.h"

#include <QSignalBlocker>

namespace {

Ui::ModelParam2Page *formOf(QWidget *page)
{
    auto *ui = new Ui::ModelParam2Page;
    ui->setupUi(page);
    return ui;
}

// A quantile is kept between 5 and 95 percent, silently.
SliderEditPair::Commit quantileCommit(PageContext &context)
{
    return [commit = percentCommit(context, &CfgModel::quantileRegression,
                                   QStringLiteral("quantile regression"), PageModelParam2)](
               double value) { commit(qBound(5.0, value, 95.0)); };
}

} // namespace

ModelParam2Page::ModelParam2Page(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(formOf(this)),
      modelMax(context, ui->sModelMax, ui->leModelMax,
               countCommit(context, &CfgModel::nMaxVar, QStringLiteral("Model max variable"),
                           PageModelParam2),
               SliderEditPair::Integer),
      quantile(context, ui->sQuantile, ui->leQuantile, quantileCommit(context))
{
    PanelRefreshScope scope(context);
    setUpSliderLook(ui->sModelMax, SliderBackground::Slot, false);
    setSliderRange(ui->sModelMax, 0, 100, 1);
    setUpSliderLook(ui->sQuantile, SliderBackground::Trough, false);
    setSliderRange(ui->sQuantile, 5, 95, 1);
    fillColumnCombos();
}

ModelParam2Page::~ModelParam2Page()
{
    delete ui;
}

void ModelParam2Page::setUpAfterLoad()
{
    fillColumnCombos();
}

// An empty entry for "none", then the label of every variable in the
// description's order.
void ModelParam2Page::fillColumnCombos()
{
    PanelRefreshScope scope(context);
    for (QComboBox *combo : {ui->cbWeight, ui->cmbTreatmentFlag}) {
        combo->clear();
        combo->addItem(QString());
    }
    const CfgModel *record = cfg();
    if (!record)
        return;
    for (const DatasetVar *var : qAsConst(record->desc->vars)) {
        ui->cbWeight->addItem(var->label);
        ui->cmbTreatmentFlag->addItem(var->label);
    }
    selectColumns(*record);
}

// A label that no variable has, as a file may name it, leaves its list with
// no current entry.
void ModelParam2Page::selectColumns(const CfgModel &record)
{
    ui->cbWeight->setCurrentIndex(ui->cbWeight->findText(record.Weight));
    ui->cmbTreatmentFlag->setCurrentIndex(ui->cmbTreatmentFlag->findText(record.Treatment));
}

void ModelParam2Page::refreshControls()
{
    const CfgModel *record = cfg();
    if (!record)
        return;
    selectColumns(*record);
    ui->leMaxTimeH->setText(numberText(record->stopComputationAfterXHours));
    modelMax.show(record->nMaxVar, QString::number(record->nMaxVar));
    ui->lePenaltyProfile->setText(numberText(record->penalityForProfile));
    ui->lePenaltyTreatment->setText(numberText(record->penalityForTreatment));
    refreshQuantile(*record);
}

// Off, the quantile's controls keep the last value they showed.
void ModelParam2Page::refreshQuantile(const CfgModel &record)
{
    ui->cbQuantile->setChecked(record.quantileRegression != 0);
    const bool on = record.quantileRegression > 0;
    setControlsEnabled({ui->leQuantile, ui->sQuantile, ui->lbQuantile1, ui->lbQuantile2}, on);
    if (on)
        quantile.show(int(record.quantileRegression * 100), percentText(record.quantileRegression));
}

// --- limits ------------------------------------------------------------------

void ModelParam2Page::on_sModelMax_sliderMoved(double val)
{
    modelMax.moved(val);
}

void ModelParam2Page::on_sModelMax_valueChanged(double val)
{
    modelMax.released(val);
}

void ModelParam2Page::on_leModelMax_editingFinished()
{
    modelMax.edited();
}

// No time limit is refused. The box speaks of a default, yet what comes
// back is the value the record holds.
void ModelParam2Page::on_leMaxTimeH_editingFinished()
{
    if (updatingPanel() || !cfg())
        return;
    const double hours = ui->leMaxTimeH->displayText().toDouble();
    if (hours > 0) {
        pushChangedValue(context, &CfgModel::stopComputationAfterXHours, hours,
                         QStringLiteral("maximal computation time"), PageModelParam2);
        return;
    }
    {
        // The box takes the focus; the edit must not report a second time.
        const QSignalBlocker blocker(ui->leMaxTimeH);
        askUser(this, UserQuestion{QMessageBox::Warning, QStringLiteral("Input Error"),
                                   QStringLiteral("<html>This parameter cannot be set to zero "
                                                  "!<br>Resetting to default value</html>"),
                                   QMessageBox::Ok, QMessageBox::Ok});
    }
    refresh();
}

// --- columns and up-lift -----------------------------------------------------

void ModelParam2Page::on_cbWeight_currentIndexChanged(int index)
{
    pushValue(context, &CfgModel::Weight, ui->cbWeight->itemText(index),
              QStringLiteral("weight column"), PageModelParam2);
}

void ModelParam2Page::on_cmbTreatmentFlag_currentIndexChanged(int index)
{
    pushValue(context, &CfgModel::Treatment, ui->cmbTreatmentFlag->itemText(index),
              QStringLiteral("treatment column"), PageModelParam2);
}

void ModelParam2Page::on_lePenaltyProfile_editingFinished()
{
    pushChangedValue(context, &CfgModel::penalityForProfile,
                     ui->lePenaltyProfile->text().toDouble(), QStringLiteral("penality profile"),
                     PageModelParam2);
}

void ModelParam2Page::on_lePenaltyTreatment_editingFinished()
{
    pushChangedValue(context, &CfgModel::penalityForTreatment,
                     ui->lePenaltyTreatment->text().toDouble(),
                     QStringLiteral("penality treatment"), PageModelParam2);
}

// --- quantile regression -----------------------------------------------------

// Checking starts again from 5 percent: the quantile held before the box
// was unchecked is lost.
void ModelParam2Page::on_cbQuantile_clicked(bool val)
{
    const CfgModel *record = cfg();
    if (!record)
        return;
    if (!val)
        pushValue(context, &CfgModel::quantileRegression, 0.0, QStringLiteral("quantile check"),
                  PageModelParam2, false);
    else if (record->quantileRegression == 0)
        pushValue(context, &CfgModel::quantileRegression, 0.05, QStringLiteral("quantile check"),
                  PageModelParam2, false);
}

void ModelParam2Page::on_sQuantile_sliderMoved(double val)
{
    quantile.moved(val);
}

void ModelParam2Page::on_sQuantile_valueChanged(double val)
{
    quantile.released(val);
}

void ModelParam2Page::on_leQuantile_editingFinished()
{
    quantile.edited();
}
