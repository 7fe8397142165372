// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueUse.h"
#include "catalogue/CollectFile.h"
#include "catalogue/FixedGuids.h"
#include "catalogue/NoneEntry.h"
#include "catalogue/PathGuard.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "records/FileView.h"
#include "records/KindTable.h"

#include <QHash>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <functional>

namespace {

using Items = QVector<SCfg_Item> MVThemeMgr::SResourceXML::*;

// In the order of ECfgItemType.
constexpr std::array<Items, KindTable::count> vectors{
    &MVThemeMgr::SResourceXML::vecFilter, &MVThemeMgr::SResourceXML::vecTransition,
    &MVThemeMgr::SResourceXML::vecMotion, &MVThemeMgr::SResourceXML::vecTheme,
    &MVThemeMgr::SResourceXML::vecBgMaterial};

} // namespace

const QVector<SCfg_Item>* MVThemeMgr::SResourceXML::ofKind(ECfgItemType k) const
{
    return KindTable::find(k) ? &(this->*vectors.at(k)) : nullptr;
}

QVector<SCfg_Item>* MVThemeMgr::SResourceXML::ofKind(ECfgItemType k)
{
    return KindTable::find(k) ? &(this->*vectors.at(k)) : nullptr;
}

bool MVThemeMgr::SResourceXML::isEmpty() const
{
    return std::all_of(vectors.begin(), vectors.end(),
                       [this](Items items) { return (this->*items).isEmpty(); });
}

MVThemeMgr* MVThemeMgr::init()
{
    static MVThemeMgr manager;
    return &manager;
}

MVThemeMgr::MVThemeMgr()
    : m_lstFixedGUID(fixedGuids())
    , m_pThemeCollect(std::make_unique<CollectFile>())
    , m_pFilterCollect(std::make_unique<CollectFile>())
    , m_pBgMaterialCollect(std::make_unique<CollectFile>())
{
    // The destructor runs after main() and needs the data folder, so the settings, which live
    // longer, must exist from the start.
    hostSettings();
}

MVThemeMgr::~MVThemeMgr()
{
    saveThemeCollect();
    saveFilterCollect();
}

void MVThemeMgr::load(bool bReload)
{
    if (!m_bLoaded || bReload)
        tryReload();
}

bool MVThemeMgr::tryReload()
{
    return change("load", &MVThemeMgr::readAll);
}

/// Runs a function that invalidates the items, between the signals that announce it and its end.
bool MVThemeMgr::change(const char* operation, void (MVThemeMgr::*function)())
{
    CatalogueChanges* const changes = CatalogueChanges::instance();
    emit changes->announced();
    const bool isAllowed = !isInUse(operation);
    if (isAllowed)
        (this->*function)();
    emit changes->ended(isAllowed);
    return isAllowed;
}

void MVThemeMgr::readAll()
{
    const PathGuard::Folders folders;
    clearVectors();
    readThemeCollect();
    readFilterCollect();
    read_resource_config_xml();
    read_resource_display_xml();
    if (hasThemes())
        parseThemes();
    m_bLoaded = true;
}

/// Returns whether the product uses themes, so that their own configs count.
bool MVThemeMgr::hasThemes()
{
    return ProductParam::isOn(ProductParam::hasThemes);
}

/// Returns whether a file of an item is really below the download root or in the installed tree, by
/// its name and after resolving links. A file without a path is never read.
bool MVThemeMgr::isReadable(const QString& file)
{
    return file.isEmpty() || PathGuard::isReallyInside(m_qsSaveRoot, file)
        || PathGuard::isReallyInside(Path_resource_RootDir(eLoadDir_Local), file);
}

/// Returns whether the items must stay in place; if so, logs a warning.
bool MVThemeMgr::isInUse(const char* operation)
{
    const int uses = CatalogueUse::count();
    if (uses == 0)
        return false;
    LogL("MVThemeMgr", LogLevel::warning, "%s does nothing: the catalogue is in use (%d)",
         operation, uses);
    return true;
}

