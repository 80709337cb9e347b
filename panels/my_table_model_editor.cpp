#include "panels/my_table_model_editor.h"

#include "core/cfg_model.h"
#include "edit/undo_commands.h"

QVariant MyTableModelEditor::valueData(int row, int column, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (column) {
    case MonotonicityColumn:
        if (!isRttRow(*cfg, row))
            return int(MonoNotApplicable);
        if (cfg->monoto[row] == 'D')
            return int(MonoDecreasing);
        return int(cfg->monoto[row] == 'I' ? MonoIncreasing : MonoNone);
    case IgnoreColumn: return cfg->fi[row] == 'I';
    case IllustrativeColumn: return cfg->illus[row];
    default: return QVariant();
    }
}

QString MyTableModelEditor::valueHeader(int column) const
{
    switch (column) {
    case MonotonicityColumn: return tr("Monotonicity");
    case IgnoreColumn: return tr("Ignore");
    case IllustrativeColumn: return tr("Illustrative");
    default: return QString();
    }
}

bool MyTableModelEditor::isEditable(int row, int column) const
{
    return column != MonotonicityColumn || isRttRow(*cfg, row);
}

// Every edit pushes, whatever the cell held before.
bool MyTableModelEditor::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !cfg || index.row() >= cfg->columnCount())
        return false;
    const int row = index.row();
    const QString label = columnAt(row).label;
    switch (index.column()) {
    case MonotonicityColumn:
        return setMonotonicity(row, value.toInt());
    case IgnoreColumn: {
        const bool ignore = value.toBool();
        push(new UpdateTemplateCommand<char>(
            cfg->fi + row, ignore ? 'I' : ' ',
            (ignore ? QStringLiteral("ignoring '%1'") : QStringLiteral("activating '%1'")).arg(label),
            PageSelectVariables, false));
        return true;
    }
    case IllustrativeColumn: {
        const bool illustrative = value.toBool();
        push(new UpdateTemplateCommand<bool>(
            cfg->illus + row, illustrative,
            (illustrative ? QStringLiteral("'%1' is illustrative")
                          : QStringLiteral("'%1' is not illustrative"))
                .arg(label),
            PageSelectVariables, false));
        return true;
    }
    default:
        return false;
    }
}

bool MyTableModelEditor::setMonotonicity(int row, int value)
{
    char letter;
    QString text;
    switch (value) {
    case MonoNone: letter = ' '; text = QStringLiteral("no monotonicity for '%1'"); break;
    case MonoIncreasing: letter = 'I'; text = QStringLiteral("increasing monotonicity for '%1'"); break;
    case MonoDecreasing: letter = 'D'; text = QStringLiteral("decreasing monotonicity for '%1'"); break;
    default: return false;
    }
    push(new UpdateTemplateCommand<char>(cfg->monoto + row, letter,
                                         text.arg(columnAt(row).label), PageSelectVariables,
                                         false));
    return true;
}
