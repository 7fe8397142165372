// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemFacts.h"

#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "host/PictureFormat.h"
#include "records/FileView.h"
#include "records/ThemeTypes.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>

namespace {

/// Returns the rank of a file among those of its item: the files that a user has fetched come
/// first.
int rank(const ItemFiles::Entry& entry)
{
    switch (entry.role) {
    case ItemFiles::Role::Config:
        return 0;
    case ItemFiles::Role::Resource:
        return 1;
    case ItemFiles::Role::Thumbnail:
        return 2;
    case ItemFiles::Role::Preview:
        break;
    }
    return 3;
}

/// Returns the path of an item's own picture; empty if it is not on disk.
QString existing(const SFileInfo& info)
{
    const FileView view(info);
    return !view.name().isEmpty() && QFileInfo(view.file()).isFile() ? view.file() : QString();
}

} // namespace

ItemFacts::ItemFacts(SCfg_Item& item)
    : m_name(item.m_qsName)
    , m_kind(kindName(item.m_eType))
{
    if (item.m_eType == eCfgItem_Theme)
        m_kind += QStringLiteral(" · ") + themeTypeName(item.m_nThemeType);
    MVThemeMgr::init()->ensureThemeParsed(item);
    const ItemFiles files(item);
    addFiles(files);
    addUsed(files);
    m_thumbnail = existing(item.m_info_Thumb);
    m_animation = existing(item.m_info_Gif);
}

void ItemFacts::addUsed(const ItemFiles& files)
{
    CatalogueIndex shownItems(MVThemeMgr::init()->getDisplayXML());
    for (const SCfg_Item* const item : files.uses()) {
        // Dependencies point into the config catalogue, which has no names.
        const SCfg_Item* const shown = shownItems.find(item->m_eType, item->m_qsGUID);
        const QString name = shown ? shown->m_qsName : item->m_qsName;
        m_used.append({name.isEmpty() ? item->m_qsGUID : name, kindName(item->m_eType)});
    }
}

void ItemFacts::addFiles(const ItemFiles& files)
{
    QVector<ItemFiles::Entry> entries = files.entries();
    for (auto first = entries.begin(); first != entries.end();) {
        const auto last = std::find_if(first, entries.end(), [&](const ItemFiles::Entry& entry) {
            return entry.item != first->item;
        });
        std::stable_sort(first, last, [](const ItemFiles::Entry& a, const ItemFiles::Entry& b) {
            return rank(a) < rank(b);
        });
        first = last;
    }
    CatalogueIndex shownItems(MVThemeMgr::init()->getDisplayXML());
    for (const ItemFiles::Entry& entry : qAsConst(entries)) {
        QString label = labelOf(entry);
        if (entry.item != entries.constFirst().item) {
            const SCfg_Item* const shown =
                shownItems.find(entry.item->m_eType, entry.item->m_qsGUID);
            label =
                tr("%1 (%2)").arg(label, shown ? shown->m_qsName : kindName(entry.item->m_eType));
        }
        m_files.append({label, QFileInfo(entry.path).fileName(), entry.path, entry.isPresent,
                        entry.sizeBytes});
    }
}

QString ItemFacts::labelOf(const ItemFiles::Entry& entry)
{
    switch (entry.role) {
    case ItemFiles::Role::Config:
        return tr("Definition");
    case ItemFiles::Role::Thumbnail:
        return tr("Picture");
    case ItemFiles::Role::Preview:
        return tr("Animated preview");
    case ItemFiles::Role::Resource:
        break;
    }
    return resourceLabel(QFileInfo(entry.path).fileName());
}

QString ItemFacts::resourceLabel(const QString& fileName)
{
    const QFileInfo file(fileName);
    const QString suffix = file.suffix().toLower();
    QString name = file.completeBaseName();
    static const QStringList music{QStringLiteral("mp3"), QStringLiteral("ogg"),
                                   QStringLiteral("wav"), QStringLiteral("m4a"),
                                   QStringLiteral("aac"), QStringLiteral("flac")};
    if (music.contains(suffix))
        return tr("Music: %1").arg(name);
    if (PictureFormat::isPictureName(fileName))
        return tr("Picture: %1").arg(name);
    if (suffix == QLatin1String("zip"))
        return tr("Package: %1").arg(name);
    return name;
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
    const QString name = ThemeTypes::name(type);
    if (name == QLatin1String("festivals"))
        return tr("Festivals");
    if (name == QLatin1String("travel"))
        return tr("Travel");
    if (name == QLatin1String("banquets"))
        return tr("Banquets");
    return tr("Others");
}

qint64 ItemFacts::totalSize() const
{
    return std::accumulate(m_files.cbegin(), m_files.cend(), qint64{0},
                           [](qint64 sum, const File& file) { return sum + file.size; });
}
