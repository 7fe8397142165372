// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestMain.h"

#include <QDir>
#include <QImage>

/// Creates image files for widget tests.
namespace TestImages {

/// Writes a single-colour image, replacing an older file of that name, and returns its path.
inline QString write(const QString& name, const QSize& size, const QColor& colour)
{
    QString path = TestHome::path() + QLatin1Char('/') + name;
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    if (!image.save(path))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

/// Returns the smallest rectangle around all pixels of this colour.
inline QRect areaOf(const QImage& image, const QColor& colour)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace TestImages
