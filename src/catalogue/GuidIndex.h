// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/SCfg_Item.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <algorithm>

/// Finds many items of one vector by GUID: the first exact match in vector order, like
/// MVThemeMgr::findItemByID.
///
/// The first few searches scan the vector; further ones use a hash, so that any number of searches
/// takes linear time. The vector is not copied: it must outlive the index and must not change while
/// the index is in use. One thread at a time.
class GuidIndex
{
public:
    /// Prepares an index of `items`, which it does not copy.
    explicit GuidIndex(const QVector<SCfg_Item>& items)
        : m_items(items)
    {
    }

    /// Returns the index of the first item with that GUID, or -1.
    int find(const QString& guid)
    {
        constexpr int maxScans = 8;
        if (m_scans < maxScans) {
            ++m_scans;
            return scan(guid);
        }
        if (m_first.isEmpty())
            build();
        return m_first.value(guid, -1);
    }

    /// Returns the first item with that GUID, or null. Owned by the vector.
    const SCfg_Item* findItem(const QString& guid)
    {
        const int found = find(guid);
        return found < 0 ? nullptr : &m_items.at(found);
    }

private:
    int scan(const QString& guid) const
    {
        const auto found =
            std::find_if(m_items.cbegin(), m_items.cend(),
                         [&guid](const SCfg_Item& item) { return item.m_qsGUID == guid; });
        return found == m_items.cend() ? -1 : static_cast<int>(found - m_items.cbegin());
    }

    void build()
    {
        m_first.reserve(m_items.size());
        for (int i = m_items.size() - 1; i >= 0; --i)
            m_first.insert(m_items.at(i).m_qsGUID, i); // backwards: the first of equal ones wins
    }

    const QVector<SCfg_Item>& m_items;
    int m_scans = 0;
    QHash<QString, int> m_first;
};
