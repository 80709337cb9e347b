#include "panels/select_variables_page.h"

#include "ui_select_variables_page.h"

SelectVariablesPage::SelectVariablesPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::SelectVariablesPage)
{
    ui->setupUi(this);
}

SelectVariablesPage::~SelectVariablesPage()
{
    delete ui;
}
