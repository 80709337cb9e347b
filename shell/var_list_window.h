#pragma once

#include <QDialog>
#include <QHash>
#include <QString>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The dialog behind "List Var" of the variable table: a list of variable
// names, pasted or loaded from a file, one a line. The variable table's
// filter reads the accepted state through pointers to the public members;
// it stays between uses of the dialog.
class VarListWindow : public QDialog
{
    Q_OBJECT

public:
    explicit VarListWindow(QWidget *parent = nullptr, bool showFullName = true);

    // Accepted state (by pbOk). cbAlias accepts lookUpByLabel, cbColumnName
    // lookUpByFullName; cbFullName is only stored in matchFullName.
    QHash<QString, bool> lookUpNames;
    bool lookUpByLabel = true;
    bool lookUpByFullName = true;
    bool matchFullName = true;
    QString fileNameText;
    QString listText;

    // Reads the file named in leFilename into pteVarList; a file that cannot
    // be read is ignored in silence, an empty one leaves the box as it is.
    void loadVariableFile();

public slots:
    void on_pbOk_clicked();
    void on_pbCancel_clicked();
    void on_pbTrim_clicked();
    void on_leFilename_returnPressed();
    void on_pbBrowse_clicked();

private:
    void buildForm(bool showFullName);

    QLineEdit *leFilename;
    QPlainTextEdit *pteVarList;
    QCheckBox *cbColumnName;
    QCheckBox *cbAlias;
    QCheckBox *cbFullName;
    QPushButton *pbBrowse;
    QPushButton *pbTrim;
    QPushButton *pbOk;
    QPushButton *pbCancel;
};

// One line of a report reduced to the bare variable name: a leading
// position number such as "12) " and a trailing value are cut off. The
// character in front of a trailing number goes with it (it is meant to be
// the blank); an empty result means the line gives no name.
QString specialTrim(const QString &line);
