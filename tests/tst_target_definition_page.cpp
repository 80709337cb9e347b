// The page "Target Definition" driven through its controls in the window:
// the target by column, file or expression, the description that fixes the
// target, the input variables and the check, what is saved and what a load
// shows again.

#include "expression_page_support.h"
#include "window_test_main.h"

#include "panels/nominal_var_panel.h"
#include "panels/target_definition_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>

using namespace expression_page_support;

namespace {

const QByteArray targetComment =
    "<!-- type of target/response F: file, C: column, E: boolean expression-->\n";

} // namespace

class tst_target_definition_page : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void startState();
    void fixedTargetDisablesChoices();
    void staleColumnShowsNoItem();
    void emptyItemClearsTarget();
    void columnPicksMerge();
    void typeClicksDoNotMerge();
    void fileTextsAndDialog();
    void addNBox();
    void passingCheckShowsValueAndEngine();
    void failingCheckShowsDialogWithPicture();
    void checkAfterUndoUsesRestoredValues();
    void rightClickInsertsAndTakesOver();
    void removeLeavesOwnDetail();
    void helpTab();
    void refreshPushesNothing();
    void savedAndLoadedByColumn();
    void savedAndLoadedByFile();
    void savedAndLoadedByExpression();

private:
    TargetDefinitionPage *page()
    {
        return static_cast<TargetDefinitionPage *>(w->pageTable().widget(6));
    }
    QWidget *linePage() { return w->pageTable().widget(5); }
    template <typename T>
    T *control(const char *name) { return childOf<T>(page(), name); }
    CfgModel *cfg() { return w->cfg(); }
    QUndoStack *stack() { return w->undoStack(); }
    void click(const char *name) { QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton); }
    int stackedPage() { return control<QStackedWidget>("twTarget")->currentIndex(); }
    QComboBox *columns() { return control<QComboBox>("cbTargetCol"); }
    void open(const QString &path)
    {
        w = support.openWindow(path);
        QVERIFY(cfg());
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        w->pageTable().show(6);
    }
    void addColumns(const QStringList &labels)
    {
        selectColumns(control<QTableView>("tvTargetColumns"), labels);
        click("pbTargetAddInput");
    }
    void setExpression(const QString &text)
    {
        auto *editor = control<KPlainTextEdit>("pteTargetExpression");
        editor->clear();
        typeInto(editor, text);
        control<QPushButton>("pbTargetCheck")->setFocus();
    }
    static QWidget *panelIn(QWidget *detail) { return detail->findChild<NominalVarPanel *>(); }

    WindowTestSupport support;
    QString cfgPath;
    std::unique_ptr<QuvaCfgXMLEditor> w;
};

void tst_target_definition_page::initTestCase()
{
    support.install();
}

void tst_target_definition_page::cleanupTestCase()
{
    w.reset();
    support.uninstall();
}

void tst_target_definition_page::init()
{
    w.reset();
    support.reset();
    writeFreeDescription(support);
    cfgPath = writeConfig(support);
    open(cfgPath);
}

void tst_target_definition_page::startState()
{
    QCOMPARE(page()->objectName(), QStringLiteral("tTargetDefinition"));
    QCOMPARE(page()->windowTitle(), QStringLiteral("Target Definition"));
    QVERIFY(w->targetEditable());
    QCOMPARE(control<QRadioButton>("rbTargetCol")->text(), QStringLiteral("Column"));
    QCOMPARE(control<QRadioButton>("rbTargetFormula")->text(), QStringLiteral("Boolean Expression"));
    QCOMPARE(control<QRadioButton>("rbTargetFile")->text(), QStringLiteral("External file"));
    QVERIFY(control<QRadioButton>("rbTargetCol")->isChecked());
    QVERIFY(control<QRadioButton>("rbTargetCol")->isEnabled());
    QCOMPARE(stackedPage(), 0);
    QCOMPARE(columns()->count(), cfg()->desc->varCount() + 1);
    QCOMPARE(columns()->itemText(0), QString());
    QCOMPARE(columns()->itemText(1), QStringLiteral("Age"));
    QVERIFY(!page()->findChild<QCheckBox *>("cbTargetTruncate"));
    QVERIFY(!page()->findChild<QRadioButton *>("rbBModel"));
    QCOMPARE(stack()->count(), 0);
}

