#pragma once

#include <QAbstractTableModel>

struct CfgModel;
struct DatasetColumn;
class PageContext;
class QUndoCommand;

// True when the row is the first of its variable, its "RTT" row, which
// alone carries the variable's minimum size and centring.
bool rowOpensVariable(const CfgModel &record, int row);
bool isRttRow(const CfgModel &record, int row);

// The rows of the two variable tables: one per column of the description,
// in its order, so that a row's number is the index into the per-column
// arrays of the record. Columns 0 to 4 tell what the row is (recoding,
// univariate importance, variable, modality, group); a subclass gives
// columns 5 to 7, the values that the user edits, and pushes a command for
// each edit. A model shows the record it was last attached to, never one
// it was not told of.
class VariableTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int columnTotal = 8;

    explicit VariableTableModel(PageContext &context, QObject *parent = nullptr);

    // Shows `record` (or nothing), from scratch.
    void attach(CfgModel *record);
    // Tells the views that every row may have changed.
    void reset();
    CfgModel *record() const { return cfg; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

protected:
    // Columns 5 to 7.
    virtual QVariant valueData(int row, int column, int role) const = 0;
    virtual QString valueHeader(int column) const = 0;
    virtual bool isEditable(int row, int column) const = 0;

    const DatasetColumn &columnAt(int row) const;
    void push(QUndoCommand *command);

    CfgModel *cfg = nullptr;

private:
    PageContext &context;
};
