// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/MVThemeMgr.h"

#include <QVector>

#include <functional>

/// Records the arguments of the catalogue's three favourites signals during its lifetime.
class FavouriteSignals
{
public:
    using Observer = std::function<void(const SCfg_Item*)>;

    /// Calls the observer while a signal is being emitted.
    explicit FavouriteSignals(Observer observer = {})
        : m_observer(std::move(observer))
    {
        const MVThemeMgr* const manager = MVThemeMgr::init();
        QObject::connect(manager, &MVThemeMgr::sigThemesCollected, &m_context,
                         [this](const SCfg_Item* item) { collect(0, item); });
        QObject::connect(manager, &MVThemeMgr::sigFilterCollected, &m_context,
                         [this](const SCfg_Item* item) { collect(1, item); });
        QObject::connect(manager, &MVThemeMgr::sigBgMaterialCollected, &m_context,
                         [this](const SCfg_Item* item) { collect(2, item); });
    }
    Q_DISABLE_COPY_MOVE(FavouriteSignals)

    /// Returns the arguments of one signal: 0 themes, 1 filters, 2 background materials.
    const QVector<const SCfg_Item*>& of(int signal) const { return m_items[signal]; }

private:
    void collect(int signal, const SCfg_Item* item)
    {
        m_items[signal].append(item);
        if (m_observer)
            m_observer(item);
    }

    Observer m_observer;
    QVector<const SCfg_Item*> m_items[3];
    QObject m_context; // its destruction ends the connections
};
