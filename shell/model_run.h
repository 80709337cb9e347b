#pragma once

#include <QObject>
#include <QString>

class ExecutePanel;
class PageContext;
class QProgressBar;
class QWidget;

// The run of the engine on the saved configuration and the reports of its
// newest output folder, as the run page offers them. The engine and the
// report converter are programs beside the editor; a run is task 0 of the
// log panel and the converter task 1. The editor stays usable during a
// run: only the cursor and the bar tell of it.
class ModelRun : public QObject
{
    Q_OBJECT

public:
    static constexpr int engineTask = 0;
    static constexpr int converterTask = 1;

    ModelRun(PageContext &context, ExecutePanel *executePanel, QProgressBar *bar,
             QWidget *window);

    // Checks the record, offers to save it when changed, and starts the engine.
    void run();
    // Opens the newest output folder's file with this suffix (the folder
    // itself for an empty suffix); the HTML report is first made by the
    // converter when it is missing.
    void openReport(const QString &suffix);

public slots:
    void finished(int taskNumber, int exitCode, int exitStatus);
    void progressed(int progress, const QString &text);

private:
    bool saveIfChanged();
    void tell(const QString &title, const QString &text, bool critical);

    PageContext &context;
    ExecutePanel *executePanel;
    QProgressBar *bar;
    QWidget *window;
};

// The engine and the converter, beside the editor.
QString enginePath();
QString converterPath();
