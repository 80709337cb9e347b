#include "tools/engine_standin/engine_mode.h"

#include "tools/engine_standin/report.h"

#include "core/cfg_model.h"

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

// The mode as the model parameters page shows it.
QString modeName(const CfgModel &cfg)
{
    if (cfg.lambda == -1.0 && cfg.alpha == -1.0 && cfg.pruning == 0)
        return QStringLiteral("performance mode");
    if (cfg.lambda == -1.0 && cfg.alpha == 1.0 && cfg.nMaxVar == 30 && cfg.pruning == 2)
        return QStringLiteral("standard mode");
    if (cfg.lambda == -1.0 && cfg.alpha == 1.0 && cfg.nMaxVar == 30 && cfg.pruning == 3)
        return QStringLiteral("high quality mode");
    return QStringLiteral("none of the named modes; the parameters are set one by one");
}

QString lambdaMeaning(const CfgModel &cfg)
{
    return cfg.lambda == -1.0 ? QStringLiteral("optimal, found by the engine")
                              : QStringLiteral("set by hand");
}

QString alphaMeaning(double alpha)
{
    if (alpha == -1.0)
        return QStringLiteral("optimal, found by the engine");
    if (alpha == 0.0)
        return QStringLiteral("pure ridge");
    if (alpha == 1.0)
        return QStringLiteral("pure lasso");
    return QStringLiteral("elastic net");
}

QString maxVarMeaning(int nMaxVar)
{
    return nMaxVar < 0 ? QStringLiteral("no limit")
                       : QStringLiteral("at most %1 variables").arg(nMaxVar);
}

QString pruningMeaning(int pruning)
{
    switch (pruning) {
    case 0:
        return QStringLiteral("no pruning");
    case 1:
        return QStringLiteral("no pruning, importances computed");
    case 2:
        return QStringLiteral("fast pruning");
    case 3:
        return QStringLiteral("slow pruning");
    default:
        return QStringLiteral("unknown to the editor");
    }
}

void addParameter(ReportSection &section, const char *name, const QString &value,
                  const QString &meaning = QString())
{
    section.rows.append(QStringList{QLatin1String(name), value, meaning});
}

} // namespace

ReportSection modeSection(const CfgModel &cfg)
{
    ReportSection s = tableSection(
        QStringLiteral("mode"), QStringLiteral("Mode and parameters"),
        {QStringLiteral("parameter"), QStringLiteral("value"), QStringLiteral("meaning")});
    s.paragraphs << QStringLiteral("Mode: %1.").arg(modeName(cfg));
    addParameter(s, "lambda", number(cfg.lambda), lambdaMeaning(cfg));
    addParameter(s, "alpha", number(cfg.alpha), alphaMeaning(cfg.alpha));
    addParameter(s, "nMaxVar", QString::number(cfg.nMaxVar), maxVarMeaning(cfg.nMaxVar));
    addParameter(s, "pruning", QString::number(cfg.pruning), pruningMeaning(cfg.pruning));
    addParameter(s, "allowedAUCLoss", number(cfg.allowedAUCLoss), QStringLiteral("in pruning"));
    addParameter(s, "AUCmax", number(cfg.AUCmax), QStringLiteral("percent"));
    addParameter(s, "nTestSet", QString::number(cfg.nTestSet));
    addParameter(s, "nValSet", QString::number(cfg.nValSet));
    addParameter(s, "nBagging", QString::number(cfg.nBagging));
    addParameter(s, "randomSeed", QString::number(cfg.randomSeed));
    addParameter(s, "cpuCount", QString::number(cfg.cpuCount));
    addParameter(s, "stopComputationAfterXHours", number(cfg.stopComputationAfterXHours),
                 QStringLiteral("hours"));
    return s;
}
