#pragma once

#include <QString>
#include <QThread>

class QWidget;

// Started once by the main window: finds or starts the server at start-up,
// away from the interface thread, and asks for the server's process id, with
// which the server could be allowed to put its windows in front of this one.
// Nothing here grants such a right to another process, so the answer is
// left unread.
class CAllowToSetForegroundWindow : public QThread
{
public:
    // `parent` is not owned; it is only the parent of a warning box.
    CAllowToSetForegroundWindow(QWidget *parent, const QString &product);

protected:
    void run() override;

private:
    QWidget *parentWindow;
    QString product;
};

// Starts the thread for `parent`; it deletes itself when done. The thread
// has no parent object: it must outlive a window closed while it runs.
void startAllowToSetForegroundWindow(QWidget *parent, const QString &product);
