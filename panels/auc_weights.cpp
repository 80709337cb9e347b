#include "panels/auc_weights.h"

#include "panels/number_field.h"
#include "panels/push_value.h"

#include <qwt_slider.h>

#include <QLineEdit>

AucWeights::AucWeights(PageContext &context, QwtSlider *fullSlider, QLineEdit *fullEdit,
                       QwtSlider *noneSlider, QLineEdit *noneEdit)
    : context(context), full{SliderEditPair(context, fullSlider, fullEdit,
                                            [this](double value) { commit(Full, value); }),
                             &CfgModel::p1, QStringLiteral("AUC Weight full"), false},
      none{SliderEditPair(context, noneSlider, noneEdit,
                          [this](double value) { commit(None, value); }),
           &CfgModel::p2, QStringLiteral("AUC Weight none"), true}
{
}

// The partner follows on the screen only; the guard keeps its slider from
// pushing anything.
void AucWeights::moved(Side side, double value) const
{
    const Weight &own = weight(side);
    const Weight &other = partner(side);
    own.pair.moved(value);
    const double partnerValue = other.pair.edit->displayText().toDouble();
    if (own.upper ? value < partnerValue : value > partnerValue) {
        PanelRefreshScope scope(context);
        other.pair.show(int(value), numberText(value));
    }
}

void AucWeights::released(Side side, double value) const
{
    weight(side).pair.released(value);
}

void AucWeights::edited(Side side) const
{
    weight(side).pair.edited();
}

void AucWeights::refresh(const CfgModel &record) const
{
    for (const Weight *w : {&full, &none})
        w->pair.show(int(record.*w->field * 100), percentText(record.*w->field));
}

void AucWeights::commit(Side side, double value)
{
    const Weight &own = weight(side);
    const Weight &other = partner(side);
    CfgModel *record = context.cfg();
    const double fraction = value * 0.01;
    if (record->*own.field == fraction)
        return;
    const int shown = int(other.pair.edit->displayText().toDouble());
    const int kept = own.upper ? qMin(shown, int(value)) : qMax(shown, int(value));
    if (record->*other.field == kept * 0.01) {
        pushValue(context, own.field, fraction, own.text, PageModelParam1);
        return;
    }
    auto *group = new QUndoCommandPanel(own.text, PageModelParam1);
    addChange(group, &(record->*own.field), fraction, own.text);
    addChange(group, &(record->*other.field), kept * 0.01, own.text + QStringLiteral(" part 2"));
    context.undoStack()->push(group);
}
