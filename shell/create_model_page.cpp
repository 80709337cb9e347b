#include "shell/create_model_page.h"

#include "core/smart_activate.h"
#include "panels/model_modes.h"
#include "panels/push_value.h"
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

void CreateModelPage::setUpAfterLoad()
{
    if (cfg())
        ui->cbSmartActivate->setChecked(true);
}

// The two buttons are not exclusive, so that neither shows for a record in
// another mode (high quality among them).
void CreateModelPage::refreshControls()
{
    ui->rbModelPerform_2->setChecked(false);
    ui->rbModelStandard_2->setChecked(false);
    if (!cfg())
        return;
    const ModelMode mode = shownModelMode(*cfg());
    ui->rbModelPerform_2->setChecked(mode == ModelMode::Performance);
    ui->rbModelStandard_2->setChecked(mode == ModelMode::Standard);
}

// A click on a mode the record counts as in force pushes nothing. Since the
// buttons are not exclusive, the click has unchecked a checked one: it is
// checked again, as a radio button stays.
void CreateModelPage::keepChecked(QRadioButton *button)
{
    PanelRefreshScope scope(context);
    button->setChecked(true);
}

// Unlike the mode on the parameter page, this one leaves the limit on
// variables alone, and may bring in use every recoding of a variable that
// is in use in one of them: undoing the mode ignores those again.
void CreateModelPage::on_rbModelPerform_2_clicked()
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    QUndoCommandPanel *group = shortPerformanceModeCommand(*record, PageCreateModel);
    if (!group) {
        keepChecked(ui->rbModelPerform_2);
        return;
    }
    const QVector<char *> rows =
        ui->cbSmartActivate->isChecked() ? collectSmartActivateRows(*record) : QVector<char *>();
    if (!rows.isEmpty())
        new UpdateTemplateVector2Command<char>(rows, ' ', QStringLiteral("smart activate"),
                                               PageCreateModel, false, group);
    push(group);
}

void CreateModelPage::on_rbModelStandard_2_clicked()
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record)
        return;
    QUndoCommandPanel *group = insightModeCommand(*record, PruningFast, PageCreateModel);
    if (group)
        push(group);
    else
        keepChecked(ui->rbModelStandard_2);
}
