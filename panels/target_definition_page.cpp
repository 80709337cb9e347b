#include "panels/target_definition_page.h"

#include "edit/text_editors.h"
#include "panels/push_value.h"
#include "panels/select_line_page.h"
#include "ui_target_definition_page.h"

namespace {

const ExpressionFields targetFields{&CfgModel::targetVars,
                                    &CfgModel::targetExpression,
                                    &CfgModel::targetAddN,
                                    PageTargetDefinition,
                                    "Target expression",
                                    "Target AddN toggled"};

} // namespace

TargetDefinitionPage::TargetDefinitionPage(PageContext &context, QWidget *parent)
    : ExpressionPage(context, parent), ui(new Ui::TargetDefinitionPage)
{
    ui->setupUi(this);
    setUpExpression(targetFields,
                    {{ui->leTargetFilterColumns, ui->tvTargetColumns, ui->tvTargetVariables,
                      ui->wTargetShowVariable, ui->pteTargetExpression},
                     ui->cbTargetAddN, ui->leTargetCurrentValue, ui->targetLabelSpeed,
                     ui->tabWidgetTarget, ui->splitter_4, ui->splitter_5});
    connect(&inputVars(), &InputVarTable::variableChosen, this,
            &TargetDefinitionPage::on_targetDisplayVar);
    connect(ui->tvTargetColumns, &QAbstractItemView::doubleClicked, this,
            &TargetDefinitionPage::on_pbTargetAddInput_clicked);
}

TargetDefinitionPage::~TargetDefinitionPage()
{
    delete ui;
}

// Page 2 (the file) is not disabled: without the radio buttons it cannot
// be reached anyway.
void TargetDefinitionPage::enableChoices(bool editable)
{
    const QList<QWidget *> choices{ui->rbTargetFile, ui->rbTargetCol, ui->rbTargetFormula,
                                   ui->twTarget->widget(0), ui->twTarget->widget(1)};
    for (QWidget *choice : choices)
        choice->setEnabled(editable);
}

// A fixed target is the one item; otherwise an empty item (no target) and
// every variable of the description by its label.
void TargetDefinitionPage::fillColumns(bool editable)
{
    ui->cbTargetCol->clear();
    if (!cfg())
        return;
    if (!editable) {
        ui->twTarget->setCurrentIndex(0);
        ui->cbTargetCol->addItem(cfg()->targetColumn);
        return;
    }
    ui->cbTargetCol->addItem(QString());
    for (const DatasetVar *var : qAsConst(cfg()->desc->vars))
        ui->cbTargetCol->addItem(var->label);
    ui->cbTargetCol->setCurrentIndex(
        ui->cbTargetCol->findText(cfg()->targetColumn, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void TargetDefinitionPage::setUpAfterLoad()
{
    PanelRefreshScope scope(context);
    const bool editable = context.targetEditable();
    enableChoices(editable);
    fillColumns(editable);
    attachExpression();
}

void TargetDefinitionPage::releaseRecord()
{
    releaseExpression();
}

// A fixed target is never refreshed: the page keeps what the load showed.
void TargetDefinitionPage::refreshControls()
{
    if (!context.targetEditable() || !cfg())
        return;
    const CfgModel &record = *cfg();
    switch (record.targetType) {
    case 'F':
        ui->twTarget->setCurrentIndex(2);
        ui->leTargetFile->setText(record.targetFile);
        ui->rbTargetFile->setChecked(true);
        break;
    case 'E':
        ui->twTarget->setCurrentIndex(1);
        ui->rbTargetFormula->setChecked(true);
        refreshExpression();
        break;
    default:
        ui->twTarget->setCurrentIndex(0);
        ui->cbTargetCol->setCurrentIndex(ui->cbTargetCol->findText(
            record.targetColumn, Qt::MatchExactly | Qt::MatchCaseSensitive));
        ui->rbTargetCol->setChecked(true);
        break;
    }
}

// --- the way of choosing ---------------------------------------------------

void TargetDefinitionPage::setType(char type, const char *text)
{
    if (!cfg() || cfg()->targetType == type)
        return;
    pushValue(context, &CfgModel::targetType, type, QString::fromLatin1(text), PageTargetDefinition,
              false);
}

void TargetDefinitionPage::on_rbTargetCol_clicked()
{
    setType('C', "target type column");
}

void TargetDefinitionPage::on_rbTargetFile_clicked()
{
    setType('F', "target type file");
}

void TargetDefinitionPage::on_rbTargetFormula_clicked()
{
    setType('E', "target type formula");
}

// Picks in a row merge into one step.
void TargetDefinitionPage::on_cbTargetCol_currentIndexChanged(const QString &text)
{
    if (updatingPanel() || !cfg() || text == cfg()->targetColumn)
        return;
    pushValue(context, &CfgModel::targetColumn, text, QStringLiteral("target column"),
              PageTargetDefinition, true);
}

// --- the file ---------------------------------------------------------------

void TargetDefinitionPage::on_leTargetFile_returnPressed()
{
    pushValue(context, &CfgModel::targetFile, ui->leTargetFile->text(), QStringLiteral("target File"),
              PageTargetDefinition, false);
}

void TargetDefinitionPage::on_pbTargetFile_clicked()
{
    const QString name = chooseFile(ui->leTargetFile->text(), QStringLiteral("Choose target file"),
                                    QStringLiteral("target key file (*.txt);;All (*.*)"));
    if (name.isEmpty())
        return;
    ui->leTargetFile->setText(name);
    on_leTargetFile_returnPressed();
}

// --- the expression --------------------------------------------------------

void TargetDefinitionPage::on_cbTargetAddN_toggled(bool b)
{
    setAddN(b);
}

void TargetDefinitionPage::on_pteTargetExpression_editingFinished()
{
    commitExpression();
}

void TargetDefinitionPage::on_pbTargetCheck_clicked()
{
    checkRecordExpression();
}

void TargetDefinitionPage::on_cbFunctionsNumber_activated(int index)
{
    insertFunction(ui->cbFunctionsNumber, index);
}

void TargetDefinitionPage::on_cbFunctionsString_activated(int index)
{
    insertFunction(ui->cbFunctionsString, index);
}

// --- the input variables ----------------------------------------------------

void TargetDefinitionPage::on_leTargetFilterColumns_textChanged(const QString &text)
{
    inputVars().setFilter(text);
}

void TargetDefinitionPage::on_pbTargetAddInput_clicked()
{
    inputVars().addSelected();
}

// What is emptied first is the detail of the line selection, not this
// page's own, which stays on the screen. So it has always been.
void TargetDefinitionPage::on_pbTargetRemoveInput_clicked()
{
    if (auto *lines = siblingPage<SelectLinePage>(this))
        lines->on_lsDisplayVar(-1);
    inputVars().removeSelected();
}

void TargetDefinitionPage::on_pbTargetUp_clicked()
{
    inputVars().upSelected();
}

void TargetDefinitionPage::on_pbTargetDown_clicked()
{
    inputVars().downSelected();
}

void TargetDefinitionPage::on_targetDisplayVar(int i)
{
    showTargetVariable(i, true);
}

// Without a panel the name goes into this page's expression and is taken
// over at once; the focus, though, goes to the line selection's editor.
// So it has always been.
void TargetDefinitionPage::showTargetVariable(int i, bool insert)
{
    auto *lineEditor = window()->findChild<KPlainTextEdit *>(QStringLiteral("pteLsExpression"));
    if (showOrInsertVariable(i, insert, lineEditor))
        on_pteTargetExpression_editingFinished();
}
