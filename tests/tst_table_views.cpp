#include "edit/table_views.h"
#include "modal_helper.h"

#include <QClipboard>
#include <QColorDialog>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTimer>
#include <QtTest>

namespace {

// A model that, like the variable tables, answers only the display role.
class DisplayOnlyModel : public QAbstractTableModel
{
public:
    QStringList cells;
    int rowCount(const QModelIndex &p = {}) const override { return p.isValid() ? 0 : cells.size(); }
    int columnCount(const QModelIndex &p = {}) const override { return p.isValid() ? 0 : 8; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(cells.at(index.row())) : QVariant();
    }
    Qt::ItemFlags flags(const QModelIndex &) const override
    {
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
    }
};

QStringList column(const QAbstractItemModel &model, int col)
{
    QStringList out;
    for (int r = 0; r < model.rowCount(); ++r)
        out << model.index(r, col).data().toString();
    return out;
}

QPoint cellCenter(const QTableView &view, int row, int col)
{
    return view.visualRect(view.model()->index(row, col)).center();
}

// Columns: 0 check, 1 double, 2 int, 3 combo, 4 colour, 5 date, 6 bar,
// 7 plain, 8 combo without items.
EnhancedTableDelegate *makeDelegate(QObject *parent = nullptr)
{
    auto *items = new QStringList{"none", "increasing", "decreasing", "N/A"};
    return new EnhancedTableDelegate({0}, {1}, {2}, ComboColumns{{3, 8}, {items, new QStringList}},
                                     {4}, {5}, {6}, parent);
}

QImage render(const EnhancedTableDelegate &delegate, const QModelIndex &index, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), size);
    option.state = QStyle::State_Enabled;
    option.palette.setBrush(QPalette::Text, Qt::black);
    delegate.paint(&painter, option, index);
    painter.end();
    return image;
}

} // namespace

class tst_table_views : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void threeStateSort();
    void sortCycleIgnoresColumn();
    void notSortable();
    void copyUpToGap_data();
    void copyUpToGap();
    void copyWithHeader();
    void copyKeys();
    void navigationKeepsCurrentInView();
    void selectedRowsAndSelectRows();
    void checkBoxClickToggles();
    void rightClickDoesNotToggle();
    void readOnlyCheckBox();
    void checkBoxPaint();
    void comboText_data();
    void comboText();
    void comboOneClickOpensList();
    void editors();
    void editorData();
    void modelData();
    void colourCellAsksColour();
    void barPaint();
    void colourPaint();

private:
    QStandardItemModel model;
    QSortFilterProxyModel proxy;
};

void tst_table_views::init()
{
    model.clear();
    const QStringList names{"c", "a", "e", "b", "d"};
    for (int r = 0; r < names.size(); ++r) {
        QList<QStandardItem *> row;
        row << new QStandardItem(names.at(r));
        for (int c = 1; c < 4; ++c)
            row << new QStandardItem(QStringLiteral("r%1c%2").arg(r).arg(c));
        model.appendRow(row);
    }
    model.setHorizontalHeaderLabels({"Name", "One", "Two", "Three"});
    proxy.setSourceModel(&model);
    proxy.sort(-1); // back to the source order
    QApplication::clipboard()->setText(QStringLiteral("sentinel"));
}

void tst_table_views::threeStateSort()
{
    MyTable table;
    table.setModel(&proxy);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    QHeaderView *header = table.horizontalHeader();
    const QPoint name(header->sectionViewportPosition(0) + 5, header->height() / 2);

    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, name);
    QCOMPARE(column(proxy, 0), (QStringList{"a", "b", "c", "d", "e"}));
    QCOMPARE(table.sortState, quint8(1));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, name);
    QCOMPARE(column(proxy, 0), (QStringList{"e", "d", "c", "b", "a"}));
    QCOMPARE(table.sortState, quint8(2));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, name);
    QCOMPARE(column(proxy, 0), (QStringList{"c", "a", "e", "b", "d"}));
    QCOMPARE(table.sortState, quint8(0));
    QVERIFY(!table.isSortingEnabled());
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, name);
    QCOMPARE(column(proxy, 0), (QStringList{"a", "b", "c", "d", "e"}));
}

void tst_table_views::sortCycleIgnoresColumn()
{
    MyTable table;
    table.setModel(&proxy);
    table.columnClicked(1);
    table.columnClicked(0);
    QCOMPARE(column(proxy, 0), (QStringList{"e", "d", "c", "b", "a"}));
}

