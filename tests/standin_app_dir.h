#pragma once

#include <QFile>
#include <QTemporaryDir>

// A folder that stands for the program's own. install() links the engine's
// and the report converter's stand-ins into it under the names the editor
// starts, points the editor at it and makes the engine quick; false when a
// link failed.
struct StandInAppDir
{
    bool install()
    {
        for (const char *name : {"quva", "xml2html"})
            if (!QFile::link(QStringLiteral(QUVA_BINARY_DIR "/standin/") + name, dir.filePath(name)))
                return false;
        qputenv("QUVA_APP_DIR", dir.path().toUtf8());
        qputenv("QUVA_STANDIN_DELAY_MS", "1");
        return true;
    }

    QString filePath(const char *name) const { return dir.filePath(QString::fromLatin1(name)); }

    QTemporaryDir dir;
};
