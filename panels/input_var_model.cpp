#include "panels/input_var_model.h"

#include "edit/table_views.h"
#include "edit/undo_commands.h"
#include "expr/null_value.h"

#include <QItemSelectionModel>
#include <QTableView>
#include <QUndoStack>

namespace {

const char *const headers[InputVarModel::columnTotal] = {
    "Cast To Number", "Column Name", "Expression Var.Name", "Current Value", "Meta-Type"};

const char *const undoTexts[InputVarModel::columnTotal] = {
    "number/string type", "col. name", "var. name", "current value", ""};

// A number cell takes "nan" as the NULL number and any other text as what
// QVariant makes of it, so that no number gives 0.
double numberOfCell(const QVariant &value)
{
    if (value.toString() == QLatin1String("nan"))
        return quva::nullValue();
    return value.toDouble();
}

// The value of the cell, and whether the new one differs. A NaN never
// equals itself, so a cell holding NULL or NaN changes at every edit.
bool setValueCell(InputVar &var, const QVariant &value)
{
    if (var.isNumber) {
        const double number = numberOfCell(value);
        if (number == var.value)
            return false;
        var.value = number;
        return true;
    }
    const QString text = value.toString();
    if (text == var.stringValue)
        return false;
    var.stringValue = text;
    return true;
}

bool setTextCell(QString &field, const QString &text)
{
    if (field == text)
        return false;
    field = text;
    return true;
}

} // namespace

QString InputVarModel::headerText(int column)
{
    return column >= 0 && column < columnTotal ? QString::fromLatin1(headers[column]) : QString();
}

InputVarModel::InputVarModel(QTableView *view, QUndoStack *stack, quint8 panel, QObject *parent)
    : QAbstractTableModel(parent), view(view), stack(stack), panel(panel)
{
}

void InputVarModel::setVarList(QVector<InputVar> *list)
{
    beginResetModel();
    vars = list;
    endResetModel();
    emit layoutChanged();
}

void InputVarModel::refresh()
{
    beginResetModel();
    endResetModel();
    emit layoutChanged();
}

int InputVarModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !vars ? 0 : vars->size();
}

int InputVarModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnTotal;
}

QVariant InputVarModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || !vars || index.row() >= vars->size())
        return QVariant();
    const InputVar &var = vars->at(index.row());
    switch (index.column()) {
    case CastColumn:
        return var.isNumber;
    case ColumnNameColumn:
        return var.label2.isEmpty() ? QVariant(var.column) : QVariant(var.label2);
    case VarNameColumn:
        return var.label;
    case ValueColumn:
        return var.isNumber ? QVariant(var.value) : QVariant(var.stringValue);
    case MetaColumn:
        return QString(var.meta);
    }
    return QVariant();
}

bool InputVarModel::editedCopy(int row, int column, const QVariant &value,
                               QVector<InputVar> *copy) const
{
    *copy = *vars;
    InputVar &var = (*copy)[row];
    switch (column) {
    case CastColumn: {
        const bool isNumber = value.toBool();
        const bool changed = isNumber != var.isNumber;
        var.isNumber = isNumber;
        return changed;
    }
    case ColumnNameColumn: {
        const QString text = value.toString();
        const bool changed = var.column != QStringList(text);
        var.column = QStringList(text);
        return changed;
    }
    case VarNameColumn:
        return setTextCell(var.label, value.toString());
    case ValueColumn:
        return setValueCell(var, value);
    }
    return false;
}

bool InputVarModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !vars || index.row() >= vars->size()
        || index.column() == MetaColumn)
        return false;
    QVector<InputVar> copy;
    if (!editedCopy(index.row(), index.column(), value, &copy))
        return true;
    pushList(copy, QString::fromLatin1(undoTexts[index.column()]));
    if (index.column() == VarNameColumn)
        emit variableNameChanged(index.row());
    emit dataChanged(index, index);
    return true;
}

QVariant InputVarModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= columnTotal)
        return QVariant();
    return headerText(section);
}

// Every cell, the meta-type too, although setData refuses it.
Qt::ItemFlags InputVarModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    return index.isValid() ? base | Qt::ItemIsEditable : base;
}

void InputVarModel::pushList(const QVector<InputVar> &list, const QString &text)
{
    stack->push(new UpdateTemplate2Command<QVector<InputVar>>(vars, list, text, panel, false));
}

bool InputVarModel::addVars(QAbstractItemView *columnsView)
{
    const QVector<int> rows = selectedRows(columnsView);
    if (rows.isEmpty() || !vars)
        return false;
    const QAbstractItemModel *columns = columnsView->model();
    QVector<InputVar> copy = *vars;
    for (int row : rows) {
        const QString letter = columns->index(row, 1).data().toString();
        const QChar type = letter.isEmpty() ? QChar() : letter.at(0);
        const QString name = columns->index(row, 0).data(Qt::UserRole).toString();
        QString label = columns->index(row, 0).data().toString();
        if (label == name)
            label = QString();
        InputVar var = type == QLatin1Char('N') ? InputVar(name, type, QString())
                                                : InputVar(name, type, 0.0);
        var.label2 = label;
        copy.append(var);
    }
    pushList(copy, QStringLiteral("add vars"));
    refresh();
    return true;
}

bool InputVarModel::removeVars()
{
    const QVector<int> rows = selectedRows(view);
    if (rows.isEmpty() || !vars)
        return false;
    QVector<InputVar> copy = *vars;
    for (int i = rows.size() - 1; i >= 0; --i)
        copy.remove(rows.at(i));
    pushList(copy, QStringLiteral("remove vars"));
    refresh();
    return true;
}

bool InputVarModel::moveSelected(int step, const QString &text)
{
    const QVector<int> rows = selectedRows(view);
    if (rows.isEmpty() || !vars)
        return false;
    const int row = rows.first();
    const int other = row + step;
    if (other < 0 || other >= vars->size())
        return false;
    QVector<InputVar> copy = *vars;
    std::swap(copy[row], copy[other]);
    pushList(copy, text);
    refresh();
    selectRow(other);
    return true;
}

bool InputVarModel::upVar()
{
    return moveSelected(-1, QStringLiteral("up var"));
}

bool InputVarModel::downVar()
{
    return moveSelected(1, QStringLiteral("down var"));
}

void InputVarModel::selectRow(int row)
{
    view->selectRow(row);
    view->scrollTo(index(row, 0));
    view->selectionModel()->select(QItemSelection(index(row, 0), index(row, columnTotal - 1)),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
}
