#pragma once

#include <QString>
#include <QWidget>

class DatasetVar;
class EqualVar;
class KPlainTextEdit;

namespace Ui {
class NominalVarPanel;
}

// The modalities of one nominal variable beside an expression: the analyst
// picks some, says "is equal to:" or "is different from:", and "Add" writes
// the clause for them at the caret of the expression editor. The panel stays
// open so that several clauses can be added; the operators between them are
// typed by hand. It points into the description, so it goes before the
// record does.
class NominalVarPanel : public QWidget
{
    Q_OBJECT

public:
    // `name` is the variable's name in the expression.
    NominalVarPanel(const EqualVar *var, const QString &name, KPlainTextEdit *editor,
                    QWidget *parent = nullptr);
    ~NominalVarPanel() override;

private slots:
    void on_pbAdd_clicked();

private:
    Ui::NominalVarPanel *ui;
    const EqualVar *var;
    KPlainTextEdit *editor;
    QString name;
};

// The panel that edits a clause on the dataset variable `var` for the
// expression variable `name`: a NominalVarPanel for a nominal variable,
// nothing (null) for the others.
QWidget *createEditPanel(const DatasetVar *var, QWidget *parent, const QString &name,
                         KPlainTextEdit *editor);
