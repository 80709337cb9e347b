#include "edit/table_views.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSortFilterProxyModel>

// Header texts may carry a separate copy text under role 32.
static constexpr int headerCopyRole = Qt::UserRole;

MyTable::MyTable(QWidget *parent) : QTableView(parent)
{
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &MyTable::columnClicked);
}

MyTable::~MyTable() = default;

void MyTable::columnClicked(int col)
{
    if (!sortable || !model())
        return;
    switch (sortState) {
    case 0:
        setSortingEnabled(true);
        sortByColumn(col, Qt::AscendingOrder);
        sortState = 1;
        break;
    case 1:
        setSortingEnabled(true);
        sortByColumn(col, Qt::DescendingOrder);
        sortState = 2;
        break;
    default:
        // A proxy sorted by column -1 gives back its source's order.
        model()->sort(-1, Qt::AscendingOrder);
        setSortingEnabled(false);
        sortState = 0;
        break;
    }
}

void MyTable::keyPressEvent(QKeyEvent *e)
{
    if (e->modifiers() == Qt::ControlModifier && e->key() == Qt::Key_C) {
        copySelection(false);
        return;
    }
    if (e->modifiers() == Qt::ControlModifier && e->key() == Qt::Key_V) {
        emit ctrlVPressed();
        return;
    }
    QAbstractItemView::keyPressEvent(e);
    switch (e->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_End:
    case Qt::Key_Home:
        scrollTo(currentIndex(), EnsureVisible);
        break;
    default:
        break;
    }
}

namespace {

QString withoutTabs(QString text)
{
    return text.replace(QLatin1Char('\t'), QLatin1Char(' '));
}

// First index at or after `from` for which `selected` holds, and the end
// (exclusive) of the run that starts there; {-1, -1} when there is none.
template <typename Pred>
QPair<int, int> firstRun(int from, int count, Pred selected)
{
    int first = from;
    while (first < count && !selected(first))
        ++first;
    if (first >= count)
        return {-1, -1};
    int end = first + 1;
    while (end < count && selected(end))
        ++end;
    return {first, end};
}

} // namespace

QString MyTable::selectionText(bool withHeader) const
{
    const QAbstractItemModel *m = model();
    const QItemSelectionModel *sel = selectionModel();
    if (!m || !sel || !sel->hasSelection())
        return QString();
    const QModelIndex root = rootIndex();
    const QPair<int, int> rows = firstRun(0, m->rowCount(root), [&](int r) {
        return sel->rowIntersectsSelection(r, root);
    });
    if (rows.first < 0)
        return QString();
    const QPair<int, int> cols = firstRun(0, m->columnCount(root), [&](int c) {
        return sel->isSelected(m->index(rows.first, c, root));
    });
    if (cols.first < 0)
        return QString();

    QString text;
    if (withHeader) {
        for (int c = cols.first; c < cols.second; ++c) {
            QVariant title = m->headerData(c, Qt::Horizontal, headerCopyRole);
            if (!title.isValid() || title.toString().isEmpty())
                title = m->headerData(c, Qt::Horizontal, Qt::DisplayRole);
            text += withoutTabs(title.toString());
            text += c + 1 < cols.second ? QLatin1Char('\t') : QLatin1Char('\n');
        }
    }
    for (int r = rows.first; r < rows.second; ++r) {
        if (r > rows.first)
            text += QLatin1Char('\n');
        for (int c = cols.first; c < cols.second; ++c) {
            if (c > cols.first)
                text += QLatin1Char('\t');
            text += withoutTabs(m->index(r, c, root).data(Qt::DisplayRole).toString());
        }
    }
    return text;
}

void MyTable::copySelection(bool withHeader)
{
    if (!selectionModel() || !selectionModel()->hasSelection())
        return;
    QApplication::clipboard()->setText(selectionText(withHeader));
}

QVector<int> selectedRows(const QAbstractItemView *view)
{
    QVector<int> rows;
    const QAbstractItemModel *m = view->model();
    const QItemSelectionModel *sel = view->selectionModel();
    if (!m || !sel)
        return rows;
    const QModelIndex root = view->rootIndex();
    const int rowCount = m->rowCount(root);
    int count = 0;
    for (int r = 0; r < rowCount; ++r)
        count += sel->rowIntersectsSelection(r, root) ? 1 : 0;
    rows.reserve(count);
    for (int r = 0; r < rowCount; ++r) {
        if (sel->rowIntersectsSelection(r, root))
            rows.append(r);
    }
    return rows;
}

void selectRows(QAbstractItemView *view, const QVector<int> &rows)
{
    const QAbstractItemModel *m = view->model();
    QItemSelectionModel *sel = view->selectionModel();
    if (!m || !sel || rows.isEmpty())
        return;
    const QModelIndex root = view->rootIndex();
    const int lastColumn = qMax(0, m->columnCount(root) - 1);
    QItemSelection selection;
    int start = 0;
    for (int i = 1; i <= rows.size(); ++i) {
        if (i < rows.size() && rows.at(i) == rows.at(i - 1) + 1)
            continue;
        selection.append(QItemSelectionRange(m->index(rows.at(start), 0, root),
                                             m->index(rows.at(i - 1), lastColumn, root)));
        start = i;
    }
    sel->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}
