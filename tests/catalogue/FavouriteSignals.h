#pragma once

#include "catalogue/MVThemeMgr.h"

#include <QVector>

/// Collects what the catalogue's three signals carry while it lives.
class FavouriteSignals
{
public:
    FavouriteSignals()
    {
        MVThemeMgr* const manager = MVThemeMgr::init();
        collect(manager, &MVThemeMgr::sigThemesCollected, 0);
        collect(manager, &MVThemeMgr::sigFilterCollected, 1);
        collect(manager, &MVThemeMgr::sigBgMaterialCollected, 2);
    }
    Q_DISABLE_COPY_MOVE(FavouriteSignals)

    /// Arguments of one signal: 0 themes, 1 filters, 2 background materials.
    const QVector<const SCfg_Item*>& of(int signal) const { return m_items[signal]; }

private:
    void collect(MVThemeMgr* manager, void (MVThemeMgr::*signal)(const SCfg_Item*), int index)
    {
        QObject::connect(manager, signal, &m_context,
                         [this, index](const SCfg_Item* item) { m_items[index].append(item); });
    }

    QVector<const SCfg_Item*> m_items[3];
    QObject m_context; // ends the connections
};
