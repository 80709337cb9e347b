#pragma once

class QwtSlider;

// A horizontal slider with its scale below, over [minimum, maximum] in
// steps of `step`. This Qwt has no single range call: the range is the
// scale, and the step is the scale's width divided into a number of steps;
// a page step is a tenth of the range.
void setUpSlider(QwtSlider *slider, double minimum, double maximum, double step, bool tracking);
