// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/FileStates.h"

#include <QtGlobal>

struct SCfg_Item;

/// Computes the sizes of items with all that they use, without reading their files: as on disk and,
/// for missing files, as the accepted release lists them. Internal to the library; GUI thread only.
class ItemBytes
{
public:
    struct Size
    {
        qint64 onDisk = 0;
        qint64 toFetch = 0; ///< of missing files, as far as the release lists them
        bool isKnown =
            true; ///< false if there are others, or of a theme whose definition is missing
        qint64 total() const { return onDisk + toFetch; }
    };

    /// Goes by the current release.
    ItemBytes();

    Size of(SCfg_Item& item) const;

private:
    FileStates m_states;
};
