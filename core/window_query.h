#pragma once

#include <QString>

class QObject;

// Asks the other windows of the product family whether one of them already
// holds a file. The window broker installs its own instance; until it does,
// the default answers 0, "no other window has it", and loads go on.

class WindowQuery
{
public:
    virtual ~WindowQuery() = default;
    // 0: no other window holds the file, go on.
    // 1: another window holds it and the user keeps it there: abandon the load.
    // 2: the user had the other window re-opened: this process should end.
    virtual int checkAlreadyOpen(QObject *parent, const QString &product, const QString &file,
                                 const QString &title) = 0;
};

// The instance in force; never null. Passing null restores the default.
WindowQuery *windowQuery();
void setWindowQuery(WindowQuery *query);
