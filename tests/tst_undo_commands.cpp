#include "edit/undo_commands.h"

#include <QUndoStack>
#include <QtTest>

// Commands are exercised through a real QUndoStack, since it decides when
// mergeWith is tried (top of the stack, equal ids other than -1).
class tst_undo_commands : public QObject
{
    Q_OBJECT

private slots:
    void singleText_data();
    void singleText();
    void mergeRun();
    void mergeKeepsFirstPiece();
    void mergeBackToStartStays();
    void notMergeableStaysAlone();
    void otherFieldStaysAlone();
    void otherTypeSameIdStaysAlone();
    void groupNeverMerges();
    void groupBetweenBlocksMerge();
    void groupUndoRedo();
    void container2Command();
    void vectorCommandOrder();
    void vector2Merge_data();
    void vector2Merge();
    void constructorWritesNothing();
};

void tst_undo_commands::singleText_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("int") << "int" << "nbr Validation sets|3=>4";
    QTest::newRow("double") << "double" << "AUC loss|0.02=>0.125";
    QTest::newRow("double-large") << "double-large" << "limit|1e+06=>1.23457e+07";
    QTest::newRow("bool") << "bool" << "hotstart|0=>1";
    QTest::newRow("char") << "char" << "target type|C=>E";
    QTest::newRow("string") << "string" << "header|old=>new";
}

void tst_undo_commands::singleText()
{
    QFETCH(QString, kind);
    QFETCH(QString, expected);
    int i = 3;
    double d = 0.02, big = 1e6;
    bool b = false;
    char c = 'C';
    QString s = QStringLiteral("old");
    QScopedPointer<QUndoCommand> cmd;
    if (kind == "int")
        cmd.reset(new UpdateTemplateCommand<int>(&i, 4, "nbr Validation sets", 1, true));
    else if (kind == "double")
        cmd.reset(new UpdateTemplateCommand<double>(&d, 0.125, "AUC loss", 3, true));
    else if (kind == "double-large")
        cmd.reset(new UpdateTemplateCommand<double>(&big, 12345678.9, "limit", 3, true));
    else if (kind == "bool")
        cmd.reset(new UpdateTemplateCommand<bool>(&b, true, "hotstart", 8, false));
    else if (kind == "char")
        cmd.reset(new UpdateTemplateCommand<char>(&c, 'E', "target type", 6, false));
    else
        cmd.reset(new UpdateTemplateCommand<QString>(&s, "new", "header", 2, false));
    QCOMPARE(cmd->text(), expected);
}

void tst_undo_commands::mergeRun()
{
    int nValSet = 3;
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<int>(&nValSet, 4, "nbr Validation sets", 1, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("nbr Validation sets|3=>4"));
    QCOMPARE(nValSet, 4);
    stack.push(new UpdateTemplateCommand<int>(&nValSet, 5, "nbr Validation sets", 1, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("nbr Validation sets|3=>5 - grouped"));
    stack.push(new UpdateTemplateCommand<int>(&nValSet, 7, "nbr Validation sets", 1, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("nbr Validation sets|3=>7 - grouped"));
    QCOMPARE(nValSet, 7);
    stack.undo();
    QCOMPARE(nValSet, 3); // back to the value before the first of the run
    stack.redo();
    QCOMPARE(nValSet, 7);
}

void tst_undo_commands::mergeKeepsFirstPiece()
{
    int a = 1;
    UpdateTemplateCommand<int> first(&a, 2, "a", 0, true);
    QCOMPARE(first.text(), QStringLiteral("a|1=>2"));
    first.redo();
    UpdateTemplateCommand<int> second(&a, 9, "ignored", 0, true);
    QVERIFY(first.mergeWith(&second));
    QCOMPARE(first.text(), QStringLiteral("a|1=>9 - grouped"));
    QCOMPARE(first.oldValue, 1);
    QCOMPARE(first.newValue, 9);
}

void tst_undo_commands::mergeBackToStartStays()
{
    double v = 0.5;
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<double>(&v, 0.75, "quantile", 3, true));
    stack.push(new UpdateTemplateCommand<double>(&v, 0.5, "quantile", 3, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("quantile|0.5=>0.5 - grouped"));
    QVERIFY(!stack.isClean());
}

void tst_undo_commands::notMergeableStaysAlone()
{
    int n = 6;
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<int>(&n, 7, "nTestSet", 1, false));
    stack.push(new UpdateTemplateCommand<int>(&n, 8, "nTestSet", 1, false));
    QCOMPARE(stack.count(), 2);
    QCOMPARE(stack.text(1), QStringLiteral("nTestSet|7=>8"));
    // A mergeable command on top of a non-mergeable one of the same field
    // is not merged either: the ids differ.
    stack.push(new UpdateTemplateCommand<int>(&n, 9, "nTestSet", 1, true));
    QCOMPARE(stack.count(), 3);
}

void tst_undo_commands::otherFieldStaysAlone()
{
    int a = 1, b = 1;
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<int>(&a, 2, "a", 1, true));
    stack.push(new UpdateTemplateCommand<int>(&b, 2, "b", 1, true));
    QCOMPARE(stack.count(), 2);
    QCOMPARE(stack.text(1), QStringLiteral("b|1=>2"));
}

