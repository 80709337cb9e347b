// The page "Select Lines / Segment" driven through its controls in the
// window: the three ways of choosing lines, the segments of a segmentation
// model, the expression with its input variables, check and help, what is
// saved and what a load shows again.

#include "expression_page_support.h"
#include "window_test_main.h"

#include "edit/undo_commands.h"
#include "panels/active_segment_model_editor.h"
#include "panels/nominal_var_panel.h"
#include "panels/select_line_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>

using namespace expression_page_support;

namespace {

const QByteArray lineComment = "<!-- type of lineSelection: F=file, E=boolean Expression, "
                               "S=Moonwick Segment / this is used by QUVM -->\n";

} // namespace

class tst_select_line_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void startState();
    void externalFileUndoKeepsItsRadio();
    void typeClickAgainPushesNothing();
    void segmentationModelIsOneStep();
    void threeSegmentsStartFirstActive();
    void segmentationCancelChangesNothing();
    void modelWithoutNamesChangesNothing();
    void twoIsActiveChangesTwoSteps();
    void fileTakenOnReturn();
    void fileFromDialog();
    void dialogsStartWhereTheFileFieldSays();
    void boxesPushTheirTexts();
    void checkAfterTypingCommitsFirst();
    void checkReadsTheRecord();
    void failingCheckOpensDialog();
    void rightClickWithoutPanelInsertsLabel();
    void rightClickOnNominalShowsPanel();
    void removeEmptiesDetail();
    void inputVariablesUndoRedo();
    void functionListInsertsCall();
    void filterColumns();
    void helpTab();
    void refreshPushesNothing();
    void savedAndLoadedByFile();
    void savedAndLoadedBySegments();
    void savedAndLoadedByExpression();

private:
    SelectLinePage *page() { return static_cast<SelectLinePage *>(w->pageTable().widget(5)); }
    template <typename T>
    T *control(const char *name) { return childOf<T>(page(), name); }
    CfgModel *cfg() { return w->cfg(); }
    QUndoStack *stack() { return w->undoStack(); }
    void click(const char *name) { QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton); }
    int stackedPage() { return control<QStackedWidget>("twSelectLineSegment")->currentIndex(); }
    void open(const QString &path)
    {
        w = support.openWindow(path);
        QVERIFY(cfg());
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        w->pageTable().show(5);
    }
    void readSegments(const QStringList &names)
    {
        const QString model = writeSegmentationModel(support, "seg.SModelXML", names);
        support.fileAnswers << model;
        click("pbSegmentation");
    }
    void addColumns(const QStringList &labels)
    {
        selectColumns(control<QTableView>("tvLsColumns"), labels);
        click("pbLsAddInput");
    }
    QWidget *detailPanel()
    {
        return control<QWidget>("wLsShowVariable")->findChild<NominalVarPanel *>();
    }

    WindowTestSupport support;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_select_line_page::initTestCase()
{
    support.install();
}

void tst_select_line_page::cleanupTestCase()
{
    w.reset();
    support.uninstall();
}

void tst_select_line_page::init()
{
    w.reset();
    support.reset();
    writeFreeDescription(support);
    cfgPath = writeConfig(support);
    open(cfgPath);
}

