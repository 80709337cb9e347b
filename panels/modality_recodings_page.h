#pragma once

#include "panels/page.h"

namespace Ui {
class ModalityRecodingsPage;
}

// Page "Modality Recodings": Minimum sizes, penalties and centred missings, per column and in general.
class ModalityRecodingsPage : public Page
{
    Q_OBJECT

public:
    explicit ModalityRecodingsPage(PageContext &context, QWidget *parent = nullptr);
    ~ModalityRecodingsPage() override;

private:
    Ui::ModalityRecodingsPage *ui;
};
