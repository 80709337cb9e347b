#include "tools/engine_standin/report.h"

const ReportSection *Report::section(const QString &name) const
{
    for (const ReportSection &s : sections) {
        if (s.name == name)
            return &s;
    }
    return nullptr;
}

ReportSection tableSection(const QString &name, const QString &title, const QStringList &keys)
{
    ReportSection section;
    section.name = name;
    section.title = title;
    section.keys = keys;
    return section;
}

ReportSection itemSection(const QString &name, const QString &title)
{
    return tableSection(name, title, {QStringLiteral("item"), QStringLiteral("value")});
}

void addItem(ReportSection &section, const QString &item, const QString &value)
{
    section.rows.append(QStringList{item, value});
}
