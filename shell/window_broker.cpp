#include "shell/window_broker.h"

namespace {

class ServerBroker final : public WindowBroker
{
public:
    bool open(QWidget *parent, const QString &product, const QString &file) override
    {
        return brokerOpen(parent, product, file);
    }
    int checkAlreadyOpen(QWidget *parent, const QString &product, const QString &file,
                         const QString &title) override
    {
        return brokerCheckAlreadyOpen(parent, product, file, title);
    }
    void switchFile(QWidget *parent, const QString &product, const QString &oldFile,
                    const QString &newFile) override
    {
        brokerSwitchFile(parent, product, oldFile, newFile);
    }
};

ServerBroker serverBroker;
WindowBroker *current = &serverBroker;

} // namespace

WindowBroker *windowBroker()
{
    return current;
}

void setWindowBroker(WindowBroker *broker)
{
    current = broker ? broker : &serverBroker;
}
