#include "panels/modality_min_size_group.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/page.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QUndoStack>

ModalityMinSizeGroup::ModalityMinSizeGroup(PageContext &context, const Controls &controls,
                                           QString CfgModel::*field, const QString &fieldName)
    : context(context), c(controls), field(field), fieldName(fieldName)
{
}

double ModalityMinSizeGroup::number() const
{
    return (context.cfg()->*field).toDouble();
}

void ModalityMinSizeGroup::refresh(const CfgModel &record)
{
    const QString &text = record.*field;
    const double v = text.toDouble();
    c.summary->setText(text);
    if (v < 0) {
        c.rows->setChecked(true);
        c.rowsCount->setValue(int(qMin(-v, double(c.rowsCount->maximum()))));
        c.targetCount->clear();
        c.percentValue->clear();
    } else if (v >= 1) {
        c.target->setChecked(true);
        c.rowsCount->setValue(0);
        c.targetCount->setText(text);
        c.percentValue->clear();
    } else {
        c.percent->setChecked(true);
        c.rowsCount->setValue(0);
        c.targetCount->clear();
        c.percentValue->setText(QString::number(v * 100, 'g', 6));
    }
    c.rowsCount->setEnabled(v < 0);
}

void ModalityMinSizeGroup::setField(const QString &text)
{
    CfgModel *record = context.cfg();
    if (!record || record->*field == text)
        return;
    context.undoStack()->push(new UpdateTemplateCommand<QString>(
        &(record->*field), text, fieldName, PageModalityRecodings, false));
}

void ModalityMinSizeGroup::summaryEdited()
{
    if (!context.updatingPanel())
        setField(c.summary->text().trimmed());
}

void ModalityMinSizeGroup::rowsChosen()
{
    if (context.cfg() && number() >= 0)
        setField(QStringLiteral("-100"));
}

void ModalityMinSizeGroup::targetChosen()
{
    if (context.cfg() && number() < 1)
        setField(QStringLiteral("3"));
}

void ModalityMinSizeGroup::percentChosen()
{
    if (context.cfg() && (number() < 0 || number() >= 1))
        setField(QStringLiteral(".1"));
}

void ModalityMinSizeGroup::rowsCountEdited()
{
    setField(QStringLiteral("%1").arg(-c.rowsCount->value()));
}

void ModalityMinSizeGroup::targetCountEdited()
{
    setField(c.targetCount->text());
}

// A fraction of the dataset above one half is cut back to it, silently.
void ModalityMinSizeGroup::percentEdited()
{
    const double fraction = qMin(c.percentValue->text().toDouble() * 0.01, 0.5);
    setField(QStringLiteral("%1").arg(fraction));
}
