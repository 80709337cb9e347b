#pragma once

#include <QString>

class QWidget;

// The editor's calls to the server that keeps track of the windows of the
// product family: which process holds which file, and opening windows.
// Without a server every call is a silent no-op and a file counts as held
// by nobody else.
//
// The window and its document call the broker through this interface only;
// its default instance is the client of the server (the functions below),
// and tests put a recording one in its place.
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

// The instance in force; never null. Passing null restores the default,
// which talks to the server.
WindowBroker *windowBroker();
void setWindowBroker(WindowBroker *broker);

// The client's operations. Each makes its own conversation with the server,
// found or started by brokerEnsureServer(), and ends it before it returns.

// Asks the server to open `file`, or a new window for an extension alone
// such as ".CfgXML". False, with nothing said, when there is no server.
bool brokerOpen(QWidget *parent, const QString &product, const QString &file);
// Asks whether another window holds `file` and, when one does, asks the
// user whether that window should take over: 0 (nobody has it, or no
// server), 1 (kept there) or 2 (the other window was asked to come forward;
// this one is to do nothing more).
int brokerCheckAlreadyOpen(QWidget *parent, const QString &product, const QString &file,
                           const QString &title);
// Tells the server that this process left `oldFile` and took `newFile`;
// either may be empty. Equal names send nothing but still connect.
void brokerSwitchFile(QWidget *parent, const QString &product, const QString &oldFile,
                      const QString &newFile);
