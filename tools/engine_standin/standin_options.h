#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// How a run of the stand-in behaves, beside what its command line asks for.
// The editor starts the engine with a fixed command line, so every flag has
// an environment variable too; a flag wins over its variable.
//
//   --standin-delay MS    QUVA_STANDIN_DELAY_MS   pause after each progress line
//   --standin-exit CODE   QUVA_STANDIN_EXIT       exit code at the end
//   --standin-crash       QUVA_STANDIN_CRASH=1    crash half-way (SIGSEGV)
struct StandinOptions
{
    int delayMs = 500;
    int exitCode = 0;
    bool crash = false;
    bool help = false;
    QStringList arguments; // the command line without the flags above
    QString error;         // a flag or variable that could not be read
};

StandinOptions readStandinOptions(const QStringList &arguments,
                                  const QProcessEnvironment &environment);

// When a crash was asked for, says so on standard output and ends the
// process the way a crashing engine does: by a signal.
void crashIfAsked(const StandinOptions &options);
