#include "edit/undo_commands.h"

QUndoCommandPanel::QUndoCommandPanel(QString text, quint8 panel, QUndoCommand *parent)
    : QUndoCommand(text, parent), panel(panel)
{
}

QUndoCommandPanel::~QUndoCommandPanel() = default;

void markGrouped(QUndoCommand *command)
{
    static const QString suffix = QStringLiteral(" - grouped");
    if (!command->text().endsWith(suffix, Qt::CaseSensitive))
        command->setText(command->text() + suffix);
}
