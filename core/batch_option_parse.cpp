#include "core/batch_option_parse.h"

#include <climits>
#include <cmath>

namespace {

// Character i of the option, or 0 past its end: a short option then fails
// the comparisons the way a terminated byte string would.
ushort charAt(const QString &option, int i)
{
    return i < option.size() ? option.at(i).unicode() : 0;
}

BatchOption refuse(int refusal)
{
    BatchOption o;
    o.action = BatchAction::Refuse;
    o.refusal = refusal;
    return o;
}

BatchOption pass()
{
    return BatchOption();
}

BatchOption numberOption(BatchAction action, const QString &text)
{
    BatchOption o;
    o.action = action;
    o.number = text.toDouble();
    return o;
}

BatchOption textOption(BatchAction action, const QString &text)
{
    BatchOption o;
    o.action = action;
    o.text = text;
    return o;
}

BatchOption patternOption(BatchAction action, const QString &pattern, Qt::CaseSensitivity cs)
{
    BatchOption o;
    o.action = action;
    o.pattern = pattern;
    o.patternCase = cs;
    return o;
}

// "v;pattern" of -pe, -cm and -mv. Without ";" there is no pattern to apply
// the value to, so the option is refused with its family's number rather
// than guessed at.
BatchOption valueAndPattern(BatchAction action, const QString &text, int refusal)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() < 2)
        return refuse(refusal);
    BatchOption o = patternOption(action, parts.at(1), Qt::CaseInsensitive);
    o.number = parts.at(0).toDouble();
    return o;
}

// "numvars;stringvars;expression" of -TE and -LE; parts past the third are
// dropped, so the expression itself cannot hold ";".
BatchOption expressionOption(BatchAction action, const QString &text, int refusal)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() < 3)
        return refuse(refusal);
    BatchOption o = textOption(action, parts.at(2));
    o.numericVars = parts.at(0).split(QLatin1Char(','), Qt::SkipEmptyParts);
    o.stringVars = parts.at(1).split(QLatin1Char(','), Qt::SkipEmptyParts);
    return o;
}

BatchOption parseColumnActivity(const QString &option, char activity)
{
    if (option.size() < 4 || charAt(option, 2) != '=')
        return refuse(2);
    BatchOption o = patternOption(BatchAction::SetColumnActivity, option.mid(3),
                                  option.at(1).isUpper() ? Qt::CaseSensitive
                                                         : Qt::CaseInsensitive);
    o.activity = activity;
    return o;
}

BatchOption parseAUCmaxOrActive(const QString &option)
{
    const ushort third = charAt(option, 2);
    static const QString prefix = QStringLiteral("-AUCMAX=");
    if ((third == 'U' || third == 'u') && option.startsWith(prefix, Qt::CaseInsensitive))
        return numberOption(BatchAction::SetAUCmax, option.mid(prefix.size()));
    return parseColumnActivity(option, ' ');
}

BatchOption parseWeight(const QString &option)
{
    if (option.size() < 4 || charAt(option, 2) != '=')
        return refuse(3);
    return patternOption(BatchAction::SetWeight, option.mid(3),
                         option.at(1) == QLatin1Char('W') ? Qt::CaseSensitive
                                                          : Qt::CaseInsensitive);
}

// The target column is matched without regard to case whatever the case of
// "-T": callers rely on it.
BatchOption parseTarget(const QString &option)
{
    if (option.size() < 4 || (charAt(option, 3) != '=' && charAt(option, 2) != '='))
        return refuse(4);
    switch (charAt(option, 2)) {
    case '=':
        return patternOption(BatchAction::SetTargetColumn, option.mid(3), Qt::CaseInsensitive);
    case 'C':
    case 'c':
        return patternOption(BatchAction::SetTargetColumn, option.mid(4), Qt::CaseInsensitive);
    case 'E':
    case 'e':
        return expressionOption(BatchAction::SetTargetExpression, option.mid(4), 5);
    default:
        return pass();
    }
}

