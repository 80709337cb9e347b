#include "panels/input_var_table.h"

#include "core/cfg_model.h"
#include "edit/table_views.h"
#include "panels/columns_model_editor.h"
#include "panels/input_var_model.h"
#include "panels/nominal_var_panel.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>

namespace {

void setUpColumnsView(QTableView *view, QSortFilterProxyModel *proxy)
{
    proxy->setDynamicSortFilter(true);
    proxy->setFilterKeyColumn(0);
    proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    view->setModel(proxy);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->verticalHeader()->hide();
}

void setUpVarsView(QTableView *view, InputVarModel *model, EnhancedTableDelegate *delegate)
{
    view->setModel(model);
    view->setItemDelegate(delegate);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                          | QAbstractItemView::SelectedClicked);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

} // namespace

InputVarTable::InputVarTable(const InputVarWidgets &widgets, QUndoStack *stack, quint8 panel,
                             QObject *parent)
    : QObject(parent), widgets(widgets), columns(new ColumnsModelEditor(this)),
      proxy(new QSortFilterProxyModel(this)),
      vars(new InputVarModel(widgets.vars, stack, panel, this))
{
    proxy->setSourceModel(columns);
    setUpColumnsView(widgets.columns, proxy);
    auto *delegate = new EnhancedTableDelegate({InputVarModel::CastColumn}, {}, {}, {}, {}, {},
                                               {}, this);
    setUpVarsView(widgets.vars, vars, delegate);
    connect(delegate, &EnhancedTableDelegate::rightClickPressed, this,
            &InputVarTable::variableChosen);
    connect(vars, &InputVarModel::variableNameChanged, this, &InputVarTable::variableChosen);

    detailLayout = new QGridLayout(widgets.detail);
    detailLayout->setSpacing(6);
    detailLayout->setContentsMargins(0, 7, 7, 0);
}

void InputVarTable::attach(CfgModel *record, QVector<InputVar> *list)
{
    clearDetail();
    cfg = record;
    columns->attach(record);
    vars->setVarList(list);
    QHeaderView *header = widgets.columns->horizontalHeader();
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::Fixed);
    widgets.columns->setColumnWidth(1, 40);
}

void InputVarTable::refresh()
{
    vars->refresh();
}

void InputVarTable::setFilter(const QString &text)
{
    proxy->setFilterWildcard(text);
}

void InputVarTable::addSelected()
{
    if (!vars->addVars(widgets.columns))
        return;
    const int last = vars->rowCount() - 1;
    widgets.vars->clearSelection();
    selectRows(widgets.vars, {last});
    showDetail(last);
}

bool InputVarTable::removeSelected()
{
    return vars->removeVars();
}

bool InputVarTable::upSelected()
{
    return vars->upVar();
}

bool InputVarTable::downSelected()
{
    return vars->downVar();
}

void InputVarTable::clearDetail()
{
    while (QLayoutItem *item = detailLayout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}

QString InputVarTable::labelOf(int row) const
{
    const QVector<InputVar> *list = vars->varList();
    return list && row >= 0 && row < list->size() ? list->at(row).label : QString();
}

bool InputVarTable::showDetail(int row)
{
    clearDetail();
    const QVector<InputVar> *list = vars->varList();
    if (!cfg || !list || row < 0 || row >= list->size())
        return false;
    const InputVar &var = list->at(row);
    QWidget *panel = createEditPanel(cfg->desc->varOfName(var.column.value(0)), widgets.detail,
                                     var.label, widgets.editor);
    if (!panel)
        return false;
    detailLayout->addWidget(panel, 0, 0);
    panel->show();
    return true;
}