void tst_table_views::notSortable()
{
    MyTable table;
    table.setModel(&proxy);
    table.sortable = false;
    table.columnClicked(0);
    QCOMPARE(column(proxy, 0), (QStringList{"c", "a", "e", "b", "d"}));
    QCOMPARE(table.sortState, quint8(0));
}

void tst_table_views::copyUpToGap_data()
{
    QTest::addColumn<QList<QPoint>>("cells"); // (column, row)
    QTest::addColumn<QString>("text");
    QTest::newRow("one cell") << QList<QPoint>{{1, 2}} << "r2c1";
    QTest::newRow("block") << QList<QPoint>{{1, 0}, {2, 0}, {1, 1}, {2, 1}}
                           << "r0c1\tr0c2\nr1c1\tr1c2";
    QTest::newRow("row gap") << QList<QPoint>{{1, 0}, {1, 1}, {1, 3}, {1, 4}} << "r0c1\nr1c1";
    QTest::newRow("column gap") << QList<QPoint>{{0, 1}, {1, 1}, {3, 1}} << "a\tr1c1";
    QTest::newRow("columns from the first row") << QList<QPoint>{{2, 1}, {1, 2}, {2, 2}}
                                                << "r1c2\nr2c2";
}

void tst_table_views::copyUpToGap()
{
    QFETCH(QList<QPoint>, cells);
    QFETCH(QString, text);
    MyTable table;
    table.setModel(&model);
    for (const QPoint &cell : cells)
        table.selectionModel()->select(model.index(cell.y(), cell.x()), QItemSelectionModel::Select);
    table.copySelection(false);
    QCOMPARE(QApplication::clipboard()->text(), text);
}

void tst_table_views::copyWithHeader()
{
    model.setItem(1, 1, new QStandardItem("tab\there"));
    model.setHeaderData(2, Qt::Horizontal, QStringLiteral("Copy\tTwo"), Qt::UserRole);
    MyTable table;
    table.setModel(&model);
    table.selectionModel()->select(QItemSelection(model.index(1, 1), model.index(2, 2)),
                                   QItemSelectionModel::Select);
    QCOMPARE(table.selectionText(true), QStringLiteral("One\tCopy Two\ntab here\tr1c2\nr2c1\tr2c2"));
    table.copySelection(false);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("tab here\tr1c2\nr2c1\tr2c2"));
}

void tst_table_views::copyKeys()
{
    MyTable table;
    table.setModel(&model);
    QSignalSpy paste(&table, &MyTable::ctrlVPressed);
    table.selectionModel()->select(model.index(0, 1), QItemSelectionModel::Select);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("sentinel"));
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("r0c1"));
    QCOMPARE(paste.count(), 0);
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(paste.count(), 1);

    // Nothing selected: the clipboard keeps its text.
    QApplication::clipboard()->setText(QStringLiteral("sentinel"));
    table.clearSelection();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("sentinel"));
}

void tst_table_views::navigationKeepsCurrentInView()
{
    QStandardItemModel big(300, 2);
    MyTable table;
    table.setModel(&big);
    table.resize(200, 150);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    table.setCurrentIndex(big.index(0, 0));
    for (int i = 0; i < 40; ++i)
        QTest::keyClick(&table, Qt::Key_Down);
    QCOMPARE(table.currentIndex().row(), 40);
    QVERIFY(table.viewport()->rect().contains(table.visualRect(table.currentIndex())));
    QTest::keyClick(&table, Qt::Key_PageDown);
    QVERIFY(table.viewport()->rect().intersects(table.visualRect(table.currentIndex())));
}

void tst_table_views::selectedRowsAndSelectRows()
{
    QTableView view;
    view.setModel(&model);
    auto *sel = view.selectionModel();
    QCOMPARE(selectedRows(&view), QVector<int>());
    sel->select(model.index(4, 2), QItemSelectionModel::Select);
    sel->select(model.index(1, 0), QItemSelectionModel::Select);
    sel->select(model.index(2, 3), QItemSelectionModel::Select);
    QCOMPARE(selectedRows(&view), (QVector<int>{1, 2, 4}));

    sel->clearSelection();
    selectRows(&view, {0, 1, 3});
    QCOMPARE(selectedRows(&view), (QVector<int>{0, 1, 3}));
    QCOMPARE(sel->selection().size(), 2);
    for (int r : {0, 1, 3})
        QVERIFY(sel->isRowSelected(r, QModelIndex()));
    QVERIFY(!sel->isRowSelected(2, QModelIndex()));
    // Rows are added to what is selected.
    selectRows(&view, {4});
    QCOMPARE(selectedRows(&view), (QVector<int>{0, 1, 3, 4}));
}

