// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/SharedImage.h"

#include <QVector>

#include <algorithm>

QImage sharedImage(const QImage& image)
{
    constexpr int most = 8; // two pictures for each of two kinds of cells, in two skins
    static QVector<QImage> known;
    const auto found = std::find(known.cbegin(), known.cend(), image);
    if (found != known.cend())
        return *found;
    if (known.size() == most)
        known.removeFirst();
    known.append(image);
    return image;
}
