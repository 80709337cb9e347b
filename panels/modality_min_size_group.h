#pragma once

#include <QString>

struct CfgModel;
class PageContext;
class QLineEdit;
class QRadioButton;
class QSpinBox;

// One of the two like groups of the page "Modality Recodings": the general
// minimum size of a modality, for nominal or for ordered variables. The
// record holds it as text, and its number says in which of three forms it
// is given: below 0 a number of rows (sign turned), 1 or more a number of
// targets, in between a fraction of the dataset, shown in percent. The
// editor stores the number in every form; the engine turns it into a size.
class ModalityMinSizeGroup
{
public:
    struct Controls
    {
        QRadioButton *rows;
        QRadioButton *target;
        QRadioButton *percent;
        QSpinBox *rowsCount;
        QLineEdit *targetCount;
        QLineEdit *percentValue;
        QLineEdit *summary;
    };

    ModalityMinSizeGroup(PageContext &context, const Controls &controls,
                         QString CfgModel::*field, const QString &fieldName);

    // Shows the field in its form; run with the page's guard set.
    void refresh(const CfgModel &record);

    // What each control does on the user's action.
    void summaryEdited();
    void rowsChosen();
    void targetChosen();
    void percentChosen();
    void rowsCountEdited();
    void targetCountEdited();
    void percentEdited();

private:
    // Pushes the new text of the field when it differs from the record's.
    void setField(const QString &text);
    double number() const;

    PageContext &context;
    Controls c;
    QString CfgModel::*field;
    QString fieldName;
};
