#include "tools/engine_standin/apply_command.h"

namespace {

void readLetters(const QString &word, ApplyCommand &command)
{
    for (const QChar c : word.mid(2)) {
        if (c == QLatin1Char('d'))
            command.driftReport = true;
        else if (c == QLatin1Char('w'))
            command.wordDriftReport = true;
        else if (c == QLatin1Char('f'))
            command.force = true;
        else
            command.error = QStringLiteral("unknown letter '%1' in %2").arg(QString(c), word);
    }
}

void readPositional(const QString &word, ApplyCommand &command)
{
    if (command.model.isEmpty())
        command.model = word;
    else if (command.dataSource.isEmpty())
        command.dataSource = word;
    else
        command.error = QStringLiteral("one word too many: %1").arg(word);
}

// Reads the word at `i`, and the separator behind "-c"; returns the index
// of the last word used.
int readWord(const QStringList &args, int i, ApplyCommand &command)
{
    const QString &word = args.at(i);
    if (word == QLatin1String("-c") && i + 1 < args.size()) {
        command.kind = QStringLiteral("CSV/TXT file");
        command.separator = args.at(i + 1);
        return i + 1;
    }
    if (word == QLatin1String("-g"))
        command.kind = QStringLiteral("Velmorin file");
    else if (word == QLatin1String("-s"))
        command.kind = QStringLiteral("SAS file");
    else if (word.startsWith(QLatin1String("-p=")))
        command.density = word.mid(3);
    else if (word.startsWith(QLatin1Char('-')))
        command.error = QStringLiteral("unknown option %1").arg(word);
    else
        readPositional(word, command);
    return i;
}

} // namespace

ApplyCommand readApplyCommand(const QStringList &arguments)
{
    ApplyCommand command;
    readLetters(arguments.value(0), command);
    for (int i = 1; i < arguments.size() && command.error.isEmpty(); ++i)
        i = readWord(arguments, i, command);
    if (command.error.isEmpty() && command.dataSource.isEmpty())
        command.error = command.model.isEmpty() ? QStringLiteral("no model and no data source")
                                                : QStringLiteral("no data source");
    return command;
}
