// The panel of a nominal variable beside an expression: its list of
// modalities, and the clause that "Add" writes at the caret of the editor.

#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "core/dataset_var.h"
#include "core/desc_model.h"
#include "edit/table_views.h"
#include "edit/text_editors.h"
#include "panels/modality_model_editor.h"
#include "panels/nominal_var_panel.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

// A description with one nominal variable whose values hold a quote, a
// backslash and a letter outside ASCII, and one continuous variable.
const char descText[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<DESCRIPTION>\n"
    "  <QUV_Config version=\"3.2\"/>\n"
    "  <COLS>\n"
    "    <VALUE><COL name=\"age\" label=\"Age\"/></VALUE>\n"
    "    <NOMINAL>\n"
    "      <COL name=\"city\" label=\"City\">\n"
    "        <POSSIBLEVALUES>\n"
    "          <VAL val=\"a&quot;b\"/>\n"
    "          <VAL val=\"c\\d\" label=\"Backslash\"/>\n"
    "          <VAL val=\"Zürich\"/>\n"
    "        </POSSIBLEVALUES>\n"
    "      </COL>\n"
    "    </NOMINAL>\n"
    "  </COLS>\n"
    "</DESCRIPTION>\n";

} // namespace

class tst_nominal_var_panel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void modalityListShowsNamesAndValues();
    void panelTexts();
    void onlyMissingRowHasNoBracket();
    void quoteBecomesBackslash();
    void backslashStaysAndNonAsciiPasses();
    void severalRowsJoined_data();
    void severalRowsJoined();
    void tableOrderNotClickOrder();
    void nothingSelectedChangesNothing();
    void insertsAtCaretWithoutBlanks();
    void onlyNominalVariablesGetAPanel();

private:
    QTableView *modalities() { return panel->findChild<QTableView *>("tvModalities"); }
    void pick(const QVector<int> &rows, int equalDiff = 0)
    {
        modalities()->clearSelection();
        for (int row : rows)
            modalities()->selectionModel()->select(
                modalities()->model()->index(row, 0),
                QItemSelectionModel::Select | QItemSelectionModel::Rows);
        panel->findChild<QComboBox *>("cbEqualDiff")->setCurrentIndex(equalDiff);
    }
    QString add()
    {
        editor->clear();
        QTest::mouseClick(panel->findChild<QPushButton *>("pbAdd"), Qt::LeftButton);
        return editor->toPlainText();
    }

    QTemporaryDir dir;
    std::unique_ptr<CfgModel> record;
    const EqualVar *city = nullptr;
    std::unique_ptr<QWidget> host;
    KPlainTextEdit *editor = nullptr;
    NominalVarPanel *panel = nullptr;
};

void tst_nominal_var_panel::initTestCase()
{
    QFile file(dir.filePath("city.DescXML"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(descText);
    file.close();
    record = std::move(loadDescFile(file.fileName(), false, nullptr, QString()).model);
    QVERIFY(record);
    city = dynamic_cast<const EqualVar *>(record->desc->varOfName(QStringLiteral("city")));
    QVERIFY(city);
    QCOMPARE(city->values,
             (QStringList{"missing", "a\"b", "c\\d", QStringLiteral("Zürich")}));
}

void tst_nominal_var_panel::init()
{
    host = std::make_unique<QWidget>();
    auto *layout = new QHBoxLayout(host.get());
    editor = new KPlainTextEdit(host.get());
    layout->addWidget(editor);
    panel = new NominalVarPanel(city, QStringLiteral("city"), editor, host.get());
    layout->addWidget(panel);
    host->show();
    QApplication::setActiveWindow(host.get());
    QVERIFY(QTest::qWaitForWindowActive(host.get()));
}

void tst_nominal_var_panel::cleanup()
{
    host.reset();
}

void tst_nominal_var_panel::modalityListShowsNamesAndValues()
{
    ModalityModelEditor model(city);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.index(1, 0).data().toString(), QStringLiteral("a\"b"));
    QCOMPARE(model.index(2, 0).data().toString(), QStringLiteral("Backslash [c\\d]"));
    QCOMPARE(model.index(3, 0).data().toString(), QStringLiteral("Zürich"));
    QVERIFY(!model.index(1, 0).data(Qt::EditRole).isValid());
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("Modality Name"));
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
             QStringLiteral("Modality Name"));
    QVERIFY(!(model.flags(model.index(1, 0)) & Qt::ItemIsEditable));
    ModalityModelEditor none(nullptr);
    QCOMPARE(none.rowCount(), 0);
}

