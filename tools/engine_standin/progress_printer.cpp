#include "tools/engine_standin/progress_printer.h"

#include <QThread>

#include <cstdio>

namespace {

void write(FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

void ProgressPrinter::progress(int percent, const QString &text)
{
    if (started_ && delayMs_ > 0)
        QThread::msleep(static_cast<unsigned long>(delayMs_));
    started_ = true;
    write(stdout, QStringLiteral("$P|%1|%2").arg(QString::number(percent), text));
}

void ProgressPrinter::line(const QString &text)
{
    write(stdout, text);
}

void ProgressPrinter::error(const QString &text)
{
    write(stderr, text);
}
