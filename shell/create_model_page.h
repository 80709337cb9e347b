#pragma once

#include "panels/page.h"

class QRadioButton;

namespace Ui {
class CreateModelPage;
}

// Page "CREATE MODEL", which every user sees: the purpose of the model as
// a short form of the modes (performance, with Smart Activate if asked, or
// insight), then the run of the engine on the saved file and its reports.
// The mode buttons push commands of page 8.
class CreateModelPage : public Page
{
    Q_OBJECT

public:
    explicit CreateModelPage(PageContext &context, QWidget *parent = nullptr);
    ~CreateModelPage() override;

    // Every record starts with Smart Activate asked for.
    void setUpAfterLoad() override;

private slots:
    void on_rbModelPerform_2_clicked();
    void on_rbModelStandard_2_clicked();

private:
    void refreshControls() override;
    void keepChecked(QRadioButton *button);

    Ui::CreateModelPage *ui;
};
