#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QVector>

/// Makes animated GIF files, which Qt can read and cannot write.
namespace GifFile {

/// One frame of each plain colour, `delayMs` apart (in steps of 10), without an end.
QByteArray plain(const QSize& size, const QVector<QColor>& colours, int delayMs);

} // namespace GifFile
