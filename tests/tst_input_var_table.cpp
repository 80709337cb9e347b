// The table of input variables under an expression: what each column shows
// and takes, that every edit, addition, removal and move is one undoable
// step on the list, and that the check reads the values the table holds.

#include "edit/table_views.h"
#include "edit/undo_commands.h"
#include "expr/null_value.h"
#include "expr/parser_facade.h"
#include "panels/input_var_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QUndoStack>
#include <QtTest>

#include <memory>

class tst_input_var_table : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void headersAndFlags();
    void displayOfEachColumn();
    void metaTypeIsNotEditable();
    void renamingColumnKeepsLabel();
    void sameNumberPushesNothing();
    void nanMakesNumberNull();
    void nanIsTextForString();
    void nullCellChangesEveryTime();
    void castSwitchKeepsBothValues();
    void nameEditSignalsBeforeDataChanged();
    void upMovesFirstSelectedOnly();
    void upAndDownAtTheEdges();
    void removeTakesAllSelected();
    void addVarsFromColumns();
    void nothingSelectedChangesNothing();
    void undoRedoInOrder();
    void checkAfterUndoUsesRestoredValues();
    void clashingNameFailsUntilRenamed();
    void modelPassesTester();

private:
    QModelIndex cell(int row, int column) { return model->index(row, column); }
    void select(const QVector<int> &rows)
    {
        view->clearSelection();
        selectRows(view.get(), rows);
    }
    QStringList labels() const
    {
        QStringList out;
        for (const InputVar &var : list)
            out << var.label;
        return out;
    }
    QString check(const QString &expression)
    {
        ExprContext context;
        const ExpressionCheck result = checkExpressionCore(expression, false, context, &list);
        return result.failed ? QStringLiteral("failed: ") + result.message : result.valueText;
    }

    QVector<InputVar> list;
    QUndoStack stack;
    std::unique_ptr<QTableView> view;
    InputVarModel *model = nullptr;
};

void tst_input_var_table::init()
{
    stack.clear();
    list = {InputVar(QStringLiteral("x"), QLatin1Char('V'), 3.0),
            InputVar(QStringLiteral("s"), QLatin1Char('N'), QStringLiteral("abc")),
            InputVar(QStringLiteral("y"), QLatin1Char('V'), 1.0),
            InputVar(QStringLiteral("z"), QLatin1Char('B'), 0.0)};
    view = std::make_unique<QTableView>();
    model = new InputVarModel(view.get(), &stack, 6, view.get());
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    model->setVarList(&list);
}

void tst_input_var_table::headersAndFlags()
{
    QCOMPARE(model->columnCount(), 5);
    QCOMPARE(model->rowCount(), 4);
    const QStringList expected{"Cast To Number", "Column Name", "Expression Var.Name",
                               "Current Value", "Meta-Type"};
    for (int c = 0; c < 5; ++c) {
        QCOMPARE(model->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString(),
                 expected.at(c));
        QVERIFY(model->flags(cell(0, c)) & Qt::ItemIsEditable);
    }
    QVERIFY(!model->headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    QVERIFY(!model->headerData(0, Qt::Vertical, Qt::DisplayRole).toString().startsWith("Cast"));
    InputVarModel empty(view.get(), &stack, 5);
    QCOMPARE(empty.rowCount(), 0);
}

void tst_input_var_table::displayOfEachColumn()
{
    list[0].label2 = QStringLiteral("Shown x");
    model->refresh();
    QCOMPARE(cell(0, 0).data().toBool(), true);
    QCOMPARE(cell(1, 0).data().toBool(), false);
    QCOMPARE(cell(0, 1).data().toString(), QStringLiteral("Shown x"));
    QCOMPARE(cell(1, 1).data().toStringList(), QStringList{"s"});
    QCOMPARE(cell(0, 2).data().toString(), QStringLiteral("x"));
    QCOMPARE(cell(0, 3).data().toDouble(), 3.0);
    QCOMPARE(cell(1, 3).data().toString(), QStringLiteral("abc"));
    QCOMPARE(cell(3, 4).data().toString(), QStringLiteral("B"));
    QVERIFY(!cell(0, 2).data(Qt::EditRole).isValid());
    QVERIFY(!model->data(QModelIndex(), Qt::DisplayRole).isValid());
}

void tst_input_var_table::metaTypeIsNotEditable()
{
    QVERIFY(!model->setData(cell(0, 4), QStringLiteral("N"), Qt::EditRole));
    QVERIFY(!model->setData(cell(0, 2), QStringLiteral("q"), Qt::DisplayRole));
    QVERIFY(!model->setData(QModelIndex(), QStringLiteral("q"), Qt::EditRole));
    QCOMPARE(stack.count(), 0);
    QCOMPARE(list[0].meta, QLatin1Char('V'));
}

void tst_input_var_table::renamingColumnKeepsLabel()
{
    QVERIFY(model->setData(cell(0, 1), QStringLiteral("other col"), Qt::EditRole));
    QCOMPARE(list[0].column, QStringList{"other col"});
    QCOMPARE(list[0].label, QStringLiteral("x"));
    QCOMPARE(stack.text(0), QStringLiteral("col. name"));
}

void tst_input_var_table::sameNumberPushesNothing()
{
    QVERIFY(model->setData(cell(0, 3), QStringLiteral("3"), Qt::EditRole));
    QCOMPARE(stack.count(), 0);
    QVERIFY(model->setData(cell(0, 3), QStringLiteral("4.5"), Qt::EditRole));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("current value"));
    QCOMPARE(list[0].value, 4.5);
    QVERIFY(model->setData(cell(0, 3), QStringLiteral("not a number"), Qt::EditRole));
    QCOMPARE(list[0].value, 0.0);
}

