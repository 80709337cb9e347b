#include "core/cfg_attributes.h"

#include "core/cfg_model.h"

namespace {

constexpr CfgRootAttribute integer(const char *name, int CfgModel::*field)
{
    return {name, CfgRootAttribute::Integer, field, nullptr, nullptr};
}

constexpr CfgRootAttribute number(const char *name, double CfgModel::*field)
{
    return {name, CfgRootAttribute::Number, nullptr, field, nullptr};
}

constexpr CfgRootAttribute text(const char *name, QString CfgModel::*field)
{
    return {name, CfgRootAttribute::EscapedText, nullptr, nullptr, field};
}

} // namespace

const CfgRootAttribute cfgRootAttributes[] = {
    text("version", &CfgModel::version),
    text("graphicHeader", &CfgModel::graphicHeader),
    integer("nTestSet", &CfgModel::nTestSet),
    integer("nMaxValSet", &CfgModel::nMaxValSet),
    integer("nValSet", &CfgModel::nValSet),
    integer("maxMemoryDS", &CfgModel::maxMemoryDS),
    number("maxTargetDensity", &CfgModel::maxTargetDensity),
    number("maxTestDSSize", &CfgModel::maxTestDSSize),
    integer("nBagging", &CfgModel::nBagging),
    number("purifyTarget", &CfgModel::purifyTarget),
    text("minSizeModalityForNominalVar", &CfgModel::minSizeModalityForNominalVar),
    text("minSizeModalityForOrderedVar", &CfgModel::minSizeModalityForOrderedVar),
    number("zTestModalities", &CfgModel::zTestModalities),
    integer("nMaxVar", &CfgModel::nMaxVar),
    number("lambda", &CfgModel::lambda),
    number("alpha", &CfgModel::alpha),
    number("stopComputationAfterXHours", &CfgModel::stopComputationAfterXHours),
    integer("pruning", &CfgModel::pruning),
    {"AUCmax", CfgRootAttribute::AucMax, nullptr, &CfgModel::AUCmax, nullptr},
    number("quantileRegression", &CfgModel::quantileRegression),
    integer("hotstart", &CfgModel::hotstart),
    integer("useAUCToOptimizePenalization", &CfgModel::useAUCToOptimizePenalization),
    integer("thirdOptim", &CfgModel::thirdOptim),
    integer("deNormalize", &CfgModel::deNormalize),
    number("allowedAUCLoss", &CfgModel::allowedAUCLoss),
    number("lowerBoundCorrelationReport", &CfgModel::lowerBoundCorrelationReport),
    number("p1", &CfgModel::p1),
    number("p2", &CfgModel::p2),
    integer("predictionFile", &CfgModel::predictionFile),
    integer("bootstrapRepeat", &CfgModel::bootstrapRepeat),
    integer("confidenceInterval", &CfgModel::confidenceInterval),
    integer("cpuCount", &CfgModel::cpuCount),
    integer("randomSeed", &CfgModel::randomSeed),
    number("penalityForProfile", &CfgModel::penalityForProfile),
    number("penalityForTreatment", &CfgModel::penalityForTreatment),
};

const int cfgRootAttributeCount = int(sizeof cfgRootAttributes / sizeof cfgRootAttributes[0]);
static_assert(sizeof cfgRootAttributes / sizeof cfgRootAttributes[0] == 35,
              "QUV_Config carries 35 attributes");
