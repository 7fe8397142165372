// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/DependencySlots.h"
#include "records/EDependType.h"
#include "records/MvResourceExport.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <array>
#include <functional>

class QDebug;
struct SCfg_Item;

/// The parsed config file of one theme: the items that make up each of its elements.
///
/// Created by MVThemeMgr::read_resource_config_Themes_a and immutable afterwards, so every thread
/// may read it. The catalogue owns it and deletes it in the next load(true) or clear().
struct MVRESOURCE_EXPORT SThemes_a
{
    /// One dependency slot.
    struct SDependInfo
    {
        /// GUID of the catalogue item used; empty when the slot is absent.
        QString m_qsGUID;
        /// That item in the config catalogue, which owns it; null if absent or not found.
        SCfg_Item* m_pItem = nullptr;
        /// All attributes of the slot's "GUID" element, for the editor that applies the theme.
        QMap<QString, QString> m_mapAttr;
    };
    /// One slot per EDependType.
    using SDependArray = std::array<SDependInfo, DependencySlots::count>;

    QString m_qsGUID;                 ///< of the theme
    QString m_qsName;                 ///< of the theme
    QVector<SDependArray> m_vecItems; ///< the elements, in document order
    SDependArray m_aStart;            ///< opening element; only the text slot is filled
    SDependArray m_aEnd;              ///< closing element; only the text slot is filled
    SDependArray m_aMask;             ///< mask; only the filter slot is filled

    /// Calls `visit` for every slot that can be filled, in the order of the elements, then opening,
    /// end and mask. Stops at the first call that returns false, and returns that.
    bool forEachDependency(const std::function<bool(const SDependInfo&)>& visit) const;
};

/// Prints the theme's GUIDs for log output and test failures.
MVRESOURCE_EXPORT QDebug operator<<(QDebug debug, const SThemes_a& theme);
