// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "ProjectFile.h"

#include <QString>
#include <QVector>

/// Finds the items of a project in the catalogue. GUIDs are compared without regard to case. GUI
/// thread.
class ProjectItems
{
public:
    struct Item
    {
        QString guid;
        QString name; ///< the catalogue's; else the project's; else the GUID
        ItemKey key;  ///< empty: not in the catalogue
    };

    explicit ProjectItems(const QVector<ProjectFile::Item>& written);

    /// Returns one entry for each item of the project, in its order.
    const QVector<Item>& items() const { return m_items; }
    /// Returns the items that are in the catalogue.
    QVector<ItemKey> known() const;

private:
    QVector<Item> m_items;
};
