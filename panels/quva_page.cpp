#include "panels/quva_page.h"

#include "core/cfg_model.h"
#include "shell/application_directory.h"
#include "shell/settings.h"
#include "ui_quva_page.h"

#include <QCoreApplication>

// Resources of a static library are registered by hand.
static void initPageResources()
{
    Q_INIT_RESOURCE(pages);
}

QuvaPage::QuvaPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(new Ui::QuvaPage)
{
    initPageResources();
    ui->setupUi(this);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(QStringLiteral("#F0F0F0")));
    setPalette(palette);
    setAutoFillBackground(true);
    ui->lAppPath->setText(QStringLiteral("Quva: ") + applicationDirectory());
}

QuvaPage::~QuvaPage()
{
    delete ui;
}

void QuvaPage::setUpAfterLoad()
{
    ui->lDescriptionPath->setText(QStringLiteral("Description file: ")
                                  + (cfg() ? descFilePath(*cfg()) : QString()));
    refresh();
}

void QuvaPage::refreshControls()
{
    ui->lInterfaceLevel->setText(isAdvancedUser() ? QStringLiteral("INTERFACE LEVEL: advanced")
                                                  : QStringLiteral("INTERFACE LEVEL: basic"));
}

void QuvaPage::on_pbOpen_clicked()
{
    emit openConfigRequested();
}
