#include "shell/create_model_page.h"

#include "ui_create_model_page.h"

CreateModelPage::CreateModelPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::CreateModelPage)
{
    ui->setupUi(this);
}

CreateModelPage::~CreateModelPage()
{
    delete ui;
}
