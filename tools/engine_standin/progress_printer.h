#pragma once

#include <QString>

// Standard output of the stand-in as the editor's log reads it: plain lines,
// and progress lines "$P|<percent>|<text>" that move its progress bar. Each
// line is written and flushed on its own and ends with a line feed alone,
// so that a reader that gets several lines in one piece still finds the
// end of each message. Between two progress lines the printer pauses, which
// gives a run its pace.
class ProgressPrinter
{
public:
    explicit ProgressPrinter(int delayMs) : delayMs_(delayMs) {}

    // Pauses when a progress line came before, then prints this one.
    void progress(int percent, const QString &text);
    void line(const QString &text);
    // A line on standard error, where the editor's log shows it as well.
    void error(const QString &text);

private:
    int delayMs_;
    bool started_ = false;
};
