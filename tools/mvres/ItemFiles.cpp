#include "ItemFiles.h"

#include "catalogue/MVThemeMgr.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include <algorithm>
#include <numeric>

ItemFiles::ItemFiles(SCfg_Item& item)
{
    MVThemeMgr::init()->ensureThemeParsed(item);
    add(item);
    const SThemes_a* const theme = item.parsedTheme();
    if (!theme)
        return;
    QSet<SCfg_Item*> known;
    const auto addDependency = [&](const SThemes_a::SDependInfo& slot) {
        if (!slot.m_pItem || known.contains(slot.m_pItem))
            return;
        known.insert(slot.m_pItem);
        m_dependencies.append(slot.m_pItem);
        add(*slot.m_pItem);
    };
    for (const SThemes_a::SDependArray& element : theme->m_vecItems)
        std::for_each(element.cbegin(), element.cend(), addDependency);
    addDependency(theme->m_aStart[eDependType_Text]);
    addDependency(theme->m_aEnd[eDependType_Text]);
    addDependency(theme->m_aMask[eDependType_Filter]);
}

void ItemFiles::add(SCfg_Item& item)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    manager->doItem_Info_Thumb(item);
    manager->doItem_Info_Gif(item);
    manager->doItem_Info_DependRes(item);
    manager->doItem_Info_CfgXML(item);
    add(QStringLiteral("thumbnail"), item.m_info_Thumb);
    add(QStringLiteral("preview"), item.m_info_Gif);
    add(QStringLiteral("config"), item.m_info_CfgXML);
    for (const SFileInfo& resource : qAsConst(item.m_vecResource))
        add(QStringLiteral("resource"), resource);
}

void ItemFiles::add(const QString& what, const SFileInfo& info)
{
    if (info.m_qsFile.isEmpty() || info.m_qsUrl.isEmpty())
        return;
    Entry entry;
    entry.what = what;
    entry.path = QDir::cleanPath(info.m_qsFile); // the installed tree has doubled slashes
    if (m_paths.contains(entry.path))
        return;
    m_paths.insert(entry.path);
    MVThemeMgr* const manager = MVThemeMgr::init();
    entry.url = info.m_bThumbDir
        ? manager->downLoadUrl_Thumb(MVThemeMgr::eDirTag_Display, info.m_eType, info.m_qsUrl)
        : manager->downLoadUrl(MVThemeMgr::eDirTag_Config, info.m_qsUrl);
    const QFileInfo file(info.m_qsFile);
    entry.present = file.exists();
    entry.size = file.size();
    m_entries.append(entry);
}

int ItemFiles::missing() const
{
    return static_cast<int>(std::count_if(m_entries.cbegin(), m_entries.cend(),
                                          [](const Entry& entry) { return !entry.present; }));
}

qint64 ItemFiles::totalSize() const
{
    return std::accumulate(m_entries.cbegin(), m_entries.cend(), qint64{0},
                           [](qint64 sum, const Entry& entry) { return sum + entry.size; });
}

QJsonArray ItemFiles::toJson() const
{
    QJsonArray array;
    for (const Entry& entry : m_entries) {
        array.append(QJsonObject{
            {QStringLiteral("what"), entry.what},
            {QStringLiteral("path"), entry.path},
            {QStringLiteral("url"), entry.url},
            {QStringLiteral("present"), entry.present},
            {QStringLiteral("size"), static_cast<double>(entry.size)},
        });
    }
    return array;
}
