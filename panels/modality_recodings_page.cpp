#include "panels/modality_recodings_page.h"

#include "ui_modality_recodings_page.h"

ModalityRecodingsPage::ModalityRecodingsPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::ModalityRecodingsPage)
{
    ui->setupUi(this);
}

ModalityRecodingsPage::~ModalityRecodingsPage()
{
    delete ui;
}
