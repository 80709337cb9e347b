#include "panels/select_line_page.h"

#include "ui_select_line_page.h"

SelectLinePage::SelectLinePage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::SelectLinePage)
{
    ui->setupUi(this);
}

SelectLinePage::~SelectLinePage()
{
    delete ui;
}
