#pragma once

#include <QString>

// How the record layer tells the user about a failure or makes them wait.
// The window installs a reporter that shows message boxes and the wait
// cursor; the batch path and the tools keep the default one, which writes
// each message to standard error as one line "<title>: <text>".

enum class MessageIcon { Information, Warning, Critical };

class Reporter
{
public:
    virtual ~Reporter() = default;
    virtual void message(MessageIcon icon, const QString &title, const QString &text) = 0;
    // Wait cursor on (true) and off (false); calls nest like the override cursor.
    virtual void setBusy(bool busy) { Q_UNUSED(busy) }
};

class StderrReporter : public Reporter
{
public:
    void message(MessageIcon icon, const QString &title, const QString &text) override;
};

// The reporter in force; never null. Passing null restores the default.
Reporter *reporter();
void setReporter(Reporter *r);

// One line of standard error: title, ": ", text with its line breaks as blanks.
QString oneLineMessage(const QString &title, const QString &text);

void reportMessage(MessageIcon icon, const QString &title, const QString &text);

// Puts `r` in force for the lifetime of the object, then the default again.
class ReporterScope
{
public:
    explicit ReporterScope(Reporter *r) { setReporter(r); }
    ~ReporterScope() { setReporter(nullptr); }
    ReporterScope(const ReporterScope &) = delete;
    ReporterScope &operator=(const ReporterScope &) = delete;
};

// Sets the wait cursor for the lifetime of the object.
class BusyScope
{
public:
    BusyScope() { reporter()->setBusy(true); }
    ~BusyScope() { reporter()->setBusy(false); }
    BusyScope(const BusyScope &) = delete;
    BusyScope &operator=(const BusyScope &) = delete;
};
