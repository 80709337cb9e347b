#include "shell/apply_command.h"

QString quotedPath(const QString &path)
{
    if (path.contains(QLatin1Char(' ')) || path.contains(QLatin1Char('&')))
        return QLatin1Char('"') + path + QLatin1Char('"');
    return path;
}

namespace {

// The model loses the folder and the one character behind it; the data
// source the folder alone, so that it keeps its leading "/". The engine
// reads them so, and the asymmetry stays.
QString belowFolder(const QString &path, const QString &folder, int separator)
{
    if (!path.startsWith(folder))
        return path;
    return path.mid(folder.size() + separator);
}

QString kindSwitch(const ApplyCommandFields &f)
{
    switch (f.kind) {
    case 'c': return QStringLiteral(" -c ") + f.separator;
    case 'g': return QStringLiteral(" -g");
    case 's': return QStringLiteral(" -s");
    default: return QString();
    }
}

} // namespace

QString composeApplyCommand(const ApplyCommandFields &f)
{
    QString text = quotedPath(f.program) + QStringLiteral(" -a");
    if (f.xmlDrift || f.wordDrift)
        text += QLatin1Char('d');
    if (f.wordDrift)
        text += QLatin1Char('w');
    if (f.forceApply)
        text += QLatin1Char('f');
    if (f.densityCorrection)
        text += QStringLiteral(" -p=") + f.targetDensity;
    text += QLatin1Char(' ') + quotedPath(belowFolder(f.model, f.outputDirectory, 1));
    text += kindSwitch(f);
    text += QLatin1Char(' ') + quotedPath(belowFolder(f.datasource, f.outputDirectory, 0));
    return text;
}

// The name is cut by length: a segmentation model, one character longer,
// keeps its dot at the end.
QString applyCommandFile(const QString &outputDirectory, const QString &model,
                         const QString &datasource)
{
    const QString base = model.mid(model.lastIndexOf(QLatin1Char('/')) + 1);
    const QString cutBase = base.left(qMax(0, base.size() - 9));
    const int slash = datasource.lastIndexOf(QLatin1Char('/'));
    const int dot = datasource.lastIndexOf(QLatin1Char('.'));
    const QString data = datasource.mid(slash + 1, dot - slash - 1);
    return outputDirectory + QLatin1Char('/') + cutBase + QStringLiteral("_appliedOn_") + data
           + QStringLiteral(".sh");
}
