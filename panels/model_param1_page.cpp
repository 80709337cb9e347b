#include "panels/model_param1_page.h"

#include "ui_model_param1_page.h"

ModelParam1Page::ModelParam1Page(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::ModelParam1Page)
{
    ui->setupUi(this);
}

ModelParam1Page::~ModelParam1Page()
{
    delete ui;
}
