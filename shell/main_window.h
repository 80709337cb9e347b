#pragma once

#include "core/working_space.h"
#include "panels/page.h"
#include "shell/gui_reporter.h"
#include "shell/page_table.h"

#include <QMainWindow>
#include <QString>
#include <QVector>

#include <optional>

struct CfgModel;
class CfgDocument;
class ExecutePanel;
class PanelApply;
class QAction;
class QMenu;
class QUndoStack;
class QUndoView;
class QuvaPage;

namespace Ui {
class QuvaCfgXMLEditor;
}

// Title of the window when no named configuration is open.
QString windowBaseTitle();

// The editor's one top-level window. It shows one document (the open
// configuration with its undo stack and files) on a row of pages, and holds
// the menus. A page never writes the record itself: it pushes a command,
// and the stack's indexChanged() brings the page of the command into view
// and refreshes it (on_undoRedoActions).
class QuvaCfgXMLEditor : public QMainWindow, private PageContext
{
    Q_OBJECT

public:
    explicit QuvaCfgXMLEditor(QWidget *parent = nullptr);
    ~QuvaCfgXMLEditor() override;

    bool eventFilter(QObject *object, QEvent *event) override;

    CfgDocument &document() const { return *doc; }
    // The open record, null while none is open.
    CfgModel *cfg() const override;
    QUndoStack *undoStack() const override;
    bool targetEditable() const override { return targetIsEditable; }
    bool writeRecord() override;
    bool updatingPanel() const { return PageContext::updatingPanel(); }
    const PageTable &pageTable() const { return pages; }
    ExecutePanel *executePanel() const { return execute; }
    PanelApply *applyPanel() const { return apply; }
    QUndoView *undoView() const { return stackView; }
    QMenu *recentFilesMenu() const { return recentMenu; }
    const QVector<QAction *> &recentFileActions() const { return recentActions; }
    // Undo and redo actions made by the stack; kept, on no menu.
    QAction *stackUndoAction() const { return stackUndo; }
    QAction *stackRedoAction() const { return stackRedo; }

    // Loads a configuration (or a description with its default
    // configuration) and makes it current. A failed load keeps the record
    // that was open. notifyBroker: ask other windows first and announce the
    // file afterwards.
    void openConfigFile(const QString &path, bool notifyBroker);
    void openDescriptionFile(const QString &path, bool notifyBroker);
    // Saves the record, asking a name when askName is set or it has none.
    bool saveConfig(bool askName);
    void updateWindowTitle();
    // Shows or hides one of the optional pages at its place in the row of
    // tabs; only for an advanced user with a record open.
    void togglePage(int page, const QString &title);
    // Number of the page in view; the log page and no page give -1.
    int currentPageIndex() const;

signals:
    // Emitted by updatePanelIdx() after the refresh of page idx.
    void pageRefreshed(int idx);

public slots:
    void on_actionNewWindow_triggered();
    void on_actionOpenDescriptionFile_triggered();
    void on_actionOpenConfigFile_triggered();
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

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setUpPages();
    void setUpRecentFilesMenu();
    void setUpUndo();
    void setUpDocument();
    void openFromDialog(bool description);
    void openCommandLineFile();
    // Attaches the current record (or none) to the pages.
    void refreshAfterLoad();
    void endProcess();
    void takePlace(const WorkingSpace &place);

    Ui::QuvaCfgXMLEditor *ui;
    GuiReporter guiReporter;
    CfgDocument *doc;
    PageTable pages;
    QuvaPage *quvaPage = nullptr;
    ExecutePanel *execute = nullptr;
    PanelApply *apply = nullptr;
    QUndoView *stackView = nullptr;
    QMenu *recentMenu = nullptr;
    QVector<QAction *> recentActions;
    QAction *stackUndo = nullptr;
    QAction *stackRedo = nullptr;
    // The place read while the window is built waits for the window's own
    // first size, so that the file's place wins on every road.
    std::optional<WorkingSpace> placeAfterConstruction;
    bool constructing = true;
    bool inEventFilter = false;
    bool targetIsEditable = false;
};
