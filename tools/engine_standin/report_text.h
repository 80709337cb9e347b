#pragma once

#include <QByteArray>

struct Report;

// The document as plain UTF-8 text: the title underlined, the note, then
// each section with its sentences and its rows as "key: value" lines.
QByteArray reportText(const Report &report);
