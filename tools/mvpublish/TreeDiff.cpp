// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "TreeDiff.h"

#include "FetchedFiles.h"
#include "records/KindTable.h"
#include "tree/ReadTree.h"
#include "TreeContents.h"

#include <QHash>
#include <QMap>

#include <algorithm>

namespace {

using ItemKey = QPair<int, QString>; // kind and GUID

/// The part of a tree that users see through one display catalogue.
struct Shown
{
    QVector<ItemKey> order;
    QHash<ItemKey, QString> names;
};

Shown shownBy(const ReadTree& tree, const QString& displayFile)
{
    Shown shown;
    for (const DisplayCatalogue& display : tree.displays()) {
        if (display.file != displayFile)
            continue;
        for (const DisplayEntry& entry : display.entries) {
            const ItemKey key = qMakePair(int(entry.type), entry.guid);
            if (!entry.known || shown.names.contains(key))
                continue;
            shown.order.append(key);
            shown.names.insert(key, entry.item.m_qsName);
        }
    }
    return shown;
}

TreeDiff::Item itemOf(const ItemKey& key, const QString& name, const QString& newName = QString())
{
    return {KindTable::all().at(key.first).word(), key.second, name, newName, QString()};
}

TreeDiff compareItems(const Shown& before, const Shown& after)
{
    TreeDiff diff;
    for (const ItemKey& key : after.order) {
        const QString name = after.names.value(key);
        const auto old = before.names.constFind(key);
        if (old == before.names.constEnd())
            diff.added.append(itemOf(key, name));
        else if (*old != name)
            diff.renamed.append(itemOf(key, *old, name));
    }
    for (const ItemKey& key : before.order) {
        if (!after.names.contains(key))
            diff.removed.append(itemOf(key, before.names.value(key)));
    }
    return diff;
}

/// Merges lists: a change in all catalogues appears once, others name their catalogue.
QVector<TreeDiff::Item> merged(const QMap<QString, TreeDiff>& diffs,
                               QVector<TreeDiff::Item> TreeDiff::*list)
{
    QHash<QString, int> counts;
    for (const TreeDiff& diff : diffs) {
        for (const TreeDiff::Item& item : diff.*list)
            ++counts[item.text()];
    }
    QVector<TreeDiff::Item> result;
    for (auto diff = diffs.cbegin(); diff != diffs.cend(); ++diff) {
        const bool isFirst = diff == diffs.cbegin();
        for (TreeDiff::Item item : (*diff).*list) {
            const bool isEverywhere = counts.value(item.text()) == diffs.size();
            if (!isEverywhere)
                item.catalogue = diff.key();
            if (!isEverywhere || isFirst)
                result.append(item);
        }
    }
    return result;
}

/// Returns the edition's version file in the other tree, or null.
const PublishedVersion* sameEdition(const ReadTree& tree, const PublishedVersion& version)
{
    const auto found = std::find_if(
        tree.versions().cbegin(), tree.versions().cend(),
        [&version](const PublishedVersion& other) { return other.file == version.file; });
    return found == tree.versions().cend() ? nullptr : &*found;
}

QStringList editionsOf(const PublishedVersion& version)
{
    QStringList names;
    for (const Edition& edition : Editions::all()) {
        if (ReadTree::catalogue(edition.versionFile) == version.file)
            names.append(edition.name);
    }
    return names;
}

/// Compares versions without their dots.
bool haveSameVersion(const PublishedVersion& a, const PublishedVersion& b)
{
    const auto digits = [](QString version) { return version.remove(QLatin1Char('.')); };
    return digits(a.content.m_qsVersion) == digits(b.content.m_qsVersion);
}

qint64 bytesOf(const QVector<TreeDiff::File>& files)
{
    qint64 sum = 0;
    for (const TreeDiff::File& file : files)
        sum += file.size;
    return sum;
}

/// Classifies new and changed files; catalogues are handled by the editions.
void compareFiles(const TreeContents& before, const TreeContents& after, const ReadTree& tree,
                  TreeDiff& diff, QMap<QString, qint64>& changedCatalogues)
{
    const QMap<QString, qint64>& old = before.sizes();
    const QMap<QString, qint64>& now = after.sizes();
    const FetchedFiles fetched(tree);
    const QString catalogueFolder = Editions::catalogueFolder + QLatin1Char('/');
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        const auto same = old.constFind(it.key());
        const bool isNew = same == old.constEnd();
        if (!isNew && before.isEqual(after, it.key()))
            continue;
        const TreeDiff::File file{it.key(), it.value()};
        if (it.key().startsWith(catalogueFolder))
            changedCatalogues.insert(it.key(), it.value());
        else if (!fetched.contains(it.key()))
            diff.unfetchedFiles.append(file);
        else if (isNew)
            diff.newFiles.append(file);
        else if (FetchedFiles::isDefinition(it.key()))
            diff.changedDefinitions.append(file);
        else
            diff.changedFiles.append(file);
    }
    for (auto it = old.cbegin(); it != old.cend(); ++it) {
        if (!now.contains(it.key()) && !it.key().startsWith(catalogueFolder))
            diff.removedFiles.append({it.key(), it.value()});
    }
}

