// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DiffCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "ItemUpdates.h"
#include "tree/ReadTree.h"
#include "TreeDiff.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

namespace {

template <typename Change>
void printChanges(const char* change, const QVector<Change>& changes)
{
    for (const Change& each : changes)
        Console::print(QLatin1String(change) + QLatin1Char(' ') + each.text());
}

void printFiles(const char* change, const QVector<TreeDiff::File>& files)
{
    for (const TreeDiff::File& file : files)
        Console::print(QStringLiteral("%1 %2 (%3)")
                           .arg(QLatin1String(change), file.name, Console::size(file.size)));
}

void note(bool applies, const char* text)
{
    if (applies)
        Console::print(QStringLiteral("note: ") + QLatin1String(text));
}

/// Prints what clients that use releases fetch.
void printReleases(const TreeDiff& diff, const QVector<ItemUpdates::Update>& updates)
{
    for (const ItemUpdates::Update& update : updates)
        Console::print(QStringLiteral("update %1 (%2, %3)")
                           .arg(update.item,
                                Console::counted(update.fileCount, QStringLiteral("file")),
                                Console::size(update.bytes)));
    const qint64 fileBytes = diff.fileBytes + diff.changedBytes;
    Console::print(QStringLiteral("to transfer with releases: %1 (%2 of catalogues, %3 of the "
                                  "list, %4 of new and changed "
                                  "files)")
                       .arg(Console::size(diff.catalogueBytes + diff.listBytes + fileBytes),
                            Console::size(diff.catalogueBytes), Console::size(diff.listBytes),
                            Console::size(fileBytes)));
}

void print(const TreeDiff& diff, const QVector<ItemUpdates::Update>& updates)
{
    printChanges("added", diff.added);
    printChanges("removed", diff.removed);
    printChanges("renamed", diff.renamed);
    printChanges("lost edition", diff.lostEditions);
    printChanges("version", diff.versions);
    printFiles("catalogue", diff.catalogues);
    printFiles("new file", diff.newFiles);
    printFiles("changed file", diff.changedFiles);
    printFiles("changed definition", diff.changedDefinitions);
    printFiles("unfetched file", diff.unfetchedFiles);
    printFiles("removed file", diff.removedFiles);
    note(!diff.lostEditions.isEmpty(),
         "users of a lost edition keep what they have and fetch nothing new");
    note(!diff.versions.isEmpty(),
         "a client fetches only catalogues of the version that its application brought along, so "
         "with another version it keeps what it has");
    note(!diff.changedFiles.isEmpty(),
         "clients that have a changed file keep the old one; publish it under another name to "
         "replace "
         "it");
    note(!diff.changedDefinitions.isEmpty(),
         "whoever has a changed definition keeps the old one; only an item with a fresh GUID "
         "brings a new one");
    printReleases(diff, updates);
    Console::print(QStringLiteral("to transfer: %1 (%2 of catalogues, %3 of new files)")
                       .arg(Console::size(diff.catalogueBytes + diff.fileBytes),
                            Console::size(diff.catalogueBytes), Console::size(diff.fileBytes)));
}

QJsonObject toJson(const TreeDiff::Item& item)
{
    const bool isRenamed = !item.newName.isEmpty();
    QJsonObject object{
        {QStringLiteral("kind"), item.kind},
        {QStringLiteral("guid"), item.guid},
        {QStringLiteral("name"), isRenamed ? item.newName : item.name},
        {QStringLiteral("catalogue"),
         item.catalogue.isEmpty() ? QJsonValue() : QJsonValue(item.catalogue)},
    };
    if (isRenamed)
        object.insert(QStringLiteral("oldName"), item.name);
    return object;
}

QJsonObject toJson(const TreeDiff::LostEditions& lost)
{
    return {{QStringLiteral("editions"), QJsonArray::fromStringList(lost.names)},
            {QStringLiteral("file"), lost.file}};
}

QJsonObject toJson(const TreeDiff::Version& version)
{
    return {{QStringLiteral("file"), version.file},
            {QStringLiteral("before"), version.before},
            {QStringLiteral("after"), version.after}};
}

QJsonObject toJson(const TreeDiff::File& file)
{
    return {{QStringLiteral("name"), file.name},
            {QStringLiteral("size"), static_cast<double>(file.size)}};
}

QJsonObject toJson(const ItemUpdates::Update& update)
{
    return {{QStringLiteral("kind"), update.item.section(QLatin1Char(' '), 0, 0)},
            {QStringLiteral("guid"), update.item.section(QLatin1Char(' '), 1, 1)},
            {QStringLiteral("name"), update.item.section(QLatin1Char(' '), 2)},
            {QStringLiteral("files"), update.fileCount},
            {QStringLiteral("bytes"), static_cast<double>(update.bytes)}};
}

template <typename Change>
QJsonArray listed(const QVector<Change>& changes)
{
    QJsonArray array;
    for (const Change& each : changes)
        array.append(toJson(each));
    return array;
}

QJsonObject toJson(const TreeDiff& diff, const QVector<ItemUpdates::Update>& updates)
{
    return {
        {QStringLiteral("isDifferent"), !diff.isEmpty()},
        {QStringLiteral("added"), listed(diff.added)},
        {QStringLiteral("removed"), listed(diff.removed)},
        {QStringLiteral("renamed"), listed(diff.renamed)},
        {QStringLiteral("lostEditions"), listed(diff.lostEditions)},
        {QStringLiteral("versions"), listed(diff.versions)},
        {QStringLiteral("catalogues"), listed(diff.catalogues)},
        {QStringLiteral("newFiles"), listed(diff.newFiles)},
        {QStringLiteral("changedFiles"), listed(diff.changedFiles)},
        {QStringLiteral("changedDefinitions"), listed(diff.changedDefinitions)},
        {QStringLiteral("unfetchedFiles"), listed(diff.unfetchedFiles)},
        {QStringLiteral("removedFiles"), listed(diff.removedFiles)},
        {QStringLiteral("updates"), listed(updates)},
        {QStringLiteral("catalogueBytes"), static_cast<double>(diff.catalogueBytes)},
        {QStringLiteral("newFileBytes"), static_cast<double>(diff.fileBytes)},
        {QStringLiteral("changedFileBytes"), static_cast<double>(diff.changedBytes)},
        {QStringLiteral("listBytes"), static_cast<double>(diff.listBytes)},
    };
}

} // namespace

int DiffCommand::run(const Arguments& arguments)
{
    ReadTree before;
    ReadTree after;
    QString error;
    if (!before.open(arguments.operands.at(0), &error)
        || !after.open(arguments.operands.at(1), &error))
        return Console::fail(ExitStatus::failure, error);
    const TreeDiff diff = TreeDiff::between(before, after);
    const QVector<ItemUpdates::Update> updates = diff.isUsed && !diff.isEmpty()
        ? ItemUpdates::between(after, diff)
        : QVector<ItemUpdates::Update>();
    if (arguments.json)
        Console::print(QJsonDocument(toJson(diff, updates)));
    else if (diff.isEmpty())
        Console::print(QStringLiteral("no difference"));
    else
        print(diff, updates);
    return diff.isEmpty() ? ExitStatus::success : ExitStatus::findings;
}