void tst_nominal_var_panel::panelTexts()
{
    QCOMPARE(panel->windowTitle(), QStringLiteral("NominalVarPanel"));
    QCOMPARE(panel->findChild<QLabel *>("labelVarName")->text(), QStringLiteral("city"));
    auto *equalDiff = panel->findChild<QComboBox *>("cbEqualDiff");
    QCOMPARE(equalDiff->count(), 2);
    QCOMPARE(equalDiff->itemText(0), QStringLiteral("is equal to:"));
    QCOMPARE(equalDiff->itemText(1), QStringLiteral("is different from:"));
    auto *addButton = panel->findChild<QPushButton *>("pbAdd");
    QCOMPARE(addButton->text(), QStringLiteral("Add"));
    QVERIFY(!addButton->icon().isNull());
    QVERIFY(panel->findChild<QGridLayout *>("gridLayout"));
}

void tst_nominal_var_panel::onlyMissingRowHasNoBracket()
{
    pick({0});
    QCOMPARE(add(), QStringLiteral("isMissing(city)"));
    pick({0}, 1);
    QCOMPARE(add(), QStringLiteral("not(isMissing(city))"));
}

void tst_nominal_var_panel::quoteBecomesBackslash()
{
    pick({1});
    QCOMPARE(add(), QStringLiteral("(city==\"a\\b\")"));
}

void tst_nominal_var_panel::backslashStaysAndNonAsciiPasses()
{
    pick({2});
    QCOMPARE(add(), QStringLiteral("(city==\"c\\d\")"));
    pick({3}, 1);
    QCOMPARE(add(), QStringLiteral("(city!=\"Zürich\")"));
}

void tst_nominal_var_panel::severalRowsJoined_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<int>("equalDiff");
    QTest::addColumn<QString>("clause");
    QTest::newRow("two equal") << QVector<int>{2, 3} << 0
                               << QStringLiteral("((city==\"c\\d\")||(city==\"Zürich\"))");
    QTest::newRow("missing and a value, different")
        << QVector<int>{0, 3} << 1
        << QStringLiteral("(not(isMissing(city))&&(city!=\"Zürich\"))");
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3} << 0
                         << QStringLiteral("(isMissing(city)||(city==\"a\\b\")||"
                                           "(city==\"c\\d\")||(city==\"Zürich\"))");
}

void tst_nominal_var_panel::severalRowsJoined()
{
    QFETCH(QVector<int>, rows);
    QFETCH(int, equalDiff);
    QFETCH(QString, clause);
    pick(rows, equalDiff);
    QCOMPARE(add(), clause);
}

void tst_nominal_var_panel::tableOrderNotClickOrder()
{
    pick({3, 1});
    QCOMPARE(add(), QStringLiteral("((city==\"a\\b\")||(city==\"Zürich\"))"));
}

void tst_nominal_var_panel::nothingSelectedChangesNothing()
{
    editor->setPlainText(QStringLiteral("x>1"));
    modalities()->setFocus();
    modalities()->clearSelection();
    QTest::mouseClick(panel->findChild<QPushButton *>("pbAdd"), Qt::LeftButton);
    QCOMPARE(editor->toPlainText(), QStringLiteral("x>1"));
    QVERIFY(!editor->hasFocus());
}

void tst_nominal_var_panel::insertsAtCaretWithoutBlanks()
{
    editor->setPlainText(QStringLiteral("a&&"));
    QTextCursor cursor = editor->textCursor();
    cursor.setPosition(1);
    editor->setTextCursor(cursor);
    modalities()->setFocus();
    pick({1});
    QTest::mouseClick(panel->findChild<QPushButton *>("pbAdd"), Qt::LeftButton);
    QCOMPARE(editor->toPlainText(), QStringLiteral("a(city==\"a\\b\")&&"));
    QVERIFY(editor->hasFocus());
    // The panel stays, so a second clause goes in at the new caret.
    pick({0});
    QTest::mouseClick(panel->findChild<QPushButton *>("pbAdd"), Qt::LeftButton);
    QCOMPARE(editor->toPlainText(), QStringLiteral("a(city==\"a\\b\")isMissing(city)&&"));
}

void tst_nominal_var_panel::onlyNominalVariablesGetAPanel()
{
    QWidget parent;
    QWidget *nominal = createEditPanel(city, &parent, QStringLiteral("c"), editor);
    QVERIFY(qobject_cast<NominalVarPanel *>(nominal));
    QCOMPARE(nominal->parentWidget(), &parent);
    QVERIFY(!createEditPanel(record->desc->varOfName(QStringLiteral("age")), &parent,
                             QStringLiteral("age"), editor));
    QVERIFY(!createEditPanel(nullptr, &parent, QStringLiteral("none"), editor));
}

QTEST_MAIN(tst_nominal_var_panel)
#include "tst_nominal_var_panel.moc"
