#pragma once

#include <QByteArray>

struct Report;

// The document as Rich Text, which word processors open under the name of
// the Word report: headings, paragraphs and one table per section.
QByteArray reportRtf(const Report &report);
