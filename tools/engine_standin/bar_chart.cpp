#include "tools/engine_standin/bar_chart.h"

#include <QBuffer>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <numeric>

namespace {

const int headerHeight = 80;
const int barStep = 40;
const int footerHeight = 50;

const QColor palette[] = {QColor(0x2e, 0x86, 0xc1), QColor(0xb0, 0xb0, 0xb0),
                          QColor(0xf3, 0x9c, 0x12), QColor(0x8e, 0x44, 0xad)};

QColor seriesColor(int i)
{
    return palette[i % int(sizeof(palette) / sizeof(palette[0]))];
}

double total(const QVector<double> &values)
{
    return std::accumulate(values.begin(), values.end(), 0.0);
}

double largestTotal(const BarChart &chart)
{
    double largest = 0.0;
    for (const QVector<double> &values : chart.values)
        largest = std::max(largest, total(values));
    return largest > 0.0 ? largest : 1.0;
}

// Title on top, legend below it; returns the height they take.
int drawHeader(QPainter &p, const BarChart &chart, int width)
{
    QFont font = p.font();
    font.setBold(true);
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * 1.3);
    p.setFont(font);
    p.drawText(QRect(0, 10, width, 30), Qt::AlignHCenter | Qt::AlignVCenter, chart.title);
    p.setFont(QFont());
    int x = 20;
    for (int i = 0; i < chart.series.size(); ++i) {
        p.fillRect(QRect(x, 50, 14, 14), seriesColor(i));
        p.drawText(QPoint(x + 20, 62), chart.series.at(i));
        x += 40 + p.fontMetrics().horizontalAdvance(chart.series.at(i));
    }
    return headerHeight;
}

void drawBar(QPainter &p, const QVector<double> &values, const QRect &area, double scale,
             int decimals)
{
    int x = area.left();
    for (int s = 0; s < values.size(); ++s) {
        const int w = int(values.at(s) * scale + 0.5);
        p.fillRect(QRect(x, area.top(), w, area.height()), seriesColor(s));
        x += w;
    }
    p.drawText(QRect(x + 6, area.top(), 80, area.height()), Qt::AlignVCenter,
               QString::number(total(values), 'f', decimals));
}

void drawBars(QPainter &p, const BarChart &chart, const QRect &area)
{
    const int labelWidth = area.width() * 2 / 5;
    const double scale = (area.width() - labelWidth - 90) / largestTotal(chart);
    for (int c = 0; c < chart.categories.size(); ++c) {
        const QRect row(area.left(), area.top() + c * barStep, area.width(), barStep);
        const QRect label(row.left(), row.top(), labelWidth - 10, row.height());
        p.drawText(
            label, Qt::AlignRight | Qt::AlignVCenter,
            p.fontMetrics().elidedText(chart.categories.at(c), Qt::ElideMiddle, label.width()));
        const QRect bar(row.left() + labelWidth, row.top() + barStep / 6, 0, barStep * 2 / 3);
        drawBar(p, chart.values.value(c), bar, scale, chart.decimals);
    }
}

} // namespace

QImage drawBarChart(const BarChart &chart, int width)
{
    const int bars = std::max(4, int(chart.categories.size()));
    const QSize size(width, headerHeight + bars * barStep + footerHeight);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::black);
    const int top = drawHeader(p, chart, size.width());
    drawBars(p, chart, QRect(20, top, size.width() - 40, bars * barStep));
    p.setPen(Qt::red);
    p.drawText(QRect(0, size.height() - footerHeight + 10, size.width(), 30), Qt::AlignCenter,
               chart.footnote);
    return image;
}

QByteArray pngBytes(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}
