#pragma once

#include <QString>
#include <QStringList>

// The names of the segments of a segmentation model (.SModelXML), in the
// order of the file: the attribute `name` of each child of SEGMENT_NAMES
// under the root MOONWICK_MODEL, read as UTF-8. The file is read for the
// names only; a file without them gives an empty list.
QStringList readSegmentNames(const QString &path);
