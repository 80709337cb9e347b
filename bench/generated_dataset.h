#pragma once

// A large generated description with its configuration, written once into a
// temporary folder. `scale` 1 gives 20,000 variables and 60,000 columns:
// 10,000 numeric ones (main, pass-through, one dummy), 5,000 nominal ones
// (main, three dummies) and 5,000 binary ones (main, one dummy); a scale of
// 0.1 gives a tenth of each. Every column of the configuration differs from
// the defaults, so each has its Var element.

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

struct GeneratedDataset
{
    explicit GeneratedDataset(double scale = 1.0);

    int columnCount() const { return numeric * 3 + nominal * 4 + binary * 2; }

    int numeric;
    int nominal;
    int binary;
    QTemporaryDir dir;
    QByteArray descBytes;
    QByteArray cfgBytes;
    QString descPath;
    QString cfgPath;
};
