#pragma once

#include <QComboBox>
#include <QItemDelegate>
#include <QList>
#include <QPair>
#include <QPointer>
#include <QStringList>
#include <QTableView>
#include <QVector>

class QAbstractItemView;

// The table view of the two big variable tables: a three-state sort on the
// header (ascending, descending, the model's own order) and Ctrl+C copying
// of the selection to the clipboard as tab-separated text.
class MyTable : public QTableView
{
    Q_OBJECT

public:
    explicit MyTable(QWidget *parent = nullptr);
    ~MyTable() override;

    // Copies the first run of selected rows and, within it, the first run of
    // selected columns; tabs inside cells become blanks. With withHeader the
    // header texts (role 32, else the display role) come first.
    void copySelection(bool withHeader);
    // The same text without touching the clipboard.
    QString selectionText(bool withHeader) const;

    quint8 sortState = 0;
    bool sortable = true;

signals:
    void ctrlVPressed();
    // Kept for a header with chart entries; nothing in the editor emits it.
    void chartOnColumnTriggered(int chartType, int idxCol, int idxTarget);

public slots:
    void columnClicked(int col);

protected:
    void keyPressEvent(QKeyEvent *e) override;
};

// The columns edited with a combo box, and the items of each, by position.
// The delegate takes ownership of the lists.
struct ComboColumns
{
    QList<int> columns;
    QList<QStringList *> items;
};

// One delegate for all tables: draws and edits each cell by the list its
// column is in (check box, number, combo box, colour, date, bar), so that a
// model only has to give values. Reports clicks and right clicks.
class EnhancedTableDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    EnhancedTableDelegate(QList<int> checkBoxColumns, QList<int> doubleColumns = {},
                          QList<int> intColumns = {}, ComboColumns combos = {},
                          QList<int> colorColumns = {}, QList<int> dateColumns = {},
                          QList<int> barColumns = {}, QObject *parent = nullptr);
    ~EnhancedTableDelegate() override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model,
                     const QStyleOptionViewItem &option, const QModelIndex &index) override;

    // What a combo cell of column shows for value: the item at that
    // position, or "--" outside the list.
    QString comboDisplayText(int column, const QVariant &value) const;
    // Popup width of a combo column in pixels: 7 per character of the
    // longest item; 0 for a column that is no combo column.
    int comboMinWidth(int column) const;
    // The combo editor that opens its list on the coming mouse release.
    QComboBox *pendingComboEditor() const { return pendingCombo; }

    QBrush barBrush;
    bool alwaysDrawCheck = false;
    int intMaximum = 300;
    double doubleMaximum = 300.0;

signals:
    void rightClickPressed(int row);
    void cbClicked();

private:
    void paintCheck(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintBar(QPainter *painter, const QStyleOptionViewItem &option,
                  const QModelIndex &index) const;

    QList<int> checkBoxColumns;
    QList<int> doubleColumns;
    QList<int> intColumns;
    QList<int> colorColumns;
    QList<int> dateColumns;
    QList<int> barColumns;
    QVector<int> comboMinWidths;
    QList<int> comboColumns;
    QList<QStringList *> comboItems;
    // Guarded: an editor closed without committing must not leave it dangling.
    mutable QPointer<QComboBox> pendingCombo;
};

// Rows of the view's model that intersect the selection, ascending.
QVector<int> selectedRows(const QAbstractItemView *view);
// Selects rows again, one selection range per run of adjacent rows.
void selectRows(QAbstractItemView *view, const QVector<int> &rows);
