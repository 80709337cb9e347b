#pragma once

#include <QString>

class QWidget;

// The editor's calls to the server that keeps track of the windows of the
// product family: which process holds which file, and opening windows.
// Without a server every call is a silent no-op and a file counts as held
// by nobody else.
class WindowBroker
{
public:
    virtual ~WindowBroker() = default;
    // Asks the server to open a file, or a new window for an extension such
    // as ".CfgXML"; false when there is no server.
    virtual bool open(QWidget *parent, const QString &product, const QString &file) = 0;
    // Whether another window holds `file`. 0: no (or no server), go on.
    // 1: it does and the user keeps it there. 2: the user had the other
    // window take it over; this process is to end.
    virtual int checkAlreadyOpen(QWidget *parent, const QString &product, const QString &file,
                                 const QString &title) = 0;
    // Tells the server that this process left oldFile and took newFile.
    virtual void switchFile(QWidget *parent, const QString &product, const QString &oldFile,
                            const QString &newFile) = 0;
};

// The word that names this editor's product family to the server.
inline QString brokerProductWord() { return QStringLiteral("Quva"); }

// The instance in force; never null. Passing null restores the default.
WindowBroker *windowBroker();
void setWindowBroker(WindowBroker *broker);
