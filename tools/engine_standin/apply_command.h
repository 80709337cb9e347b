#pragma once

#include <QString>
#include <QStringList>

// The engine's apply command as the apply page composes it:
//   -a[d][w][f] [-p=DENSITY] MODEL [-c SEPARATOR | -g | -s] DATASOURCE
// d: a drift report, w: also in Word form, f: force the apply; -p: the
// target density of the apply data, in percent; -c a CSV/TXT file with its
// separator's name, -g a Velmorin file, -s a SAS file, none of them a
// standard data source.
struct ApplyCommand
{
    bool driftReport = false;
    bool wordDriftReport = false;
    bool force = false;
    QString density; // as written; empty: no a-priori correction
    QString model;
    QString kind = QStringLiteral("standard data source");
    QString separator; // for a CSV/TXT file
    QString dataSource;
    QString error; // what could not be read; empty when all could
};

// Reads the command from its first word, "-a...", on.
ApplyCommand readApplyCommand(const QStringList &arguments);
