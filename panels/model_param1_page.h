#pragma once

#include "panels/page.h"

namespace Ui {
class ModelParam1Page;
}

// Page "Model Parameters (1)": The modes, penalization and pruning.
class ModelParam1Page : public Page
{
    Q_OBJECT

public:
    explicit ModelParam1Page(PageContext &context, QWidget *parent = nullptr);
    ~ModelParam1Page() override;

private:
    Ui::ModelParam1Page *ui;
};
