#include "app/server/server_command.h"

#include <climits>

namespace {

struct VerbName
{
    ServerCommand::Verb verb;
    const char *name;
};

constexpr VerbName verbNames[] = {{ServerCommand::Open, "Open"},
                                  {ServerCommand::IsOpen, "IsOpen"},
                                  {ServerCommand::Get, "Get"},
                                  {ServerCommand::Close, "Close"}};

// A process id in plain decimal digits, no sign, no leading zero.
bool readPid(const QString &text, qint64 *pid)
{
    if (text.isEmpty() || text.size() > 10 || text.at(0) == QLatin1Char('0'))
        return false;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    *pid = text.toLongLong();
    return *pid <= INT_MAX;
}

// `rest` is what follows the verb and its blank: [<pid> ]"<file>".
bool readArguments(const QString &rest, ServerCommand *command)
{
    const int quote = rest.indexOf(QLatin1Char('"'));
    if (quote < 0 || rest.size() - quote < 3 || !rest.endsWith(QLatin1Char('"')))
        return false;
    if (command->verb == ServerCommand::Get) {
        if (quote < 2 || rest.at(quote - 1) != QLatin1Char(' ') ||
            !readPid(rest.left(quote - 1), &command->pid))
            return false;
    } else if (quote != 0) {
        return false;
    }
    command->file = rest.mid(quote + 1, rest.size() - quote - 2);
    return true;
}

} // namespace

bool parseServerCommand(const QString &text, ServerCommand *command)
{
    if (!text.startsWith(QLatin1Char('[')) || !text.endsWith(QLatin1Char(']')))
        return false;
    const QString inner = text.mid(1, text.size() - 2);
    const int blank = inner.indexOf(QLatin1Char(' '));
    if (blank < 0)
        return false;
    const QString verb = inner.left(blank);
    for (const VerbName &known : verbNames) {
        if (verb == QLatin1String(known.name)) {
            ServerCommand parsed;
            parsed.verb = known.verb;
            if (!readArguments(inner.mid(blank + 1), &parsed))
                return false;
            *command = parsed;
            return true;
        }
    }
    return false;
}
