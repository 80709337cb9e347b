#pragma once

#include <QByteArray>
#include <QString>

class ProgressPrinter;

// Writes the whole file; false, told on standard error through `out`, when
// it could not be written.
bool writeWholeFile(const QString &path, const QByteArray &bytes, ProgressPrinter &out);
