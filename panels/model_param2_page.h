#pragma once

#include "panels/page.h"
#include "panels/slider_edit_pair.h"

struct CfgModel;

namespace Ui {
class ModelParam2Page;
}

// Page "Model Parameters (2)", for the advanced level: the limits of the
// model (variables, computing time), the up-lift settings, the weight
// column and the quantile regression. Every edit is one command of page 3.
class ModelParam2Page : public Page
{
    Q_OBJECT

public:
    explicit ModelParam2Page(PageContext &context, QWidget *parent = nullptr);
    ~ModelParam2Page() override;

    // The two column lists offer the variables of the new record.
    void setUpAfterLoad() override;

private slots:
    void on_sModelMax_sliderMoved(double val);
    void on_sModelMax_valueChanged(double val);
    void on_leModelMax_editingFinished();
    void on_leMaxTimeH_editingFinished();
    void on_cbWeight_currentIndexChanged(int index);
    void on_cmbTreatmentFlag_currentIndexChanged(int index);
    void on_lePenaltyProfile_editingFinished();
    void on_lePenaltyTreatment_editingFinished();
    void on_cbQuantile_clicked(bool val);
    void on_sQuantile_sliderMoved(double val);
    void on_sQuantile_valueChanged(double val);
    void on_leQuantile_editingFinished();

private:
    void refreshControls() override;
    void fillColumnCombos();
    void selectColumns(const CfgModel &record);
    void refreshQuantile(const CfgModel &record);

    Ui::ModelParam2Page *ui;
    SliderEditPair modelMax;
    SliderEditPair quantile;
};
