#include "panels/slider_setup.h"

#include <qwt_scale_div.h>
#include <qwt_slider.h>

#include <QFontMetrics>
#include <QLocale>
#include <QtMath>

namespace {

unsigned stepCount(double minimum, double maximum, double step)
{
    if (step == 0.0)
        return 100;
    return unsigned(qMax(1, qRound(qAbs(maximum - minimum) / step)));
}

// Without a trough this Qwt draws the labels at the ends of the scale past
// the widget's edges; margins of half their width keep them inside. The
// labels are the locale's text of the two ends, as the scale draws them.
void fitEndLabels(QwtSlider *slider)
{
    if (slider->hasTrough())
        return;
    const QFontMetrics metrics(slider->font());
    const auto halfLabel = [&](double value) {
        return metrics.horizontalAdvance(QLocale().toString(value)) / 2 + 1;
    };
    slider->setContentsMargins(halfLabel(slider->lowerBound()), 0, halfLabel(slider->upperBound()),
                               0);
}

} // namespace

void setUpSliderLook(QwtSlider *slider, SliderBackground background, bool tracking)
{
    slider->setOrientation(Qt::Horizontal);
    slider->setScalePosition(QwtSlider::LeadingScale);
    slider->setTrough(background == SliderBackground::Trough);
    slider->setGroove(background == SliderBackground::Slot);
    slider->setTracking(tracking);
}

void setSliderRange(QwtSlider *slider, double minimum, double maximum, double step,
                    unsigned pageSteps)
{
    slider->setScale(minimum, maximum);
    slider->setTotalSteps(stepCount(minimum, maximum, step));
    slider->setSingleSteps(1);
    slider->setPageSteps(pageSteps);
    fitEndLabels(slider);
}

void setIntegerSlider(QwtSlider *slider, int minimum, int maximum)
{
    QList<double> ticks;
    for (int v = qMin(minimum, maximum); v <= qMax(minimum, maximum); ++v)
        ticks.append(v);
    QList<double> div[QwtScaleDiv::NTickTypes];
    div[QwtScaleDiv::MajorTick] = ticks;
    slider->setScale(QwtScaleDiv(minimum, maximum, div));
    slider->setTotalSteps(stepCount(minimum, maximum, 1.0));
    slider->setSingleSteps(1);
    slider->setPageSteps(1);
    fitEndLabels(slider);
}

void setUpSlider(QwtSlider *slider, double minimum, double maximum, double step, bool tracking)
{
    setUpSliderLook(slider, SliderBackground::Trough, tracking);
    const unsigned steps = stepCount(minimum, maximum, step);
    setSliderRange(slider, minimum, maximum, step, qMax(1u, steps / 10));
}
