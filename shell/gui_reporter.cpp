#include "shell/gui_reporter.h"

#include <QApplication>
#include <QFileDialog>
#include <QPushButton>

namespace {

QuestionHook &questionHook()
{
    static QuestionHook hook;
    return hook;
}

FileDialogHook &fileDialogHook()
{
    static FileDialogHook hook;
    return hook;
}

ModalDialogHook &modalDialogHook()
{
    static ModalDialogHook hook;
    return hook;
}

QMessageBox::Icon boxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        break;
    }
    return QMessageBox::Critical;
}

} // namespace

void setQuestionHook(QuestionHook hook)
{
    questionHook() = std::move(hook);
}

void setFileDialogHook(FileDialogHook hook)
{
    fileDialogHook() = std::move(hook);
}

void setModalDialogHook(ModalDialogHook hook)
{
    modalDialogHook() = std::move(hook);
}

int runModal(QDialog *dialog)
{
    if (modalDialogHook())
        return modalDialogHook()(dialog);
    return dialog->exec();
}

namespace {

QMessageBox::StandardButton askWithOwnButtons(QWidget *parent, const UserQuestion &question)
{
    QMessageBox box(question.icon, question.title, question.text, QMessageBox::NoButton, parent);
    QPushButton *accept = box.addButton(question.acceptText, QMessageBox::AcceptRole);
    box.addButton(question.rejectText, QMessageBox::RejectRole);
    box.setDefaultButton(accept);
    box.exec();
    return box.clickedButton() == accept ? QMessageBox::Ok : QMessageBox::Cancel;
}

} // namespace

QMessageBox::StandardButton askUser(QWidget *parent, const UserQuestion &question)
{
    if (questionHook())
        return questionHook()(question);
    if (!question.acceptText.isEmpty())
        return askWithOwnButtons(parent, question);
    QMessageBox box(question.icon, question.title, question.text, question.buttons, parent);
    box.setDefaultButton(question.defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QString askOpenFileName(QWidget *parent, const QString &caption, const QString &directory,
                        const QString &filter)
{
    if (fileDialogHook())
        return fileDialogHook()(FileQuestion{false, caption, directory, filter});
    return QFileDialog::getOpenFileName(parent, caption, directory, filter);
}

QString askSaveFileName(QWidget *parent, const QString &caption, const QString &directory,
                        const QString &filter)
{
    if (fileDialogHook())
        return fileDialogHook()(FileQuestion{true, caption, directory, filter});
    return QFileDialog::getSaveFileName(parent, caption, directory, filter);
}

QString askExistingDirectory(QWidget *parent, const QString &caption, const QString &directory)
{
    if (fileDialogHook())
        return fileDialogHook()(FileQuestion{false, caption, directory, QString(), true});
    return QFileDialog::getExistingDirectory(parent, caption, directory,
                                             QFileDialog::ShowDirsOnly);
}

void GuiReporter::message(MessageIcon icon, const QString &title, const QString &text)
{
    askUser(window, UserQuestion{boxIcon(icon), title, text, QMessageBox::Ok, QMessageBox::Ok});
}

void GuiReporter::setBusy(bool busy)
{
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}
