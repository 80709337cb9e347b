#pragma once

#include "panels/expression_page.h"

namespace Ui {
class TargetDefinitionPage;
}

// Page "Target Definition": what the model predicts, chosen as a column of
// the dataset, a file of keys, or a boolean expression over input
// variables. A description that names its own target fixes it: the page
// then only shows it. Every edit is one command of page 6.
class TargetDefinitionPage : public ExpressionPage
{
    Q_OBJECT

public:
    explicit TargetDefinitionPage(PageContext &context, QWidget *parent = nullptr);
    ~TargetDefinitionPage() override;

    void setUpAfterLoad() override;
    void releaseRecord() override;

public slots:
    // Takes over the editor's text when it differs from the record's; the
    // line-selection page calls it too.
    void on_pteTargetExpression_editingFinished();
    // Shows the detail of input variable i, or inserts its name into the
    // expression when its dataset variable offers no panel.
    void on_targetDisplayVar(int i);

private slots:
    void on_rbTargetCol_clicked();
    void on_rbTargetFile_clicked();
    void on_rbTargetFormula_clicked();
    void on_cbTargetCol_currentIndexChanged(const QString &text);
    void on_leTargetFile_returnPressed();
    void on_pbTargetFile_clicked();
    void on_cbTargetAddN_toggled(bool b);
    void on_pbTargetCheck_clicked();
    void on_leTargetFilterColumns_textChanged(const QString &text);
    void on_pbTargetAddInput_clicked();
    void on_pbTargetRemoveInput_clicked();
    void on_pbTargetUp_clicked();
    void on_pbTargetDown_clicked();
    void on_cbFunctionsNumber_activated(int index);
    void on_cbFunctionsString_activated(int index);

private:
    void refreshControls() override;
    void setType(char type, const char *text);
    void enableChoices(bool editable);
    void fillColumns(bool editable);
    void showTargetVariable(int i, bool insert);

    Ui::TargetDefinitionPage *ui;
};
