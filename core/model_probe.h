#pragma once

#include <QString>

struct CfgModel;

// What the apply page can take from the newest run of a configuration: the
// model file of the newest output folder (whether or not it exists) and the
// data source the configuration was built on. Only names are handled here;
// the model and data-source files themselves belong to other programs.
struct ModelProbe
{
    bool found = false;         // there is an output folder
    QString modelPath;          // <folder>/<name>.ModelXML
    QString outputDirectory;    // the folder itself
    // The kind of data source by the first letter of its `type`, compared
    // exactly: 'c' text file, 'g' gel file, 's' SAS file; 0 for any other.
    char kind = 0;
    QString separatorText;      // for 'c': "COMMA", "SEMICOLON", "TAB", "HASH" or the sep itself
    QString datasourcePath;     // the element's first text, for 'c', 'g' and 's'
};

ModelProbe probeLatestModel(const CfgModel &model);

// The panel's name of a text file's separator.
QString separatorName(const QString &sep);
