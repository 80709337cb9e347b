#include "panels/model_param1_page.h"

#include "panels/control_state.h"
#include "panels/model_modes.h"
#include "panels/number_field.h"
#include "panels/push_value.h"
#include "panels/slider_setup.h"
#include "shell/gui_reporter.h"
#include "ui_model_param1_page.h"

#include <QSignalBlocker>

namespace {

Ui::ModelParam1Page *formOf(QWidget *page)
{
    auto *ui = new Ui::ModelParam1Page;
    ui->setupUi(page);
    return ui;
}

// The smallest limit on variables the slider offers once a record's limit
// has outgrown its first range.
constexpr int fewestMaxVar = 5;

} // namespace

ModelParam1Page::ModelParam1Page(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(formOf(this)),
      alpha(context, ui->sAlpha, ui->leAlpha,
            percentCommit(context, &CfgModel::alpha, QStringLiteral("alpha"), PageModelParam1)),
      lambda(context, ui->sLambdaUser, ui->leLambdaUser,
             percentCommit(context, &CfgModel::lambda, QStringLiteral("lambda"), PageModelParam1)),
      lambdaMaxVar(
          context, ui->sLambdaMaxVar, ui->leLambdaMaxVar,
          countCommit(context, &CfgModel::nMaxVar, QStringLiteral("lambda"), PageModelParam1)),
      weights(context, ui->sAUCWeightFull, ui->leAUCWeightFull, ui->sAUCWeightNone,
              ui->leAUCWeightNone)
{
    PanelRefreshScope scope(context);
    for (QwtSlider *slider :
         {ui->sAlpha, ui->sLambdaUser, ui->sLambdaMaxVar, ui->sAUCWeightFull, ui->sAUCWeightNone}) {
        setUpSliderLook(slider, SliderBackground::Slot, false);
        setSliderRange(slider, 0, 100, 1);
    }
}

ModelParam1Page::~ModelParam1Page()
{
    delete ui;
}

// --- refresh -----------------------------------------------------------------

void ModelParam1Page::refreshControls()
{
    const CfgModel *record = cfg();
    if (!record)
        return;
    ui->cbThirdOptim->setChecked(record->thirdOptim != 0);
    refreshMode(*record);
    refreshPenalization(*record);
    refreshPruning(*record);
}

// A record that is in no named mode shows none, even where a click on a
// mode would change nothing.
void ModelParam1Page::refreshMode(const CfgModel &record)
{
    uncheckAll(ui->bgModel);
    switch (shownModelMode(record)) {
    case ModelMode::Performance:
        ui->rbModelPerform->setChecked(true);
        break;
    case ModelMode::Standard:
        ui->rbModelStandard->setChecked(true);
        break;
    case ModelMode::HighQuality:
        ui->rbModelHighQuality->setChecked(true);
        break;
    case ModelMode::None:
        break;
    }
}

// An optimal value shows as -100 in its disabled field. The limit on
// variables exists for pure lasso only; its slider's range grows with a
// larger limit, and never shrinks.
void ModelParam1Page::refreshPenalization(const CfgModel &record)
{
    const bool userLambda = record.lambda >= 0;
    if (userLambda)
        ui->rbLambdaUser->setChecked(true);
    else if (record.nMaxVar >= 1 && record.alpha == 1.0)
        ui->rbLambdaMaxVar->setChecked(true);
    else
        ui->rbLambdaOptimal->setChecked(true);
    setControlsEnabled({ui->sLambdaUser, ui->leLambdaUser, ui->lbLambdaUser}, userLambda);

    const bool userAlpha = record.alpha >= 0;
    (userAlpha ? ui->rbAlphaUser : ui->rbAlphaOptimal)->setChecked(true);
    setControlsEnabled({ui->sAlpha, ui->leAlpha, ui->lApha1, ui->lApha2, ui->lApha3}, userAlpha);

    const bool lasso = record.alpha == 1.0;
    ui->rbLambdaMaxVar->setEnabled(lasso);
    const bool limited = lasso && record.nMaxVar > 1;
    setControlsEnabled({ui->sLambdaMaxVar, ui->leLambdaMaxVar, ui->lLambdaMaxVar}, limited);
    if (limited && ui->sLambdaMaxVar->value() != record.nMaxVar) {
        if (ui->sLambdaMaxVar->maximum() < record.nMaxVar)
            setSliderRange(ui->sLambdaMaxVar, fewestMaxVar, record.nMaxVar, 0);
        ui->sLambdaMaxVar->setValue(record.nMaxVar);
    }

    if (ui->sAlpha->value() * 0.01 != record.alpha)
        ui->sAlpha->setValue(int(record.alpha * 100));
    if (ui->sLambdaUser->value() * 0.01 != record.lambda)
        ui->sLambdaUser->setValue(int(record.lambda * 100));
    ui->leAlpha->setText(percentText(record.alpha));
    ui->leLambdaUser->setText(percentText(record.lambda));
    ui->leLambdaMaxVar->setText(QString::number(record.nMaxVar));
}

// A pruning mode above 3, from a file, checks no button.
void ModelParam1Page::refreshPruning(const CfgModel &record)
{
    uncheckAll(ui->bgPruning);
    const QVector<QRadioButton *> buttons{ui->rbPruningNo, ui->rbPruningImportanceNo,
                                          ui->rbPruningFast, ui->rbPruningSlow};
    if (record.pruning >= 0 && record.pruning < buttons.size())
        buttons.at(record.pruning)->setChecked(true);
    ui->leAllowedAUCLost->setText(percentText(record.allowedAUCLoss));
    weights.refresh(record);
}

// --- the modes ---------------------------------------------------------------

void ModelParam1Page::on_rbModelPerform_clicked()
{
    if (!updatingPanel() && cfg())
        pushIfAny(context, performanceModeCommand(*cfg(), PageModelParam1));
}

void ModelParam1Page::on_rbModelStandard_clicked()
{
    if (!updatingPanel() && cfg())
        pushIfAny(context, insightModeCommand(*cfg(), PruningFast, PageModelParam1));
}

void ModelParam1Page::on_rbModelHighQuality_clicked()
{
    if (!updatingPanel() && cfg())
        pushIfAny(context, insightModeCommand(*cfg(), PruningSlow, PageModelParam1));
}

// --- alpha -------------------------------------------------------------------

// A user value starts from pure lasso.
void ModelParam1Page::on_rbAlphaUser_clicked()
{
    if (cfg() && cfg()->alpha < 0)
        pushValue(context, &CfgModel::alpha, 1.0, QStringLiteral("alpha"), PageModelParam1, false);
}

void ModelParam1Page::on_rbAlphaOptimal_clicked()
{
    pushChangedValue(context, &CfgModel::alpha, -1.0, QStringLiteral("optimal alpha"),
                     PageModelParam1, false);
}

void ModelParam1Page::on_sAlpha_sliderMoved(double val)
{
    alpha.moved(val);
}

void ModelParam1Page::on_sAlpha_valueChanged(double val)
{
    alpha.released(val);
}

void ModelParam1Page::on_leAlpha_editingFinished()
{
    alpha.edited();
}

// --- lambda ------------------------------------------------------------------

void ModelParam1Page::pushLambdaMode(double lambdaValue, int maxVar, const QString &text)
{
    CfgModel *record = cfg();
    auto *group = new QUndoCommandPanel(text, PageModelParam1);
    addChange(group, &record->lambda, lambdaValue, text);
    addChange(group, &record->nMaxVar, maxVar, text);
    push(group);
}

// A user value starts from 0; one already set only loses the limit on
// variables that stood beside it.
void ModelParam1Page::on_rbLambdaUser_clicked()
{
    const CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    if (record->lambda < 0)
        pushLambdaMode(0.0, -1, QStringLiteral("lambda"));
    else
        pushChangedValue(context, &CfgModel::nMaxVar, -1, QStringLiteral("lambda"),
                         PageModelParam1);
}

void ModelParam1Page::on_rbLambdaMaxVar_clicked()
{
    const CfgModel *record = cfg();
    if (!updatingPanel() && record && (record->lambda != -1.0 || record->nMaxVar != 30))
        pushLambdaMode(-1.0, 30, QStringLiteral("Lambda max var"));
}

void ModelParam1Page::on_rbLambdaOptimal_clicked()
{
    const CfgModel *record = cfg();
    if (!updatingPanel() && record && (record->lambda != -1.0 || record->nMaxVar != -1))
        pushLambdaMode(-1.0, -1, QStringLiteral("Lambda optimal"));
}

void ModelParam1Page::on_sLambdaUser_sliderMoved(double val)
{
    lambda.moved(val);
}

void ModelParam1Page::on_sLambdaUser_valueChanged(double val)
{
    lambda.released(val);
}

void ModelParam1Page::on_leLambdaUser_editingFinished()
{
    lambda.edited();
}

void ModelParam1Page::on_sLambdaMaxVar_sliderMoved(double val)
{
    lambdaMaxVar.moved(val);
}

void ModelParam1Page::on_sLambdaMaxVar_valueChanged(double val)
{
    lambdaMaxVar.released(val);
}

void ModelParam1Page::on_leLambdaMaxVar_editingFinished()
{
    lambdaMaxVar.edited();
}

void ModelParam1Page::on_cbThirdOptim_clicked(bool val)
{
    pushValue(context, &CfgModel::thirdOptim, val ? 1 : 0, QStringLiteral("thirdOptim"),
              PageModelParam1, false);
}

// --- pruning -----------------------------------------------------------------

void ModelParam1Page::pushPruning(int pruning, const QString &text)
{
    pushChangedValue(context, &CfgModel::pruning, pruning, text, PageModelParam1, false);
}

void ModelParam1Page::on_rbPruningNo_clicked()
{
    pushPruning(PruningNone, QStringLiteral("no pruning"));
}

void ModelParam1Page::on_rbPruningImportanceNo_clicked()
{
    pushPruning(PruningNoneWithImportances, QStringLiteral("no pruning importance"));
}

// Fast pruning goes with pure lasso; slow pruning leaves alpha alone.
void ModelParam1Page::on_rbPruningFast_clicked()
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record || (record->alpha == 1.0 && record->pruning == PruningFast))
        return;
    auto *group = new QUndoCommandPanel(QStringLiteral("pruning fast"), PageModelParam1);
    addChange(group, &record->alpha, 1.0);
    addChange(group, &record->pruning, int(PruningFast));
    push(group);
}

