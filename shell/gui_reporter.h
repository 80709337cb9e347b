#pragma once

#include "core/reporter.h"

#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QWidget>

#include <functional>

// Everything the window asks or tells in a modal box goes through askUser(),
// and every file name it asks for through askOpenFileName() and
// askSaveFileName(). A test installs a hook in their place and answers
// itself, so that no modal dialog is ever left waiting for a user.

struct UserQuestion
{
    QMessageBox::Icon icon;
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton;
    // A box with two buttons of its own words instead of the standard ones:
    // the first accepts and is the default, the second rejects. The answer
    // is then Ok for the first and Cancel for the second (or a box closed).
    QString acceptText = QString();
    QString rejectText = QString();
};

using QuestionHook = std::function<QMessageBox::StandardButton(const UserQuestion &)>;

// What a file dialog was asked with; the hook answers the chosen name or an
// empty text for a cancelled dialog.
struct FileQuestion
{
    bool save;
    QString caption;
    QString directory;
    QString filter;
    bool folder = false; // a folder is chosen, not a file
};

using FileDialogHook = std::function<QString(const FileQuestion &)>;

// Acts on a dialog of the program in place of the user (fills it, presses
// its buttons) and answers what exec() would have answered.
using ModalDialogHook = std::function<int(QDialog *)>;

// Null hooks restore the real dialogs.
void setQuestionHook(QuestionHook hook);
void setFileDialogHook(FileDialogHook hook);
void setModalDialogHook(ModalDialogHook hook);

// Runs one of the program's own dialogs modally, through the hook when
// there is one.
int runModal(QDialog *dialog);

QMessageBox::StandardButton askUser(QWidget *parent, const UserQuestion &question);
QString askOpenFileName(QWidget *parent, const QString &caption, const QString &directory,
                        const QString &filter);
QString askSaveFileName(QWidget *parent, const QString &caption, const QString &directory,
                        const QString &filter);
// An existing folder, directories only shown.
QString askExistingDirectory(QWidget *parent, const QString &caption, const QString &directory);

// Shows the record layer's messages in boxes over the window and its waits
// with the application's override cursor.
class GuiReporter final : public Reporter
{
public:
    explicit GuiReporter(QWidget *window = nullptr) : window(window) {}

    void message(MessageIcon icon, const QString &title, const QString &text) override;
    void setBusy(bool busy) override;

private:
    QPointer<QWidget> window;
};
