// The two dialogs beside an expression: the error box with its hint picture
// and the help page with the whole language in a tree.

#include "expr/parser_facade.h"
#include "panels/math_parser_check.h"
#include "panels/math_parser_help.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QtTest>

class tst_math_parser_check : public QObject
{
    Q_OBJECT

private slots:
    void hintPicture_data();
    void hintPicture();
    void dialogObjects();
    void hintLabelEmptyForSyntaxError();
    void picturesAreResources();
    void okCloses();
    void unknownFunctionReportedWithTokenAndPosition();
    void helpTree();
};

void tst_math_parser_check::hintPicture_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("picture");
    const QString base = QStringLiteral(":/VelmorinMathParser/");
    QTest::newRow("undefined") << "Undefined token \"foo\" found at position 0."
                               << base + "undefinedToken.png";
    QTest::newRow("both, the first wins")
        << "There is no implicit conversion to type 'f'. Undefined token" << base + "undefinedToken.png";
    QTest::newRow("cast") << "Value \"x\" is of type 's'. There is no implicit conversion to type 'f'"
                          << base + "errorCast.png";
    QTest::newRow("number expected")
        << "The expression evaluated to a Number and a String was expected"
        << base + "errorEvaluatedToNumber.png";
    QTest::newRow("string expected")
        << "The expression evaluated to a String and a Number was expected"
        << base + "errorEvaluatedToString.png";
    QTest::newRow("case counts") << "undefined token" << QString();
    QTest::newRow("syntax") << "Missing parenthesis\n  Error Token:(\n  Error at position:3"
                            << QString();
}

void tst_math_parser_check::hintPicture()
{
    QFETCH(QString, message);
    QFETCH(QString, picture);
    QCOMPARE(hintPictureOf(message), picture);
    Interface_MathParserCheck dialog(message);
    QCOMPARE(dialog.hintPicture(), picture);
    QCOMPARE(dialog.findChild<QLabel *>("labelHint")->pixmap() != nullptr
                 && !dialog.findChild<QLabel *>("labelHint")->pixmap()->isNull(),
             !picture.isEmpty());
}

void tst_math_parser_check::dialogObjects()
{
    Interface_MathParserCheck dialog(QStringLiteral("Undefined token"));
    QCOMPARE(dialog.objectName(), QStringLiteral("Interface_MathParserCheck"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Math Parser Error"));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.size(), QSize(609, 114));
    QVERIFY(dialog.findChild<QGridLayout *>("gridLayout"));
    auto *icon = dialog.findChild<QLabel *>("label");
    QVERIFY(icon && icon->pixmap() && !icon->pixmap()->isNull());
    QCOMPARE(dialog.findChild<QLabel *>("labelErrorMessage")->text(),
             QStringLiteral("Undefined token"));
    QCOMPARE(dialog.findChild<QPushButton *>("pbOk")->text(), QStringLiteral("OK"));
}

void tst_math_parser_check::hintLabelEmptyForSyntaxError()
{
    Interface_MathParserCheck dialog(QStringLiteral("Missing parenthesis"));
    auto *hint = dialog.findChild<QLabel *>("labelHint");
    QVERIFY(!hint->pixmap() || hint->pixmap()->isNull());
    QVERIFY(hint->text().isEmpty());
}

void tst_math_parser_check::picturesAreResources()
{
    for (const char *name : {"errorIcon", "undefinedToken", "errorCast", "errorEvaluatedToNumber",
                             "errorEvaluatedToString"}) {
        const QString path = QStringLiteral(":/VelmorinMathParser/%1.png").arg(name);
        QVERIFY2(QFile::exists(path), qPrintable(path));
    }
}

void tst_math_parser_check::okCloses()
{
    Interface_MathParserCheck dialog(QStringLiteral("x"));
    dialog.show();
    QVERIFY(dialog.isVisible());
    QTest::mouseClick(dialog.findChild<QPushButton *>("pbOk"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
}

void tst_math_parser_check::unknownFunctionReportedWithTokenAndPosition()
{
    ExprContext context;
    const ExpressionCheck check =
        checkExpressionCore(QStringLiteral("1 + nosuch(2)"), false, context, nullptr);
    QVERIFY(check.failed);
    QCOMPARE(check.engineLabel, QStringLiteral("??? parser"));
    QVERIFY2(check.message.contains(QStringLiteral("Undefined token")), qPrintable(check.message));
    QVERIFY2(check.message.contains(QStringLiteral("\n  Error Token:nosuch")),
             qPrintable(check.message));
    QVERIFY2(check.message.contains(QStringLiteral("\n  Error at position:4")),
             qPrintable(check.message));
    QCOMPARE(hintPictureOf(check.message), QStringLiteral(":/VelmorinMathParser/undefinedToken.png"));
}

void tst_math_parser_check::helpTree()
{
    auto *help = new Interface_mathParserHelp;
    QPointer<Interface_mathParserHelp> alive(help);
    QCOMPARE(help->windowTitle(), QStringLiteral("Interface_mathParserHelp"));
    QCOMPARE(help->size(), QSize(621, 300));
    QVERIFY(help->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(help->findChild<QVBoxLayout *>("verticalLayout"));
    QCOMPARE(help->findChild<QLabel *>("label")->text(),
             QStringLiteral("All Graph-Global-Parameters are also available to use."));
    auto *tree = help->findChild<QTreeWidget *>("treeWidget");
    QVERIFY(tree);
    QCOMPARE(tree->columnCount(), 2);
    QCOMPARE(tree->headerItem()->text(0), QStringLiteral("Functions"));
    QCOMPARE(tree->headerItem()->text(1), QStringLiteral("Comments"));
    QCOMPARE(tree->columnWidth(0), 200);
    const QStringList sections{"On Numbers", "On Strings", "String Encode/Decode", "On Dates",
                               "On IP's", "Operators", "Predefined Constants",
                               "Postfix operators", "Special"};
    const QVector<int> counts{37, 26, 13, 22, 5, 11, 13, 6, 8};
    QCOMPARE(tree->topLevelItemCount(), sections.size());
    for (int i = 0; i < sections.size(); ++i) {
        QCOMPARE(tree->topLevelItem(i)->text(0), sections.at(i));
        QCOMPARE(tree->topLevelItem(i)->childCount(), counts.at(i));
    }
    QTreeWidgetItem *numbers = tree->topLevelItem(0);
    QCOMPARE(numbers->child(15)->text(0), QStringLiteral("cosh(x)"));
    QCOMPARE(numbers->child(15)->text(1), QStringLiteral("hyperbolic sine"));
    QTreeWidgetItem *postfix = tree->topLevelItem(7);
    QCOMPARE(postfix->child(4)->text(0), QStringLiteral("{G}"));
    QCOMPARE(postfix->child(4)->text(1), QStringLiteral("giga (1e6)"));
    help->show();
    help->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(alive.isNull());
}

QTEST_MAIN(tst_math_parser_check)
#include "tst_math_parser_check.moc"
