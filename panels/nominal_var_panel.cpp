#include "panels/nominal_var_panel.h"

#include "core/dataset_var.h"
#include "edit/table_views.h"
#include "edit/text_editors.h"
#include "expr/modality_clause.h"
#include "panels/expression_insertion.h"
#include "panels/modality_model_editor.h"
#include "panels/svg_picture.h"
#include "ui_nominal_var_panel.h"

#include <QHeaderView>

NominalVarPanel::NominalVarPanel(const EqualVar *var, const QString &name,
                                 KPlainTextEdit *editor, QWidget *parent)
    : QWidget(parent), ui(new Ui::NominalVarPanel), var(var), editor(editor), name(name)
{
    ui->setupUi(this);
    ui->pbAdd->setIcon(svgIcon(QStringLiteral(":/QuvaCfgXMLEditor/plus.png")));
    ui->labelVarName->setText(name);
    ui->tvModalities->setModel(new ModalityModelEditor(var, this));
    ui->tvModalities->horizontalHeader()->setStretchLastSection(true);
    ui->tvModalities->verticalHeader()->hide();
}

NominalVarPanel::~NominalVarPanel()
{
    delete ui;
}

// Rows in the order of the table, whatever the order of the clicks.
void NominalVarPanel::on_pbAdd_clicked()
{
    const QVector<int> rows = selectedRows(ui->tvModalities);
    if (rows.isEmpty())
        return;
    const bool different = ui->cbEqualDiff->currentIndex() == 1;
    insertIntoExpression(editor, modalityClause(name, var->values, rows, different), editor);
}

QWidget *createEditPanel(const DatasetVar *var, QWidget *parent, const QString &name,
                         KPlainTextEdit *editor)
{
    if (const auto *nominal = dynamic_cast<const EqualVar *>(var))
        return new NominalVarPanel(nominal, name, editor, parent);
    return nullptr;
}
