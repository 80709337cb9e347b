#pragma once

#include "shell/gui_reporter.h"

#include <QSettings>

// Answers every box of the process with `answer` and keeps what was asked.
struct QuestionRecorder
{
    void install()
    {
        setQuestionHook([this](const UserQuestion &q) {
            questions << q;
            return answer;
        });
    }

    QList<UserQuestion> questions;
    QMessageBox::StandardButton answer = QMessageBox::No;
};

// Settings of the process under `dir`, never the user's own.
inline void keepSettingsIn(const QString &dir)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir);
}
