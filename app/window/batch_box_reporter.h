#pragma once

#include "core/reporter.h"
#include "shell/gui_reporter.h"

// The reporter of the batch path where a screen may be there: each message
// goes to standard error as one line, and is shown in a box as well when
// somebody can click it. On the offscreen and minimal platforms nothing may
// wait for a click, so there the line is all.
class BatchBoxReporter final : public Reporter
{
public:
    void message(MessageIcon icon, const QString &title, const QString &text) override;
    void setBusy(bool busy) override;

private:
    StderrReporter stderrReporter;
    GuiReporter boxes;
};
