#include "TreeDiff.h"

#include "host/Utils.h"
#include "Kinds.h"
#include "ReadTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QMap>

namespace {

using ItemKey = QPair<int, QString>; // kind and GUID

/// What users see of a tree, in the catalogue of its first edition.
struct Shown
{
    QVector<ItemKey> order;
    QHash<ItemKey, QString> names;
};

Shown shownBy(const ReadTree& tree)
{
    Shown shown;
    if (tree.displays().isEmpty())
        return shown;
    for (const DisplayEntry& entry : tree.displays().constFirst().entries) {
        const ItemKey key = qMakePair(int(entry.type), entry.guid);
        if (!entry.known || shown.names.contains(key))
            continue;
        shown.order.append(key);
        shown.names.insert(key, entry.item.m_qsName);
    }
    return shown;
}

QString label(const ItemKey& key, const QString& name)
{
    return QStringLiteral("%1 %2 %3").arg(Kinds::all().at(key.first).word, key.second, name);
}

void compareItems(const Shown& before, const Shown& after, TreeDiff& diff)
{
    for (const ItemKey& key : after.order) {
        const QString name = after.names.value(key);
        const auto old = before.names.constFind(key);
        if (old == before.names.constEnd())
            diff.added.append(label(key, name));
        else if (*old != name)
            diff.renamed.append(label(key, *old) + QStringLiteral(" -> ") + name);
    }
    for (const ItemKey& key : before.order) {
        if (!after.names.contains(key))
            diff.removed.append(label(key, before.names.value(key)));
    }
}

/// Sizes by name.
QMap<QString, qint64> filesOf(const ReadTree& tree)
{
    QMap<QString, qint64> files;
    const QDir root(tree.folder());
    QDirIterator it(tree.folder(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        files.insert(root.relativeFilePath(file), it.fileInfo().size());
    }
    return files;
}

bool areEqual(const ReadTree& before, const ReadTree& after, const QString& file)
{
    return Utils::getMD5(before.absolute(file)) == Utils::getMD5(after.absolute(file));
}

/// A check fetches the catalogues of one edition: the first.
bool isFetchedByCheck(const ReadTree& tree, const QString& file)
{
    const VersionFile& version = tree.versions().constFirst();
    return file == version.file || file == version.displayFile
        || file == ReadTree::catalogue(Editions::configFile);
}

} // namespace

bool TreeDiff::isEmpty() const
{
    return added.isEmpty() && removed.isEmpty() && renamed.isEmpty() && catalogues.isEmpty()
        && newFiles.isEmpty() && changedFiles.isEmpty() && removedFiles.isEmpty();
}

qint64 TreeDiff::bytes(const QVector<File>& files)
{
    qint64 sum = 0;
    for (const File& file : files)
        sum += file.size;
    return sum;
}

TreeDiff TreeDiff::between(const ReadTree& before, const ReadTree& after)
{
    TreeDiff diff;
    compareItems(shownBy(before), shownBy(after), diff);
    const QMap<QString, qint64> old = filesOf(before);
    const QMap<QString, qint64> now = filesOf(after);
    const QString catalogueFolder = Editions::catalogueFolder + QLatin1Char('/');
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        const auto same = old.constFind(it.key());
        const bool isNew = same == old.constEnd();
        if (!isNew && *same == it.value() && areEqual(before, after, it.key()))
            continue;
        const File file{it.key(), it.value()};
        if (!it.key().startsWith(catalogueFolder))
            (isNew ? diff.newFiles : diff.changedFiles).append(file);
        else if (!after.versions().isEmpty() && isFetchedByCheck(after, it.key()))
            diff.catalogues.append(file);
    }
    for (auto it = old.cbegin(); it != old.cend(); ++it) {
        if (!now.contains(it.key()) && !it.key().startsWith(catalogueFolder))
            diff.removedFiles.append({it.key(), it.value()});
    }
    return diff;
}
