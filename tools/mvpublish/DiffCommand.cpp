// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DiffCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "ItemUpdates.h"
#include "tree/ReadTree.h"
#include "TreeDiff.h"

#include <QVector>

namespace {

void printItems(const char* change, const QStringList& items)
{
    for (const QString& item : items)
        Console::print(QLatin1String(change) + QLatin1Char(' ') + item);
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
    printItems("added", diff.added);
    printItems("removed", diff.removed);
    printItems("renamed", diff.renamed);
    printItems("lost edition", diff.lostEditions);
    printItems("version", diff.versions);
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
    if (diff.isEmpty()) {
        Console::print(QStringLiteral("no difference"));
        return ExitStatus::success;
    }
    print(diff, diff.isUsed ? ItemUpdates::between(after, diff) : QVector<ItemUpdates::Update>());
    return ExitStatus::findings;
}
