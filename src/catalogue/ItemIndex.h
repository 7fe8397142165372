// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueIndex.h"
#include "records/MvResourceExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Finds many items of both catalogue files by GUID alone: any number of searches takes time linear
/// in the catalogue, which must not be reloaded meanwhile. One thread at a time.
class MVRESOURCE_EXPORT ItemIndex
{
public:
    ItemIndex();

    /// Returns the item with that GUID, shown ones first, or null. Braces are optional, case is
    /// ignored. Owned by the catalogue.
    SCfg_Item* find(const QString& guid);

    /// Returns the items with these GUIDs, each once; sets `unknown` to the first GUID without one,
    /// and returns none then.
    QVector<SCfg_Item*> findAll(const QStringList& guids, QString& unknown);
    /// Returns whether a text has the form of a GUID, braces being optional.
    static bool isGuid(const QString& text);

    /// Returns the item's display name; an item of the config catalogue has that of its shown
    /// counterpart, if any.
    QString nameOf(const SCfg_Item& item);

private:
    SCfg_Item* findExactly(const QString& guid);

    CatalogueIndex m_shown;
    CatalogueIndex m_config;
};
