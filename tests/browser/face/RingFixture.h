// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "FaceFixture.h"

#include <QImage>
#include <QLabel>

/// A face whose ring has a size and plain-coloured pictures, and whose text is hidden unless a test
/// shows it.
class RingFixture
{
public:
    explicit RingFixture(const QSize& size = {60, 60})
    {
        face.setProgressImage(plain(Qt::blue));
        face.setProgressMask(plain(Qt::green));
        face.setProgressColor(Qt::transparent);
        icon->setFixedSize(size);
    }

    /// Paints the ring in device pixels.
    QImage paint()
    {
        QImage image = icon->grab().toImage().convertToFormat(QImage::Format_RGB32);
        image.setDevicePixelRatio(1.0);
        return image;
    }
    QImage paint(double progress)
    {
        face.onProgress(progress);
        return paint();
    }

    static QImage plain(const QColor& colour, const QSize& size = {16, 16})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
    /// Returns four quarters: red and green above, blue and yellow below.
    static QImage quarters(const QSize& size)
    {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const bool left = x < size.width() / 2;
                const QColor above = left ? Qt::red : Qt::green;
                const QColor below = left ? Qt::blue : Qt::yellow;
                image.setPixelColor(x, y, y < size.height() / 2 ? above : below);
            }
        }
        return image;
    }

    MVThemeItemSubwdgt_Preview face{nullptr};
    QLabel* icon = FaceParts(face).lblIcon;
};