void tst_table_views::checkBoxClickToggles()
{
    QStandardItemModel checks(2, 2);
    checks.setData(checks.index(0, 0), true);
    checks.setData(checks.index(1, 0), false);
    QTableView view;
    view.setModel(&checks);
    auto *delegate = new EnhancedTableDelegate({0}, {}, {}, {}, {}, {}, {}, &view);
    view.setItemDelegate(delegate);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy clicked(delegate, &EnhancedTableDelegate::cbClicked);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCenter(view, 0, 0));
    QCOMPARE(checks.index(0, 0).data().toBool(), false);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCenter(view, 1, 0));
    QCOMPARE(checks.index(1, 0).data().toBool(), true);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCenter(view, 0, 0));
    QCOMPARE(checks.index(0, 0).data().toBool(), true);
    QCOMPARE(clicked.count(), 3);
}

void tst_table_views::rightClickDoesNotToggle()
{
    QStandardItemModel checks(3, 2);
    checks.setData(checks.index(2, 0), true);
    QTableView view;
    view.setModel(&checks);
    auto *delegate = new EnhancedTableDelegate({0}, {}, {}, {}, {}, {}, {}, &view);
    view.setItemDelegate(delegate);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy right(delegate, &EnhancedTableDelegate::rightClickPressed);
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, cellCenter(view, 2, 0));
    QCOMPARE(checks.index(2, 0).data().toBool(), true);
    QCOMPARE(right.count(), 1);
    QCOMPARE(right.at(0).at(0).toInt(), 2);
}

void tst_table_views::readOnlyCheckBox()
{
    QStandardItemModel checks(1, 1);
    checks.setData(checks.index(0, 0), true);
    checks.item(0, 0)->setEditable(false);
    QTableView view;
    view.setModel(&checks);
    auto *delegate = new EnhancedTableDelegate({0}, {}, {}, {}, {}, {}, {}, &view);
    view.setItemDelegate(delegate);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy clicked(delegate, &EnhancedTableDelegate::cbClicked);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCenter(view, 0, 0));
    QCOMPARE(checks.index(0, 0).data().toBool(), true);
    QCOMPARE(clicked.count(), 0);
}

void tst_table_views::checkBoxPaint()
{
    QStandardItemModel checks(1, 2);
    checks.setData(checks.index(0, 0), true);
    checks.setData(checks.index(0, 1), true);
    checks.item(0, 1)->setEditable(false);
    EnhancedTableDelegate delegate({0, 1});
    QImage blank(QSize(80, 24), QImage::Format_ARGB32);
    blank.fill(Qt::white);
    const QImage editable = render(delegate, checks.index(0, 0), blank.size());
    const QImage readOnly = render(delegate, checks.index(0, 1), blank.size());
    QVERIFY(editable != blank);
    QCOMPARE(readOnly, blank);
    delegate.alwaysDrawCheck = true;
    QCOMPARE(render(delegate, checks.index(0, 1), blank.size()), editable);
    // The box stands 15 pixels in from the left.
    for (int y = 0; y < blank.height(); ++y)
        for (int x = 0; x < 15; ++x)
            QCOMPARE(editable.pixel(x, y), blank.pixel(x, y));
}

void tst_table_views::comboText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("first") << QVariant(0) << "none";
    QTest::newRow("last") << QVariant(3) << "N/A";
    QTest::newRow("minus one") << QVariant(-1) << "--";
    QTest::newRow("past the end") << QVariant(4) << "--";
    QTest::newRow("truncated") << QVariant(2.7) << "decreasing";
    QTest::newRow("text") << QVariant("1") << "increasing";
}

void tst_table_views::comboText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    QCOMPARE(delegate->comboDisplayText(3, value), text);
    QCOMPARE(delegate->comboMinWidth(3), 70);
    QCOMPARE(delegate->comboMinWidth(8), 0);
    QCOMPARE(delegate->comboMinWidth(1), 0);
}

void tst_table_views::comboOneClickOpensList()
{
    QStandardItemModel modes(3, 4);
    for (int r = 0; r < 3; ++r)
        modes.setData(modes.index(r, 3), r);
    QTableView view;
    view.setModel(&modes);
    view.setEditTriggers(QAbstractItemView::CurrentChanged);
    auto *delegate = makeDelegate(&view);
    view.setItemDelegate(delegate);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    const QModelIndex cell = modes.index(1, 3);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCenter(view, 1, 3));
    auto *combo = qobject_cast<QComboBox *>(view.indexWidget(cell));
    QVERIFY(combo);
    QCOMPARE(delegate->pendingComboEditor(), combo);
    QCOMPARE(combo->currentIndex(), 1);
    QCOMPARE(combo->count(), 4);
    QTRY_VERIFY(combo->view()->isVisible());
    combo->hidePopup();

    combo->setCurrentIndex(3);
    delegate->setModelData(combo, &modes, cell);
    QCOMPARE(modes.data(cell, Qt::EditRole).toInt(), 3);
    QVERIFY(!delegate->pendingComboEditor());
}

