#pragma once

#include "panels/auc_weights.h"
#include "panels/page.h"
#include "panels/slider_edit_pair.h"

struct CfgModel;

namespace Ui {
class ModelParam1Page;
}

// Page "Model Parameters (1)", for the advanced level: the three named
// modes of model construction, and the parameters behind them: the type
// (alpha) and the factor (lambda) of the elastic net's penalization, the
// third optimization pass, the backward stepwise pruning, the quality loss
// it may cost and the weights of its quality measure. Every edit is one
// command of page 2.
class ModelParam1Page : public Page
{
    Q_OBJECT

public:
    explicit ModelParam1Page(PageContext &context, QWidget *parent = nullptr);
    ~ModelParam1Page() override;

private slots:
    void on_rbModelPerform_clicked();
    void on_rbModelStandard_clicked();
    void on_rbModelHighQuality_clicked();

    void on_rbAlphaUser_clicked();
    void on_rbAlphaOptimal_clicked();
    void on_sAlpha_sliderMoved(double val);
    void on_sAlpha_valueChanged(double val);
    void on_leAlpha_editingFinished();

    void on_rbLambdaUser_clicked();
    void on_rbLambdaMaxVar_clicked();
    void on_rbLambdaOptimal_clicked();
    void on_sLambdaUser_sliderMoved(double val);
    void on_sLambdaUser_valueChanged(double val);
    void on_leLambdaUser_editingFinished();
    void on_sLambdaMaxVar_sliderMoved(double val);
    void on_sLambdaMaxVar_valueChanged(double val);
    void on_leLambdaMaxVar_editingFinished();
    void on_cbThirdOptim_clicked(bool val);

    void on_rbPruningNo_clicked();
    void on_rbPruningImportanceNo_clicked();
    void on_rbPruningFast_clicked();
    void on_rbPruningSlow_clicked();
    void on_leAllowedAUCLost_editingFinished();
    void on_sAUCWeightFull_sliderMoved(double val);
    void on_sAUCWeightFull_valueChanged(double val);
    void on_leAUCWeightFull_editingFinished();
    void on_sAUCWeightNone_sliderMoved(double val);
    void on_sAUCWeightNone_valueChanged(double val);
    void on_leAUCWeightNone_editingFinished();

private:
    void refreshControls() override;
    void refreshMode(const CfgModel &record);
    void refreshPenalization(const CfgModel &record);
    void refreshPruning(const CfgModel &record);
    // Sets lambda and the limit on variables in one step.
    void pushLambdaMode(double lambda, int maxVar, const QString &text);
    void pushPruning(int pruning, const QString &text);

    Ui::ModelParam1Page *ui;
    SliderEditPair alpha;
    SliderEditPair lambda;
    SliderEditPair lambdaMaxVar;
    AucWeights weights;
};