void tst_undo_commands::otherTypeSameIdStaysAlone()
{
    int a = 1;
    double d = 1.0;
    char c = 'N';
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<int>(&a, 2, "a", 1, true));
    stack.push(new UpdateTemplateCommand<double>(&d, 2.5, "d", 1, true));
    stack.push(new UpdateTemplateVector2Command<char>({&c}, 'I', "c", 4, true));
    QCOMPARE(stack.count(), 3);
    QCOMPARE(a, 2);
    QCOMPARE(d, 2.5);
    QCOMPARE(c, 'I');
}

void tst_undo_commands::groupNeverMerges()
{
    int a = 1, b = 1;
    QUndoStack stack;
    for (int i = 0; i < 2; ++i) {
        auto *group = new QUndoCommandPanel("both", 3);
        new UpdateTemplateCommand<int>(&a, a + 1, QString(), 3, true, group);
        new UpdateTemplateCommand<int>(&b, b + 10, QString(), 3, true, group);
        QCOMPARE(group->id(), -1);
        stack.push(group);
    }
    QCOMPARE(stack.count(), 2);
    QCOMPARE(stack.text(0), QStringLiteral("both"));
    QCOMPARE(a, 3);
    QCOMPARE(b, 21);
}

void tst_undo_commands::groupBetweenBlocksMerge()
{
    int a = 1;
    QUndoStack stack;
    stack.push(new UpdateTemplateCommand<int>(&a, 2, "a", 2, true));
    auto *group = new QUndoCommandPanel("group", 2);
    new UpdateTemplateCommand<int>(&a, 3, QString(), 2, true, group);
    stack.push(group);
    stack.push(new UpdateTemplateCommand<int>(&a, 4, "a", 2, true));
    QCOMPARE(stack.count(), 3);
    QCOMPARE(stack.text(2), QStringLiteral("a|3=>4"));
}

void tst_undo_commands::groupUndoRedo()
{
    double p1 = 0.2, p2 = 0.45;
    QUndoStack stack;
    auto *group = new QUndoCommandPanel("AUC weighting", 3);
    new UpdateTemplateCommand<double>(&p1, 0.3, QString(), 3, true, group);
    new UpdateTemplateCommand<double>(&p2, 0.6, QString(), 3, true, group);
    stack.push(group);
    QCOMPARE(p1, 0.3);
    QCOMPARE(p2, 0.6);
    stack.undo();
    QCOMPARE(p1, 0.2);
    QCOMPARE(p2, 0.45);
    QCOMPARE(static_cast<const QUndoCommandPanel *>(stack.command(0))->panel, quint8(3));
}

