#include "panels/page.h"

#include <QUndoStack>

PageContext::~PageContext() = default;

Page::Page(PageContext &context, QWidget *parent) : QWidget(parent), context(context)
{
}

void Page::refresh()
{
    PanelRefreshScope scope(context);
    refreshControls();
}

void Page::push(QUndoCommand *command)
{
    context.undoStack()->push(command);
}