void tst_select_line_page::startState()
{
    QCOMPARE(page()->objectName(), QStringLiteral("tSelectLine"));
    QCOMPARE(page()->windowTitle(), QStringLiteral("Select Lines / Segment"));
    QVERIFY(control<QRadioButton>("rbFormula")->isChecked());
    QCOMPARE(control<QRadioButton>("rbFormula")->text(), QStringLiteral("Boolean Expression"));
    QCOMPARE(control<QRadioButton>("rbExternalFile")->text(), QStringLiteral("External file"));
    QCOMPARE(control<QRadioButton>("rbBModel")->text(),
             QStringLiteral("Moonwick Segmentation Model"));
    QCOMPARE(stackedPage(), 0);
    QCOMPARE(control<QCheckBox>("cbLsAddN")->text(), QStringLiteral("add '_n_' as input var"));
    QCOMPARE(control<QCheckBox>("cbLsTruncate")->text(),
             QStringLiteral("Truncate table on first failed row"));
    QCOMPARE(control<QPushButton>("pbLsAddInput")->text(), QStringLiteral("Add Variable"));
    QCOMPARE(control<QPushButton>("pbLsRemoveInput")->text(), QStringLiteral("Remove Variable"));
    auto *numbers = control<QComboBox>("cbFunctionsNumber");
    QCOMPARE(numbers->count(), 1);
    QCOMPARE(numbers->itemText(0), QStringLiteral("Functions on Numbers"));
    auto *strings = control<QComboBox>("cbFunctionsString");
    QCOMPARE(strings->count(), 4);
    QCOMPARE(strings->itemText(1), QStringLiteral("toET (String date to Elapsed time)"));
    QCOMPARE(control<QTableView>("tvLsColumns")->model()->rowCount(), cfg()->desc->varCount());
    auto *segments = control<QTableView>("tvActiveSegments")->model();
    QCOMPARE(segments->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Segment Name"));
    QCOMPARE(segments->headerData(1, Qt::Horizontal).toString(), QStringLiteral("isActive"));
    QCOMPARE(stack()->count(), 0);
}

void tst_select_line_page::externalFileUndoKeepsItsRadio()
{
    click("rbExternalFile");
    QCOMPARE(cfg()->lineSelectionType, 'F');
    QCOMPARE(stackTexts(stack()), QStringList{"lineSelectionType|E=>F"});
    QCOMPARE(stackedPage(), 1);
    QCOMPARE(w->pageTable().currentNumber(), 5);
    stack()->undo();
    QCOMPARE(cfg()->lineSelectionType, 'E');
    QCOMPARE(stackedPage(), 0);
    QVERIFY(control<QRadioButton>("rbExternalFile")->isChecked());
    stack()->redo();
    click("rbBModel");
    QCOMPARE(stackedPage(), 2);
    QCOMPARE(stack()->text(1), QStringLiteral("lineSelectionType|F=>S"));
    // Each click is a step of its own.
    QCOMPARE(stack()->count(), 2);
}

void tst_select_line_page::typeClickAgainPushesNothing()
{
    click("rbFormula");
    QCOMPARE(stack()->count(), 0);
}

void tst_select_line_page::segmentationModelIsOneStep()
{
    readSegments({"young", "old"});
    QCOMPARE(support.fileQuestions, QStringList{"Choose file"});
    QCOMPARE(stackTexts(stack()), QStringList{"Segmentation Model"});
    QCOMPARE(cfg()->lineSelectionSegmentFile, support.path("seg.SModelXML"));
    QCOMPARE(cfg()->segmentNames, (QStringList{"young", "old"}));
    QCOMPARE(cfg()->lineSelectionType, 'E');
    QCOMPARE(control<QLineEdit>("leSegmentation")->text(), support.path("seg.SModelXML"));
    stack()->undo();
    QVERIFY(cfg()->lineSelectionSegmentFile.isEmpty());
    QVERIFY(cfg()->segmentNames.isEmpty());
    QVERIFY(cfg()->segmentActive.isEmpty());
    QCOMPARE(w->pageTable().currentNumber(), 5);
}

void tst_select_line_page::threeSegmentsStartFirstActive()
{
    readSegments({"young", "old", QStringLiteral("Zürich")});
    QCOMPARE(cfg()->segmentNames.at(2), QStringLiteral("Zürich"));
    QCOMPARE(cfg()->segmentActive, (QVector<bool>{true, false, false}));
    click("rbBModel");
    QAbstractItemModel *segments = control<QTableView>("tvActiveSegments")->model();
    QCOMPARE(segments->rowCount(), 3);
    QCOMPARE(segments->index(0, 1).data().toBool(), true);
    QCOMPARE(segments->index(1, 1).data().toBool(), false);
}

void tst_select_line_page::segmentationCancelChangesNothing()
{
    click("pbSegmentation");
    QCOMPARE(support.fileQuestions.size(), 1);
    QCOMPARE(stack()->count(), 0);
    QVERIFY(control<QLineEdit>("leSegmentation")->text().isEmpty());
}

void tst_select_line_page::modelWithoutNamesChangesNothing()
{
    const QString empty = writeSegmentationModel(support, "none.SModelXML", {});
    auto *field = control<QLineEdit>("leSegmentation");
    field->setText(empty);
    QTest::keyClick(field, Qt::Key_Return);
    const QString other = support.write(
        "other.SModelXML", "<?xml version=\"1.0\"?>\n<MOONWICK_MODEL><X/></MOONWICK_MODEL>\n");
    field->setText(other);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stack()->count(), 0);
    QVERIFY(support.questions.isEmpty());
    // Leaving the field takes nothing over; Return on a good model does.
    field->setText(writeSegmentationModel(support, "good.SModelXML", {"a"}));
    QTest::keyClick(field, Qt::Key_Tab);
    QCOMPARE(stack()->count(), 0);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(cfg()->segmentNames, QStringList{"a"});
}

