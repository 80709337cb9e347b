#include "panels/data_partitioning_page.h"

#include "ui_data_partitioning_page.h"

DataPartitioningPage::DataPartitioningPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::DataPartitioningPage)
{
    ui->setupUi(this);
}

DataPartitioningPage::~DataPartitioningPage()
{
    delete ui;
}
