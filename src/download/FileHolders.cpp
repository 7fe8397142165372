// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FileHolders.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "download/FileStates.h"
#include "records/KindTable.h"
#include "records/SCfg_Item.h"

#include <algorithm>

namespace {

bool isPicture(const ItemFiles::Entry& entry)
{
    return entry.role == ItemFiles::Role::Thumbnail || entry.role == ItemFiles::Role::Preview;
}

} // namespace

QVector<ItemFiles::Entry> FileHolders::filesOf(SCfg_Item& item, const QSet<QString>& gone)
{
    MVThemeMgr::init()->ensureThemeParsed(item);
    QVector<ItemFiles::Entry> files;
    const ItemFiles all(item);
    std::copy_if(all.entries().cbegin(), all.entries().cend(), std::back_inserter(files),
                 [&gone](const ItemFiles::Entry& entry) {
                     return entry.isPresent && !isPicture(entry) && FileStates::isManaged(entry)
                         && !gone.contains(entry.path);
                 });
    return files;
}

FileHolders::FileHolders(const QSet<QString>& gone)
{
    const PathGuard::Folders folders;
    const MVThemeMgr::SResourceXML& displayed = MVThemeMgr::init()->getDisplayXML();
    QVector<Holder> present;
    QHash<QString, int> owners; // of present files, by path
    for (const SKindInfo& kind : KindTable::all()) {
        // The catalogue's own items; it hands them out to be changed elsewhere, too.
        auto& items = const_cast<QVector<SCfg_Item>&>(*displayed.ofKind(kind.type));
        for (SCfg_Item& item : items) {
            m_isComplete = MVThemeMgr::init()->ensureThemeParsed(item) && m_isComplete;
            const Holder holder = {&item, filesOf(item, gone)};
            present.append(holder);
            for (const ItemFiles::Entry& file : holder.files)
                owners[file.path] += file.item == &item ? 1 : 0;
        }
    }
    for (const Holder& holder : qAsConst(present)) {
        const bool isOnDisk = std::any_of(
            holder.files.cbegin(), holder.files.cend(), [&](const ItemFiles::Entry& file) {
                return file.item == holder.item
                    && (file.role == ItemFiles::Role::Config || owners.value(file.path) == 1);
            });
        if (!isOnDisk)
            continue;
        m_holders.append(holder);
        for (const ItemFiles::Entry& file : holder.files)
            ++m_counts[file.path];
    }
}
