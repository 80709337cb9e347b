#include "app/start_up.h"

#include <QLocale>

#include <clocale>
#include <cstring>

void fixNumberFormat()
{
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::C, QLocale::AnyCountry));
}

bool takesBatchPath(int argc, char *argv[])
{
    return argc >= 3 && std::strcmp(argv[0], "-d") != 0;
}
