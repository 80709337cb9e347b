#pragma once

#include "core/working_space.h"

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <memory>

struct CfgModel;
class QWidget;

// The open configuration and everything that hangs on it: the record, the
// undo stack that every edit goes through, the watch on its two files, the
// recent-file list and what the window broker is told. The window shows a
// document; it never holds the record itself.
//
// Undo commands point into the record, so the stack is emptied before a
// record is replaced or dropped.
class CfgDocument : public QObject
{
    Q_OBJECT

public:
    // `window` is the parent of every question the document asks.
    explicit CfgDocument(QWidget *window);
    ~CfgDocument() override;

    CfgModel *cfg() const { return model.get(); }
    QUndoStack *undoStack() { return &stack; }
    // The .CfgXML of the record; empty without a record or for a new one.
    QString fileName() const;

    // Loads a configuration (or a description with its default
    // configuration) and makes it current. A failed load keeps the record
    // that was open and returns false. notifyBroker: ask other windows first
    // and announce the file afterwards.
    bool openConfigFile(const QString &path, bool notifyBroker);
    bool openDescriptionFile(const QString &path, bool notifyBroker);

    // Saves the record, asking a name when askName is set or it has none,
    // with the window's place for the WorkingSpace element. False only when
    // there is no record or the dialog was cancelled: a failed write still
    // marks the stack clean.
    bool saveConfig(bool askName, const WorkingSpace &windowPlace);

    // Writes the record under its name and makes the stack clean, telling
    // nobody else: no broker, no recent list. False when there is no record
    // or the file could not be written; the stack then stays as it was.
    bool write(const WorkingSpace &windowPlace);

    // The window is leaving: both files go back to the server.
    void release();

    // The change detection follows the application's activation: while the
    // user works elsewhere nothing is watched; on return the files' times
    // are compared with those of the last load or save, and a difference
    // reports changedOnDisk(), once per file.
    void stopWatching();
    void checkOnActivation();

signals:
    // The record is about to be replaced and destroyed; the stack is empty.
    void aboutToReplace();
    // A new record is current, with an empty, clean stack. previousFile is
    // the configuration that was open before, or empty.
    void loaded(const QString &previousFile);
    // A load read the window place that the configuration stores; it comes
    // before loaded(), and also when the description then fails.
    void placeRead(const WorkingSpace &place);
    // The record was written (or the write failed; see saveConfig).
    void saved();
    // One of the two files changed on disk since the last load or save.
    void changedOnDisk();
    // Another window took over the file that this one was to open: the
    // process is to end, with exit code 0.
    void endProcessRequested();

private:
    bool open(const QString &path, bool notifyBroker, bool description);
    void armWatcher();
    int askOtherWindows(const QString &path);

    QWidget *window;
    std::unique_ptr<CfgModel> model;
    QUndoStack stack;
};
