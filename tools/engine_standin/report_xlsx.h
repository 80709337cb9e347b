#pragma once

#include <QByteArray>

struct Report;

// The document as a one-sheet Office Open XML workbook: one row per line of
// text, the tables with their keys as a header row, whole numbers as numbers.
QByteArray reportXlsx(const Report &report);
