#include "panels/select_line_page.h"

#include "core/segmentation_model.h"
#include "edit/table_views.h"
#include "panels/active_segment_model_editor.h"
#include "panels/push_value.h"
#include "panels/target_definition_page.h"
#include "ui_select_line_page.h"

#include <QHeaderView>

namespace {

const ExpressionFields lineSelectionFields{&CfgModel::lineSelectionVars,
                                           &CfgModel::lineSelectionExpression,
                                           &CfgModel::lsAddN,
                                           PageSelectLine,
                                           "LS expression",
                                           "LS AddN toggled"};

} // namespace

SelectLinePage::SelectLinePage(PageContext &context, QWidget *parent)
    : ExpressionPage(context, parent), ui(new Ui::SelectLinePage),
      segments(new ActiveSegmentModelEditor(context.undoStack(), this))
{
    ui->setupUi(this);
    PanelRefreshScope scope(context);
    ui->tvActiveSegments->setModel(segments);
    ui->tvActiveSegments->setItemDelegate(new EnhancedTableDelegate({1}, {}, {}, {}, {}, {}, {},
                                                                    this));
    setUpExpression(lineSelectionFields,
                    {{ui->leLsFilterColumns, ui->tvLsColumns, ui->tvLsVariables,
                      ui->wLsShowVariable, ui->pteLsExpression},
                     ui->cbLsAddN, ui->leLsCurrentValue, ui->lsLabelSpeed, ui->tabWidgetLS,
                     ui->splitter_3, ui->splitter_2});
    connect(&inputVars(), &InputVarTable::variableChosen, this, &SelectLinePage::on_lsDisplayVar);
    connect(ui->tvLsColumns, &QAbstractItemView::doubleClicked, this,
            &SelectLinePage::on_pbLsAddInput_clicked);
}

SelectLinePage::~SelectLinePage()
{
    delete ui;
}

void SelectLinePage::setUpAfterLoad()
{
    PanelRefreshScope scope(context);
    segments->attach(cfg());
    QHeaderView *header = ui->tvActiveSegments->horizontalHeader();
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::Fixed);
    ui->tvActiveSegments->setColumnWidth(1, 140);
    attachExpression();
}

void SelectLinePage::releaseRecord()
{
    segments->attach(nullptr);
    releaseExpression();
}

// The radio button of the expression is left as it is: after an undo back
// to 'E' the other one stays checked over the expression's page.
void SelectLinePage::refreshControls()
{
    if (!cfg())
        return;
    const CfgModel &record = *cfg();
    switch (record.lineSelectionType) {
    case 'F':
        ui->leLsFile->setText(record.lineSelectionFile);
        ui->rbExternalFile->setChecked(true);
        ui->twSelectLineSegment->setCurrentIndex(1);
        break;
    case 'E':
        ui->twSelectLineSegment->setCurrentIndex(0);
        refreshExpression();
        ui->cbLsTruncate->setChecked(record.lsTruncate);
        break;
    default:
        ui->rbBModel->setChecked(true);
        ui->twSelectLineSegment->setCurrentIndex(2);
        ui->leSegmentation->setText(record.lineSelectionSegmentFile);
        segments->reset();
        break;
    }
}

// --- the way of choosing ---------------------------------------------------

void SelectLinePage::setType(char type)
{
    if (!cfg() || cfg()->lineSelectionType == type)
        return;
    pushValue(context, &CfgModel::lineSelectionType, type, QStringLiteral("lineSelectionType"),
              PageSelectLine, false);
}

void SelectLinePage::on_rbFormula_clicked()
{
    setType('E');
}

void SelectLinePage::on_rbExternalFile_clicked()
{
    setType('F');
}

void SelectLinePage::on_rbBModel_clicked()
{
    setType('S');
}

// --- file and segmentation model -------------------------------------------

// A path is taken over on Return or from the dialog; leaving the field
// does nothing.
void SelectLinePage::on_leLsFile_returnPressed()
{
    pushValue(context, &CfgModel::lineSelectionFile, ui->leLsFile->text(),
              QStringLiteral("lineSelectionFile"), PageSelectLine, false);
}

