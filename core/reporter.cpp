#include "core/reporter.h"

#include <cstdio>

namespace {
StderrReporter defaultReporter;
Reporter *current = &defaultReporter;
} // namespace

void StderrReporter::message(MessageIcon, const QString &title, const QString &text)
{
    const QByteArray line = oneLineMessage(title, text).toUtf8();
    std::fprintf(stderr, "%s\n", line.constData());
    std::fflush(stderr);
}

Reporter *reporter()
{
    return current;
}

void setReporter(Reporter *r)
{
    current = r ? r : &defaultReporter;
}

QString oneLineMessage(const QString &title, const QString &text)
{
    QString flat = text;
    flat.replace(QLatin1String("\r\n"), QLatin1String(" "));
    flat.replace(QLatin1Char('\n'), QLatin1Char(' '));
    flat.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return title + QLatin1String(": ") + flat;
}

void reportMessage(MessageIcon icon, const QString &title, const QString &text)
{
    reporter()->message(icon, title, text);
}
