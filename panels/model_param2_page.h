#pragma once

#include "panels/page.h"

namespace Ui {
class ModelParam2Page;
}

// Page "Model Parameters (2)": The AUC weights, quantile regression, weight column and up-lift.
class ModelParam2Page : public Page
{
    Q_OBJECT

public:
    explicit ModelParam2Page(PageContext &context, QWidget *parent = nullptr);
    ~ModelParam2Page() override;

private:
    Ui::ModelParam2Page *ui;
};
