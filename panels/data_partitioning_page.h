#pragma once

#include "panels/page.h"
#include "panels/slider_edit_pair.h"

struct CfgModel;

namespace Ui {
class DataPartitioningPage;
}

// Page "Data Partitioning", for the advanced level: how many test and
// validation sets the engine builds, how much memory and what share of
// targets a sample may take, and whether the target is purified first.
// Every edit is one command of page 1.
class DataPartitioningPage : public Page
{
    Q_OBJECT

public:
    explicit DataPartitioningPage(PageContext &context, QWidget *parent = nullptr);
    ~DataPartitioningPage() override;

    // Each record starts with an upper end for the test sets of at least
    // 10, and at least its number of validation sets.
    void setUpAfterLoad() override;
    int testSetsLimit() const { return maxTestSetsLimit; }

private slots:
    void on_sNTestSet_valueChanged(double val);
    void on_sNValSet_valueChanged(double val);
    void on_sNMaxValSet_valueChanged(double val);
    void on_nMaxTestSet_valueChanged(int val);
    void on_sMaxMemory_sliderMoved(double val);
    void on_sMaxMemory_valueChanged(double val);
    void on_leMaxMemory_editingFinished();
    void on_sMaxTargetDensity_sliderMoved(double val);
    void on_sMaxTargetDensity_valueChanged(double val);
    void on_leMaxTargetDensity_editingFinished();
    void on_sMaxTestDSSize_sliderMoved(double val);
    void on_sMaxTestDSSize_valueChanged(double val);
    void on_leMaxTestDSSize_editingFinished();
    void on_cbPurify_clicked(bool val);
    void on_lePurify_editingFinished();
    void on_leStratif_editingFinished();
    void on_pbBrowse_clicked();

private:
    void refreshControls() override;
    void refreshPurify(const CfgModel &record);
    void refreshSets(const CfgModel &record);
    void refreshSampling(const CfgModel &record);

    Ui::DataPartitioningPage *ui;
    // The upper end of the slider of test sets. No record holds it: it
    // lives here, with the one page that shows it. The spin box changes it
    // through a command like any field, so that it is undone with the rest;
    // it is never saved.
    int maxTestSetsLimit = 10;
    SliderEditPair memory;
    SliderEditPair targetDensity;
    SliderEditPair testDSSize;
};
