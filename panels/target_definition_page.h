#pragma once

#include "panels/page.h"

namespace Ui {
class TargetDefinitionPage;
}

// Page "Target Definition": The target: a column, a file or an expression.
class TargetDefinitionPage : public Page
{
    Q_OBJECT

public:
    explicit TargetDefinitionPage(PageContext &context, QWidget *parent = nullptr);
    ~TargetDefinitionPage() override;

private:
    Ui::TargetDefinitionPage *ui;
};
