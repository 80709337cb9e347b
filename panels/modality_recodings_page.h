#pragma once

#include "panels/modality_min_size_group.h"
#include "panels/page.h"

namespace Ui {
class ModalityRecodingsPage;
}

// Page "Modality Recodings", for the advanced level: the general minimum
// size of a modality for nominal and for ordered variables (a column
// without a size of its own takes it), the recovery of small modalities,
// the cap on univariate quality, and some parameters of the run. Every edit
// is one command of page 7.
class ModalityRecodingsPage : public Page
{
    Q_OBJECT

public:
    explicit ModalityRecodingsPage(PageContext &context, QWidget *parent = nullptr);
    ~ModalityRecodingsPage() override;

private slots:
    void on_leMinSizeModalityForNominalVar_editingFinished();
    void on_rbModalityMinRowsNominalVar_clicked();
    void on_rbModalityMinTargetNominalVar_clicked();
    void on_rbModalityMinPercentNominalVar_clicked();
    void on_sbModalityMinRowsNominalVar_editingFinished();
    void on_leModalityMinTargetNominalVar_editingFinished();
    void on_leModalityMinTargetNominalVar_returnPressed();
    void on_leModalityMinPercentNominalVar_editingFinished();
    void on_leModalityMinPercentNominalVar_returnPressed();

    void on_leMinSizeModalityForOrderedVar_editingFinished();
    void on_rbModalityMinRowsOrderedVar_clicked();
    void on_rbModalityMinTargetOrderedVar_clicked();
    void on_rbModalityMinPercentOrderedVar_clicked();
    void on_sbModalityMinRowsOrderedVar_editingFinished();
    void on_leModalityMinTargetOrderedVar_editingFinished();
    void on_leModalityMinTargetOrderedVar_returnPressed();
    void on_leModalityMinPercentOrderedVar_editingFinished();
    void on_leModalityMinPercentOrderedVar_returnPressed();

    void on_dsbZscore_valueChanged(double value);
    void on_dsbAUCMax_valueChanged(double value);
    void on_sbRandomSeed_valueChanged(int value);
    void on_sbNCpu_valueChanged(int value);
    void on_sbNBagging_valueChanged(int value);
    void on_dsbLowerBoundCorrelationReport_valueChanged(double value);
    void on_cbDisplayCF_toggled(bool checked);

private:
    void refreshControls() override;
    // A value of a control pushed as it stands, unless a refresh set it.
    template <typename T>
    void pushValue(T CfgModel::*field, T value, const char *name, bool mergeable = true);

    Ui::ModalityRecodingsPage *ui;
    ModalityMinSizeGroup nominal;
    ModalityMinSizeGroup ordered;
};
