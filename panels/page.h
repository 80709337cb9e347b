#pragma once

#include <QWidget>

struct CfgModel;
class QUndoCommand;
class QUndoStack;

// What a page may reach of the window: the open record, the undo stack that
// every edit goes through, and the guard against feedback. The window is the
// one real context; a test gives a page a context of its own.
class PageContext
{
public:
    virtual ~PageContext();

    // The open configuration, null while none is open.
    virtual CfgModel *cfg() const = 0;
    virtual QUndoStack *undoStack() const = 0;
    // True when the description names no target of its own, so that the
    // target may be chosen on the target page.
    virtual bool targetEditable() const = 0;
    // Writes the record to its file under its name, with the window's place;
    // on success the stack is clean. False when it could not be written.
    virtual bool writeRecord() = 0;

    // Set while the window is built or a page is refreshed: the slots that a
    // programmatic change fires return at once while it is set, so that a
    // refresh never pushes a command.
    bool updatingPanel() const { return updating; }
    void setUpdatingPanel(bool on) { updating = on; }

private:
    bool updating = true;
};

// Sets the guard for the lifetime of a refresh and gives it back its former
// value afterwards.
class PanelRefreshScope
{
public:
    explicit PanelRefreshScope(PageContext &context)
        : context(context), previous(context.updatingPanel())
    {
        context.setUpdatingPanel(true);
    }
    ~PanelRefreshScope() { context.setUpdatingPanel(previous); }
    PanelRefreshScope(const PanelRefreshScope &) = delete;
    PanelRefreshScope &operator=(const PanelRefreshScope &) = delete;

private:
    PageContext &context;
    bool previous;
};

// One page of the window's row of tabs: its own form, its slots and its
// refresh. A page reads the record and writes nothing to it: every change
// leaves as a command pushed on the stack, and the page learns of it like of
// any other change, through the refresh that the stack's report brings.
// Its window title is the text of its tab.
class Page : public QWidget
{
    Q_OBJECT

public:
    explicit Page(PageContext &context, QWidget *parent = nullptr);

    // Writes the controls from the record, with the guard set.
    void refresh();
    // The set-up that a newly loaded record needs before its first refresh.
    virtual void setUpAfterLoad() {}
    // The record shown so far is about to be destroyed: nothing of the page
    // may point into it any more.
    virtual void releaseRecord() {}

protected:
    // The page's own part of refresh(); the record may be null.
    virtual void refreshControls() {}

    CfgModel *cfg() const { return context.cfg(); }
    QUndoStack *undoStack() const { return context.undoStack(); }
    bool updatingPanel() const { return context.updatingPanel(); }
    // Pushes a command; its redo() performs the write.
    void push(QUndoCommand *command);

    PageContext &context;
};
