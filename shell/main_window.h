#pragma once

#include "shell/gui_reporter.h"
#include "shell/var_list_window.h"

#include <QMainWindow>
#include <QString>
#include <QVector>

struct CfgModel;
class ExecutePanel;
class QAction;
class QMenu;
class QUndoStack;
class QUndoView;

namespace Ui {
class QuvaCfgXMLEditor;
}

// Sets a flag such as updatingPanel for the lifetime of a page refresh and
// gives it back its former value afterwards, so that the slots fired by
// programmatic changes push nothing.
class PanelRefreshScope
{
public:
    explicit PanelRefreshScope(bool &flag) : flag(flag), previous(flag) { flag = true; }
    ~PanelRefreshScope() { flag = previous; }
    PanelRefreshScope(const PanelRefreshScope &) = delete;
    PanelRefreshScope &operator=(const PanelRefreshScope &) = delete;

private:
    bool &flag;
    bool previous;
};

// Title of the window when no named configuration is open.
QString windowBaseTitle();

// The editor's one top-level window. It owns the open configuration, the
// undo stack that every edit goes through, the row of pages and the process
// panel. A page never writes the record itself: it pushes a command, and the
// stack's indexChanged() brings the page of the command into view and
// refreshes it (on_undoRedoActions).
class QuvaCfgXMLEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit QuvaCfgXMLEditor(QWidget *parent = nullptr);
    ~QuvaCfgXMLEditor() override;

    bool eventFilter(QObject *object, QEvent *event) override;

    // Loads a configuration (or a description with its default
    // configuration) and makes it current. A failed load keeps the record
    // that was open. notifyBroker: ask other windows first and announce the
    // file afterwards.
    void openConfigFile(const QString &path, bool notifyBroker);
    void openDescriptionFile(const QString &path, bool notifyBroker);
    // Attaches the current record (or none) to the pages, arms the change
    // detection and empties the undo stack.
    void refreshAfterLoad(const QString &previousFile, bool notifyBroker);
    // Saves the record, asking a name when askName is set or it has none.
    // False only when there is no record or the dialog was cancelled; a
    // failed write still marks the stack clean.
    bool saveConfig(bool askName);
    void updateWindowTitle();
    // Shows or hides one of the optional pages at its place in the row of
    // tabs; only for an advanced user with a record open.
    void togglePage(QWidget *page, const QString &title);
    // Number of the page in view; the log page and no page give -1.
    int currentPageIndex() const;

    // Page refreshes, called by updatePanelIdx(); each runs with
    // updatingPanel set.
    void refreshMainPanel();
    void refreshDataPartitioningPanel();
    void refreshModelParameters1Panel();
    void refreshModelParameters2Panel();
    void refreshVariablesPanel();
    void refreshLineSelectionPanel();
    void refreshTargetPanel();
    void refreshModalityRecodingsPanel();
    void refreshCreateModelPanel();

    CfgModel *cfg = nullptr;
    QUndoStack *undoStack = nullptr;
    QUndoView *undoView = nullptr;
    // The pages by number; the number is also the panel of every command.
    QVector<QWidget *> pages;
    QVector<QAction *> recentFileActions;
    QMenu *recentFilesMenu = nullptr;
    // Undo and redo actions made by the stack; kept, on no menu.
    QAction *stackUndoAction = nullptr;
    QAction *stackRedoAction = nullptr;
    ExecutePanel *executePanel = nullptr;
    QWidget *applyPanel = nullptr;
    VarListWindow varListWindow;
    bool updatingPanel = true;
    bool inEventFilter = false;
    bool targetEditable = false;

signals:
    // Emitted by updatePanelIdx() after the refresh of page idx.
    void pageRefreshed(int idx);

public slots:
    void on_actionNewWindow_triggered();
    void on_actionOpenDescriptionFile_triggered();
    void on_actionOpenConfigFile_triggered();
    void on_pbOpen_clicked();
    void on_actionSaveConfigFile_triggered();
    void on_actionSaveAsConfigFile_triggered();
    void on_actionExit_triggered();
    void on_openRecentFile();
    void on_displayRecentFileList();
    void on_actionOpenWindowDSource_triggered();
    void on_actionOpenWindowMain_triggered();
    void on_actionOpenWindowType_triggered();
    void on_actionOpenWindowModel_triggered();
    void on_actionHelp_triggered();
    void updatePanel();
    void updatePanelIdx(int idx);
    void on_actionDataPartioning_triggered();
    void on_actionModelParameters1_triggered();
    void on_actionModelParameters2_triggered();
    void on_actionModalityRecodings_triggered();
    void on_actionSwitchUserLevel_triggered();
    void on_actionShowHideUndoStack_triggered();
    void on_fileChanged();
    void on_actionUndo_triggered();
    void on_actionRedo_triggered();
    void on_cleanChanged(bool clean);
    void on_undoRedoActions(int idx);
    // Progress and end of the tasks run in the log page.
    void on_myFinishExe(int taskNumber, int exitCode, int exitStatus);
    void on_myProgressBar(int progress, QString arg);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setUpExecution();
    void setUpRecentFilesMenu();
    void setUpPages();
    void setUpUndo();
    void setUpMainPanel();
    void openFromDialog(bool description);
    void openWith(const QString &path, bool notifyBroker, bool description);
    void openCommandLineFile();
    void setOptionalTabsEnabled(bool enabled);
    void setMainPanelLabels();
    void armChangeDetection();
    void checkTimesOnActivation();

    Ui::QuvaCfgXMLEditor *ui;
    GuiReporter guiReporter;
};
