#pragma once

#include <QString>

// Opens a file or a folder with the application the desktop associates
// with it (a folder in the file manager). A missing file is left to the
// desktop to tell about.
void openDocument(const QString &path);