void tst_input_var_table::nanMakesNumberNull()
{
    QVERIFY(model->setData(cell(0, 3), QStringLiteral("nan"), Qt::EditRole));
    QVERIFY(quva::isNull(list[0].value));
    QCOMPARE(check(QStringLiteral("isNull(x)")), QStringLiteral("true"));
}

void tst_input_var_table::nanIsTextForString()
{
    QVERIFY(model->setData(cell(1, 3), QStringLiteral("nan"), Qt::EditRole));
    QCOMPARE(list[1].stringValue, QStringLiteral("nan"));
    QVERIFY(model->setData(cell(1, 3), QStringLiteral("any \"text\" é"), Qt::EditRole));
    QCOMPARE(list[1].stringValue, QStringLiteral("any \"text\" é"));
    QCOMPARE(stack.count(), 2);
}

void tst_input_var_table::nullCellChangesEveryTime()
{
    model->setData(cell(0, 3), QStringLiteral("nan"), Qt::EditRole);
    model->setData(cell(0, 3), QStringLiteral("nan"), Qt::EditRole);
    QCOMPARE(stack.count(), 2);
}

void tst_input_var_table::castSwitchKeepsBothValues()
{
    QVERIFY(model->setData(cell(1, 0), true, Qt::EditRole));
    QCOMPARE(stack.text(0), QStringLiteral("number/string type"));
    QVERIFY(list[1].isNumber);
    QCOMPARE(cell(1, 3).data().toDouble(), 0.0);
    model->setData(cell(1, 0), false, Qt::EditRole);
    QCOMPARE(cell(1, 3).data().toString(), QStringLiteral("abc"));
    model->setData(cell(1, 0), false, Qt::EditRole);
    QCOMPARE(stack.count(), 2);
}

void tst_input_var_table::nameEditSignalsBeforeDataChanged()
{
    QStringList order;
    connect(model, &InputVarModel::variableNameChanged, this,
            [&order](int row) { order << QStringLiteral("name %1").arg(row); });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [&order](const QModelIndex &index) { order << QStringLiteral("data %1").arg(index.row()); });
    QVERIFY(model->setData(cell(2, 2), QStringLiteral("my var"), Qt::EditRole));
    QCOMPARE(order, (QStringList{"name 2", "data 2"}));
    QCOMPARE(list[2].label, QStringLiteral("my var")); // no makeVarName on what is typed
    QCOMPARE(stack.text(0), QStringLiteral("var. name"));
}

void tst_input_var_table::upMovesFirstSelectedOnly()
{
    select({1, 3});
    QVERIFY(model->upVar());
    QCOMPARE(labels(), (QStringList{"s", "x", "y", "z"}));
    QCOMPARE(stack.text(0), QStringLiteral("up var"));
    QCOMPARE(selectedRows(view.get()), QVector<int>{0});
    select({1, 2});
    QVERIFY(model->downVar());
    QCOMPARE(labels(), (QStringList{"s", "y", "x", "z"}));
    QCOMPARE(stack.text(1), QStringLiteral("down var"));
    QCOMPARE(selectedRows(view.get()), QVector<int>{2});
}

void tst_input_var_table::upAndDownAtTheEdges()
{
    select({0});
    QVERIFY(!model->upVar());
    select({3});
    QVERIFY(!model->downVar());
    QCOMPARE(stack.count(), 0);
}

void tst_input_var_table::removeTakesAllSelected()
{
    select({3, 0, 2});
    QVERIFY(model->removeVars());
    QCOMPARE(labels(), QStringList{"s"});
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("remove vars"));
}

