// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ResourceStorage.h"

#include "catalogue/CatalogueUse.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "download/FileHolders.h"
#include "download/FileLedger.h"
#include "download/FolderWalk.h"
#include "download/ItemUpdate.h"
#include "download/ResourceEvents.h"
#include "download/RootPlaces.h"
#include "host/AppOptions.h"
#include "host/LogL.h"
#include "host/Utils.h"
#include "records/KindTable.h"
#include "records/SCfg_Item.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

using Use = ResourceStorage::Use;
using Removal = ResourceStorage::Removal;
using Moved = ResourceStorage::Moved;

Use useOf(const FileHolders& holders, const SCfg_Item& item, const QVector<ItemFiles::Entry>& files,
          int ownCount)
{
    Use use;
    use.item = &item;
    for (const ItemFiles::Entry& file : files)
        (holders.countOf(file.path) > ownCount ? use.sharedBytes : use.ownBytes) += file.sizeBytes;
    return use;
}

bool isSame(const SCfg_Item& left, const SCfg_Item& right)
{
    return left.m_eType == right.m_eType && left.m_qsGUID == right.m_qsGUID;
}

/// Returns whether an item is one of those that need their files.
bool holds(const FileHolders& holders, const SCfg_Item& item)
{
    const auto& all = holders.all();
    return std::any_of(all.cbegin(), all.cend(), [&](const FileHolders::Holder& holder) {
        return isSame(*holder.item, item);
    });
}

QSet<QString> filesIn(const QVector<Removal>& removals)
{
    QSet<QString> files;
    for (const Removal& removal : removals) {
        for (const Moved& file : removal.files)
            files.insert(file.path);
    }
    return files;
}

/// Moves a file into the folder of removed files; returns false if that fails.
bool moveAside(const QString& path, const QString& folder, Removal& removal)
{
    const QString aside = folder + QString::number(removal.files.size());
    if (!MVThemeMgr::init()->isDownloadPath(path) || !QFileInfo(folder).isDir()
        || !QFile::rename(path, aside))
        return false;
    removal.files.append({path, aside});
    return true;
}

/// Creates a folder for the files of one removal, and returns it with its trailing slash.
QString newRemovedFolder()
{
    qint64 number = QDateTime::currentMSecsSinceEpoch();
    while (QFileInfo::exists(RootPlaces::removed() + QString::number(number)))
        ++number;
    const QString folder = RootPlaces::removed() + QString::number(number) + QLatin1Char('/');
    AppOptions::instance()->ensureDirExists(folder);
    return folder;
}

/// Returns the halves of the download root in which catalogues place files; only those whose
/// catalogue has items.
QStringList halves()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    if (manager->getCfgXML().isEmpty())
        return {};
    QStringList halves = {
        manager->Path_resource_Dir(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config)};
    if (!manager->getDisplayXML().isEmpty())
        halves.append(
            manager->Path_resource_Dir(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display));
    return halves;
}

qint64 sizeOf(const QStringList& files)
{
    return std::accumulate(
        files.cbegin(), files.cend(), qint64{0},
        [](qint64 sum, const QString& file) { return sum + QFileInfo(file).size(); });
}

/// Returns the files of both catalogues, wherever they are.
QSet<QString> namedFiles()
{
    const PathGuard::Folders folders;
    QSet<QString> named;
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (const auto* const catalogue : {&manager->getCfgXML(), &manager->getDisplayXML()}) {
        for (const SKindInfo& kind : KindTable::all()) {
            auto& items = const_cast<QVector<SCfg_Item>&>(*catalogue->ofKind(kind.type));
            for (SCfg_Item& item : items) {
                const ItemFiles files(item, ItemFiles::Scope::Own);
                for (const ItemFiles::Entry& entry : files.entries())
                    named.insert(entry.path);
            }
        }
    }
    return named;
}

/// Returns the folders in which archives are unpacked, beside them.
QSet<QString> unpackedFolders(const QSet<QString>& files)
{
    QSet<QString> folders;
    for (const QString& file : files) {
        const QFileInfo info(file);
        if (info.suffix() == QLatin1String("zip"))
            folders.insert(info.path() + QLatin1Char('/') + info.completeBaseName());
    }
    return folders;
}

