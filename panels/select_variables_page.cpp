#include "panels/select_variables_page.h"

#include "core/cfg_model.h"
#include "core/smart_activate.h"
#include "panels/my_table_model_editor.h"
#include "panels/my_table_model_editor_dp.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"
#include "ui_select_variables_page.h"

#include <QHeaderView>

namespace {

const QVector<int> activationWidths{80, 60, 160, 200, 90, 90, 60, 60};
const QVector<int> discretizationWidths{80, 60, 160, 200, 90, 60, 90, 90};

} // namespace

SelectVariablesPage::SelectVariablesPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::SelectVariablesPage), varList(this, true)
{
    ui->setupUi(this);
    filter.lookUpNames = &varList.lookUpNames;
    filter.lookUpByLabel = &varList.lookUpByLabel;
    filter.lookUpByFullName = &varList.lookUpByFullName;

    auto *activationModel = new MyTableModelEditor(context, this);
    connect(activationModel, &MyTableModelEditor::rowCountChanged, this,
            &SelectVariablesPage::on_rowCountChanged);
    setUpTable(activation, ui->tableView, activationModel,
               new EnhancedTableDelegate(
                   {MyTableModelEditor::IgnoreColumn, MyTableModelEditor::IllustrativeColumn}, {},
                   {},
                   ComboColumns{{MyTableModelEditor::MonotonicityColumn},
                                {new QStringList{"none", "increasing", "decreasing", "N/A"}}},
                   {}, {}, {}, this));
    setUpTable(discretization, ui->tableViewDP, new MyTableModelEditorDP(context, this),
               new EnhancedTableDelegate({MyTableModelEditorDP::CenterMissingColumn}, {}, {}, {},
                                         {}, {}, {}, this));
}

SelectVariablesPage::~SelectVariablesPage()
{
    delete ui;
}

MyTableModelEditor *SelectVariablesPage::activationModel() const
{
    return static_cast<MyTableModelEditor *>(activation.model);
}

MyTableModelEditorDP *SelectVariablesPage::discretizationModel() const
{
    return static_cast<MyTableModelEditorDP *>(discretization.model);
}