/// Adds the changes for the users of every edition that the first tree serves.
void compareEditions(const ReadTree& before, const ReadTree& after, TreeDiff& diff,
                     const QMap<QString, qint64>& changedCatalogues)
{
    QMap<QString, TreeDiff> items; // by display catalogue
    QMap<QString, qint64> fetched;
    for (const PublishedVersion& version : before.versions()) {
        const PublishedVersion* const next = sameEdition(after, version);
        if (!next) {
            diff.lostEditions.append({editionsOf(version), version.file});
            continue;
        }
        QStringList files{version.file};
        if (haveSameVersion(version, *next)) {
            files << version.displayFile << ReadTree::catalogue(Editions::configFile);
            diff.fileBytes = bytesOf(diff.newFiles);
            diff.changedBytes = bytesOf(diff.changedFiles) + bytesOf(diff.changedDefinitions);
            diff.isUsed = true;
        } else {
            diff.versions.append(
                {version.file, version.content.m_qsVersion, next->content.m_qsVersion});
        }
        qint64 bytes = 0;
        for (const QString& file : qAsConst(files)) {
            if (!changedCatalogues.contains(file))
                continue;
            fetched.insert(file, changedCatalogues.value(file));
            bytes += changedCatalogues.value(file);
        }
        diff.catalogueBytes = std::max(diff.catalogueBytes, bytes);
        if (!items.contains(version.displayFile))
            items.insert(version.displayFile,
                         compareItems(shownBy(before, version.displayFile),
                                      shownBy(after, version.displayFile)));
    }
    for (auto it = fetched.cbegin(); it != fetched.cend(); ++it)
        diff.catalogues.append({it.key(), it.value()});
    for (QVector<TreeDiff::Item> TreeDiff::*list :
         {&TreeDiff::added, &TreeDiff::removed, &TreeDiff::renamed})
        diff.*list = merged(items, list);
}

} // namespace

QString TreeDiff::Item::text() const
{
    QString text = QStringLiteral("%1 %2 %3").arg(kind, guid, name);
    if (!newName.isEmpty())
        text += QStringLiteral(" -> ") + newName;
    if (!catalogue.isEmpty())
        text += QStringLiteral(" (%1)").arg(catalogue);
    return text;
}

QString TreeDiff::LostEditions::text() const
{
    return QStringLiteral("%1 (%2)").arg(names.join(QStringLiteral(", ")), file);
}

QString TreeDiff::Version::text() const
{
    return QStringLiteral("%1 %2 -> %3").arg(file, before, after);
}

bool TreeDiff::isEmpty() const
{
    const bool itemsAgree = added.isEmpty() && removed.isEmpty() && renamed.isEmpty();
    const bool editionsAgree = lostEditions.isEmpty() && versions.isEmpty() && catalogues.isEmpty();
    return itemsAgree && editionsAgree && newFiles.isEmpty() && changedFiles.isEmpty()
        && changedDefinitions.isEmpty() && unfetchedFiles.isEmpty() && removedFiles.isEmpty();
}

TreeDiff TreeDiff::between(const ReadTree& before, const ReadTree& after)
{
    TreeDiff diff;
    QMap<QString, qint64> changedCatalogues;
    TreeContents old(before);
    TreeContents now(after);
    // A list says nothing of files that were changed later, so both trees are read in the same way.
    if (old.isListed() != now.isListed()) {
        old = TreeContents::onDisk(before);
        now = TreeContents::onDisk(after);
    }
    compareFiles(old, now, after, diff, changedCatalogues);
    compareEditions(before, after, diff, changedCatalogues);
    diff.listBytes = diff.isEmpty() ? 0 : now.listBytes();
    return diff;
}