void tst_target_definition_page::fixedTargetDisablesChoices()
{
    support.copy("pages/golden.DescXML", "golden.DescXML");
    open(support.copy("pages/vars.CfgXML", "vars.CfgXML"));
    QVERIFY(!w->targetEditable());
    for (const char *name : {"rbTargetCol", "rbTargetFormula", "rbTargetFile"})
        QVERIFY2(!control<QRadioButton>(name)->isEnabled(), name);
    auto *stacked = control<QStackedWidget>("twTarget");
    QVERIFY(!stacked->widget(0)->isEnabled());
    QVERIFY(!stacked->widget(1)->isEnabled());
    QVERIFY(stacked->widget(2)->isEnabled());
    QCOMPARE(columns()->count(), 1);
    QCOMPARE(columns()->itemText(0), QStringLiteral("Default"));
    QCOMPARE(stackedPage(), 0);
    // The page never changes, whatever the record says.
    cfg()->targetType = 'E';
    w->updatePanelIdx(6);
    QCOMPARE(stackedPage(), 0);
    QVERIFY(control<QRadioButton>("rbTargetCol")->isChecked());
    QCOMPARE(stack()->count(), 0);
}

void tst_target_definition_page::staleColumnShowsNoItem()
{
    open(writeConfig(support, " <Target type='C'>gone_column</Target>\n"));
    QCOMPARE(cfg()->targetColumn, QStringLiteral("gone_column"));
    QCOMPARE(columns()->currentIndex(), -1);
    QCOMPARE(cfg()->targetColumn, QStringLiteral("gone_column"));
    QCOMPARE(stack()->count(), 0);
    columns()->setCurrentIndex(2);
    QCOMPARE(cfg()->targetColumn, QStringLiteral("Monthly income"));
}

void tst_target_definition_page::emptyItemClearsTarget()
{
    open(writeConfig(support, " <Target type='C'>income</Target>\n"));
    QCOMPARE(columns()->currentText(), QStringLiteral("Monthly income"));
    QVERIFY(cfg()->hasTarget());
    columns()->setCurrentIndex(0);
    QCOMPARE(cfg()->targetColumn, QString());
    QVERIFY(!cfg()->hasTarget());
    QCOMPARE(stackTexts(stack()), QStringList{"target column|Monthly income=>"});
}

void tst_target_definition_page::columnPicksMerge()
{
    columns()->setCurrentIndex(1);
    columns()->setCurrentIndex(2);
    QCOMPARE(stackTexts(stack()), QStringList{"target column|=>Monthly income - grouped"});
    QCOMPARE(cfg()->targetColumn, QStringLiteral("Monthly income"));
    stack()->undo();
    QCOMPARE(cfg()->targetColumn, QString());
    QCOMPARE(columns()->currentIndex(), 0);
}

void tst_target_definition_page::typeClicksDoNotMerge()
{
    click("rbTargetFile");
    QCOMPARE(stackedPage(), 2);
    click("rbTargetCol");
    QCOMPARE(stackTexts(stack()),
             (QStringList{"target type file|C=>F", "target type column|F=>C"}));
    click("rbTargetFormula");
    QCOMPARE(stackedPage(), 1);
    QCOMPARE(stack()->text(2), QStringLiteral("target type formula|C=>E"));
    click("rbTargetFormula");
    QCOMPARE(stack()->count(), 3);
    stack()->undo();
    QCOMPARE(stackedPage(), 0);
    QVERIFY(control<QRadioButton>("rbTargetCol")->isChecked());
}

void tst_target_definition_page::fileTextsAndDialog()
{
    click("rbTargetFile");
    auto *field = control<QLineEdit>("leTargetFile");
    field->setFocus();
    QTest::keyClicks(field, "/k.txt");
    QTest::keyClick(field, Qt::Key_Tab);
    QCOMPARE(stack()->count(), 1);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stack()->text(1), QStringLiteral("target File|=>/k.txt"));
    QList<FileQuestion> asked;
    setFileDialogHook([&asked](const FileQuestion &q) {
        asked << q;
        return QStringLiteral("/keys/t.txt");
    });
    click("pbTargetFile");
    support.install();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.at(0).caption, QStringLiteral("Choose target file"));
    QCOMPARE(asked.at(0).directory, QStringLiteral("/k.txt"));
    QCOMPARE(asked.at(0).filter, QStringLiteral("target key file (*.txt);;All (*.*)"));
    QCOMPARE(cfg()->targetFile, QStringLiteral("/keys/t.txt"));
    click("pbTargetFile"); // cancelled
    QCOMPARE(support.fileQuestions.size(), 1);
    QCOMPARE(stack()->count(), 3);
}

