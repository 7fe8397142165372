// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SItemState.h"

#include <QtGlobal>
#include <QUrl>
#include <QVector>

/// Facts about an item's files on disk. A value type, internal to the library.
struct SItemFacts
{
    /// A picture file; equal values mean that it shows the same.
    struct Picture
    {
        QUrl url; ///< empty: not on disk
        qint64 sizeBytes = 0;
        qint64 modifiedMs = 0;
        int revision = 0; ///< grows when another picture replaces it, also in the address
    };

    bool hasState = false; ///< false: only the pictures have been looked up
    SItemState state;
    Picture thumbnail;
    Picture preview;
    /// The hashes of the paths of all its files, sorted, with those of the items it uses.
    QVector<quint32> paths;
};
