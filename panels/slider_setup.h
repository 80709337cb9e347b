#pragma once

class QwtSlider;

// The sliders of the pages are horizontal with their scale below, and most
// keep their tracking off: the handle moves freely, sliderMoved() reports
// each step, and valueChanged() comes once, when the handle is let go.
//
// This Qwt has no single range call taking a step and a page size. The range
// is the scale; the step is the scale's width divided into a number of
// steps (setTotalSteps), and a single or a page step is a count of them.
// What an older slider called its background style is two switches here:
// a trough is the sunken frame around the whole slider, a groove (a slot)
// the narrow channel the handle runs in.

enum class SliderBackground { Trough, Slot };

// Orientation, scale position, background and tracking; no range.
void setUpSliderLook(QwtSlider *slider, SliderBackground background, bool tracking);

// The range [minimum, maximum] in steps of `step`; a step of 0 is a
// hundredth of the range. `pageSteps` is how many steps a click beside the
// handle moves. Setting a scale makes the slider report its value, so call
// this with the page's guard set.
void setSliderRange(QwtSlider *slider, double minimum, double maximum, double step,
                    unsigned pageSteps = 1);

// A slider over the whole numbers from `minimum` to `maximum`, one step
// each, and its scale marks every one of them with a major tick and nothing
// else. An upper end below the lower one gives a reversed scale.
void setIntegerSlider(QwtSlider *slider, int minimum, int maximum);

// Look and range at once, a page step being a tenth of the range.
void setUpSlider(QwtSlider *slider, double minimum, double maximum, double step, bool tracking);