void tst_select_line_page::twoIsActiveChangesTwoSteps()
{
    readSegments({"a", "b", "c"});
    ActiveSegmentModelEditor *segments = page()->segmentModel();
    QVERIFY(segments->setData(segments->index(1, 1), true, Qt::EditRole));
    QVERIFY(segments->setData(segments->index(1, 1), true, Qt::EditRole));
    QCOMPARE(stackTexts(stack()),
             (QStringList{"Segmentation Model", "active/deactive segment",
                          "active/deactive segment"}));
    QCOMPARE(cfg()->segmentActive, (QVector<bool>{true, true, false}));
    QVERIFY(!segments->setData(segments->index(1, 1), false, Qt::DisplayRole));
    QVERIFY(!(segments->flags(segments->index(0, 0)) & Qt::ItemIsEditable));
    QVERIFY(segments->flags(segments->index(0, 1)) & Qt::ItemIsEditable);
    stack()->undo();
    stack()->undo();
    QCOMPARE(cfg()->segmentActive, (QVector<bool>{true, false, false}));
}

void tst_select_line_page::fileTakenOnReturn()
{
    click("rbExternalFile");
    auto *field = control<QLineEdit>("leLsFile");
    field->setFocus();
    QTest::keyClicks(field, "/data/keys.txt");
    QTest::keyClick(field, Qt::Key_Tab);
    QVERIFY(cfg()->lineSelectionFile.isEmpty());
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(cfg()->lineSelectionFile, QStringLiteral("/data/keys.txt"));
    QCOMPARE(stack()->text(1), QStringLiteral("lineSelectionFile|=>/data/keys.txt"));
    // Return with the same text is still a step.
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stack()->count(), 3);
}

void tst_select_line_page::fileFromDialog()
{
    click("rbExternalFile");
    support.fileAnswers << QStringLiteral("/k/list.csv");
    click("pbLsFile");
    QCOMPARE(support.fileQuestions, QStringList{"Choose file"});
    QCOMPARE(cfg()->lineSelectionFile, QStringLiteral("/k/list.csv"));
    QCOMPARE(control<QLineEdit>("leLsFile")->text(), QStringLiteral("/k/list.csv"));
    click("pbLsFile"); // cancelled
    QCOMPARE(stack()->count(), 2);
}

// Both dialogs start from the selection file's field, the segmentation
// model's too, or from the last folder when that field is empty.
void tst_select_line_page::dialogsStartWhereTheFileFieldSays()
{
    QList<FileQuestion> asked;
    setFileDialogHook([&asked](const FileQuestion &q) {
        asked << q;
        return QString();
    });
    setLastDir(QStringLiteral("/last/folder/any.txt"));
    click("pbLsFile");
    control<QLineEdit>("leLsFile")->setText(QStringLiteral("/keys/list.txt"));
    control<QLineEdit>("leSegmentation")->setText(QStringLiteral("/models/m.SModelXML"));
    click("pbLsFile");
    click("pbSegmentation");
    support.install();
    QCOMPARE(asked.size(), 3);
    QCOMPARE(asked.at(0).directory, lastDir());
    QVERIFY(lastDir().startsWith(QStringLiteral("/last")));
    QCOMPARE(asked.at(0).filter, QStringLiteral("Primary Key List file (*.txt;*csv);;All (*.*)"));
    QCOMPARE(asked.at(1).directory, QStringLiteral("/keys/list.txt"));
    QCOMPARE(asked.at(2).directory, QStringLiteral("/keys/list.txt"));
    QCOMPARE(asked.at(2).caption, QStringLiteral("Choose file"));
    QCOMPARE(asked.at(2).filter,
             QStringLiteral("Segmentation Model file (*.SModelXML);;All (*.*)"));
    QCOMPARE(stack()->count(), 0);
}

