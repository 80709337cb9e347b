#include "app/gui_module.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QStringList>

#include <cstdio>

namespace {

QStringList moduleCandidates()
{
    // The program's own file, symbolic links followed.
    const QDir dir = QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath())
                         .absoluteDir();
    const QString name = QString::fromLatin1(guiModuleFileName);
    return {dir.filePath(name), dir.filePath(QStringLiteral("../lib/quva/") + name)};
}

} // namespace

GuiEntry loadGuiModule()
{
    const QStringList candidates = moduleCandidates();
    QString why = QStringLiteral("no such file");
    for (const QString &path : candidates) {
        if (!QFileInfo::exists(path))
            continue;
        QLibrary library(path);
        if (auto entry = reinterpret_cast<GuiEntry>(library.resolve(guiEntryName)))
            return entry; // the module stays loaded to the end of the process
        why = library.errorString();
    }
    std::fprintf(stderr, "quva-cfg-editor: cannot load the window module %s: %s\n",
                 qUtf8Printable(QDir::cleanPath(candidates.first())), qUtf8Printable(why));
    return nullptr;
}