void tst_table_views::editors()
{
    QStandardItemModel cells(1, 9);
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    delegate->intMaximum = 50;
    QWidget parent;
    const QStyleOptionViewItem option;
    auto editorAt = [&](int col) { return delegate->createEditor(&parent, option, cells.index(0, col)); };
    QVERIFY(!editorAt(0));
    auto *dbl = qobject_cast<QDoubleSpinBox *>(editorAt(1));
    QVERIFY(dbl);
    QCOMPARE(dbl->minimum(), 0.0);
    QCOMPARE(dbl->maximum(), 300.0);
    auto *spin = qobject_cast<QSpinBox *>(editorAt(2));
    QVERIFY(spin);
    QCOMPARE(spin->maximum(), 50);
    auto *combo = qobject_cast<QComboBox *>(editorAt(3));
    QVERIFY(combo);
    QCOMPARE(combo->count(), 4);
    QCOMPARE(combo->itemText(3), QStringLiteral("N/A"));
    QCOMPARE(combo->styleSheet(), QStringLiteral("QComboBox QAbstractItemView { min-width: 70px;}"));
    auto *date = qobject_cast<QDateTimeEdit *>(editorAt(5));
    QVERIFY(date);
    QCOMPARE(date->displayFormat(), QStringLiteral("dd/M/yyyy"));
    QVERIFY(date->calendarPopup());
    QVERIFY(!editorAt(8)); // a combo column without items
    cells.setData(cells.index(0, 7), QStringLiteral("text"));
    QVERIFY(qobject_cast<QLineEdit *>(editorAt(7)));
}

void tst_table_views::editorData()
{
    DisplayOnlyModel cells;
    cells.cells = QStringList{"7.9", "31/2/2020", "05/3/2021", "plain text", "2"};
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    QWidget parent;
    const QStyleOptionViewItem option;

    auto *spin = qobject_cast<QSpinBox *>(delegate->createEditor(&parent, option, cells.index(0, 2)));
    delegate->setEditorData(spin, cells.index(0, 2));
    QCOMPARE(spin->value(), 7);
    auto *dbl = qobject_cast<QDoubleSpinBox *>(delegate->createEditor(&parent, option, cells.index(0, 1)));
    delegate->setEditorData(dbl, cells.index(0, 1));
    QCOMPARE(dbl->value(), 7.9);

    auto *date = qobject_cast<QDateTimeEdit *>(delegate->createEditor(&parent, option, cells.index(1, 5)));
    delegate->setEditorData(date, cells.index(1, 5));
    QCOMPARE(date->date(), QDate::currentDate());
    delegate->setEditorData(date, cells.index(2, 5));
    QCOMPARE(date->date(), QDate(2021, 3, 5));

    auto *line = new QLineEdit(&parent);
    delegate->setEditorData(line, cells.index(3, 7));
    QCOMPARE(line->text(), QStringLiteral("plain text"));

    auto *combo = qobject_cast<QComboBox *>(delegate->createEditor(&parent, option, cells.index(4, 3)));
    QVERIFY(!delegate->pendingComboEditor());
    delegate->setEditorData(combo, cells.index(4, 3));
    QCOMPARE(combo->currentIndex(), 2);
    QCOMPARE(delegate->pendingComboEditor(), combo);
    // An editor closed without a commit leaves no pending combo behind.
    delete combo;
    QVERIFY(!delegate->pendingComboEditor());
}

void tst_table_views::modelData()
{
    QStandardItemModel cells(1, 9);
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    QWidget parent;
    const QStyleOptionViewItem option;
    auto *dbl = qobject_cast<QDoubleSpinBox *>(delegate->createEditor(&parent, option, cells.index(0, 1)));
    dbl->setValue(12.5);
    delegate->setModelData(dbl, &cells, cells.index(0, 1));
    QCOMPARE(cells.index(0, 1).data(Qt::EditRole).toDouble(), 12.5);
    auto *spin = qobject_cast<QSpinBox *>(delegate->createEditor(&parent, option, cells.index(0, 2)));
    spin->setValue(42);
    delegate->setModelData(spin, &cells, cells.index(0, 2));
    QCOMPARE(cells.index(0, 2).data(Qt::EditRole), QVariant(42));
    auto *date = qobject_cast<QDateTimeEdit *>(delegate->createEditor(&parent, option, cells.index(0, 5)));
    date->setDate(QDate(2020, 1, 31));
    delegate->setModelData(date, &cells, cells.index(0, 5));
    QCOMPARE(cells.index(0, 5).data(Qt::EditRole).toDate(), QDate(2020, 1, 31));
}

