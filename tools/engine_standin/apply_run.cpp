#include "tools/engine_standin/apply_run.h"

#include "tools/engine_standin/report.h"
#include "tools/engine_standin/report_rtf.h"
#include "tools/engine_standin/report_text.h"
#include "tools/engine_standin/report_xml.h"
#include "tools/engine_standin/run_steps.h"
#include "tools/engine_standin/write_file.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

// The apply page cuts the output directory off the data source but keeps
// the separator, so a file in that directory comes as "/name"; it is looked
// for there too.
QString findData(const QString &path)
{
    if (QFileInfo::exists(path))
        return QFileInfo(path).absoluteFilePath();
    const QString relative = path.mid(1);
    if (path.startsWith(QLatin1Char('/')) && QFileInfo::exists(relative))
        return QFileInfo(relative).absoluteFilePath();
    return QString();
}

} // namespace

ApplyRun::ApplyRun(const StandinOptions &options) : options_(options), out_(options.delayMs) {}

int ApplyRun::exec()
{
    command_ = readApplyCommand(options_.arguments);
    if (!command_.error.isEmpty()) {
        out_.error(QStringLiteral("quva: cannot read the apply command: ") + command_.error);
        return 2;
    }
    stem_ = QFileInfo(command_.model).completeBaseName() + QStringLiteral("_appliedOn_") +
            QFileInfo(command_.dataSource).completeBaseName();
    out_.line(QStringLiteral("Quva engine stand-in: it reads the apply command and applies no "
                             "model; its notes say so."));
    return runSteps(out_,
                    {{20, "Looking for the model", [this] { return findModel(); }},
                     {40, "Looking for the data source", [this] { return findDataSource(); }},
                     {60, "Scoring no line (stand-in)", [this] { return skipScoring(); }},
                     {80, "Writing the notes of the apply", [this] { return writeNotes(); }}},
                    "Finished: no model was applied (stand-in)", options_.exitCode);
}

bool ApplyRun::findModel()
{
    if (QFileInfo::exists(command_.model)) {
        out_.line(QStringLiteral("Model %1").arg(QFileInfo(command_.model).absoluteFilePath()));
        return true;
    }
    out_.error(
        QStringLiteral("Cannot find the model %1 in %2.").arg(command_.model, QDir::currentPath()));
    return false;
}

bool ApplyRun::findDataSource()
{
    const QString found = findData(command_.dataSource);
    dataFound_ = found.isEmpty() ? QStringLiteral("not found; the stand-in reads no data")
                                 : QStringLiteral("found at ") + found;
    out_.line(QStringLiteral("Data source %1: %2").arg(command_.dataSource, dataFound_));
    return true;
}

bool ApplyRun::skipScoring()
{
    crashIfAsked(options_);
    return true;
}

Report ApplyRun::notes() const
{
    Report report;
    report.title = QStringLiteral("Quva model apply (stand-in): ") + stem_;
    report.note = QStringLiteral(
        "No model was applied. A stand-in for the Quva engine read this command and wrote these "
        "notes: it scored no line and measured no drift. The real engine replaces it.");
    ReportSection s = itemSection(QStringLiteral("apply"), QStringLiteral("Apply command"));
    addItem(s, QStringLiteral("model"), command_.model);
    addItem(s, QStringLiteral("data source"),
            command_.dataSource + QStringLiteral(", ") + dataFound_);
    addItem(s, QStringLiteral("kind of data source"), command_.kind);
    if (!command_.separator.isEmpty())
        addItem(s, QStringLiteral("separator"), command_.separator);
    addItem(s, QStringLiteral("target density"),
            command_.density.isEmpty() ? QStringLiteral("no a-priori correction")
                                       : command_.density + QStringLiteral(" %"));
    addItem(s, QStringLiteral("drift report"), yesNo(command_.driftReport));
    addItem(s, QStringLiteral("Word drift report"), yesNo(command_.wordDriftReport));
    addItem(s, QStringLiteral("force apply"), yesNo(command_.force));
    addItem(s, QStringLiteral("folder"), QDir::currentPath());
    report.sections << s;
    return report;
}

bool ApplyRun::writeNotes()
{
    const Report report = notes();
    bool ok = writeWholeFile(stem_ + QStringLiteral("_apply.txt"), reportText(report), out_);
    if (ok && command_.driftReport)
        ok = writeWholeFile(stem_ + QStringLiteral("_driftReport.xml"),
                            reportXml(report, QStringLiteral("driftReport")), out_);
    if (ok && command_.wordDriftReport)
        ok = writeWholeFile(stem_ + QStringLiteral("_driftReport.doc"), reportRtf(report), out_);
    return ok;
}
