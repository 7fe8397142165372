// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProjectItems.h"

#include "catalogue/MVThemeMgr.h"
#include "records/KindTable.h"

#include <QHash>
#include <QUuid>

namespace {

/// Returns the items of both catalogue files; those of the lists take precedence.
QHash<QUuid, const SCfg_Item*> allItems()
{
    QHash<QUuid, const SCfg_Item*> all;
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (const auto* const catalogue : {&manager->getDisplayXML(), &manager->getCfgXML()}) {
        for (const SKindInfo& kind : KindTable::all()) {
            for (const SCfg_Item& item : *catalogue->ofKind(kind.type)) {
                const QUuid id(item.m_qsGUID);
                if (!id.isNull() && !all.contains(id))
                    all.insert(id, &item);
            }
        }
    }
    return all;
}

} // namespace

ProjectItems::ProjectItems(const QVector<ProjectFile::Item>& written)
{
    const QHash<QUuid, const SCfg_Item*> all = allItems();
    for (const ProjectFile::Item& item : written) {
        const SCfg_Item* const known = all.value(QUuid(item.guid));
        QString name = known ? known->m_qsName : QString();
        for (const QString& other : {item.name, item.guid})
            name = name.isEmpty() ? other : name;
        m_items.append(
            {item.guid, name, known ? ItemKey{known->m_eType, known->m_qsGUID} : ItemKey()});
    }
}

QVector<ItemKey> ProjectItems::known() const
{
    QVector<ItemKey> keys;
    for (const Item& item : m_items) {
        if (!item.key.isEmpty())
            keys.append(item.key);
    }
    return keys;
}
