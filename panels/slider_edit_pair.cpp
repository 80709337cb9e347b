#include "panels/slider_edit_pair.h"

#include "panels/number_field.h"
#include "panels/push_value.h"

#include <qwt_slider.h>

#include <QLineEdit>

SliderEditPair::SliderEditPair(PageContext &context, QwtSlider *slider, QLineEdit *edit,
                               Commit commit, Reading reading)
    : slider(slider), edit(edit), context(context), commit(std::move(commit)), reading(reading)
{
}

void SliderEditPair::moved(double value) const
{
    edit->setText(numberText(value));
}

void SliderEditPair::released(double value) const
{
    if (!context.updatingPanel() && context.cfg())
        commit(value);
}

void SliderEditPair::edited() const
{
    const QString text = edit->displayText();
    released(reading == Integer ? text.toInt() : text.toDouble());
}

void SliderEditPair::show(double sliderValue, const QString &text) const
{
    slider->setValue(sliderValue);
    edit->setText(text);
}

SliderEditPair::Commit percentCommit(PageContext &context, double CfgModel::*field,
                                     const QString &text, quint8 panel)
{
    return [&context, field, text, panel](double value) {
        pushChangedValue(context, field, value * 0.01, text, panel);
    };
}

SliderEditPair::Commit countCommit(PageContext &context, int CfgModel::*field, const QString &text,
                                   quint8 panel)
{
    return [&context, field, text, panel](double value) {
        pushChangedValue(context, field, int(value), text, panel);
    };
}
