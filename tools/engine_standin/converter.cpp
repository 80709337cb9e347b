#include "tools/engine_standin/converter.h"

#include "tools/engine_standin/progress_printer.h"
#include "tools/engine_standin/report.h"
#include "tools/engine_standin/report_html.h"
#include "tools/engine_standin/report_xml.h"
#include "tools/engine_standin/run_steps.h"
#include "tools/engine_standin/write_file.h"

namespace {

QString htmlPathOf(const QString &xmlPath)
{
    QString path = xmlPath;
    if (path.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive))
        path.chop(4);
    return path + QStringLiteral(".html");
}

} // namespace

int convertReport(const StandinOptions &options)
{
    ProgressPrinter out(options.delayMs);
    if (options.arguments.size() != 1) {
        out.error(QStringLiteral("usage: xml2html <name>_analysisReport.xml"));
        return 2;
    }
    const QString xmlPath = options.arguments.first();
    Report report;
    auto read = [&] {
        report = readReportXml(xmlPath, "analysisReport");
        if (!report.title.isEmpty() || !report.sections.isEmpty())
            return true;
        out.error(QStringLiteral("Cannot read the report %1.").arg(xmlPath));
        return false;
    };
    auto write = [&] {
        crashIfAsked(options);
        return writeWholeFile(htmlPathOf(xmlPath), reportHtml(report), out);
    };
    return runSteps(out,
                    {{10, "Reading the XML report", read}, {60, "Writing the HTML report", write}},
                    "Finished: HTML report written (stand-in converter)", options.exitCode);
}
