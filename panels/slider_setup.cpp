#include "panels/slider_setup.h"

#include <qwt_slider.h>

#include <QtMath>

void setUpSlider(QwtSlider *slider, double minimum, double maximum, double step, bool tracking)
{
    slider->setOrientation(Qt::Horizontal);
    slider->setScalePosition(QwtSlider::LeadingScale);
    slider->setTrough(true);
    slider->setGroove(false);
    slider->setScale(minimum, maximum);
    const uint steps = uint(qMax(1.0, qRound((maximum - minimum) / step) * 1.0));
    slider->setTotalSteps(steps);
    slider->setSingleSteps(1);
    slider->setPageSteps(qMax(1u, steps / 10));
    slider->setTracking(tracking);
}
