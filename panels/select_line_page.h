#pragma once

#include "panels/page.h"

namespace Ui {
class SelectLinePage;
}

// Page "Select Lines / Segment": The lines the engine takes: by expression, file or segments.
class SelectLinePage : public Page
{
    Q_OBJECT

public:
    explicit SelectLinePage(PageContext &context, QWidget *parent = nullptr);
    ~SelectLinePage() override;

private:
    Ui::SelectLinePage *ui;
};