BatchOption parseLineSelection(const QString &option)
{
    if (option.size() < 4 || charAt(option, 3) != '=')
        return refuse(6);
    switch (charAt(option, 2)) {
    case 'F':
    case 'f':
        return textOption(BatchAction::SetLineSelectionFile, option.mid(4));
    case 'E':
    case 'e':
        return expressionOption(BatchAction::SetLineSelectionExpression, option.mid(4), 7);
    default:
        return pass();
    }
}

BatchOption parseParameter(const QString &option)
{
    if (option.size() < 5 || charAt(option, 3) != '=')
        return refuse(8);
    const QString value = option.mid(4);
    switch (charAt(option, 2)) {
    case '1': return numberOption(BatchAction::SetP1, value);
    case '2': return numberOption(BatchAction::SetP2, value);
    case 'r': return numberOption(BatchAction::SetPruning, value);
    case 'a': return numberOption(BatchAction::SetAlpha, value);
    case 'l': return numberOption(BatchAction::SetLambda, value);
    case 'e': return valueAndPattern(BatchAction::SetColumnPenality, value, 8);
    default: return refuse(9);
    }
}

BatchOption parseCpuOrCentering(const QString &option)
{
    switch (charAt(option, 2)) {
    case 'p': {
        static const QString prefix = QStringLiteral("-cpu=");
        if (!option.startsWith(prefix))
            return refuse(10);
        return numberOption(BatchAction::SetCpuCount, option.mid(prefix.size()));
    }
    case 'm':
        if (option.size() < 5 || charAt(option, 3) != '=')
            return refuse(11);
        return valueAndPattern(BatchAction::SetVarCm, option.mid(4), 11);
    default:
        return pass();
    }
}

BatchOption parseSeed(const QString &option)
{
    static const QString prefix = QStringLiteral("-seed=");
    if (!option.startsWith(prefix))
        return refuse(12);
    return numberOption(BatchAction::SetRandomSeed, option.mid(prefix.size()));
}

BatchOption parseSize(const QString &option)
{
    if (option.size() < 5 || charAt(option, 3) != '=')
        return refuse(13);
    const QString value = option.mid(4);
    switch (charAt(option, 2)) {
    case 'n': return textOption(BatchAction::SetMinSizeNominal, value);
    case 'o': return textOption(BatchAction::SetMinSizeOrdered, value);
    case 'i': return numberOption(BatchAction::SetAllowedAUCLoss, value);
    case 'm': return numberOption(BatchAction::SetMaxMemoryDS, value);
    case 'd': return numberOption(BatchAction::SetMaxTargetDensity, value);
    case 't': return numberOption(BatchAction::SetMaxTestDSSize, value);
    case 'v': return valueAndPattern(BatchAction::SetVarMinSizeModality, value, 13);
    default: return refuse(14);
    }
}

} // namespace

BatchOption parseBatchOption(const QString &option)
{
    if (option.size() < 2 || option.at(0) != QLatin1Char('-'))
        return refuse(kRefusalWithoutNumber);
    switch (charAt(option, 1)) {
    case 'A':
    case 'a':
        return parseAUCmaxOrActive(option);
    case 'I':
    case 'i':
        return parseColumnActivity(option, 'I');
    case 'F':
    case 'f':
        return parseColumnActivity(option, 'F');
    case 'W':
    case 'w':
        return parseWeight(option);
    case 'T':
    case 't':
        return parseTarget(option);
    case 'L':
    case 'l':
        return parseLineSelection(option);
    case 'p':
        return parseParameter(option);
    case 'c':
        return parseCpuOrCentering(option);
    case 's':
        return parseSeed(option);
    case 'm':
        return parseSize(option);
    default:
        return refuse(15);
    }
}

int truncateOptionNumber(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= double(INT_MIN))
        return INT_MIN;
    if (value >= double(INT_MAX))
        return INT_MAX;
    return int(value);
}

QString batchRefusalMessage(int refusal, const QString &option)
{
    if (refusal == kRefusalWithoutNumber)
        return QStringLiteral("Syntax error in command-line option '%1'").arg(option);
    return QStringLiteral("Syntax error (%1) in command-line option '%2'")
        .arg(QString::number(refusal), option);
}
