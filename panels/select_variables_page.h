#pragma once

#include "panels/page.h"

namespace Ui {
class SelectVariablesPage;
}

// Page "Select Variables": The columns of the description: active, ignored, monotonic, illustrative.
class SelectVariablesPage : public Page
{
    Q_OBJECT

public:
    explicit SelectVariablesPage(PageContext &context, QWidget *parent = nullptr);
    ~SelectVariablesPage() override;

private:
    Ui::SelectVariablesPage *ui;
};
