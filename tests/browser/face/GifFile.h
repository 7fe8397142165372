// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QVector>

/// Makes animated GIF files, which Qt reads but does not write.
namespace GifFile {

/// Returns an endless animation of plain colours, `delayMs` apart (a multiple of 10).
QByteArray plain(const QSize& size, const QVector<QColor>& colours, int delayMs);

} // namespace GifFile
