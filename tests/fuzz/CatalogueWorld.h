#pragma once

#include "catalogue/CatalogueFixture.h"

/// The catalogue of the fuzzer's process, with folders that are as new for every input.
///
/// The installed tree stays: it holds a thumbnail "t.png" and an animation "t.gif" for each kind of
/// item, so that a display catalogue can show items.
class CatalogueWorld : public CatalogueFixture
{
public:
    CatalogueWorld();

    /// Empties the download root, but for its folders, and the catalogue.
    void renewRoot() const;
    /// Leaves no favourites, and no files beside theirs.
    void renewFavourites() const;

    /// The items of both catalogues, kind by kind, in vector order.
    static QVector<SCfg_Item*> items();
    /// Everything that the readers and the resolvers have found out about the item.
    static QString described(const SCfg_Item& item);
};
