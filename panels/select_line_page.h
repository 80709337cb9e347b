#pragma once

#include "panels/expression_page.h"

class ActiveSegmentModelEditor;

namespace Ui {
class SelectLinePage;
}

// Page "Select Lines / Segment": the lines of the dataset that the model is
// built on, chosen by a boolean expression over input variables, by a file
// of primary keys, or by the active segments of a segmentation model. Every
// edit is one command of page 5.
class SelectLinePage : public ExpressionPage
{
    Q_OBJECT

public:
    explicit SelectLinePage(PageContext &context, QWidget *parent = nullptr);
    ~SelectLinePage() override;

    void setUpAfterLoad() override;
    void releaseRecord() override;

    ActiveSegmentModelEditor *segmentModel() const { return segments; }

public slots:
    // Shows the detail of input variable i, or inserts its name into the
    // expression when its dataset variable offers no panel; -1 empties the
    // detail.
    void on_lsDisplayVar(int i);

private slots:
    void on_rbFormula_clicked();
    void on_rbExternalFile_clicked();
    void on_rbBModel_clicked();
    void on_leLsFile_returnPressed();
    void on_pbLsFile_clicked();
    void on_leSegmentation_returnPressed();
    void on_pbSegmentation_clicked();
    void on_cbLsAddN_toggled(bool b);
    void on_cbLsTruncate_toggled(bool b);
    void on_pteLsExpression_editingFinished();
    void on_pbLsCheck_clicked();
    void on_leLsFilterColumns_textChanged(const QString &text);
    void on_pbLsAddInput_clicked();
    void on_pbLsRemoveInput_clicked();
    void on_pbLsUp_clicked();
    void on_pbLsDown_clicked();
    void on_cbFunctionsNumber_activated(int index);
    void on_cbFunctionsString_activated(int index);

private:
    void refreshControls() override;
    void setType(char type);
    void showLineSelectionVariable(int i, bool insert);
    void readSegmentationModel();

    Ui::SelectLinePage *ui;
    ActiveSegmentModelEditor *segments;
};
