#pragma once

#include <QByteArray>

struct Report;

// The document as one HTML page: the title, the note, and each section with
// its sentences and a table. A cell of the key "file" that names a PNG
// picture shows the picture, which lies beside the page.
QByteArray reportHtml(const Report &report);