void SelectLinePage::on_pbLsFile_clicked()
{
    const QString name =
        chooseFile(ui->leLsFile->text(), QStringLiteral("Choose file"),
                   QStringLiteral("Primary Key List file (*.txt;*csv);;All (*.*)"));
    if (name.isEmpty())
        return;
    ui->leLsFile->setText(name);
    on_leLsFile_returnPressed();
}

void SelectLinePage::on_leSegmentation_returnPressed()
{
    readSegmentationModel();
}

// The dialog starts from the field of the selection file, not from the
// model's own: so it has always been.
void SelectLinePage::on_pbSegmentation_clicked()
{
    const QString name =
        chooseFile(ui->leLsFile->text(), QStringLiteral("Choose file"),
                   QStringLiteral("Segmentation Model file (*.SModelXML);;All (*.*)"));
    if (name.isEmpty())
        return;
    ui->leSegmentation->setText(name);
    readSegmentationModel();
}

// The path, the names and the active segments (the first one on) in one
// step; the type stays for its radio button. A model without segment names
// changes nothing, and says nothing.
void SelectLinePage::readSegmentationModel()
{
    const QString path = ui->leSegmentation->text();
    if (path.isEmpty() || !cfg())
        return;
    const QStringList names = readSegmentNames(path);
    if (names.isEmpty())
        return;
    QVector<bool> active(names.size(), false);
    active[0] = true;
    CfgModel &record = *cfg();
    QUndoStack *stack = undoStack();
    stack->beginMacro(QStringLiteral("Segmentation Model"));
    stack->push(new UpdateTemplateCommand<QString>(&record.lineSelectionSegmentFile, path,
                                                   QString(), PageSelectLine, false));
    stack->push(new UpdateTemplate2Command<QStringList>(&record.segmentNames, names, QString(),
                                                        PageSelectLine, false));
    stack->push(new UpdateTemplate2Command<QVector<bool>>(&record.segmentActive, active,
                                                          QString(), PageSelectLine, false));
    stack->endMacro();
}

// --- the expression --------------------------------------------------------

void SelectLinePage::on_cbLsAddN_toggled(bool b)
{
    setAddN(b);
}

void SelectLinePage::on_cbLsTruncate_toggled(bool b)
{
    if (!cfg() || b == cfg()->lsTruncate)
        return;
    pushValue(context, &CfgModel::lsTruncate, b, QStringLiteral("LS trunacte toggled"), PageSelectLine,
              false);
}

void SelectLinePage::on_pteLsExpression_editingFinished()
{
    commitExpression();
}

void SelectLinePage::on_pbLsCheck_clicked()
{
    checkRecordExpression();
}

void SelectLinePage::on_cbFunctionsNumber_activated(int index)
{
    insertFunction(ui->cbFunctionsNumber, index);
}

void SelectLinePage::on_cbFunctionsString_activated(int index)
{
    insertFunction(ui->cbFunctionsString, index);
}

// --- the input variables ----------------------------------------------------

void SelectLinePage::on_leLsFilterColumns_textChanged(const QString &text)
{
    inputVars().setFilter(text);
}

void SelectLinePage::on_pbLsAddInput_clicked()
{
    inputVars().addSelected();
}

void SelectLinePage::on_pbLsRemoveInput_clicked()
{
    inputVars().clearDetail();
    inputVars().removeSelected();
}

void SelectLinePage::on_pbLsUp_clicked()
{
    inputVars().upSelected();
}

void SelectLinePage::on_pbLsDown_clicked()
{
    inputVars().downSelected();
}

void SelectLinePage::on_lsDisplayVar(int i)
{
    showLineSelectionVariable(i, true);
}

// Without a panel the name goes into the expression, but what is called
// then is the target page's end of editing: the insertion is taken over
// only when the editor of this page loses the focus. So it has always been.
void SelectLinePage::showLineSelectionVariable(int i, bool insert)
{
    if (!showOrInsertVariable(i, insert, ui->pteLsExpression))
        return;
    if (auto *target = siblingPage<TargetDefinitionPage>(this))
        target->on_pteTargetExpression_editingFinished();
}
