#pragma once

// What the tests of the window's pages share: every box, file dialog and
// dialog of the program answered here instead of by a user, a folder of
// fixture copies, and the window opened on one of them.

#include "core/cfg_model.h"
#include "shell/cfg_document.h"
#include "shell/gui_reporter.h"
#include "shell/main_window.h"
#include "shell/settings.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

#include <functional>
#include <memory>

class WindowTestSupport
{
public:
    // Installs the hooks; a question without a prepared answer gets Ok and
    // is kept in `questions`, so a test can tell that nothing was asked.
    void install()
    {
        // Settings and recent files of the tests stay in a folder of their own.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
        setQuestionHook([this](const UserQuestion &q) {
            questions << q.text;
            return answers.isEmpty() ? QMessageBox::Ok : answers.takeFirst();
        });
        setFileDialogHook([this](const FileQuestion &q) {
            fileQuestions << q.caption;
            return fileAnswers.isEmpty() ? QString() : fileAnswers.takeFirst();
        });
        setModalDialogHook([this](QDialog *dialog) {
            dialogs << dialog->objectName();
            return dialogAction ? dialogAction(dialog) : int(QDialog::Rejected);
        });
    }

    void uninstall()
    {
        setQuestionHook(nullptr);
        setFileDialogHook(nullptr);
        setModalDialogHook(nullptr);
    }

    // A fresh folder for the next test, and nothing prepared or asked.
    void reset()
    {
        files = std::make_unique<QTemporaryDir>();
        questions.clear();
        answers.clear();
        fileQuestions.clear();
        fileAnswers.clear();
        dialogs.clear();
        dialogAction = nullptr;
        setAdvancedUser(false);
    }

    QString path(const QString &name) const { return files->filePath(name); }

    // Copies tests/data/<from> into the folder under `name`.
    QString copy(const QString &from, const QString &name)
    {
        const QString target = path(name);
        QFile::remove(target);
        QFile::copy(QStringLiteral(QUVA_TEST_DATA "/") + from, target);
        QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        return target;
    }

    QString write(const QString &name, const QByteArray &bytes)
    {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return file.fileName();
    }

    static QByteArray bytes(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // A window with the configuration open, quietly, as from the command line.
    std::unique_ptr<QuvaCfgXMLEditor> openWindow(const QString &cfgPath)
    {
        auto window = std::make_unique<QuvaCfgXMLEditor>();
        window->openConfigFile(cfgPath, false);
        return window;
    }

    QStringList questions;
    QList<QMessageBox::StandardButton> answers;
    QStringList fileQuestions;
    QStringList fileAnswers;
    QStringList dialogs;
    std::function<int(QDialog *)> dialogAction;

private:
    QTemporaryDir home;
    std::unique_ptr<QTemporaryDir> files;
};

// The child of `parent` of that type and object name; fails the test when
// there is none.
template <typename T>
T *childOf(QObject *parent, const char *name)
{
    T *child = parent->findChild<T *>(QLatin1String(name));
    if (!child)
        qFatal("no child %s", name);
    return child;
}

// The texts of the undo stack, oldest first.
inline QStringList stackTexts(const QUndoStack *stack)
{
    QStringList texts;
    for (int i = 0; i < stack->count(); ++i)
        texts << stack->text(i);
    return texts;
}