void tst_select_line_page::boxesPushTheirTexts()
{
    click("cbLsTruncate");
    click("cbLsAddN");
    QCOMPARE(stackTexts(stack()),
             (QStringList{"LS trunacte toggled|0=>1", "LS AddN toggled|0=>1"}));
    QVERIFY(cfg()->lsTruncate);
    QVERIFY(cfg()->lsAddN);
    stack()->undo();
    QVERIFY(!control<QCheckBox>("cbLsAddN")->isChecked());
    QCOMPARE(stack()->count(), 2);
}

void tst_select_line_page::checkAfterTypingCommitsFirst()
{
    auto *editor = control<KPlainTextEdit>("pteLsExpression");
    typeInto(editor, "1+1==2");
    QCOMPARE(stack()->count(), 0);
    click("pbLsCheck");
    QCOMPARE(cfg()->lineSelectionExpression, QStringLiteral("1+1==2"));
    QCOMPARE(stackTexts(stack()), QStringList{"LS expression|=>1+1==2"});
    QCOMPARE(control<QLineEdit>("leLsCurrentValue")->text(), QStringLiteral("true"));
    QCOMPARE(control<QLabel>("lsLabelSpeed")->text(), QStringLiteral("Fastest parser"));
    QVERIFY(support.dialogs.isEmpty());
}

void tst_select_line_page::checkReadsTheRecord()
{
    stack()->push(new UpdateTemplateCommand<QString>(&cfg()->lineSelectionExpression,
                                                     QStringLiteral("\"a\"==\"a\""), "LS expression",
                                                     5, false));
    auto *editor = control<KPlainTextEdit>("pteLsExpression");
    QCOMPARE(editor->toPlainText(), QStringLiteral("\"a\"==\"a\""));
    // Changed behind the editor's back: not what is checked.
    editor->setPlainText(QStringLiteral("1==2"));
    page()->findChild<QPushButton *>("pbLsCheck")->click();
    QCOMPARE(control<QLineEdit>("leLsCurrentValue")->text(), QStringLiteral("true"));
    QCOMPARE(control<QLabel>("lsLabelSpeed")->text(), QStringLiteral("Fast parser"));
}

void tst_select_line_page::failingCheckOpensDialog()
{
    QString message;
    support.dialogAction = [&message](QDialog *dialog) {
        message = dialog->findChild<QLabel *>("labelErrorMessage")->text();
        return int(QDialog::Accepted);
    };
    typeInto(control<KPlainTextEdit>("pteLsExpression"), "nosuch(1)");
    click("pbLsCheck");
    QCOMPARE(support.dialogs, QStringList{"Interface_MathParserCheck"});
    QVERIFY2(message.contains("Undefined token"), qPrintable(message));
    QCOMPARE(control<QLineEdit>("leLsCurrentValue")->text(), QString());
    QCOMPARE(control<QLabel>("lsLabelSpeed")->text(), QStringLiteral("??? parser"));
}

void tst_select_line_page::rightClickWithoutPanelInsertsLabel()
{
    addColumns({"Age"});
    QCOMPARE(stackTexts(stack()), QStringList{"add vars"});
    QCOMPARE(cfg()->lineSelectionVars.size(), 1);
    QVERIFY(!detailPanel());
    auto *editor = control<KPlainTextEdit>("pteLsExpression");
    rightClickRow(control<QTableView>("tvLsVariables"), 0);
    QCOMPARE(editor->toPlainText(), QStringLiteral(" age "));
    QVERIFY(editor->hasFocus());
    // The target's end of editing ran, not this page's: nothing taken over yet.
    QCOMPARE(stack()->count(), 1);
    QVERIFY(cfg()->lineSelectionExpression.isEmpty());
    click("pbLsCheck"); // leaving the editor takes it over
    QCOMPARE(cfg()->lineSelectionExpression, QStringLiteral(" age "));
}

