#pragma once

#include "panels/page.h"
#include "panels/variable_row_filter.h"
#include "panels/variable_table.h"
#include "shell/var_list_window.h"

class MyTableModelEditor;
class MyTableModelEditorDP;
class EnhancedTableDelegate;

namespace Ui {
class SelectVariablesPage;
}

// Page "Select Variables": one row per column of the description, in two
// tables on the same rows with the same filters. The first decides which
// columns the model may use (ignored, monotonic, illustrative); the second,
// for the advanced level, holds the minimum modality size, the penalty and
// the centring of missing values per column. Every edit is one command of
// page 4.
class SelectVariablesPage : public Page
{
    Q_OBJECT

public:
    explicit SelectVariablesPage(PageContext &context, QWidget *parent = nullptr);
    ~SelectVariablesPage() override;

    // Gives both tables the new record, from their first tab.
    void setUpAfterLoad() override;
    void releaseRecord() override;

    MyTableModelEditor *activationModel() const;
    MyTableModelEditorDP *discretizationModel() const;
    VarListWindow &varListWindow() { return varList; }

private slots:
    void on_pbActivate_clicked();
    void on_pbIgnore_clicked();
    void on_pbMonoInc_clicked();
    void on_pbMonoDec_clicked();
    void on_pbMonoNone_clicked();
    void on_pbSmartActivate_clicked();
    void on_pbAllChoose_clicked();
    void on_pbSelectAllAdv_clicked();
    void on_cbSelector1_clicked();
    void on_cbSelector2_clicked();
    void on_cbSelector3_clicked();
    void on_cbInvert1_clicked();
    void on_cbInvert2_clicked();
    void on_cbInvert3_clicked();
    void on_leSelector1_textChanged(const QString &text);
    void on_leSelector2_textChanged(const QString &text);
    void on_pbChooseLookUp_clicked();
    void on_rowCountChanged();
    void on_pbSetDiscretization_clicked();
    void on_pbResetMinModalitySize_clicked();
    void on_pbSetPenality_clicked();
    void on_pbSetPenalityTo0_clicked();
    void on_pbSetPenalityTo1_clicked();
    void on_pbCenterMissings_clicked();
    void on_pbUnCenterMissings_clicked();

private:
    void refreshControls() override;
    void setUpTable(VariableTable &table, MyTable *view, VariableTableModel *model,
                    EnhancedTableDelegate *delegate);
    void setColumnWidths(MyTable *view, const QVector<int> &widths);
    void refilter();
    void toggleAllRows();

    void setSelectedIgnore(char value, const QString &text);
    void setSelectedMonotonicity(char value, const QString &text);
    void setSelectedMinModalitySize(double value, const QString &text);
    void setSelectedPenality(double value);
    void setSelectedCenterMissing(bool value);

    Ui::SelectVariablesPage *ui;
    VarListWindow varList;
    VariableRowFilter filter;
    VariableTable activation;
    VariableTable discretization;
};
