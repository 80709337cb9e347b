#include "app/server/broker_server.h"
#include "shell/broker_names.h"
#include "shell/window_broker.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLockFile>

#include <cstdio>

// QuvaServer: the window broker's server, one per user. Editors start it
// without arguments when they find none; the options are for tests.

namespace {

bool readOptions(const QStringList &arguments, ServerOptions *options)
{
    QCommandLineParser parser;
    const QCommandLineOption frameTimeout(QStringLiteral("frame-timeout"),
                                          QStringLiteral("Drop a caller silent for <ms>."),
                                          QStringLiteral("ms"));
    const QCommandLineOption maxConversations(QStringLiteral("max-conversations"),
                                              QStringLiteral("Serve <n> callers at once."),
                                              QStringLiteral("n"));
    parser.addOptions({frameTimeout, maxConversations});
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty())
        return false;
    bool ok = true;
    if (parser.isSet(frameTimeout))
        options->frameTimeoutMsecs = parser.value(frameTimeout).toInt(&ok);
    if (ok && parser.isSet(maxConversations))
        options->maxConversations = parser.value(maxConversations).toInt(&ok);
    return ok && options->frameTimeoutMsecs > 0 && options->maxConversations > 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    ServerOptions options;
    if (!readOptions(QCoreApplication::arguments(), &options)) {
        std::fprintf(stderr, "usage: QuvaServer [--frame-timeout ms] [--max-conversations n]\n");
        return 2;
    }
    const QString name = brokerServerName(brokerServiceName(brokerProductWord()));
    // Whoever holds the lock is the user's server; one started by a race
    // leaves quietly. A lock left by a dead server is taken over.
    QLockFile lock(brokerSocketPath(name) + QLatin1String(".lock"));
    lock.setStaleLockTime(0);
    if (!lock.tryLock(0)) {
        if (lock.error() == QLockFile::LockFailedError)
            return 0;
        std::fprintf(stderr, "QuvaServer: cannot lock %s\n", qUtf8Printable(name));
        return 1;
    }
    BrokerServer server(options);
    if (!server.listen(name)) {
        std::fprintf(stderr, "QuvaServer: cannot listen on %s\n", qUtf8Printable(name));
        return 1;
    }
    return QCoreApplication::exec();
}