void tst_table_views::colourCellAsksColour()
{
    QStandardItemModel cells(1, 9);
    cells.setData(cells.index(0, 4), QColor(Qt::red));
    cells.setData(cells.index(0, 4), QColor(Qt::red), Qt::UserRole);
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QColor seen;
    whenModal([&seen](QWidget *modal) {
        auto *dialog = qobject_cast<QColorDialog *>(modal);
        QVERIFY(dialog);
        seen = dialog->currentColor();
        dialog->reject();
    });
    QVERIFY(delegate->editorEvent(&press, &cells, QStyleOptionViewItem(), cells.index(0, 4)));
    QCOMPARE(seen, QColor(Qt::red));
    QCOMPARE(cells.index(0, 4).data().value<QColor>(), QColor(Qt::red));

    whenModal([](QWidget *modal) {
        auto *dialog = qobject_cast<QColorDialog *>(modal);
        dialog->setCurrentColor(QColor(0, 0, 255, 128));
        dialog->accept();
    });
    QVERIFY(delegate->editorEvent(&press, &cells, QStyleOptionViewItem(), cells.index(0, 4)));
    QCOMPARE(cells.index(0, 4).data(Qt::EditRole).toUInt(), QColor(0, 0, 255, 128).rgba());
}

void tst_table_views::barPaint()
{
    QStandardItemModel bars(2, 9);
    for (int r = 0; r < 2; ++r) {
        bars.setData(bars.index(r, 6), 5.0);
        bars.setData(bars.index(r, 6), 0.0, Qt::UserRole);
        bars.setData(bars.index(r, 6), 10.0, Qt::UserRole + 1);
        bars.setData(bars.index(r, 6), QColor(Qt::white), Qt::BackgroundRole);
    }
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    const QSize size(200, 30);
    // Text on 60 pixels, bar area from 65 to 195, zero at 65, 5 at 130.
    QImage even = render(*delegate, bars.index(0, 6), size);
    QCOMPARE(QColor(even.pixel(100, 15)), QColor(Qt::red));
    QCOMPARE(QColor(even.pixel(160, 15)), QColor(Qt::white));
    QCOMPARE(QColor(even.pixel(100, 2)), QColor(Qt::white));
    QImage odd = render(*delegate, bars.index(1, 6), size);
    QCOMPARE(QColor(odd.pixel(100, 15)), QColor(Qt::green));
    delegate->barBrush = QBrush(Qt::blue);
    QCOMPARE(QColor(render(*delegate, bars.index(1, 6), size).pixel(100, 15)), QColor(Qt::blue));

    // Below zero the bar runs from its value up to the zero point.
    bars.setData(bars.index(0, 6), -5.0);
    bars.setData(bars.index(0, 6), -10.0, Qt::UserRole);
    QImage negative = render(*delegate, bars.index(0, 6), size);
    QCOMPARE(QColor(negative.pixel(110, 15)), QColor(Qt::blue));
    QCOMPARE(QColor(negative.pixel(140, 15)), QColor(Qt::white));
    QCOMPARE(QColor(negative.pixel(80, 15)), QColor(Qt::white));

    // No number, no bar.
    bars.setData(bars.index(0, 6), QStringLiteral("n/a"));
    QImage none = render(*delegate, bars.index(0, 6), size);
    QCOMPARE(QColor(none.pixel(110, 15)), QColor(Qt::white));
}

void tst_table_views::colourPaint()
{
    QStandardItemModel cells(1, 9);
    cells.setData(cells.index(0, 4), QColor(Qt::blue));
    QScopedPointer<EnhancedTableDelegate> delegate(makeDelegate());
    QImage image = render(*delegate, cells.index(0, 4), QSize(40, 20));
    QCOMPARE(QColor(image.pixel(1, 1)), QColor(Qt::blue));
    QCOMPARE(QColor(image.pixel(38, 18)), QColor(Qt::blue));
}

QTEST_MAIN(tst_table_views)
#include "tst_table_views.moc"
