#include "edit/table_views.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QSpinBox>

namespace {

const QString dateFormat = QStringLiteral("dd/M/yyyy");
// Bars: role 32 and 33 give the scale, role 8 the background.
constexpr int scaleMinRole = Qt::UserRole;
constexpr int scaleMaxRole = Qt::UserRole + 1;
constexpr int colorStartRole = Qt::UserRole;
constexpr int checkOffset = 15;
constexpr int barMargin = 5;
constexpr int maxBarTextWidth = 150;
constexpr int pixelsPerComboChar = 7;

bool isNumber(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
        return true;
    default:
        return false;
    }
}

} // namespace

EnhancedTableDelegate::EnhancedTableDelegate(QList<int> checkBoxColumns,
                                             QList<int> doubleColumns, QList<int> intColumns,
                                             ComboColumns combos,
                                             QList<int> colorColumns, QList<int> dateColumns,
                                             QList<int> barColumns, QObject *parent)
    : QItemDelegate(parent),
      checkBoxColumns(std::move(checkBoxColumns)),
      doubleColumns(std::move(doubleColumns)),
      intColumns(std::move(intColumns)),
      colorColumns(std::move(colorColumns)),
      dateColumns(std::move(dateColumns)),
      barColumns(std::move(barColumns)),
      comboColumns(std::move(combos.columns)),
      comboItems(std::move(combos.items))
{
    while (comboItems.size() < comboColumns.size())
        comboItems.append(new QStringList);
    comboMinWidths.reserve(comboColumns.size());
    for (int i = 0; i < comboColumns.size(); ++i) {
        int longest = 0;
        for (const QString &item : *comboItems.at(i))
            longest = qMax(longest, item.length());
        comboMinWidths.append(pixelsPerComboChar * longest);
    }
}

EnhancedTableDelegate::~EnhancedTableDelegate()
{
    qDeleteAll(comboItems);
}

QString EnhancedTableDelegate::comboDisplayText(int column, const QVariant &value) const
{
    const int list = comboColumns.indexOf(column);
    if (list < 0)
        return QString();
    const QStringList &items = *comboItems.at(list);
    const int position = static_cast<int>(value.toDouble());
    if (position < 0 || position >= items.size())
        return QStringLiteral("--");
    return items.at(position);
}

int EnhancedTableDelegate::comboMinWidth(int column) const
{
    const int list = comboColumns.indexOf(column);
    return list < 0 ? 0 : comboMinWidths.at(list);
}

QWidget *EnhancedTableDelegate::createEditor(QWidget *parent,
                                             const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    if (!index.isValid())
        return QItemDelegate::createEditor(parent, option, index);
    const int col = index.column();
    if (checkBoxColumns.contains(col))
        return nullptr;
    if (doubleColumns.contains(col)) {
        auto *spin = new QDoubleSpinBox(parent);
        spin->setRange(0, doubleMaximum);
        return spin;
    }
    if (intColumns.contains(col)) {
        auto *spin = new QSpinBox(parent);
        spin->setRange(0, intMaximum);
        return spin;
    }
    const int list = comboColumns.indexOf(col);
    if (list >= 0) {
        const QStringList &items = *comboItems.at(list);
        if (items.isEmpty())
            return nullptr;
        auto *combo = new QComboBox(parent);
        combo->setStyleSheet(QStringLiteral("QComboBox QAbstractItemView { min-width: %1px;}")
                                 .arg(comboMinWidths.at(list)));
        combo->addItems(items);
        return combo;
    }
    if (dateColumns.contains(col)) {
        auto *edit = new QDateTimeEdit(parent);
        edit->setDisplayFormat(dateFormat);
        edit->setCalendarPopup(true);
        return edit;
    }
    return QItemDelegate::createEditor(parent, option, index);
}

void EnhancedTableDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    const int col = index.column();
    if (doubleColumns.contains(col)) {
        if (auto *spin = qobject_cast<QDoubleSpinBox *>(editor))
            return spin->setValue(value.toDouble());
    } else if (intColumns.contains(col)) {
        if (auto *spin = qobject_cast<QSpinBox *>(editor))
            return spin->setValue(static_cast<int>(value.toDouble()));
    } else if (comboColumns.contains(col)) {
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            combo->setCurrentIndex(static_cast<int>(value.toDouble()));
            pendingCombo = combo;
            return;
        }
    } else if (dateColumns.contains(col)) {
        if (auto *edit = qobject_cast<QDateTimeEdit *>(editor)) {
            QDate date = QDate::fromString(value.toString(), dateFormat);
            edit->setDate(date.isValid() ? date : QDate::currentDate());
            return;
        }
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        // Some models give nothing for the edit role: fill from the display.
        return line->setText(value.toString());
    }
    QItemDelegate::setEditorData(editor, index);
}

void EnhancedTableDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                         const QModelIndex &index) const
{
    if (auto *spin = qobject_cast<QDoubleSpinBox *>(editor)) {
        model->setData(index, spin->value(), Qt::EditRole);
    } else if (auto *spin = qobject_cast<QSpinBox *>(editor)) {
        model->setData(index, spin->value(), Qt::EditRole);
    } else if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, combo->currentIndex(), Qt::EditRole);
        pendingCombo = nullptr;
    } else if (auto *edit = qobject_cast<QDateTimeEdit *>(editor)) {
        model->setData(index, edit->date(), Qt::EditRole);
    } else {
        QItemDelegate::setModelData(editor, model, index);
    }
}

bool EnhancedTableDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                        const QStyleOptionViewItem &option,
                                        const QModelIndex &index)
{
    if (!index.isValid())
        return true;
    const int col = index.column();
    if (event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->buttons() & Qt::RightButton) {
            emit rightClickPressed(index.row());
            return QItemDelegate::editorEvent(event, model, option, index);
        }
        if (index.flags() & Qt::ItemIsEditable) {
            emit cbClicked();
            if (checkBoxColumns.contains(col)) {
                model->setData(index, !index.data(Qt::DisplayRole).toBool(), Qt::EditRole);
                return true;
            }
            if (colorColumns.contains(col)) {
                const QVariant start = index.data(colorStartRole);
                const QColor initial = start.userType() == QMetaType::QColor
                                           ? start.value<QColor>()
                                           : QColor::fromRgba(start.toUInt());
                const QColor chosen = QColorDialog::getColor(initial, nullptr, QString(),
                                                             QColorDialog::ShowAlphaChannel);
                if (chosen.isValid())
                    model->setData(index, chosen.rgba(), Qt::EditRole);
                return true;
            }
        }
        return QItemDelegate::editorEvent(event, model, option, index);
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        // The press created the combo editor; its release opens the list, so
        // that one click reaches the items.
        if (comboColumns.contains(col) && pendingCombo)
            pendingCombo->showPopup();
        return true;
    }
    return QItemDelegate::editorEvent(event, model, option, index);
}

void EnhancedTableDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, option.palette.highlight());
    const int col = index.column();
    const QVariant value = index.data(Qt::DisplayRole);
    if (checkBoxColumns.contains(col)) {
        paintCheck(painter, option, index);
    } else if (doubleColumns.contains(col) || intColumns.contains(col)) {
        QStyleOptionViewItem right = option;
        right.displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
        QItemDelegate::paint(painter, right, index);
    } else if (comboColumns.contains(col)) {
        if (value.isValid())
            drawDisplay(painter, option, option.rect, comboDisplayText(col, value));
    } else if (colorColumns.contains(col)) {
        if (value.canConvert<QBrush>()) {
            painter->save();
            painter->setBrushOrigin(option.rect.topLeft());
            painter->fillRect(option.rect, value.value<QBrush>());
            painter->restore();
        }
    } else if (barColumns.contains(col)) {
        paintBar(painter, option, index);
    } else {
        QItemDelegate::paint(painter, option, index);
    }
}

void EnhancedTableDelegate::paintCheck(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    const bool editable = index.flags() & Qt::ItemIsEditable;
    if (!(alwaysDrawCheck || editable) || !value.isValid())
        return;
    const QRect box = doCheck(option, option.rect, value).translated(checkOffset, 0);
    drawCheck(painter, option, box, value.toBool() ? Qt::Checked : Qt::Unchecked);
}

void EnhancedTableDelegate::paintBar(QPainter *painter, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    if (!isNumber(value))
        return;
    const double v = value.toDouble();
    const QRect cell = option.rect;
    const int textWidth = qMin(static_cast<int>(cell.width() * 0.3), maxBarTextWidth);
    QStyleOptionViewItem textOption = option;
    textOption.displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    const QRect textRect(cell.left(), cell.top(), textWidth, cell.height());
    drawDisplay(painter, textOption, textRect, value.toString());

    const QRect rest(cell.left() + textWidth, cell.top(), cell.width() - textWidth,
                     cell.height());
    const QBrush background = (option.state & QStyle::State_Selected)
                                  ? option.palette.highlight()
                                  : index.data(Qt::BackgroundRole).value<QBrush>();
    painter->fillRect(rest, background);

    const QRect area = rest.adjusted(barMargin, barMargin, -barMargin, -barMargin);
    const double low = index.data(scaleMinRole).toDouble();
    const double high = index.data(scaleMaxRole).toDouble();
    if (area.width() <= 0 || high <= low)
        return;
    auto xOf = [&](double x) {
        return area.left() + static_cast<int>((x - low) / (high - low) * area.width());
    };
    const int zero = xOf(0.0);
    const int end = xOf(v);
    const QRect bar = v > 0 ? QRect(QPoint(zero, area.top()), QPoint(end, area.bottom()))
                            : QRect(QPoint(end, area.top()), QPoint(zero, area.bottom()));
    QBrush brush = barBrush;
    if (brush.style() == Qt::NoBrush)
        brush = QBrush(index.row() % 2 == 0 ? Qt::red : Qt::green);
    painter->fillRect(bar, brush);
}
