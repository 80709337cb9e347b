#include "app/start_up.h"

#include <QLocale>

#include <clocale>

void fixNumberFormat()
{
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::C, QLocale::AnyCountry));
}

bool takesBatchPath(const QStringList &args)
{
    return args.size() >= 3 && args.at(0) != QLatin1String("-d");
}