void tst_target_definition_page::addNBox()
{
    click("rbTargetFormula");
    click("cbTargetAddN");
    QCOMPARE(stack()->text(1), QStringLiteral("Target AddN toggled|0=>1"));
    QVERIFY(cfg()->targetAddN);
}

void tst_target_definition_page::passingCheckShowsValueAndEngine()
{
    click("rbTargetFormula");
    setExpression("2>1");
    QCOMPARE(cfg()->targetExpression, QStringLiteral("2>1"));
    QCOMPARE(stack()->text(1), QStringLiteral("Target expression|=>2>1"));
    click("pbTargetCheck");
    QCOMPARE(control<QLineEdit>("leTargetCurrentValue")->text(), QStringLiteral("true"));
    QCOMPARE(control<QLabel>("targetLabelSpeed")->text(), QStringLiteral("Fastest parser"));
    setExpression("strlen(\"ab\")==3");
    click("pbTargetCheck");
    QCOMPARE(control<QLineEdit>("leTargetCurrentValue")->text(), QStringLiteral("false"));
    QCOMPARE(control<QLabel>("targetLabelSpeed")->text(), QStringLiteral("Fast parser"));
    QVERIFY(support.dialogs.isEmpty());
}

void tst_target_definition_page::failingCheckShowsDialogWithPicture()
{
    click("rbTargetFormula");
    addColumns({"Loan purpose"});
    QString message;
    QString hint;
    support.dialogAction = [&](QDialog *dialog) {
        message = dialog->findChild<QLabel *>("labelErrorMessage")->text();
        hint = dialog->property("hint").toString();
        auto *picture = dialog->findChild<QLabel *>("labelHint");
        hint = !picture->pixmap(Qt::ReturnByValue).isNull() ? QStringLiteral("picture")
                                                            : QStringLiteral("none");
        return int(QDialog::Accepted);
    };
    setExpression("sqrt(purpose)");
    click("pbTargetCheck");
    QCOMPARE(support.dialogs, QStringList{"Interface_MathParserCheck"});
    QVERIFY2(message.contains("There is no implicit conversion to type"), qPrintable(message));
    QCOMPARE(hint, QStringLiteral("picture"));
    setExpression("(1+2");
    click("pbTargetCheck");
    QCOMPARE(support.dialogs.size(), 2);
    QCOMPARE(hint, QStringLiteral("none"));
    QCOMPARE(control<QLabel>("targetLabelSpeed")->text(), QStringLiteral("??? parser"));
}

void tst_target_definition_page::checkAfterUndoUsesRestoredValues()
{
    click("rbTargetFormula");
    addColumns({"Age"});
    auto *vars = control<QTableView>("tvTargetVariables");
    vars->model()->setData(vars->model()->index(0, 3), QStringLiteral("50"), Qt::EditRole);
    setExpression("age>=50");
    click("pbTargetCheck");
    QCOMPARE(control<QLineEdit>("leTargetCurrentValue")->text(), QStringLiteral("true"));
    vars->model()->setData(vars->model()->index(0, 3), QStringLiteral("20"), Qt::EditRole);
    click("pbTargetCheck");
    QCOMPARE(control<QLineEdit>("leTargetCurrentValue")->text(), QStringLiteral("false"));
    stack()->undo();
    QCOMPARE(vars->model()->index(0, 3).data().toDouble(), 50.0);
    click("pbTargetCheck");
    QCOMPARE(control<QLineEdit>("leTargetCurrentValue")->text(), QStringLiteral("true"));
}

void tst_target_definition_page::rightClickInsertsAndTakesOver()
{
    click("rbTargetFormula");
    addColumns({"Age"});
    rightClickRow(control<QTableView>("tvTargetVariables"), 0);
    QCOMPARE(control<KPlainTextEdit>("pteTargetExpression")->toPlainText(),
             QStringLiteral(" age "));
    // Taken over at once.
    QCOMPARE(cfg()->targetExpression, QStringLiteral(" age "));
    QCOMPARE(stack()->text(stack()->count() - 1), QStringLiteral("Target expression|=> age "));
    // The focus call goes to the line selection's editor.
    QCOMPARE(QApplication::focusWidget(),
             static_cast<QWidget *>(linePage()->findChild<KPlainTextEdit *>("pteLsExpression")));
}

