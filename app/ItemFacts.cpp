#include "ItemFacts.h"

#include "catalogue/MVThemeMgr.h"
#include "ShownItems.h"

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <numeric>

namespace {

/// Download threads write the records.
QString localPath(const SFileInfo& info)
{
    const QMutexLocker lock(info.m_pMutex.get());
    return info.m_qsUrl.isEmpty() ? QString() : info.m_qsFile;
}

QString existing(const QString& path)
{
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

ItemFacts::ItemFacts(SCfg_Item& item)
    : m_name(item.m_qsName)
    , m_kind(kindName(item.m_eType))
{
    if (item.m_eType == eCfgItem_Theme)
        m_kind += QStringLiteral(" · ") + themeTypeName(item.m_nThemeType);
    MVThemeMgr::init()->ensureThemeParsed(item);
    addFiles(item);
    m_thumbnail = existing(localPath(item.m_info_Thumb));
    m_animation = existing(localPath(item.m_info_Gif));
    addUsedBy(item);
}

void ItemFacts::addUsedBy(const SCfg_Item& theme)
{
    const SThemes_a* const parsed = theme.parsedTheme();
    if (!parsed)
        return;
    ShownItems shownItems;
    const auto add = [&](const SThemes_a::SDependArray& element) {
        for (const SThemes_a::SDependInfo& slot : element) {
            if (slot.m_pItem)
                addUsed(*slot.m_pItem, shownItems);
        }
    };
    std::for_each(parsed->m_vecItems.cbegin(), parsed->m_vecItems.cend(), add);
    add(parsed->m_aStart);
    add(parsed->m_aEnd);
    add(parsed->m_aMask);
}

void ItemFacts::addUsed(SCfg_Item& item, ShownItems& shownItems)
{
    if (m_usedItems.contains(&item))
        return;
    m_usedItems.insert(&item);
    // The config catalogue, which dependencies point into, has no names.
    const SCfg_Item* const shown = shownItems.find(item.m_eType, item.m_qsGUID);
    const QString name = shown ? shown->m_qsName : item.m_qsName;
    m_used.append({name.isEmpty() ? item.m_qsGUID : name, kindName(item.m_eType)});
    addFiles(item);
}

void ItemFacts::addFiles(SCfg_Item& item)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->doItem_Info_Thumb(item);
    catalogue->doItem_Info_Gif(item);
    catalogue->doItem_Info_CfgXML(item);
    catalogue->doItem_Info_DependRes(item);
    QStringList paths{localPath(item.m_info_CfgXML)};
    for (const SFileInfo& resource : qAsConst(item.m_vecResource))
        paths.append(localPath(resource));
    paths.append(localPath(item.m_info_Thumb));
    paths.append(localPath(item.m_info_Gif));
    for (const QString& path : qAsConst(paths)) {
        if (path.isEmpty())
            continue;
        const QFileInfo info(QDir::cleanPath(path)); // the installed tree has doubled slashes
        if (m_paths.contains(info.filePath()))
            continue;
        m_paths.insert(info.filePath());
        m_files.append({info.fileName(), info.filePath(), info.exists(), info.size()});
    }
}

QString ItemFacts::kindName(ECfgItemType kind)
{
    switch (kind) {
    case eCfgItem_Filter:
        return tr("Video filter");
    case eCfgItem_Transition:
        return tr("Transition");
    case eCfgItem_Motion:
        return tr("Motion");
    case eCfgItem_Theme:
        return tr("Theme");
    case eCfgItem_BgMaterial:
        return tr("Background");
    case eCfgItem_Resource:
        break;
    }
    return {};
}

QString ItemFacts::themeTypeName(int type)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    if (type == catalogue->Themetype(QStringLiteral("festivals")))
        return tr("Festivals");
    if (type == catalogue->Themetype(QStringLiteral("travel")))
        return tr("Travel");
    if (type == catalogue->Themetype(QStringLiteral("banquets")))
        return tr("Banquets");
    return tr("Others");
}

qint64 ItemFacts::totalSize() const
{
    return std::accumulate(m_files.cbegin(), m_files.cend(), qint64{0},
                           [](qint64 sum, const File& file) { return sum + file.size; });
}
