#pragma once

#include "records/SCfg_Item.h"

#include <QHash>
#include <QString>
#include <QVector>

/// Finds items by GUID while a reader works on a vector, so that reading stays linear in its size:
/// the first in vector order, exactly compared. Internal to the library; the vector must not change
/// while the index is in use.
class GuidIndex
{
public:
    explicit GuidIndex(const QVector<SCfg_Item>& items)
    {
        m_first.reserve(items.size());
        for (int i = items.size() - 1; i >= 0; --i)
            m_first.insert(items.at(i).m_qsGUID, i); // backwards: the first of equal GUIDs stays
    }

    /// Index of the first item with that GUID, -1 if there is none.
    int find(const QString& guid) const { return m_first.value(guid, -1); }

private:
    QHash<QString, int> m_first;
};
