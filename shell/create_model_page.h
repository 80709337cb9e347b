#pragma once

#include "panels/page.h"

namespace Ui {
class CreateModelPage;
}

// Page "CREATE MODEL": The run of the engine on the saved file, and its reports.
class CreateModelPage : public Page
{
    Q_OBJECT

public:
    explicit CreateModelPage(PageContext &context, QWidget *parent = nullptr);
    ~CreateModelPage() override;

private:
    Ui::CreateModelPage *ui;
};
