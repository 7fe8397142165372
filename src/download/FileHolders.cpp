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

QVector<ItemFiles::Entry> FileHolders::filesOf(SCfg_Item& item)
{
    MVThemeMgr::init()->ensureThemeParsed(item);
    QVector<ItemFiles::Entry> files;
    const ItemFiles all(item);
    std::copy_if(all.entries().cbegin(), all.entries().cend(), std::back_inserter(files),
                 [](const ItemFiles::Entry& entry) {
                     return entry.isPresent && !isPicture(entry) && FileStates::isManaged(entry);
                 });
    return files;
}

FileHolders::FileHolders()
{
    const PathGuard::Folders folders;
    const MVThemeMgr::SResourceXML& displayed = MVThemeMgr::init()->getDisplayXML();
    for (const SKindInfo& kind : KindTable::all()) {
        // The catalogue's own items; it hands them out to be changed elsewhere, too.
        auto& items = const_cast<QVector<SCfg_Item>&>(*displayed.ofKind(kind.type));
        for (SCfg_Item& item : items) {
            const QVector<ItemFiles::Entry> files = filesOf(item);
            const bool isOnDisk =
                std::any_of(files.cbegin(), files.cend(),
                            [&](const ItemFiles::Entry& entry) { return entry.item == &item; });
            if (!isOnDisk)
                continue;
            m_holders.append({&item, files});
            for (const ItemFiles::Entry& file : files)
                ++m_counts[file.path];
        }
    }
}
