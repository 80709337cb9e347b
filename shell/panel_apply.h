#pragma once

#include <QWidget>

struct CfgModel;
class ExecutePanel;

namespace Ui {
class PanelApply;
}

// The page "Apply model": the analyst chooses a finished model, a data
// source of one of four kinds and an output folder, and the page composes
// the engine's apply command into an editable text. "Run Apply" runs that
// text as it stands in the shared log panel (task 1001); it can also be
// saved as a command file. Nothing of it is stored in the configuration.
class PanelApply : public QWidget
{
    Q_OBJECT

public:
    static constexpr int taskNumber = 1001;

    PanelApply(QWidget *parent, CfgModel *cfg, ExecutePanel *executePanel);
    ~PanelApply() override;

    // The configuration of the window, or none; without one the row that
    // takes the newest model is hidden.
    void setCfg(CfgModel *cfg);
    // Puts a model in its field, and its folder as the output folder when
    // that is still empty.
    void setModelFile(const QString &path);
    QString command() const;
    // The command file that "Save command in Batch File" writes.
    QString commandFilePath() const;

public slots:
    void on_pbUseLatest_clicked();
    void on_pbBrowseModel_clicked();
    void on_pbEditDatasource_clicked();
    void on_rbStandardDatasource_clicked();
    void on_rbSASDatasource_clicked();
    void on_rbCSVDatasource_clicked();
    void on_pbBrowseDatasource_clicked();
    void on_pbBrowseDatasource2_clicked();
    void on_pbBrowseOutputDirectory_clicked();
    void on_pbOuputDirectoryUp_clicked();
    void on_cbXMLDrift_clicked();
    void on_cbWordDrift_clicked();
    void on_cbForceApply_clicked();
    void on_pbRunApply_clicked();
    void on_pbOpenOutputDirectory_clicked();
    void on_pbSaveCommand_clicked();
    void on_leModel_textChanged(const QString &text);
    void on_leDatasource_textChanged(const QString &text);
    void on_leOutputDirectory_textChanged(const QString &text);
    void on_cmbSeparator_editTextChanged(const QString &text);
    void on_leTargetDensity_textChanged(const QString &text);
    void on_cmbAprioriMode_currentIndexChanged(int index);
    void on_myFinishExe(int taskNumber, int exitCode, int exitStatus);

private:
    void composeCommand();
    QString browseDatasourceFile(const QString &startDir);

    Ui::PanelApply *ui;
    CfgModel *cfg;
    ExecutePanel *executePanel;
};
