#include "tools/engine_standin/run_report.h"

#include "tools/engine_standin/engine_mode.h"
#include "tools/engine_standin/report.h"

#include "core/cfg_model.h"
#include "text/text_convert.h"
#include "xml/xml_node.h"

#include <QDateTime>

const char overfittingChartSuffix[] = "_4_CheckOverfitting2.png";
const char finalModelChartSuffix[] = "_5_FinalModel.png";

namespace {

QString noneIfEmpty(const QString &text)
{
    return text.trimmed().isEmpty() ? QStringLiteral("none") : text.trimmed();
}

// The data source as the apply page reads it: the first letter of `type`,
// `sep` (a comma by default) and the path, the element's first text.
QString dataSourceText(const QString &element)
{
    const QByteArray utf8 = element.toUtf8();
    const XmlNode node = parseXmlText(utf8.constData(), "datasource", nullptr);
    const QString path = QString::fromUtf8(node.textAt(0)).trimmed();
    if (path.isEmpty())
        return QStringLiteral("none");
    switch (chk_char(node.attribute("type"), ' ')) {
    case 'c':
        return QStringLiteral("%1 (CSV/TXT file, separator '%2')")
            .arg(path, QString::fromUtf8(chk_str(node.attribute("sep"), ",")));
    case 'g':
        return path + QStringLiteral(" (Velmorin file)");
    case 's':
        return path + QStringLiteral(" (SAS file)");
    default:
        return path + QStringLiteral(" (standard data source)");
    }
}

ReportSection runSection(const RunFindings &run)
{
    const CfgModel &cfg = *run.cfg;
    ReportSection s = itemSection(QStringLiteral("run"), QStringLiteral("Run"));
    addItem(s, QStringLiteral("program"), QStringLiteral("Quva engine stand-in"));
    addItem(s, QStringLiteral("model fitted"), QStringLiteral("no"));
    addItem(s, QStringLiteral("configuration"), cfg.cfgFileName);
    addItem(s, QStringLiteral("description"), descFilePath(cfg));
    addItem(s, QStringLiteral("data source"), dataSourceText(cfg.datasource));
    addItem(s, QStringLiteral("output folder"), run.folderName);
    addItem(s, QStringLiteral("date"), QDateTime::currentDateTime().toString(Qt::ISODate));
    return s;
}

void addInputVars(ReportSection &s, const QVector<InputVar> &vars)
{
    for (const InputVar &var : vars)
        addItem(s, QStringLiteral("input variable ") + var.label, var.column.value(0));
}

ReportSection targetSection(const CfgModel &cfg)
{
    ReportSection s = itemSection(QStringLiteral("target"), QStringLiteral("Target"));
    if (cfg.targetType == 'E') {
        addItem(s, QStringLiteral("type"), QStringLiteral("expression"));
        addItem(s, QStringLiteral("expression"), noneIfEmpty(cfg.targetExpression));
        addInputVars(s, cfg.targetVars);
    } else if (cfg.targetType == 'F') {
        addItem(s, QStringLiteral("type"), QStringLiteral("file"));
        addItem(s, QStringLiteral("file"), noneIfEmpty(cfg.targetFile));
    } else {
        addItem(s, QStringLiteral("type"), QStringLiteral("column"));
        addItem(s, QStringLiteral("label"), noneIfEmpty(cfg.targetColumn));
        addItem(s, QStringLiteral("name"), noneIfEmpty(cfg.desc->nameOfLabel(cfg.targetColumn)));
    }
    addItem(s, QStringLiteral("weight"), noneIfEmpty(cfg.Weight));
    addItem(s, QStringLiteral("treatment"), noneIfEmpty(cfg.Treatment));
    return s;
}

ReportSection lineSection(const CfgModel &cfg)
{
    ReportSection s =
        itemSection(QStringLiteral("lineSelection"), QStringLiteral("Line selection"));
    QString type = QStringLiteral("expression");
    QString text = cfg.lineSelectionExpression;
    if (cfg.lineSelectionType == 'F') {
        type = QStringLiteral("file");
        text = cfg.lineSelectionFile;
    } else if (cfg.lineSelectionType != 'E') {
        type = QStringLiteral("segment");
        text = cfg.lineSelectionSegmentFile;
    }
    if (text.trimmed().isEmpty()) {
        s.paragraphs << QStringLiteral("No line selection: every line is used.");
        return s;
    }
    addItem(s, QStringLiteral("type"), type);
    addItem(s, type, text.trimmed());
    if (cfg.lineSelectionType == 'E')
        addInputVars(s, cfg.lineSelectionVars);
    return s;
}

QStringList countRow(const GroupCounts &g)
{
    return QStringList{g.group,
                       QString::number(g.active),
                       QString::number(g.ignored),
                       QString::number(g.illustrative),
                       QString::number(g.stateF),
                       QString::number(g.total())};
}

ReportSection columnsSection(const QVector<GroupCounts> &groups)
{
    ReportSection s = tableSection(QStringLiteral("columns"), QStringLiteral("Columns per group"),
                                   {QStringLiteral("group"), QStringLiteral("active"),
                                    QStringLiteral("ignored"), QStringLiteral("illustrative"),
                                    QStringLiteral("stateF"), QStringLiteral("total")});
    s.paragraphs << QStringLiteral(
        "Each column counts once: ignored first, then illustrative, then the state 'F'; "
        "the other columns are active, the inputs a model would be built from.");
    for (const GroupCounts &g : groups)
        s.rows.append(countRow(g));
    s.rows.append(countRow(sumOfGroups(groups)));
    return s;
}

ReportSection problemsSection(const QStringList &misfits)
{
    ReportSection s =
        tableSection(QStringLiteral("problems"), QStringLiteral("Fit with the description"),
                     {QStringLiteral("problem")});
    s.paragraphs << (misfits.isEmpty()
                         ? QStringLiteral("The configuration fits its description.")
                         : QStringLiteral("%1 thing(s) in the configuration do not fit its "
                                          "description.")
                               .arg(misfits.size()));
    for (const QString &misfit : misfits)
        s.rows.append(QStringList{misfit});
    return s;
}

ReportSection chartsSection(const QString &base)
{
    ReportSection s = tableSection(QStringLiteral("charts"), QStringLiteral("Charts"),
                                   {QStringLiteral("file"), QStringLiteral("title")});
    s.rows.append({base + QLatin1String(overfittingChartSuffix),
                   QStringLiteral("Columns per group (in place of Overfitting Check 2)")});
    s.rows.append({base + QLatin1String(finalModelChartSuffix),
                   QStringLiteral("Univariate AUC of the active variables (in place of the "
                                  "Final Model)")});
    return s;
}

ReportSection activeColumnsSection(const CfgModel &cfg)
{
    ReportSection s = tableSection(QStringLiteral("columns"),
                                   QStringLiteral("Active columns, the inputs a model would use"),
                                   {QStringLiteral("loc"), QStringLiteral("column")});
    for (int i = 0; i < cfg.columnCount(); ++i) {
        if (isActiveColumn(cfg, i))
            s.rows.append(
                {QString::number(cfg.desc->columnLoc(i)), columnFullName(*cfg.desc->columnAt(i))});
    }
    return s;
}

} // namespace

Report analysisReport(const RunFindings &run)
{
    Report report;
    report.title = QStringLiteral("Quva analysis report (stand-in): ") + run.base;
    report.note = QStringLiteral(
        "This report comes from a stand-in for the Quva engine. It read the configuration and "
        "its description, but fitted no model and computed no statistics: it lists what the "
        "configuration asks for. A run of the real engine replaces it.");
    report.sections << runSection(run) << targetSection(*run.cfg) << lineSection(*run.cfg)
                    << columnsSection(run.groups) << modeSection(*run.cfg)
                    << problemsSection(run.misfits) << chartsSection(run.base);
    return report;
}

Report modelReport(const RunFindings &run)
{
    Report report;
    report.title = QStringLiteral("Quva model (stand-in): ") + run.base;
    report.note = QStringLiteral(
        "No model was fitted. A stand-in for the Quva engine wrote this file: it holds no "
        "coefficients and scores nothing. A run of the real engine replaces it.");
    report.sections << runSection(run) << targetSection(*run.cfg) << activeColumnsSection(*run.cfg);
    return report;
}