void MVThemeMgr::clear()
{
    tryClear();
}

bool MVThemeMgr::tryClear()
{
    return change("clear", &MVThemeMgr::forgetAll);
}

void MVThemeMgr::forgetAll()
{
    m_bLoaded = false;
    m_pCurApplyTheme = nullptr;
    clearVectors();
}

void MVThemeMgr::clearVectors()
{
    m_sCfgXML = SResourceXML();
    m_sDisplayXML = SResourceXML();
    m_bStandIn = false;
    const QMutexLocker lock(&m_mutexParsed);
    m_vecParsed.clear();
}

SCfg_Item* MVThemeMgr::findItemByID(const QVector<SCfg_Item>& vec, QString id)
{
    const auto found = std::find_if(vec.cbegin(), vec.cend(),
                                    [&id](const SCfg_Item& item) { return item.m_qsGUID == id; });
    // The vectors are const here only so that the search does not detach them.
    return found == vec.cend() ? nullptr : const_cast<SCfg_Item*>(&*found);
}

SCfg_Item* MVThemeMgr::findItemByIDFromConfig(ECfgItemType k, QString id)
{
    const QVector<SCfg_Item>* items = getCfgXML().ofKind(k);
    return items ? findItemByID(*items, id) : nullptr;
}

SCfg_Item* MVThemeMgr::findItemByIDFromDisplay(ECfgItemType k, QString id)
{
    const QVector<SCfg_Item>* items = getDisplayXML().ofKind(k);
    return items ? findItemByID(*items, id) : nullptr;
}

bool MVThemeMgr::isEditFilter(QVector<SCfg_Item>& vec, QString id)
{
    return findItemByID(vec, id) != nullptr;
}

MVThemeMgr::ELoadDir MVThemeMgr::isLocal_Theme(const SCfg_Item& item)
{
    const QString name = FileView(item.m_info_CfgXML).name();
    return name.startsWith(QLatin1Char('/')) ? eLoadDir_Download : eLoadDir_Local;
}

void MVThemeMgr::getNeedDownLoadFiles(SCfg_Item* item, QVector<SFileInfo*>& out)
{
    listNeededFiles(item, out);
}

/// Returns the records of the item's own missing files.
QVector<SFileInfo*> MVThemeMgr::ownNeededFiles(SCfg_Item& item)
{
    QVector<SFileInfo*> missing;
    if (!doItem_Info_Thumb(item))
        missing.append(&item.m_info_Thumb);
    if (!doItem_Info_Gif(item))
        missing.append(&item.m_info_Gif);
    doItem_Info_DependRes(item, missing);
    if (!doItem_Info_CfgXML(item))
        missing.append(&item.m_info_CfgXML);
    return missing;
}

bool MVThemeMgr::listNeededFiles(SCfg_Item* item, QVector<SFileInfo*>& out)
{
    // An item that is used repeatedly is looked up on disk once.
    QHash<SCfg_Item*, QVector<SFileInfo*>> known;
    const std::function<bool(SCfg_Item*)> add = [&](SCfg_Item* needed) {
        if (isNoneEntry(*needed)) {
            doItem_Info_Thumb(*needed);
            out.clear();
            return true;
        }
        const auto found = known.constFind(needed);
        const QVector<SFileInfo*> own =
            found == known.constEnd() ? *known.insert(needed, ownNeededFiles(*needed)) : *found;
        if (out.size() + own.size() > maxNeededFiles)
            return false;
        out += own;
        const SThemes_a* const theme = needed->parsedTheme();
        return !theme || theme->forEachDependency([&](const SThemes_a::SDependInfo& dependency) {
            return !dependency.m_pItem || add(dependency.m_pItem);
        });
    };
    if (add(item))
        return true;
    LogL("MVThemeMgr", LogLevel::warning, "item [%s] needs more than %d files and cannot be used",
         item->m_qsGUID.toUtf8().constData(), maxNeededFiles);
    return false;
}
