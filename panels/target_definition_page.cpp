#include "panels/target_definition_page.h"

#include "ui_target_definition_page.h"

TargetDefinitionPage::TargetDefinitionPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::TargetDefinitionPage)
{
    ui->setupUi(this);
}

TargetDefinitionPage::~TargetDefinitionPage()
{
    delete ui;
}
