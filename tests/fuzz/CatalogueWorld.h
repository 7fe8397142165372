// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueFixture.h"

/// The catalogue of the fuzzer's process, with folders reset for every input.
///
/// The installed tree is kept: it holds a thumbnail "t.png" and an animation "t.gif" for each kind
/// of item, so that a display catalogue can show items.
class CatalogueWorld : public CatalogueFixture
{
public:
    CatalogueWorld();

    /// Empties the catalogue and the download root, keeping the root's folders.
    void renewRoot() const;
    /// Resets the favourites and removes all other files beside theirs.
    void renewFavourites() const;

    /// Returns the items of both catalogues, by kind, in vector order.
    static QVector<SCfg_Item*> items();
    /// Describes everything that the readers and the resolvers have determined about the item.
    static QString described(const SCfg_Item& item);
};
