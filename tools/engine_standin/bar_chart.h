#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <QVector>

// A horizontal bar chart: one bar per category, made of one stacked piece
// per series, with the total at the end of each bar. The footnote stands in
// red at the bottom, so that no picture is taken for a result.
struct BarChart
{
    QString title;
    QString footnote;
    QStringList series;              // one colour each, shown in a legend
    QStringList categories;          // one bar each, top to bottom
    QVector<QVector<double>> values; // [category][series]
    int decimals = 0;                // of the totals written beside the bars
};

// The chart on an image of that width, as high as its bars need. Needs a
// GUI application object, for the fonts; paints on the image alone.
QImage drawBarChart(const BarChart &chart, int width);

// The image as the bytes of a PNG file.
QByteArray pngBytes(const QImage &image);
