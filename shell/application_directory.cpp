#include "shell/application_directory.h"

#include <QCoreApplication>

QString applicationDirectory()
{
    const QString dir = qEnvironmentVariable("QUVA_APP_DIR");
    return dir.isEmpty() ? QCoreApplication::applicationDirPath() : dir;
}