void tst_select_line_page::rightClickOnNominalShowsPanel()
{
    addColumns({"Loan purpose"});
    QVERIFY(detailPanel()); // shown for the last added variable
    page()->on_lsDisplayVar(-1);
    QVERIFY(!detailPanel());
    rightClickRow(control<QTableView>("tvLsVariables"), 0);
    QWidget *panel = detailPanel();
    QVERIFY(panel);
    QVERIFY(panel->isVisible());
    QCOMPARE(panel->findChild<QLabel *>("labelVarName")->text(), QStringLiteral("purpose"));
    QVERIFY(control<KPlainTextEdit>("pteLsExpression")->toPlainText().isEmpty());
    // Its clause goes into this page's editor.
    auto *modalities = panel->findChild<QTableView *>("tvModalities");
    selectRows(modalities, {1});
    QTest::mouseClick(panel->findChild<QPushButton *>("pbAdd"), Qt::LeftButton);
    QCOMPARE(control<KPlainTextEdit>("pteLsExpression")->toPlainText(),
             QStringLiteral("(purpose==\"car\")"));
}

void tst_select_line_page::removeEmptiesDetail()
{
    addColumns({"Loan purpose", "Age"});
    QCOMPARE(cfg()->lineSelectionVars.size(), 2); // in the columns' order: age, purpose
    rightClickRow(control<QTableView>("tvLsVariables"), 1);
    QVERIFY(detailPanel());
    selectRows(control<QTableView>("tvLsVariables"), {0, 1});
    click("pbLsRemoveInput");
    QVERIFY(!detailPanel());
    QVERIFY(cfg()->lineSelectionVars.isEmpty());
    QCOMPARE(stack()->text(1), QStringLiteral("remove vars"));
    click("pbLsRemoveInput"); // nothing selected
    QCOMPARE(stack()->count(), 2);
}

void tst_select_line_page::inputVariablesUndoRedo()
{
    addColumns({"Age", "Monthly income", "Has phone"});
    auto *vars = control<QTableView>("tvLsVariables");
    QCOMPARE(selectedRows(vars), QVector<int>{2});
    click("pbLsUp");
    QCOMPARE(cfg()->lineSelectionVars.at(1).column, QStringList{"has_phone"});
    vars->clearSelection();
    selectRows(vars, {0});
    click("pbLsDown");
    QCOMPARE(cfg()->lineSelectionVars.at(0).column, QStringList{"has_phone"});
    vars->model()->setData(vars->model()->index(1, 3), QStringLiteral("42"), Qt::EditRole);
    QCOMPARE(cfg()->lineSelectionVars.at(1).value, 42.0);
    QCOMPARE(stackTexts(stack()),
             (QStringList{"add vars", "up var", "down var", "current value"}));
    stack()->undo();
    QCOMPARE(cfg()->lineSelectionVars.at(1).value, 0.0);
    QCOMPARE(vars->model()->index(1, 3).data().toDouble(), 0.0);
    stack()->undo();
    stack()->undo();
    QCOMPARE(cfg()->lineSelectionVars.at(2).column, QStringList{"has_phone"});
    stack()->undo();
    QCOMPARE(vars->model()->rowCount(), 0);
    stack()->redo();
    QCOMPARE(vars->model()->rowCount(), 3);
}

void tst_select_line_page::functionListInsertsCall()
{
    auto *editor = control<KPlainTextEdit>("pteLsExpression");
    typeInto(editor, "x+");
    auto *strings = control<QComboBox>("cbFunctionsString");
    strings->setFocus();
    QTest::keyClick(strings, Qt::Key_Down); // "toET (String date to Elapsed time)"
    QCOMPARE(editor->toPlainText(), QStringLiteral("x+toET()"));
    QCOMPARE(editor->textCursor().position(), 7);
    QCOMPARE(strings->currentIndex(), 0);
    QVERIFY(editor->hasFocus());
}