void tst_undo_commands::container2Command()
{
    QStringList names{"a"};
    QUndoStack stack;
    stack.push(new UpdateTemplate2Command<QStringList>(&names, {"a", "b"}, "segments", 5, true));
    stack.push(new UpdateTemplate2Command<QStringList>(&names, {"c"}, "segments", 5, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("segments - grouped"));
    stack.push(new UpdateTemplate2Command<QStringList>(&names, {"d"}, "segments", 5, true));
    QCOMPARE(stack.text(0), QStringLiteral("segments - grouped"));
    QCOMPARE(names, QStringList{"d"});
    stack.undo();
    QCOMPARE(names, QStringList{"a"});

    QVector<bool> active{true, false};
    stack.push(new UpdateTemplate2Command<QVector<bool>>(&active, {false, false}, "seg", 5,
                                                         true));
    QCOMPARE(stack.count(), 1); // the undone command was dropped, no merge across types
    QCOMPARE(active, (QVector<bool>{false, false}));
}

void tst_undo_commands::vectorCommandOrder()
{
    int x[3] = {1, 2, 3};
    QUndoStack stack;
    stack.push(new UpdateTemplateVectorCommand<int>({&x[0], &x[2]}, {10, 30}, "xs", 4, true));
    QCOMPARE(x[0], 10);
    QCOMPARE(x[1], 2);
    QCOMPARE(x[2], 30);
    QCOMPARE(stack.text(0), QStringLiteral("xs"));
    stack.push(new UpdateTemplateVectorCommand<int>({&x[0], &x[2]}, {11, 31}, "xs", 4, true));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("xs - grouped"));
    stack.push(new UpdateTemplateVectorCommand<int>({&x[2], &x[0]}, {32, 12}, "xs", 4, true));
    QCOMPARE(stack.count(), 2);
    stack.undo();
    stack.undo();
    QCOMPARE(x[0], 1);
    QCOMPARE(x[2], 3);

    // The same pointer twice: undo walks from the last to the first, so the
    // first entry's old value is the one that stays.
    int y = 5;
    UpdateTemplateVectorCommand<int> twice({&y, &y}, {6, 7}, "y", 4, false);
    twice.redo();
    QCOMPARE(y, 6);
    twice.undo();
    QCOMPARE(y, 5);
}

void tst_undo_commands::vector2Merge_data()
{
    QTest::addColumn<QVector<int>>("first");
    QTest::addColumn<QVector<int>>("second");
    QTest::addColumn<bool>("merges");
    QTest::newRow("same rows same order") << QVector<int>{1, 3} << QVector<int>{1, 3} << true;
    QTest::newRow("same rows other order") << QVector<int>{1, 3} << QVector<int>{3, 1} << false;
    QTest::newRow("fewer rows") << QVector<int>{1, 3} << QVector<int>{1} << false;
    QTest::newRow("more rows") << QVector<int>{1} << QVector<int>{1, 2} << false;
    QTest::newRow("other rows") << QVector<int>{0, 2} << QVector<int>{1, 3} << false;
}

void tst_undo_commands::vector2Merge()
{
    QFETCH(QVector<int>, first);
    QFETCH(QVector<int>, second);
    QFETCH(bool, merges);
    char fi[4] = {0, 1, 0, 1};
    auto pointers = [&fi](const QVector<int> &rows) {
        QVector<char *> p;
        for (int r : rows)
            p.append(&fi[r]);
        return p;
    };
    QUndoStack stack;
    stack.push(new UpdateTemplateVector2Command<char>(pointers(first), 'I', "ignore", 4, true));
    stack.push(new UpdateTemplateVector2Command<char>(pointers(second), 'N', "ignore", 4, true));
    QCOMPARE(stack.count(), merges ? 1 : 2);
    QCOMPARE(stack.text(0), merges ? QStringLiteral("ignore - grouped") : QStringLiteral("ignore"));
    for (int r : second)
        QCOMPARE(fi[r], 'N');
    while (stack.canUndo())
        stack.undo();
    QCOMPARE(QByteArray(fi, 4), QByteArray("\0\1\0\1", 4));
}

void tst_undo_commands::constructorWritesNothing()
{
    int a = 1;
    double d = 2.0;
    QStringList l{"x"};
    UpdateTemplateCommand<int> c1(&a, 5, "a", 0, true);
    UpdateTemplateVector2Command<double> c2({&d}, 9.0, "d", 0, true);
    UpdateTemplate2Command<QStringList> c3(&l, {}, "l", 0, true);
    UpdateTemplateVectorCommand<int> c4({&a}, {8}, "a", 0, true);
    QCOMPARE(a, 1);
    QCOMPARE(d, 2.0);
    QCOMPARE(l, QStringList{"x"});
    QCOMPARE(c1.id(), 1);
    UpdateTemplateCommand<int> c5(&a, 5, "a", 0, false);
    QCOMPARE(c5.id(), -1);
    QCOMPARE(c1.panel, quint8(0));
}

QTEST_GUILESS_MAIN(tst_undo_commands)
#include "tst_undo_commands.moc"
