#include "tools/engine_standin/write_file.h"

#include "tools/engine_standin/progress_printer.h"

#include <QFile>

bool writeWholeFile(const QString &path, const QByteArray &bytes, ProgressPrinter &out)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    out.error(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()));
    return false;
}
