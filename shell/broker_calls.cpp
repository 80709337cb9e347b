#include "shell/broker_ensure_server.h"
#include "shell/broker_transport.h"
#include "shell/broker_wire.h"
#include "shell/gui_reporter.h"
#include "shell/window_broker.h"

#include <QCoreApplication>

// The server's answer to "[Open ...]" and to "[Get ...]" and "[Close ...]"
// is not looked at: there is nothing this window could do about it.

namespace {

QString openCommand(const QString &file)
{
    return QStringLiteral("[Open \"%1\"]").arg(file);
}

// The other window's offer; Yes alone hands the file over.
bool userHandsOver(QWidget *parent, const QString &file, const QString &title)
{
    const UserQuestion question{
        QMessageBox::Information, title,
        QStringLiteral("The file\n'%1'\nis already opened in another window.\n\n"
                       "Do nothing in this window and re-open the other one?")
            .arg(file),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::NoButton};
    return askUser(parent, question) == QMessageBox::Yes;
}

} // namespace

bool brokerOpen(QWidget *parent, const QString &product, const QString &file)
{
    if (!brokerEnsureServer(parent, product))
        return false;
    brokerExecute(*brokerClient(), openCommand(file));
    brokerDisconnect(*brokerClient());
    return true;
}

// A busy server or one that does not answer in time counts as "not open":
// the load goes on.
int brokerCheckAlreadyOpen(QWidget *parent, const QString &product, const QString &file,
                           const QString &title)
{
    if (!brokerEnsureServer(parent, product))
        return 0;
    BrokerClient &client = *brokerClient();
    if (brokerExecute(client, QStringLiteral("[IsOpen \"%1\"]").arg(file)) != BrokerAcknowledged) {
        brokerDisconnect(client);
        return 0;
    }
    if (!userHandsOver(parent, file, title)) {
        brokerDisconnect(client);
        return 1;
    }
    brokerExecute(client, openCommand(file));
    brokerDisconnect(client);
    return 2;
}

// Quotes in a name are sent as they are: nothing escapes them.
void brokerSwitchFile(QWidget *parent, const QString &product, const QString &oldFile,
                      const QString &newFile)
{
    if (oldFile.isEmpty() && newFile.isEmpty())
        return;
    if (!brokerEnsureServer(parent, product))
        return;
    BrokerClient &client = *brokerClient();
    if (oldFile != newFile) {
        if (!oldFile.isEmpty())
            brokerExecute(client, QStringLiteral("[Close \"%1\"]").arg(oldFile));
        if (!newFile.isEmpty())
            brokerExecute(client,
                          QStringLiteral("[Get %1 \"%2\"]")
                              .arg(QString::number(QCoreApplication::applicationPid()), newFile));
    }
    brokerDisconnect(client);
}
