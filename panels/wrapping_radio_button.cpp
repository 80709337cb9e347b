#include "panels/wrapping_radio_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

// The narrowest the text gets before it is cut rather than broken again.
constexpr int narrowestText = 240;
constexpr int textFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

WrappingRadioButton::WrappingRadioButton(QWidget *parent) : QRadioButton(parent)
{
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WrappingRadioButton::indicatorSpace() const
{
    return style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, this) +
           style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, this);
}

QRect WrappingRadioButton::textRect(int width) const
{
    const int textWidth = qMax(1, width - indicatorSpace());
    return fontMetrics().boundingRect(QRect(0, 0, textWidth, 100000), textFlags, text());
}

int WrappingRadioButton::heightForWidth(int width) const
{
    const int indicator = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, this);
    return qMax(indicator, textRect(width).height()) + 2;
}

QSize WrappingRadioButton::sizeHint() const
{
    const int width = indicatorSpace() + fontMetrics().horizontalAdvance(text()) + 2;
    return {width, heightForWidth(width)};
}

QSize WrappingRadioButton::minimumSizeHint() const
{
    const int width = qMin(sizeHint().width(), indicatorSpace() + narrowestText);
    return {width, heightForWidth(width)};
}

bool WrappingRadioButton::hitButton(const QPoint &pos) const
{
    return rect().contains(pos);
}

// The indicator stands beside the first line, the text fills the rest.
void WrappingRadioButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    QStyleOptionButton indicator = option;
    indicator.rect = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, this);
    const int line = fontMetrics().height();
    indicator.rect.moveTop(1 + qMax(0, (line - indicator.rect.height()) / 2));
    painter.drawPrimitive(QStyle::PE_IndicatorRadioButton, indicator);
    const QRect textArea = rect().adjusted(indicatorSpace(), 1, 0, 0);
    painter.drawItemText(textArea, textFlags, palette(), isEnabled(), text(), QPalette::WindowText);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = textArea.intersected(textRect(width()).translated(textArea.topLeft()));
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
