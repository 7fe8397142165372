// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"
#include "records/SFileInfo.h"

#include <QMetaType>
#include <QString>
#include <QVector>

class QDebug;
struct SThemes_a;

/// One item of the catalogue: a video filter, transition, motion, theme or background material.
///
/// The catalogue owns its items; all other code holds plain pointers into its vectors, which become
/// invalid in MVThemeMgr::load(true) and MVThemeMgr::clear(). Apart from the file records (see
/// SFileInfo) and m_pThemes_a, only the loading thread writes the fields.
struct MVRESOURCE_EXPORT SCfg_Item
{
    SCfg_Item() = default;
    /// Copies every field; the copy shares the parsed theme config and the mutexes with its source.
    /// The resource records get their own storage, so pointers into either vector stay valid.
    SCfg_Item(const SCfg_Item& other);
    /// Copies every field, as the constructor does.
    SCfg_Item& operator=(const SCfg_Item& other);
    /// Moves every field; the source may only be assigned to or destroyed.
    SCfg_Item(SCfg_Item&& other) noexcept = default;
    /// Moves every field, as the constructor does.
    SCfg_Item& operator=(SCfg_Item&& other) noexcept = default;
    ~SCfg_Item() = default;

    /// The kind of item.
    ECfgItemType m_eType = eCfgItem_Filter;
    /// Identity: the GUID in braces as written in the catalogue. Compared exactly, including case.
    QString m_qsGUID;
    QString m_qsName;                 ///< display name
    SFileInfo m_info_Thumb;           ///< thumbnail image
    SFileInfo m_info_CfgXML;          ///< the item's own config file
    SFileInfo m_info_Gif;             ///< animated preview (themes)
    QVector<SFileInfo> m_vecResource; ///< resource files (archives), in document order
    bool m_bCollected = false;        ///< the user has marked the item as a favourite
    bool m_bIsText = false;           ///< a text item
    /// Parsed config of a theme, not owned; null for other kinds and until parsed. Guarded by the
    /// mutex of m_info_CfgXML: a download thread sets it while others read it.
    SThemes_a* m_pThemes_a = nullptr;
    /// Returns m_pThemes_a, read under that mutex.
    const SThemes_a* parsedTheme() const;
    /// Sets m_pThemes_a under that mutex.
    void setParsedTheme(SThemes_a* theme);
    /// Theme type code, see MVThemeMgr::Themetype: 0 others, 2 festivals, 3 travel, 4 banquets.
    int m_nThemeType = 0;
};

/// Prints kind, GUID and name for log output and test failures.
MVRESOURCE_EXPORT QDebug operator<<(QDebug debug, const SCfg_Item& item);

Q_DECLARE_TYPEINFO(SCfg_Item, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(SCfg_Item)
// For queued connections to the signals that carry an item.
Q_DECLARE_METATYPE(SCfg_Item*)
Q_DECLARE_METATYPE(const SCfg_Item*)
