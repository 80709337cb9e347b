#pragma once

#include <QString>

class QWidget;

// The window's calls to the server that keeps track of the family's windows.
// Until a real client is installed, the default one behaves as when no server
// can be found: opening another window does nothing and nothing is announced.
class WindowBrokerCalls
{
public:
    virtual ~WindowBrokerCalls() = default;
    // Asks the server to open a file, or a new window for an extension such as
    // ".CfgXML"; false when there is no server.
    virtual bool open(QWidget *parent, const QString &product, const QString &file) = 0;
    // Tells the server that this process left oldFile and took newFile.
    virtual void switchFile(QWidget *parent, const QString &product, const QString &oldFile,
                            const QString &newFile) = 0;
};

// The word that names this editor's product family to the server.
inline QString brokerProductWord() { return QStringLiteral("Quva"); }

// The instance in force; never null. Passing null restores the default.
WindowBrokerCalls *windowBrokerCalls();
void setWindowBrokerCalls(WindowBrokerCalls *calls);
