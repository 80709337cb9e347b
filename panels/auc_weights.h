#pragma once

#include "panels/slider_edit_pair.h"

class QLineEdit;
class QwtSlider;

// The two weights of the quality measure used in pruning: up to `p1`
// ("full") the measure uses the lift curve completely, after `p2` ("none")
// it ignores it. Either is a slider with its line edit. The user may move
// either; the other is pushed along so that full never stands above none,
// on the screen while the handle moves and in the record on release, in one
// group with the first. The partner goes through a whole percent there: a
// partner of 45.5 next to a dragged slider becomes 45.
class AucWeights
{
public:
    enum Side { Full, None };

    AucWeights(PageContext &context, QwtSlider *fullSlider, QLineEdit *fullEdit,
               QwtSlider *noneSlider, QLineEdit *noneEdit);
    AucWeights(const AucWeights &) = delete;
    AucWeights &operator=(const AucWeights &) = delete;

    // What the page's slots of either side hand on.
    void moved(Side side, double value) const;
    void released(Side side, double value) const;
    void edited(Side side) const;
    // Shows both weights as percents; called by a refresh.
    void refresh(const CfgModel &record) const;

private:
    struct Weight
    {
        SliderEditPair pair;
        double CfgModel::*field;
        QString text;
        bool upper; // none: the partner may not stand above it
    };

    const Weight &weight(Side side) const { return side == Full ? full : none; }
    const Weight &partner(Side side) const { return side == Full ? none : full; }
    // Pushes the weight alone when the partner needs no move, else both.
    void commit(Side side, double value);

    PageContext &context;
    Weight full;
    Weight none;
};
