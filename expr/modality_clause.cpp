#include "expr/modality_clause.h"

namespace {

QString termOf(const QString &var, const QStringList &values, int row, bool different)
{
    if (row == 0) {
        const QString missing = QStringLiteral("isMissing(%1)").arg(var);
        return different ? QStringLiteral("not(%1)").arg(missing) : missing;
    }
    return QStringLiteral("(%1%2\"%3\")")
        .arg(var, different ? QStringLiteral("!=") : QStringLiteral("=="),
             quotedModality(values.value(row)));
}

} // namespace

QString quotedModality(const QString &value)
{
    QString quoted = value;
    return quoted.replace(QLatin1Char('"'), QLatin1Char('\\'));
}

QString modalityClause(const QString &var, const QStringList &values, const QVector<int> &rows,
                       bool different)
{
    QStringList terms;
    for (int row : rows)
        terms << termOf(var, values, row, different);
    if (terms.size() == 1)
        return terms.first();
    const QString join = different ? QStringLiteral("&&") : QStringLiteral("||");
    return QLatin1Char('(') + terms.join(join) + QLatin1Char(')');
}
