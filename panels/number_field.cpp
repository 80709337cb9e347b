#include "panels/number_field.h"

QString numberText(double value)
{
    return QString::number(value, 'g', 6);
}

QString percentText(double fraction)
{
    return numberText(fraction * 100);
}

double fractionOfPercent(const QString &percent)
{
    return percent.toDouble() * 0.01;
}