void ModelParam1Page::on_rbPruningSlow_clicked()
{
    pushPruning(PruningSlow, QStringLiteral("pruning slow"));
}

// The first test compares the typed percent with the record's fraction, so
// typing the fraction's own digits changes nothing; the test after the
// bounds compares like with like. The bounds are inclusive. After a refused
// value, the refresh writes the record's value back.
void ModelParam1Page::on_leAllowedAUCLost_editingFinished()
{
    const CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    const double v = ui->leAllowedAUCLost->displayText().toDouble();
    if (v == record->allowedAUCLoss)
        return;
    if (v < -20 || v > 100) {
        // The box takes the focus; the edit must not report a second time.
        const QSignalBlocker blocker(ui->leAllowedAUCLost);
        askUser(this, UserQuestion{QMessageBox::Critical, QStringLiteral("Input Error"),
                                   QStringLiteral("This parameter must be between : -20 and 100."),
                                   QMessageBox::Ok, QMessageBox::Ok});
    } else if (v * 0.01 == record->allowedAUCLoss) {
        return;
    } else {
        pushValue(context, &CfgModel::allowedAUCLoss, v * 0.01, QStringLiteral("allowedAUCLoss"),
                  PageModelParam1, false);
    }
    refresh();
}

void ModelParam1Page::on_sAUCWeightFull_sliderMoved(double val)
{
    weights.moved(AucWeights::Full, val);
}

void ModelParam1Page::on_sAUCWeightFull_valueChanged(double val)
{
    weights.released(AucWeights::Full, val);
}

void ModelParam1Page::on_leAUCWeightFull_editingFinished()
{
    weights.edited(AucWeights::Full);
}

void ModelParam1Page::on_sAUCWeightNone_sliderMoved(double val)
{
    weights.moved(AucWeights::None, val);
}

void ModelParam1Page::on_sAUCWeightNone_valueChanged(double val)
{
    weights.released(AucWeights::None, val);
}

void ModelParam1Page::on_leAUCWeightNone_editingFinished()
{
    weights.edited(AucWeights::None);
}
