// The window's side of the WorkingSpace element: a stored place is brought
// onto the desktop, and the window's own place is read back for the save.

#include "shell/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QtTest>

class tst_window_place : public QObject
{
    Q_OBJECT

private slots:
    void restore_data();
    void restore();
    void nullWindowIsLeftAlone();
    void readBack();
};

void tst_window_place::restore_data()
{
    QTest::addColumn<QVector<int>>("stored"); // x, y, w, h
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<QSize>("size");

    const QSize desktop = QGuiApplication::primaryScreen()->virtualSize();
    QTest::newRow("defaults") << QVector<int>{200, 200, 500, 400} << QPoint(200, 200)
                              << QSize(500, 400);
    QTest::newRow("on the desktop's edge")
        << QVector<int>{desktop.width(), desktop.height(), 300, 250}
        << QPoint(desktop.width(), desktop.height()) << QSize(300, 250);
    QTest::newRow("x beyond the desktop")
        << QVector<int>{desktop.width() + 1, 50, 300, 250} << QPoint(200, 200) << QSize(300, 250);
    QTest::newRow("y beyond the desktop")
        << QVector<int>{5, desktop.height() + 1, 500, 400} << QPoint(200, 200) << QSize(500, 400);
    QTest::newRow("left of every screen")
        << QVector<int>{-5000, 40, 300, 250} << QPoint(200, 200) << QSize(300, 250);
    QTest::newRow("above every screen")
        << QVector<int>{40, -3000, 300, 250} << QPoint(200, 200) << QSize(300, 250);
    QTest::newRow("larger than the screen")
        << QVector<int>{0, 0, desktop.width() + 900, desktop.height() + 500} << QPoint(0, 0)
        << desktop;
}

void tst_window_place::restore()
{
    QFETCH(QVector<int>, stored);
    QFETCH(QPoint, pos);
    QFETCH(QSize, size);
    QVERIFY(QGuiApplication::primaryScreen()->virtualSize().isValid());
    QWidget window;
    restoreWorkingSpace(&window, WorkingSpace{stored[0], stored[1], stored[2], stored[3]});
    QCOMPARE(window.pos(), pos);
    QCOMPARE(window.size(), size);
}

void tst_window_place::nullWindowIsLeftAlone()
{
    restoreWorkingSpace(nullptr, WorkingSpace{});
}

void tst_window_place::readBack()
{
    QWidget window;
    window.move(12, 34);
    window.resize(640, 480);
    const WorkingSpace place = workingSpaceOfWindow(&window);
    QCOMPARE(place.x, 12);
    QCOMPARE(place.y, 34);
    QCOMPARE(place.w, 640);
    QCOMPARE(place.h, 480);
}

QTEST_MAIN(tst_window_place)
#include "tst_window_place.moc"