void tst_input_var_table::addVarsFromColumns()
{
    QStandardItemModel columns(3, 2);
    const char *rows[3][3] = {{"Age", "age", "V"}, {"purpose", "purpose", "N"},
                              {"Has phone", "has_phone", "B"}};
    for (int r = 0; r < 3; ++r) {
        auto *item = new QStandardItem(QString::fromLatin1(rows[r][0]));
        item->setData(QString::fromLatin1(rows[r][1]), Qt::UserRole);
        columns.setItem(r, 0, item);
        columns.setItem(r, 1, new QStandardItem(QString::fromLatin1(rows[r][2])));
    }
    QTableView columnsView;
    columnsView.setModel(&columns);
    columnsView.setSelectionBehavior(QAbstractItemView::SelectRows);
    columnsView.setSelectionMode(QAbstractItemView::ExtendedSelection);
    selectRows(&columnsView, {2, 1, 0});
    QVERIFY(model->addVars(&columnsView));
    QCOMPARE(list.size(), 7);
    QCOMPARE(stack.text(0), QStringLiteral("add vars"));
    const InputVar &age = list[4];
    QCOMPARE(age.column, QStringList{"age"});
    QCOMPARE(age.label2, QStringLiteral("Age"));
    QVERIFY(age.isNumber);
    QCOMPARE(age.value, 0.0);
    QCOMPARE(age.meta, QLatin1Char('V'));
    const InputVar &purpose = list[5];
    QVERIFY(!purpose.isNumber);
    QVERIFY(purpose.stringValue.isNull());
    QVERIFY(purpose.label2.isNull()); // label and name are equal
    QCOMPARE(purpose.meta, QLatin1Char('N'));
    QCOMPARE(list[6].meta, QLatin1Char('B'));
    // No check against what the list holds already.
    QVERIFY(model->addVars(&columnsView));
    QCOMPARE(list.size(), 10);
}

void tst_input_var_table::nothingSelectedChangesNothing()
{
    QTableView columnsView;
    QStandardItemModel columns(1, 2);
    columnsView.setModel(&columns);
    view->clearSelection();
    QVERIFY(!model->addVars(&columnsView));
    QVERIFY(!model->removeVars());
    QVERIFY(!model->upVar());
    QVERIFY(!model->downVar());
    QCOMPARE(stack.count(), 0);
    QCOMPARE(list.size(), 4);
}

void tst_input_var_table::undoRedoInOrder()
{
    model->setData(cell(0, 3), QStringLiteral("7"), Qt::EditRole);
    select({2});
    model->upVar();
    select({3});
    model->removeVars();
    QCOMPARE(labels(), (QStringList{"x", "y", "s"}));
    stack.undo();
    QCOMPARE(labels(), (QStringList{"x", "y", "s", "z"}));
    stack.undo();
    QCOMPARE(labels(), (QStringList{"x", "s", "y", "z"}));
    QCOMPARE(list[0].value, 7.0);
    stack.undo();
    QCOMPARE(list[0].value, 3.0);
    stack.redo();
    stack.redo();
    QCOMPARE(labels(), (QStringList{"x", "y", "s", "z"}));
    QCOMPARE(list[0].value, 7.0);
    stack.redo();
    QCOMPARE(labels(), (QStringList{"x", "y", "s"}));
    // Each one is a step of its own, none merged.
    QCOMPARE(stack.count(), 3);
}

void tst_input_var_table::checkAfterUndoUsesRestoredValues()
{
    QCOMPARE(check(QStringLiteral("x>2")), QStringLiteral("true"));
    model->setData(cell(0, 3), QStringLiteral("1"), Qt::EditRole);
    QCOMPARE(check(QStringLiteral("x>2")), QStringLiteral("false"));
    stack.undo();
    QCOMPARE(check(QStringLiteral("x>2")), QStringLiteral("true"));
    model->setData(cell(1, 3), QStringLiteral("zz"), Qt::EditRole);
    QCOMPARE(check(QStringLiteral("s==\"zz\"")), QStringLiteral("true"));
    stack.undo();
    QCOMPARE(check(QStringLiteral("s==\"zz\"")), QStringLiteral("false"));
}

void tst_input_var_table::clashingNameFailsUntilRenamed()
{
    list = {InputVar(QStringLiteral("sin"), QLatin1Char('V'), 1.0),
            InputVar(QStringLiteral("_pi"), QLatin1Char('V'), 2.0)};
    model->refresh();
    QCOMPARE(list[0].label, QStringLiteral("sin"));
    const QString first = check(QStringLiteral("sin+1"));
    QVERIFY2(first.startsWith(QStringLiteral("failed: ")), qPrintable(first));
    QVERIFY2(first.contains(QStringLiteral("sin")), qPrintable(first));
    model->setData(cell(0, 2), QStringLiteral("sin_col"), Qt::EditRole);
    const QString second = check(QStringLiteral("sin_col+1"));
    QVERIFY2(second.startsWith(QStringLiteral("failed: ")), qPrintable(second));
    QVERIFY2(second.contains(QStringLiteral("_pi")), qPrintable(second));
    model->setData(cell(1, 2), QStringLiteral("pi_col"), Qt::EditRole);
    QCOMPARE(check(QStringLiteral("sin_col+pi_col==3")), QStringLiteral("true"));
}

void tst_input_var_table::modelPassesTester()
{
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    select({0});
    model->downVar();
    model->setData(cell(1, 2), QStringLiteral("w"), Qt::EditRole);
    model->setVarList(nullptr);
    QCOMPARE(model->rowCount(), 0);
    model->setVarList(&list);
    QCOMPARE(model->rowCount(), 4);
}

QTEST_MAIN(tst_input_var_table)
#include "tst_input_var_table.moc"
