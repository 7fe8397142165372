// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemUpdates.h"

#include "catalogue/MVThemeMgr.h"
#include "records/KindTable.h"
#include "tree/ReadTree.h"
#include "TreeDiff.h"

#include <QHash>
#include <QSet>

namespace {

/// The names and previews of items by GUID, from all display catalogues.
struct ShownItems
{
    QHash<QString, QString> names;
    QHash<QString, QSet<QString>> previews;
};

ShownItems shownItems(const ReadTree& tree)
{
    ShownItems shown;
    for (const DisplayCatalogue& display : tree.displays()) {
        for (const DisplayEntry& entry : display.entries) {
            if (!entry.known)
                continue;
            SCfg_Item item = entry.item;
            ReadTree::library().doItem_Info_Thumb(item);
            ReadTree::library().doItem_Info_Gif(item);
            shown.previews[entry.guid] +=
                {tree.fileOf(item.m_info_Thumb), tree.fileOf(item.m_info_Gif)};
            if (!shown.names.contains(entry.guid))
                shown.names.insert(entry.guid, item.m_qsName);
        }
    }
    return shown;
}

QSet<QString> filesOf(const ReadTree& tree, const ConfigEntry& entry)
{
    SCfg_Item item = entry.item;
    ReadTree::library().doItem_Info_CfgXML(item);
    ReadTree::library().doItem_Info_DependRes(item);
    QSet<QString> files{tree.fileOf(item.m_info_CfgXML)};
    for (const SFileInfo& resource : qAsConst(item.m_vecResource))
        files.insert(tree.fileOf(resource));
    return files;
}

/// Returns the sizes of the files to be fetched by name.
QHash<QString, qint64> fetchedBy(const TreeDiff& diff)
{
    QHash<QString, qint64> sizes;
    for (const auto& list : {diff.newFiles, diff.changedFiles, diff.changedDefinitions}) {
        for (const TreeDiff::File& file : list)
            sizes.insert(file.name, file.size);
    }
    return sizes;
}

} // namespace

QVector<ItemUpdates::Update> ItemUpdates::between(const ReadTree& after, const TreeDiff& diff)
{
    QVector<Update> updates;
    const QHash<QString, qint64> fetched = fetchedBy(diff);
    const ShownItems shown = shownItems(after);
    for (const SKindInfo& kind : KindTable::all()) {
        for (const ConfigEntry& entry : after.config(kind.type)) {
            const QString& guid = entry.item.m_qsGUID;
            const QSet<QString> files = filesOf(after, entry) + shown.previews.value(guid);
            Update update;
            update.item = QStringLiteral("%1 %2 %3")
                              .arg(kind.word(), guid, shown.names.value(guid))
                              .trimmed();
            for (const QString& file : files) {
                update.fileCount += fetched.contains(file) ? 1 : 0;
                update.bytes += fetched.value(file);
            }
            if (update.fileCount > 0)
                updates.append(update);
        }
    }
    return updates;
}
