#include "panels/math_parser_help.h"

#include "expr/language_help.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString translated(const QString &text)
{
    return QCoreApplication::translate("Interface_mathParserHelp", text.toUtf8().constData());
}

void fillTree(QTreeWidget *tree)
{
    const bool sorting = tree->isSortingEnabled();
    tree->setSortingEnabled(false);
    for (const HelpSection &section : languageHelp()) {
        auto *top = new QTreeWidgetItem(tree, QStringList{translated(section.title)});
        for (const HelpRow &row : section.rows)
            new QTreeWidgetItem(top, QStringList{translated(row.call), translated(row.comment)});
    }
    tree->setSortingEnabled(sorting);
}

} // namespace

Interface_mathParserHelp::Interface_mathParserHelp(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("Interface_mathParserHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Interface_mathParserHelp"));
    resize(621, 300);

    auto *layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("verticalLayout"));
    auto *label = new QLabel(tr("All Graph-Global-Parameters are also available to use."), this);
    label->setObjectName(QStringLiteral("label"));
    layout->addWidget(label);

    auto *tree = new QTreeWidget(this);
    tree->setObjectName(QStringLiteral("treeWidget"));
    tree->setColumnCount(2);
    tree->setHeaderLabels({tr("Functions"), tr("Comments")});
    tree->setColumnWidth(0, 200);
    layout->addWidget(tree);
    fillTree(tree);
}
