#pragma once

#include <QAbstractTableModel>

class EqualVar;

// The modalities of one nominal variable, read-only, one row each; row 0 is
// the modality of a missing value. A row shows the modality's label, with
// its value in brackets when the two differ.
class ModalityModelEditor : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ModalityModelEditor(const EqualVar *var, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const EqualVar *var;
};
