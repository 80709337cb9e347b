#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

struct CfgModel;
class PageContext;
class QLineEdit;
class QwtSlider;

// A slider with the line edit beside it, both showing one value of the
// record. The slider has its tracking off: while the handle moves, the edit
// follows it and nothing is pushed; when the handle is let go, or when the
// user leaves the edit, the value goes to `commit`, which pushes the one
// command of the pair. Neither road pushes while a refresh sets the
// controls. The page's slots of the three signals hand them on here.
class SliderEditPair
{
public:
    using Commit = std::function<void(double value)>;
    // How the edit's text becomes the value: as a number with a fraction,
    // or as an integer (where "12.5", like any text that is no number,
    // counts as 0).
    enum Reading { Decimal, Integer };

    SliderEditPair(PageContext &context, QwtSlider *slider, QLineEdit *edit, Commit commit,
                   Reading reading = Decimal);

    // sliderMoved(): the edit shows the value under the handle.
    void moved(double value) const;
    // valueChanged(), when the handle is let go.
    void released(double value) const;
    // editingFinished(): the text the edit shows takes the road of a release.
    void edited() const;
    // Writes both controls; called by a refresh, with the guard set.
    void show(double sliderValue, const QString &text) const;

    QwtSlider *const slider;
    QLineEdit *const edit;

private:
    PageContext &context;
    Commit commit;
    Reading reading;
};

// Commits that the pairs share. A percent on the slider becomes a fraction
// of the record; a count is the slider's value truncated. Both push only a
// value the field does not hold already, as a mergeable command.
SliderEditPair::Commit percentCommit(PageContext &context, double CfgModel::*field,
                                     const QString &text, quint8 panel);
SliderEditPair::Commit countCommit(PageContext &context, int CfgModel::*field, const QString &text,
                                   quint8 panel);
