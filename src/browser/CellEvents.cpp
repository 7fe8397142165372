// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellEvents.h"

#include "records/SCfg_Item.h"

CellEvents* CellEvents::instance()
{
    static CellEvents events;
    return &events;
}

void CellEvents::post(ItemSignal signal, const SCfg_Item* item)
{
    if (!item)
        return;
    QMetaObject::invokeMethod(
        instance(),
        [signal, kind = item->m_eType, guid = item->m_qsGUID] {
            emit(instance()->*signal)(kind, guid);
        },
        Qt::QueuedConnection);
}

void CellEvents::postEnd(const SCfg_Item& item, const SItemDownloadResult& result)
{
    QMetaObject::invokeMethod(
        instance(),
        [kind = item.m_eType, guid = item.m_qsGUID, result] {
            emit instance()->downloadEnded(kind, guid, result);
        },
        Qt::QueuedConnection);
}

void CellEvents::postMore()
{
    QMetaObject::invokeMethod(
        instance(), [] { emit instance()->moreWanted(); }, Qt::QueuedConnection);
}
