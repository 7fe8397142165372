// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

/// The data of one row of an mvThemelistview, by Qt role.
enum EUIItemRole : int {
    UIItemRole_GUID = Qt::UserRole,          ///< QString: SCfg_Item::m_qsGUID; empty for "More>>"
    UIItemRole_ThemeType = Qt::UserRole + 1, ///< int: SCfg_Item::m_nThemeType
    UIItemRole_Name = Qt::UserRole + 2,      ///< QString: the name that the filter matches
    /// QObject*: the row's MVThemeItemWdg, not owned; null while the row has none.
    UIItemRole_Widget = Qt::UserRole + 5,
    UIItemRole_Updatable = Qt::UserRole + 6, ///< true: among mvThemelistview::setUpdatable()
    UIItemRole_New = Qt::UserRole + 7,       ///< true: among mvThemelistview::setNew()
};
