#pragma once

#include "core/cfg_model.h"
#include "edit/undo_commands.h"
#include "panels/page.h"

#include <QUndoStack>

// The one-field edits of the pages: a value taken from a control leaves as
// one command on `*target`, a field of the open record or, in one case, a
// value the page keeps. Nothing is pushed while a refresh sets the controls
// or while no record is open.

template <typename T>
void pushValueAt(PageContext &context, T *target, T value, const QString &text, quint8 panel,
                 bool mergeable = true)
{
    if (context.updatingPanel() || !context.cfg())
        return;
    context.undoStack()->push(new UpdateTemplateCommand<T>(target, value, text, panel, mergeable));
}

template <typename T>
void pushValue(PageContext &context, T CfgModel::*field, T value, const QString &text, quint8 panel,
               bool mergeable = true)
{
    if (context.cfg())
        pushValueAt(context, &(context.cfg()->*field), value, text, panel, mergeable);
}

// The same, and nothing either when the target already holds the value.
template <typename T>
void pushChangedValueAt(PageContext &context, T *target, T value, const QString &text, quint8 panel,
                        bool mergeable = true)
{
    if (*target != value)
        pushValueAt(context, target, value, text, panel, mergeable);
}

template <typename T>
void pushChangedValue(PageContext &context, T CfgModel::*field, T value, const QString &text,
                      quint8 panel, bool mergeable = true)
{
    if (context.cfg())
        pushChangedValueAt(context, &(context.cfg()->*field), value, text, panel, mergeable);
}

// One change inside a group of changes: the group, pushed alone, runs its
// children in order and undoes them together. Children never merge.
template <typename T>
void addChange(QUndoCommandPanel *group, T *target, T value, const QString &text = QString())
{
    new UpdateTemplateCommand<T>(target, value, text, group->panel, false, group);
}

// Pushes a command that a preset built, or nothing where it built none.
inline void pushIfAny(PageContext &context, QUndoCommand *command)
{
    if (command)
        context.undoStack()->push(command);
}