/// Tells the process which files a removal or its undoing has moved.
void tellMoved(const Removal& removal)
{
    QStringList paths;
    for (const Moved& moved : removal.files)
        paths.append(moved.path);
    if (!paths.isEmpty())
        ResourceEvents::instance()->tellFilesChanged(paths);
}

bool isInAny(const QSet<QString>& folders, const QString& path, const QString& top)
{
    for (QString folder = QFileInfo(path).path(); folder.size() > top.size();
         folder = QFileInfo(folder).path()) {
        if (folders.contains(folder))
            return true;
    }
    return false;
}

/// Returns the folders that may be empty: those of the kinds, and those beside files of the
/// catalogues, for their unpacked content.
QSet<QString> lastingFolders()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    QSet<QString> folders;
    for (const SKindInfo& kind : KindTable::all()) {
        for (const auto half : {MVThemeMgr::eDirTag_Config, MVThemeMgr::eDirTag_Display}) {
            folders.insert(QDir::cleanPath(
                manager->Path_resource_Dir(MVThemeMgr::eLoadDir_Download, half, kind.type)));
        }
    }
    const QSet<QString> files = namedFiles();
    for (const QString& file : files) {
        const QFileInfo info(file);
        folders.insert(info.path() + QLatin1Char('/') + info.completeBaseName());
    }
    return folders;
}

/// Removes empty folders, also those of an earlier cleaning that was interrupted.
void removeEmptyFolders()
{
    const QSet<QString> lasting = lastingFolders();
    const QStringList tops = halves();
    for (const QString& top : tops) {
        QStringList folders;
        FolderWalk::visit(top, QDir::Dirs, [&folders](const QFileInfo& folder) {
            folders.append(QDir::cleanPath(folder.filePath()));
            return true;
        });
        std::sort(folders.begin(), folders.end(), std::greater<>()); // inner ones first
        for (const QString& folder : qAsConst(folders)) {
            if (!lasting.contains(folder) && MVThemeMgr::init()->isDownloadPath(folder))
                QDir().rmdir(folder); // only if it is empty
        }
    }
}

} // namespace

ResourceStorage::ResourceStorage() = default;

QVector<SCfg_Item*> ResourceStorage::itemsOnDisk() const
{
    const FileHolders holders;
    QVector<SCfg_Item*> items;
    for (const FileHolders::Holder& holder : holders.all())
        items.append(holder.item);
    return items;
}

QVector<Use> ResourceStorage::diskUse() const
{
    const FileHolders holders;
    QVector<Use> uses;
    for (const FileHolders::Holder& holder : holders.all())
        uses.append(::useOf(holders, *holder.item, holder.files, 1));
    return uses;
}

Use ResourceStorage::diskUse(SCfg_Item& item) const
{
    const FileHolders holders;
    return ::useOf(holders, item, FileHolders::filesOf(item), holds(holders, item) ? 1 : 0);
}

qint64 ResourceStorage::usedBytes() const
{
    const FileHolders holders;
    QHash<QString, qint64> sizes;
    for (const FileHolders::Holder& holder : holders.all()) {
        for (const ItemFiles::Entry& file : holder.files)
            sizes.insert(file.path, file.sizeBytes);
    }
    return std::accumulate(sizes.cbegin(), sizes.cend(), qint64{0});
}

Removal ResourceStorage::removeItem(SCfg_Item& item) const
{
    Removal planned = previewRemoval(item);
    if (!planned.isComplete())
        return planned;
    Removal removal;
    const QString folder = planned.files.isEmpty() ? QString() : newRemovedFolder();
    for (const Moved& file : qAsConst(planned.files)) {
        if (!moveAside(file.path, folder, removal)) {
            undo(removal);
            removal = Removal();
            removal.error = QStringLiteral("%1 cannot be removed").arg(file.path);
            return removal;
        }
    }
    removal.bytes = planned.bytes;
    tellMoved(removal);
    return removal;
}

