#pragma once

#include <QString>

// The engine's apply command, composed from the fields of the apply page.
// Its syntax is the engine's and is kept as it stands: program, flags, the
// optional target density, the model, the kind of data source, the data
// source. Paths below the output folder are cut to relative ones, since
// the engine runs there.
struct ApplyCommandFields
{
    QString program;         // the engine
    bool xmlDrift = true;
    bool wordDrift = true;
    bool forceApply = false;
    bool densityCorrection = false;
    QString targetDensity;
    QString model;
    QString outputDirectory;
    char kind = 'c';         // 'c' text file, 'g' gel file, 's' SAS file, 0 standard
    QString separator;       // for 'c', as the page names it
    QString datasource;
};

QString composeApplyCommand(const ApplyCommandFields &fields);

// A path between double quotes when it holds a blank or "&".
QString quotedPath(const QString &path);

// The command file for a model and a data source in a folder:
// <folder>/<model's name less its last 9 characters>_appliedOn_<data's name>.sh
QString applyCommandFile(const QString &outputDirectory, const QString &model,
                         const QString &datasource);
