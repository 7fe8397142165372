#pragma once

#include <QImage>

/// One copy of equal pictures. A style sheet gives every cell of a list the same few, decoded anew
/// each time; kept apart they would be most of a list's memory. GUI thread only.
QImage sharedImage(const QImage& image);
