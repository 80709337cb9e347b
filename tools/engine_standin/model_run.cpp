#include "tools/engine_standin/model_run.h"

#include "tools/engine_standin/misfits.h"
#include "tools/engine_standin/output_folder.h"
#include "tools/engine_standin/report_rtf.h"
#include "tools/engine_standin/report_xlsx.h"
#include "tools/engine_standin/report_xml.h"
#include "tools/engine_standin/run_charts.h"
#include "tools/engine_standin/run_steps.h"
#include "tools/engine_standin/write_file.h"

#include "core/cfg_model.h"
#include "xml/xml_node.h"

#include <QFileInfo>

namespace {

const int chartWidth = 900;

} // namespace

ModelRun::ModelRun(const StandinOptions &options) : options_(options), out_(options.delayMs) {}

ModelRun::~ModelRun() = default;

int ModelRun::exec(const QString &cfgArgument)
{
    cfgArgument_ = cfgArgument;
    out_.line(QStringLiteral("Quva engine stand-in: it reads the configuration and fits no "
                             "model; its reports say so."));
    return runSteps(
        out_,
        {{5, "Reading the configuration and its description", [this] { return load(); }},
         {15, "Checking the configuration against its description", [this] { return check(); }},
         {25, "Counting the columns per group", [this] { return count(); }},
         {40, "Making the output folder", [this] { return makeFolder(); }},
         {50, "Writing the analysis report", [this] { return writeAnalysisReport(); }},
         {65, "Writing the Word and Excel reports", [this] { return writeOfficeReports(); }},
         {80, "Drawing the charts", [this] { return drawCharts(); }},
         {90, "Writing the model file", [this] { return writeModelFile(); }}},
        "Finished: no model was fitted (stand-in)", options_.exitCode);
}

bool ModelRun::load()
{
    load_ = loadCfgFile(cfgArgument_, true, nullptr, QString());
    if (!load_.model) {
        out_.error(QStringLiteral("Cannot read the configuration %1.").arg(cfgArgument_));
        return false;
    }
    const CfgModel &cfg = *load_.model;
    run_.cfg = &cfg;
    run_.base = configurationBaseName(cfg.cfgFileName);
    out_.line(QStringLiteral("Configuration %1").arg(cfg.cfgFileName));
    out_.line(QStringLiteral("Description %1: %2 variables, %3 columns")
                  .arg(cfg.desc->fileName, QString::number(cfg.desc->varCount()),
                       QString::number(cfg.columnCount())));
    return true;
}

bool ModelRun::check()
{
    const XmlNode root = readXmlFile(run_.cfg->cfgFileName, "QUV_Config");
    run_.misfits = configurationMisfits(*run_.cfg, root);
    for (const QString &misfit : qAsConst(run_.misfits))
        out_.line(QStringLiteral("Does not fit the description: ") + misfit);
    if (run_.misfits.isEmpty())
        out_.line(QStringLiteral("The configuration fits its description."));
    return true;
}

bool ModelRun::count()
{
    run_.groups = countColumnsPerGroup(*run_.cfg);
    for (const GroupCounts &g : qAsConst(run_.groups))
        out_.line(QStringLiteral("%1: %2 active, %3 ignored, %4 illustrative, %5 in state F")
                      .arg(g.group, QString::number(g.active), QString::number(g.ignored),
                           QString::number(g.illustrative), QString::number(g.stateF)));
    return true;
}

bool ModelRun::makeFolder()
{
    QString why;
    const QString folder = makeNextOutputFolder(run_.cfg->cfgFileName, &why);
    if (folder.isEmpty()) {
        out_.error(QStringLiteral("No output folder: ") + why);
        return false;
    }
    run_.folderName = QFileInfo(folder).fileName();
    prefix_ = folder + QLatin1Char('/') + run_.base;
    out_.line(QStringLiteral("Output folder %1").arg(folder));
    return true;
}

bool ModelRun::writeAnalysisReport()
{
    crashIfAsked(options_);
    report_ = analysisReport(run_);
    return write("_analysisReport.xml", reportXml(report_, QStringLiteral("analysisReport")));
}

bool ModelRun::writeOfficeReports()
{
    return write("_analysisReport.doc", reportRtf(report_)) &&
           write("_analysisReport.xlsx", reportXlsx(report_));
}

bool ModelRun::drawCharts()
{
    const QByteArray columns = pngBytes(drawBarChart(columnsChart(run_.groups), chartWidth));
    const QByteArray aucs = pngBytes(drawBarChart(aucChart(*run_.cfg), chartWidth));
    return write(overfittingChartSuffix, columns) && write(finalModelChartSuffix, aucs);
}

bool ModelRun::writeModelFile()
{
    return write(".ModelXML", reportXml(modelReport(run_), QStringLiteral("QuvaModel")));
}

bool ModelRun::write(const char *suffix, const QByteArray &bytes)
{
    return writeWholeFile(prefix_ + QLatin1String(suffix), bytes, out_);
}