void SelectVariablesPage::setUpTable(VariableTable &table, MyTable *view,
                                     VariableTableModel *model, EnhancedTableDelegate *delegate)
{
    table.view = view;
    table.model = model;
    table.proxy = new MySortFilterProxyModelEditor(filter, this);
    table.proxy->setSourceModel(model);
    view->setModel(table.proxy);
    view->setItemDelegate(delegate);
    view->setEditTriggers(QAbstractItemView::CurrentChanged);
    view->setAlternatingRowColors(true);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void SelectVariablesPage::setColumnWidths(MyTable *view, const QVector<int> &widths)
{
    QHeaderView *header = view->horizontalHeader();
    for (int column = 0; column < widths.size(); ++column) {
        header->setSectionResizeMode(column, column == 2 ? QHeaderView::Stretch
                                                         : QHeaderView::Interactive);
        view->setColumnWidth(column, widths.at(column));
    }
}

void SelectVariablesPage::setUpAfterLoad()
{
    PanelRefreshScope scope(context);
    ui->tabWidgetVar->setCurrentIndex(0);
    filter.setRecord(cfg());
    activation.model->attach(cfg());
    discretization.model->attach(cfg());
    emit activationModel()->rowCountChanged();
    setColumnWidths(ui->tableView, activationWidths);
    setColumnWidths(ui->tableViewDP, discretizationWidths);
}

// The tables let go of the record before it is destroyed.
void SelectVariablesPage::releaseRecord()
{
    filter.setRecord(nullptr);
    activation.model->attach(nullptr);
    discretization.model->attach(nullptr);
}

// The second tab is the advanced user's; the first and the filters are
// everybody's.
void SelectVariablesPage::refreshControls()
{
    const bool advanced = isAdvancedUser();
    if (!advanced)
        ui->tabWidgetVar->setCurrentIndex(0);
    ui->tabWidgetVar->setTabEnabled(1, advanced);
    activation.resetKeepingPlace();
    discretization.resetKeepingPlace();
}

// --- filters ---------------------------------------------------------------

void SelectVariablesPage::refilter()
{
    filter.first = {ui->cbSelector1->isChecked(), ui->leSelector1->text(),
                    ui->cbInvert1->isChecked()};
    filter.second = {ui->cbSelector2->isChecked(), ui->leSelector2->text(),
                     ui->cbInvert2->isChecked()};
    filter.listOn = ui->cbSelector3->isChecked();
    filter.listInvert = ui->cbInvert3->isChecked();
    filter.update();
    activation.model->reset();
    discretization.model->reset();
    emit activationModel()->rowCountChanged();
}

void SelectVariablesPage::on_cbSelector1_clicked()
{
    refilter();
}

void SelectVariablesPage::on_cbSelector2_clicked()
{
    refilter();
}

void SelectVariablesPage::on_cbSelector3_clicked()
{
    refilter();
}

void SelectVariablesPage::on_cbInvert1_clicked()
{
    refilter();
}

void SelectVariablesPage::on_cbInvert2_clicked()
{
    refilter();
}

void SelectVariablesPage::on_cbInvert3_clicked()
{
    refilter();
}

// Typing a pattern switches its filter on, even where the user had it off.
void SelectVariablesPage::on_leSelector1_textChanged(const QString &)
{
    ui->cbSelector1->setChecked(true);
    refilter();
}

void SelectVariablesPage::on_leSelector2_textChanged(const QString &)
{
    ui->cbSelector2->setChecked(true);
    refilter();
}

// The list is applied whatever the dialog's answer, and filter 3 is not
// switched on by it.
void SelectVariablesPage::on_pbChooseLookUp_clicked()
{
    runModal(&varList);
    refilter();
}

void SelectVariablesPage::on_rowCountChanged()
{
    ui->lNLine->setText(QString::number(activation.proxy->rowCount()));
}

// --- selection ---------------------------------------------------------------

// One button toggles between all rows of both tables and none.
void SelectVariablesPage::toggleAllRows()
{
    MyTable *current = ui->tabWidgetVar->currentIndex() == 0 ? ui->tableView : ui->tableViewDP;
    current->setFocus();
    if (current->selectionModel()->hasSelection()) {
        ui->tableView->clearSelection();
        ui->tableViewDP->clearSelection();
    } else {
        ui->tableView->selectAll();
        ui->tableViewDP->selectAll();
    }
}

void SelectVariablesPage::on_pbAllChoose_clicked()
{
    toggleAllRows();
}

void SelectVariablesPage::on_pbSelectAllAdv_clicked()
{
    toggleAllRows();
}

// --- activation and monotonicity ---------------------------------------------

void SelectVariablesPage::setSelectedIgnore(char value, const QString &text)
{
    if (!cfg())
        return;
    CfgModel *record = cfg();
    pushOnSelectedRows<char>(
        activation, undoStack(), [record](int row) { return record->fi + row; },
        [](int) { return true; }, value, text, true);
}

// Only "RTT" rows have a monotonicity.
void SelectVariablesPage::setSelectedMonotonicity(char value, const QString &text)
{
    if (!cfg())
        return;
    CfgModel *record = cfg();
    pushOnSelectedRows<char>(
        activation, undoStack(), [record](int row) { return record->monoto + row; },
        [record](int row) { return isRttRow(*record, row); }, value, text, true);
}

void SelectVariablesPage::on_pbActivate_clicked()
{
    setSelectedIgnore(' ', QStringLiteral("activate selected"));
}

void SelectVariablesPage::on_pbIgnore_clicked()
{
    setSelectedIgnore('I', QStringLiteral("ignore selected"));
}

void SelectVariablesPage::on_pbMonoInc_clicked()
{
    setSelectedMonotonicity('I', QStringLiteral("Monotonicity Increasing"));
}

void SelectVariablesPage::on_pbMonoDec_clicked()
{
    setSelectedMonotonicity('D', QStringLiteral("Monotonicity Decreasing"));
}

void SelectVariablesPage::on_pbMonoNone_clicked()
{
    setSelectedMonotonicity(' ', QStringLiteral("Monotonicity None"));
}

void SelectVariablesPage::on_pbSmartActivate_clicked()
{
    if (!cfg())
        return;
    const QVector<char *> rows = collectSmartActivateRows(*cfg());
    if (rows.isEmpty())
        return;
    push(new UpdateTemplateVector2Command<char>(rows, ' ', QStringLiteral("smart activate"),
                                                PageSelectVariables, true));
}

// --- discretization, penalization, missings ----------------------------------

void SelectVariablesPage::setSelectedMinModalitySize(double value, const QString &text)
{
    if (!cfg())
        return;
    CfgModel *record = cfg();
    pushOnSelectedRows<double>(
        discretization, undoStack(), [record](int row) { return record->minSizeModality + row; },
        [record](int row) { return rowOpensVariable(*record, row); },
        value, text, true);
}

void SelectVariablesPage::setSelectedPenality(double value)
{
    if (!cfg())
        return;
    CfgModel *record = cfg();
    pushOnSelectedRows<double>(
        discretization, undoStack(), [record](int row) { return record->penality + row; },
        [](int) { return true; }, value, QStringLiteral("set penalities to %1").arg(value), true);
}

void SelectVariablesPage::setSelectedCenterMissing(bool value)
{
    if (!cfg())
        return;
    CfgModel *record = cfg();
    pushOnSelectedRows<bool>(
        discretization, undoStack(), [record](int row) { return record->cm + row; },
        [record](int row) { return rowOpensVariable(*record, row); },
        value, QStringLiteral("set CenterMissings to %1").arg(value ? 1 : 0), false);
}

void SelectVariablesPage::on_pbSetDiscretization_clicked()
{
    const double value = ui->leDiscretization->text().toDouble();
    setSelectedMinModalitySize(value, QStringLiteral("set MinModalitySizes to %1").arg(value));
}

void SelectVariablesPage::on_pbResetMinModalitySize_clicked()
{
    setSelectedMinModalitySize(-1.0, QStringLiteral("reset MinModalitySize"));
}

void SelectVariablesPage::on_pbSetPenality_clicked()
{
    setSelectedPenality(ui->lePenality->text().toDouble());
}

void SelectVariablesPage::on_pbSetPenalityTo0_clicked()
{
    setSelectedPenality(0.0);
}

void SelectVariablesPage::on_pbSetPenalityTo1_clicked()
{
    setSelectedPenality(1.0);
}

void SelectVariablesPage::on_pbCenterMissings_clicked()
{
    setSelectedCenterMissing(true);
}

void SelectVariablesPage::on_pbUnCenterMissings_clicked()
{
    setSelectedCenterMissing(false);
}
