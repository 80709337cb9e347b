#pragma once

// The main of a test that opens the window. The window takes the first
// argument of the application for a file to open, so the application sees
// the program's name alone; test function names and options on the command
// line reach QtTest only.

#include <QApplication>
#include <QtTest>

struct WindowTestApplication
{
    explicit WindowTestApplication(char **argv) : app(argc, argv)
    {
        app.setAttribute(Qt::AA_Use96Dpi, true);
    }

    int argc = 1; // QApplication keeps a reference to it
    QApplication app;
};

#define QUVA_WINDOW_TEST_MAIN(TestObject)                                                          \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        WindowTestApplication application(argv);                                                   \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
