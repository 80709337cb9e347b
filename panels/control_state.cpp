#include "panels/control_state.h"

#include <QAbstractButton>
#include <QButtonGroup>

void setControlsEnabled(std::initializer_list<QWidget *> controls, bool enabled)
{
    for (QWidget *control : controls)
        control->setEnabled(enabled);
}

void uncheckAll(QButtonGroup *group)
{
    const bool exclusive = group->exclusive();
    group->setExclusive(false);
    const QList<QAbstractButton *> buttons = group->buttons();
    for (QAbstractButton *button : buttons)
        button->setChecked(false);
    group->setExclusive(exclusive);
}
