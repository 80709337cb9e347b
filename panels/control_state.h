#pragma once

#include <initializer_list>

class QButtonGroup;
class QWidget;

// What the refreshes of the pages do to several controls at once.

void setControlsEnabled(std::initializer_list<QWidget *> controls, bool enabled);

// Leaves no button of an exclusive group checked, which the group itself
// would refuse.
void uncheckAll(QButtonGroup *group);