void tst_select_line_page::filterColumns()
{
    auto *filter = control<QLineEdit>("leLsFilterColumns");
    QTest::keyClicks(filter, "*INCOME*");
    QCOMPARE(control<QTableView>("tvLsColumns")->model()->rowCount(), 1);
    filter->clear();
    QCOMPARE(control<QTableView>("tvLsColumns")->model()->rowCount(), cfg()->desc->varCount());
}

void tst_select_line_page::helpTab()
{
    auto *tabs = control<QTabWidget>("tabWidgetLS");
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Standard Parameters"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Help"));
    QCOMPARE(tabs->widget(1)->windowTitle(), QStringLiteral("Interface_mathParserHelp"));
}

void tst_select_line_page::refreshPushesNothing()
{
    addColumns({"Age"});
    click("cbLsAddN");
    const int count = stack()->count();
    for (char type : {'E', 'F', 'S'}) {
        cfg()->lineSelectionType = type;
        w->updatePanelIdx(5);
        QCOMPARE(stack()->count(), count);
    }
    cfg()->lsAddN = false; // the box follows without a command
    cfg()->lineSelectionType = 'E';
    w->updatePanelIdx(5);
    QVERIFY(!control<QCheckBox>("cbLsAddN")->isChecked());
    QCOMPARE(stack()->count(), count);
}

void tst_select_line_page::savedAndLoadedByFile()
{
    click("rbExternalFile");
    support.fileAnswers << QStringLiteral("/data/a&b.txt");
    click("pbLsFile");
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    QVERIFY2(saved.contains(lineComment + "<LineSelected type='F'>/data/a&amp;b.txt</LineSelected>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbExternalFile")->isChecked());
    QCOMPARE(stackedPage(), 1);
    QCOMPARE(control<QLineEdit>("leLsFile")->text(), QStringLiteral("/data/a&b.txt"));
}

void tst_select_line_page::savedAndLoadedBySegments()
{
    readSegments({"young", "old", "rest"});
    click("rbBModel");
    const QString model = support.path("seg.SModelXML");
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    // Every segment is written active.
    QVERIFY2(saved.contains(lineComment + "<LineSelected type='S' segment='AAA'>" + model.toUtf8()
                            + "</LineSelected>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbBModel")->isChecked());
    QCOMPARE(stackedPage(), 2);
    QCOMPARE(control<QLineEdit>("leSegmentation")->text(), model);
    QCOMPARE(cfg()->segmentActive, (QVector<bool>{true, true, true}));
    // The names are not in the file: the list stays empty until the model is read again.
    QCOMPARE(control<QTableView>("tvActiveSegments")->model()->rowCount(), 0);
}

void tst_select_line_page::savedAndLoadedByExpression()
{
    addColumns({"Age", "Loan purpose"});
    typeInto(control<KPlainTextEdit>("pteLsExpression"), "age<40");
    click("pbLsCheck");
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    QVERIFY2(saved.contains(lineComment
                            + "<LineSelected type='E'>\n  <vars>\n"
                              "    <InputVar column='age' label2='Age' meta='V' value='0'/>\n"
                              "    <InputVar column='purpose' label2='Loan purpose' isNumber='0' "
                              "meta='N' value=''/>\n"
                              "  </vars>\n  <expression>age&lt;40</expression>\n"
                              "</LineSelected>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbFormula")->isChecked());
    QCOMPARE(stackedPage(), 0);
    QCOMPARE(control<KPlainTextEdit>("pteLsExpression")->toPlainText(), QStringLiteral("age<40"));
    QCOMPARE(control<QTableView>("tvLsVariables")->model()->rowCount(), 2);
    QCOMPARE(stack()->count(), 0);
}

QUVA_WINDOW_TEST_MAIN(tst_select_line_page)
#include "tst_select_line_page.moc"
