#pragma once

#include "panels/page.h"

namespace Ui {
class QuvaPage;
}

// Page "Quva", the first tab: the logo, the button that opens a
// configuration, where the program lies, which description is open and the
// user's interface level. Always enabled.
class QuvaPage : public Page
{
    Q_OBJECT

public:
    explicit QuvaPage(PageContext &context, QWidget *parent = nullptr);
    ~QuvaPage() override;

    // Shows the path of the open description, or nothing after the colon.
    void setUpAfterLoad() override;

signals:
    // pbOpen was pressed: the window asks a configuration's name and opens it.
    void openConfigRequested();

private slots:
    void on_pbOpen_clicked();

private:
    void refreshControls() override;

    Ui::QuvaPage *ui;
};
