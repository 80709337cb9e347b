#include "panels/model_param2_page.h"

#include "ui_model_param2_page.h"

ModelParam2Page::ModelParam2Page(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::ModelParam2Page)
{
    ui->setupUi(this);
}

ModelParam2Page::~ModelParam2Page()
{
    delete ui;
}
