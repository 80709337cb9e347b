#include "app/server/editor_start.h"

#include "shell/application_directory.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <cstdio>

QString editorFor(const QString &fileOrKind)
{
    if (!fileOrKind.endsWith(QLatin1String(".CfgXML")))
        return QString();
    return applicationDirectory() + QLatin1String("/quva-cfg-editor");
}

bool isKindOnly(const QString &fileOrKind)
{
    return fileOrKind.startsWith(QLatin1Char('.')) && !fileOrKind.contains(QLatin1Char('/'));
}

// The editor's output goes where the server's goes.
qint64 startEditor(const QString &program, const QString &file)
{
    QProcess editor;
    editor.setProgram(program);
    if (file.isEmpty()) {
        editor.setWorkingDirectory(QDir::homePath());
    } else {
        editor.setArguments({file});
        editor.setWorkingDirectory(QFileInfo(file).absolutePath());
    }
    qint64 pid = 0;
    return editor.startDetached(&pid) ? pid : 0;
}

void journal(const QString &line)
{
    std::fprintf(stderr, "QuvaServer: %s\n", qUtf8Printable(line));
    std::fflush(stderr);
}
