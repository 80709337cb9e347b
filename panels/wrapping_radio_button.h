#pragma once

#include <QRadioButton>

// A radio button whose text breaks into lines where the page is narrower
// than it, as a label with word wrap does, so that a long explanation does
// not set the width of the page. A click anywhere on the text checks it.
class WrappingRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    explicit WrappingRadioButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &pos) const override;

private:
    // Width of the indicator and the gap behind it.
    int indicatorSpace() const;
    QRect textRect(int width) const;
};
