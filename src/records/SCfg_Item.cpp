// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/SCfg_Item.h"

#include <QDebug>
#include <QMutexLocker>

SCfg_Item::SCfg_Item(const SCfg_Item& other)
    : m_eType(other.m_eType)
    , m_qsGUID(other.m_qsGUID)
    , m_qsName(other.m_qsName)
    , m_info_Thumb(other.m_info_Thumb)
    , m_info_CfgXML(other.m_info_CfgXML)
    , m_info_Gif(other.m_info_Gif)
    , m_bCollected(other.m_bCollected)
    , m_bIsText(other.m_bIsText)
    , m_nThemeType(other.m_nThemeType)
{
    // With a shared vector, the next writer, perhaps a download thread, would move the records.
    m_vecResource.reserve(other.m_vecResource.size());
    for (const SFileInfo& resource : other.m_vecResource)
        m_vecResource.append(resource);
    const QMutexLocker lock(other.m_info_CfgXML.m_pMutex.get());
    m_pThemes_a = other.m_pThemes_a;
}

SCfg_Item& SCfg_Item::operator=(const SCfg_Item& other)
{
    if (this != &other)
        *this = SCfg_Item(other);
    return *this;
}

const SThemes_a* SCfg_Item::parsedTheme() const
{
    const QMutexLocker lock(m_info_CfgXML.m_pMutex.get());
    return m_pThemes_a;
}

void SCfg_Item::setParsedTheme(SThemes_a* theme)
{
    const QMutexLocker lock(m_info_CfgXML.m_pMutex.get());
    m_pThemes_a = theme;
}

QDebug operator<<(QDebug debug, const SCfg_Item& item)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "SCfg_Item(kind " << int(item.m_eType) << ", " << item.m_qsGUID
                              << ", \"" << item.m_qsName << "\")";
    return debug;
}