void tst_target_definition_page::removeLeavesOwnDetail()
{
    click("rbTargetFormula");
    addColumns({"Loan purpose"});
    QWidget *detail = control<QWidget>("wTargetShowVariable");
    QVERIFY(panelIn(detail));
    // A detail in view on the line-selection page as well.
    w->pageTable().show(5);
    auto *lineColumns = linePage()->findChild<QTableView *>("tvLsColumns");
    selectColumns(lineColumns, {"Loan purpose"});
    QTest::mouseClick(linePage()->findChild<QPushButton *>("pbLsAddInput"), Qt::LeftButton);
    QWidget *lineDetail = linePage()->findChild<QWidget *>("wLsShowVariable");
    QVERIFY(panelIn(lineDetail));
    w->pageTable().show(6);
    selectRows(control<QTableView>("tvTargetVariables"), {0});
    click("pbTargetRemoveInput");
    QVERIFY(cfg()->targetVars.isEmpty());
    QVERIFY(panelIn(detail));
    QVERIFY(!panelIn(lineDetail));
}

void tst_target_definition_page::helpTab()
{
    auto *tabs = control<QTabWidget>("tabWidgetTarget");
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(1), QStringLiteral("Help"));
    QCOMPARE(tabs->widget(1)->windowTitle(), QStringLiteral("Interface_mathParserHelp"));
}

void tst_target_definition_page::refreshPushesNothing()
{
    click("rbTargetFormula");
    addColumns({"Age"});
    click("cbTargetAddN");
    const int count = stack()->count();
    for (char type : {'E', 'F', 'C'}) {
        cfg()->targetType = type;
        w->updatePanelIdx(6);
        QCOMPARE(stack()->count(), count);
    }
    cfg()->targetColumn = QStringLiteral("Has phone");
    w->updatePanelIdx(6);
    QCOMPARE(columns()->currentText(), QStringLiteral("Has phone"));
    QCOMPARE(stack()->count(), count);
}

void tst_target_definition_page::savedAndLoadedByColumn()
{
    columns()->setCurrentIndex(columns()->findText(QStringLiteral("Has phone")));
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    QVERIFY2(saved.contains(targetComment + "<Target type='C'>has_phone</Target>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbTargetCol")->isChecked());
    QCOMPARE(stackedPage(), 0);
    QCOMPARE(columns()->currentText(), QStringLiteral("Has phone"));
}

void tst_target_definition_page::savedAndLoadedByFile()
{
    click("rbTargetFile");
    support.fileAnswers << QStringLiteral("/keys/t<1>.txt");
    click("pbTargetFile");
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    QVERIFY2(saved.contains(targetComment + "<Target type='F'>\n  /keys/t&lt;1&gt;.txt\n</Target>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbTargetFile")->isChecked());
    QCOMPARE(stackedPage(), 2);
    QCOMPARE(control<QLineEdit>("leTargetFile")->text(), QStringLiteral("/keys/t<1>.txt"));
}

void tst_target_definition_page::savedAndLoadedByExpression()
{
    click("rbTargetFormula");
    addColumns({"Monthly income"});
    auto *vars = control<QTableView>("tvTargetVariables");
    vars->model()->setData(vars->model()->index(0, 2), QStringLiteral("inc"), Qt::EditRole);
    vars->model()->setData(vars->model()->index(0, 3), QStringLiteral("2.5"), Qt::EditRole);
    setExpression("inc>1");
    QVERIFY(w->saveConfig(false));
    const QByteArray saved = WindowTestSupport::bytes(cfgPath);
    QVERIFY2(saved.contains(targetComment
                            + "<Target type='E'>\n  <vars>\n"
                              "    <InputVar column='income' label='inc' label2='Monthly income' "
                              "meta='V' value='2.5'/>\n"
                              "  </vars>\n  <expression>inc&gt;1</expression>\n</Target>\n"),
             saved.constData());
    open(cfgPath);
    QVERIFY(control<QRadioButton>("rbTargetFormula")->isChecked());
    QCOMPARE(stackedPage(), 1);
    QCOMPARE(control<KPlainTextEdit>("pteTargetExpression")->toPlainText(), QStringLiteral("inc>1"));
    QCOMPARE(cfg()->targetVars.size(), 1);
    QCOMPARE(cfg()->targetVars.at(0).value, 2.5);
    QCOMPARE(stack()->count(), 0);
}

QUVA_WINDOW_TEST_MAIN(tst_target_definition_page)
#include "tst_target_definition_page.moc"
