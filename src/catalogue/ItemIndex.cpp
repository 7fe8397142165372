// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/ItemIndex.h"

#include "records/KindTable.h"

#include <QSet>
#include <QUuid>

namespace {

/// Returns a GUID as written in catalogues, from one in any case, with or without braces; empty for
/// any other text. QUuid alone would ignore a suffix.
QString canonical(const QString& guid)
{
    const QUuid id(guid);
    const bool whole = guid.compare(id.toString(QUuid::WithBraces), Qt::CaseInsensitive) == 0
        || guid.compare(id.toString(QUuid::WithoutBraces), Qt::CaseInsensitive) == 0;
    return whole ? id.toString().toUpper() : QString();
}

} // namespace

ItemIndex::ItemIndex()
    : m_shown(MVThemeMgr::init()->getDisplayXML())
    , m_config(MVThemeMgr::init()->getCfgXML())
{
}

SCfg_Item* ItemIndex::find(const QString& guid)
{
    if (SCfg_Item* const item = findExactly(guid))
        return item;
    const QString written = canonical(guid);
    return written.isEmpty() ? nullptr : findExactly(written);
}

QVector<SCfg_Item*> ItemIndex::findAll(const QStringList& guids, QString& unknown)
{
    QVector<SCfg_Item*> items;
    QSet<SCfg_Item*> known;
    for (const QString& guid : guids) {
        SCfg_Item* const item = find(guid);
        if (!item) {
            unknown = guid;
            return {};
        }
        if (known.contains(item))
            continue;
        known.insert(item);
        items.append(item);
    }
    return items;
}

bool ItemIndex::isGuid(const QString& text)
{
    return !canonical(text).isEmpty();
}

SCfg_Item* ItemIndex::findExactly(const QString& guid)
{
    for (CatalogueIndex* const index : {&m_shown, &m_config}) {
        for (const SKindInfo& kind : KindTable::all()) {
            if (SCfg_Item* const item = index->find(kind.type, guid))
                return item;
        }
    }
    return nullptr;
}

QString ItemIndex::nameOf(const SCfg_Item& item)
{
    if (!item.m_qsName.isEmpty())
        return item.m_qsName;
    const SCfg_Item* const shown = m_shown.find(item.m_eType, item.m_qsGUID);
    return shown ? shown->m_qsName : QString();
}
