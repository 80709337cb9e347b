#pragma once

#include "panels/page.h"

namespace Ui {
class DataPartitioningPage;
}

// Page "Data Partitioning": The sets of the data, the sampling limits and the purification of the target.
class DataPartitioningPage : public Page
{
    Q_OBJECT

public:
    explicit DataPartitioningPage(PageContext &context, QWidget *parent = nullptr);
    ~DataPartitioningPage() override;

private:
    Ui::DataPartitioningPage *ui;
};
