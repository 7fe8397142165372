// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/ItemFiles.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "host/HostSettings.h"
#include "records/FileView.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <numeric>

namespace {

/// Returns whether the config must be fetched again; until then the other missing files are
/// unknown.
bool isConfigDamaged(SCfg_Item& item)
{
    return !MVThemeMgr::init()->ensureThemeParsed(item) && hostSettings().checkContent;
}

/// Returns whether the item cannot be used without a missing file.
bool isNeeded(const SFileInfo& info)
{
    return !hostSettings().showWithoutPreviews || !FileView(info).isDisplayHalf();
}

} // namespace

ItemFiles::ItemFiles(SCfg_Item& item, Scope scope)
{
    const PathGuard::Folders folders;
    add(item);
    const SThemes_a* const theme = scope == Scope::WithUses ? item.parsedTheme() : nullptr;
    if (!theme)
        return;
    QSet<const SCfg_Item*> known;
    theme->forEachDependency([&](const SThemes_a::SDependInfo& dependency) {
        SCfg_Item* const used = dependency.m_pItem;
        if (!used || known.contains(used))
            return true;
        known.insert(used);
        m_uses.append(used);
        add(*used);
        return true;
    });
}

void ItemFiles::add(SCfg_Item& item)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    manager->doItem_Info_Thumb(item);
    manager->doItem_Info_Gif(item);
    manager->doItem_Info_DependRes(item);
    manager->doItem_Info_CfgXML(item);
    add(Role::Thumbnail, item, item.m_info_Thumb);
    add(Role::Preview, item, item.m_info_Gif);
    add(Role::Config, item, item.m_info_CfgXML);
    for (const SFileInfo& resource : qAsConst(item.m_vecResource))
        add(Role::Resource, item, resource);
}

void ItemFiles::add(Role role, const SCfg_Item& item, const SFileInfo& info)
{
    const FileView view(info);
    const QString file = view.file();
    if (file.isEmpty() || view.name().isEmpty())
        return;
    const QString path = QDir::cleanPath(file); // the installed tree has doubled slashes
    if (m_paths.contains(path))
        return;
    m_paths.insert(path);
    const QFileInfo onDisk(file);
    const qint64 size = onDisk.size(); // first: it also tells whether the file exists
    m_entries.append(
        {role, &item, path, MVThemeMgr::init()->addressOf(info), onDisk.exists(), size});
}

int ItemFiles::missingCount() const
{
    return static_cast<int>(std::count_if(m_entries.cbegin(), m_entries.cend(),
                                          [](const Entry& entry) { return !entry.isPresent; }));
}

qint64 ItemFiles::totalBytes() const
{
    return std::accumulate(m_entries.cbegin(), m_entries.cend(), qint64{0},
                           [](qint64 sum, const Entry& entry) { return sum + entry.sizeBytes; });
}

int ItemFiles::countNeeded(SCfg_Item& item)
{
    return missingOf(item).needed;
}

QVector<int> ItemFiles::countNeeded(const QVector<SCfg_Item*>& items)
{
    const PathGuard::Folders folders;
    QVector<int> counts;
    counts.reserve(items.size());
    for (SCfg_Item* const item : items)
        counts.append(countNeeded(*item));
    return counts;
}

ItemFiles::Missing ItemFiles::missingOf(SCfg_Item& item)
{
    QSet<QString> needed;
    if (isConfigDamaged(item))
        needed.insert(FileView(item.m_info_CfgXML).file());
    QVector<SFileInfo*> files;
    MVThemeMgr::init()->getNeedDownLoadFiles(&item, files);
    Missing missing;
    for (const SFileInfo* const info : qAsConst(files)) {
        const QString file = FileView(*info).file();
        missing.paths.insert(QDir::cleanPath(file));
        if (isNeeded(*info))
            needed.insert(file);
    }
    missing.needed = static_cast<int>(needed.size());
    return missing;
}

bool ItemFiles::needsAny(SCfg_Item& item)
{
    return isConfigDamaged(item) || countNeeded(item) > 0;
}