Removal ResourceStorage::previewRemoval(SCfg_Item& item, const QVector<Removal>& earlier) const
{
    Removal removal;
    if (CatalogueUse::count() > 0) {
        removal.error = QStringLiteral("a download or an update is working");
        return removal;
    }
    if (!MVThemeMgr::init()->isCatalogueRead()) { // which tells what other items need
        removal.error = QStringLiteral("the downloaded catalogue cannot be read");
        return removal;
    }
    const QSet<QString> gone = filesIn(earlier);
    const FileHolders holders(gone);
    const int ownCount = holds(holders, item) ? 1 : 0;
    QVector<ItemFiles::Entry> files = FileHolders::filesOf(item, gone);
    files.erase(std::remove_if(files.begin(), files.end(),
                               [&](const ItemFiles::Entry& file) {
                                   // Another theme may use what this one uses.
                                   const bool isInDoubt =
                                       !holders.isComplete() && file.item != &item;
                                   return isInDoubt || holders.countOf(file.path) > ownCount;
                               }),
                files.end());
    std::stable_partition(files.begin(), files.end(), [&](const ItemFiles::Entry& file) {
        return file.item == &item && file.role == ItemFiles::Role::Config;
    });
    for (const ItemFiles::Entry& file : qAsConst(files)) {
        removal.files.append({file.path, QString()});
        removal.bytes += file.sizeBytes;
    }
    return removal;
}

bool ResourceStorage::undo(const Removal& removal)
{
    bool isWhole = true;
    // The definition last, so that the item is ready only when it is whole.
    for (auto moved = removal.files.crbegin(); moved != removal.files.crend(); ++moved) {
        AppOptions::instance()->ensureDirExists(QFileInfo(moved->path).path());
        isWhole = QFile::rename(moved->aside, moved->path) && isWhole; // never over a newer file
    }
    tellMoved(removal);
    return isWhole;
}

void ResourceStorage::purge()
{
    if (QFileInfo::exists(RootPlaces::removed()) && !Utils::rmDir(RootPlaces::removed(), true))
        LogL("ResourceStorage", 2, "removed files cannot be deleted");
}

QStringList ResourceStorage::leftovers() const
{
    if (!MVThemeMgr::init()->isCatalogueRead())
        return {};
    const QSet<QString> named = namedFiles();
    const QSet<QString> unpacked = unpackedFolders(named);
    QStringList leftovers;
    const QStringList tops = halves();
    for (const QString& top : tops) {
        FolderWalk::visit(top, QDir::Files, [&](const QFileInfo& file) {
            const QString path = QDir::cleanPath(file.filePath());
            if (!named.contains(path) && !isInAny(unpacked, path, top))
                leftovers.append(path);
            return true;
        });
    }
    leftovers.sort();
    return leftovers;
}

QStringList ResourceStorage::remains() const
{
    QStringList remains;
    for (const QString& folder : {RootPlaces::removed(), RootPlaces::arrivals()}) {
        FolderWalk::visit(folder, QDir::Files | QDir::Hidden, [&remains](const QFileInfo& file) {
            remains.append(file.filePath());
            return true;
        });
    }
    remains.sort();
    return remains;
}

QString ResourceStorage::lockFile()
{
    return RootPlaces::updatesLock();
}

QStringList ResourceStorage::growingFiles()
{
    return {FileLedger::path()};
}

qint64 ResourceStorage::clean() const
{
    qint64 bytes = 0;
    const QStringList files = leftovers();
    for (const QString& path : files) {
        const qint64 size = QFileInfo(path).size();
        if (!MVThemeMgr::init()->isDownloadPath(path) || !QFile::remove(path))
            continue;
        bytes += size;
    }
    if (MVThemeMgr::init()->isCatalogueRead())
        removeEmptyFolders();
    bytes += sizeOf(remains());
    purge();
    ItemUpdate::removeLeftovers();
    bytes -= sizeOf(remains()); // those of an update that is running in another process
    FileLedger::instance()->compact();
    return bytes;
}
