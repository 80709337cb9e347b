#pragma once

#include <QAbstractTableModel>

struct CfgModel;
class QUndoStack;

// The segments of the segmentation model of the line selection, one row
// each: the name, and whether the segment is active (a check box). Each
// change of a box is one command on the whole list of the page "Select
// Lines / Segment".
class ActiveSegmentModelEditor : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ActiveSegmentModelEditor(QUndoStack *stack, QObject *parent = nullptr);

    // Shows the segments of `record`, or none, from scratch.
    void attach(CfgModel *record);
    void reset();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    CfgModel *cfg = nullptr;
    QUndoStack *stack;
};
