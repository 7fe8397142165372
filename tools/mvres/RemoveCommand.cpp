// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RemoveCommand.h"

#include "Arguments.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/FileStates.h"
#include "ExitStatus.h"
#include "Items.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <numeric>

namespace {

/// Returns the files of an item, and of all that it uses, that are in the download root; no
/// pictures, which a removal leaves.
QStringList filesOnDisk(SCfg_Item& item)
{
    MVThemeMgr::init()->ensureThemeParsed(item);
    QStringList files;
    const ItemFiles all(item);
    for (const ItemFiles::Entry& entry : all.entries()) {
        const bool isPicture =
            entry.role == ItemFiles::Role::Thumbnail || entry.role == ItemFiles::Role::Preview;
        if (entry.isPresent && !isPicture && FileStates::isManaged(entry))
            files.append(entry.path);
    }
    return files;
}

} // namespace

RemoveCommand::RemoveCommand(bool isDryRun)
    : m_isDryRun(isDryRun)
{
}

int RemoveCommand::run(const Arguments& arguments)
{
    RemoveCommand command(arguments.dryRun);
    QString unknown;
    const QVector<SCfg_Item*> items = command.m_index.findAll(arguments.operands, unknown);
    if (!unknown.isNull())
        return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(unknown));
    command.remove(items);
    command.findUsers();
    if (arguments.json) {
        Console::print(QJsonDocument(command.toJson()));
    } else {
        command.print();
        if (command.m_rows.size() > 1)
            Console::print(QStringLiteral("%1 %2").arg(
                Console::size(command.bytes()),
                arguments.dryRun ? QStringLiteral("to be freed") : QStringLiteral("freed")));
    }
    return command.isComplete() ? ExitStatus::success : ExitStatus::failure;
}

void RemoveCommand::remove(const QVector<SCfg_Item*>& items)
{
    const ResourceStorage storage;
    QVector<ResourceStorage::Removal> removals;
    for (SCfg_Item* const item : items) {
        const QStringList files = filesOnDisk(*item);
        removals.append(m_isDryRun ? storage.preview(*item, removals) : storage.removeItem(*item));
        const ResourceStorage::Removal& removal = removals.constLast();
        m_rows.append({item, files, removal});
        if (!removal.isComplete())
            Console::note(QStringLiteral("%1: %2").arg(item->m_qsGUID, removal.error));
        for (const ResourceStorage::Moved& file : removal.files)
            m_removed.insert(file.path);
    }
    if (!m_isDryRun)
        ResourceStorage::purge();
}

/// Finds the items that need what stays.
void RemoveCommand::findUsers()
{
    const QVector<SCfg_Item*> others = ResourceStorage().itemsOnDisk();
    for (SCfg_Item* const other : others) {
        const bool isRemoved =
            m_isDryRun && std::any_of(m_rows.cbegin(), m_rows.cend(), [&](const Row& row) {
                return row.item == other && !row.removal.files.isEmpty();
            });
        const QStringList files = isRemoved ? QStringList() : filesOnDisk(*other);
        for (const QString& file : files)
            m_users[file].append(other);
    }
}

bool RemoveCommand::isOnDisk(const QString& file) const
{
    return !m_removed.contains(file) && QFileInfo::exists(file);
}

qint64 RemoveCommand::bytes() const
{
    return std::accumulate(m_rows.cbegin(), m_rows.cend(), qint64{0},
                           [](qint64 sum, const Row& row) { return sum + row.removal.bytes; });
}

bool RemoveCommand::isComplete() const
{
    return std::all_of(m_rows.cbegin(), m_rows.cend(),
                       [](const Row& row) { return row.removal.isComplete(); });
}

/// Called after all removals: a later one may have freed what an earlier one had to leave.
RemoveCommand::Kept RemoveCommand::keptOf(const Row& row) const
{
    Kept kept;
    for (const QString& file : row.files) {
        if (!isOnDisk(file))
            continue;
        kept.files.append(file);
        kept.bytes += QFileInfo(file).size();
        const QVector<SCfg_Item*> users = m_users.value(file);
        std::copy_if(users.cbegin(), users.cend(), std::back_inserter(kept.users),
                     [&](SCfg_Item* user) { return !kept.users.contains(user); });
    }
    return kept;
}

void RemoveCommand::print()
{
    for (const Row& row : qAsConst(m_rows)) {
        Console::print(textOf(row));
        const Kept kept = keptOf(row);
        if (kept.files.isEmpty() || !row.removal.isComplete())
            continue;
        QStringList users;
        for (const SCfg_Item* const user : kept.users)
            users.append(m_index.nameOf(*user));
        Console::print(QStringLiteral("  %1 in %2 stays: needed by %3")
                           .arg(Console::size(kept.bytes),
                                Console::counted(kept.files.size(), QStringLiteral("file")),
                                users.join(QStringLiteral(", "))));
    }
}

QString RemoveCommand::textOf(const Row& row)
{
    const QString title =
        QStringLiteral("%1 %2").arg(row.item->m_qsGUID, m_index.nameOf(*row.item));
    if (!row.removal.isComplete())
        return QStringLiteral("%1: not removed").arg(title);
    if (row.files.isEmpty())
        return QStringLiteral("%1: not on disk").arg(title);
    const QString form = m_isDryRun ? QStringLiteral("%1: %2 to be removed, %3 to be freed")
                                    : QStringLiteral("%1: %2 removed, %3 freed");
    return form.arg(title, Console::counted(row.removal.files.size(), QStringLiteral("file")),
                    Console::size(row.removal.bytes));
}

QJsonObject RemoveCommand::toJson() const
{
    QJsonObject object{{QStringLiteral("items"), itemsToJson()},
                       {QStringLiteral("freedBytes"), static_cast<double>(bytes())},
                       {QStringLiteral("dryRun"), m_isDryRun}};
    if (!isComplete())
        object.insert(
            QStringLiteral("error"),
            Console::error(ExitStatus::failure, QStringLiteral("not every item could be removed")));
    return object;
}

QJsonArray RemoveCommand::itemsToJson() const
{
    QJsonArray items;
    for (const Row& row : m_rows) {
        const Kept kept = keptOf(row);
        QJsonArray users;
        for (const SCfg_Item* const user : kept.users)
            users.append(user->m_qsGUID);
        QJsonObject object = Items::toJson(*row.item);
        object.insert(QStringLiteral("removedFiles"), row.removal.files.size());
        object.insert(QStringLiteral("freedBytes"), static_cast<double>(row.removal.bytes));
        object.insert(QStringLiteral("keptFiles"), QJsonArray::fromStringList(kept.files));
        object.insert(QStringLiteral("keptBytes"), static_cast<double>(kept.bytes));
        object.insert(QStringLiteral("neededBy"), users);
        object.insert(QStringLiteral("error"), row.removal.error);
        items.append(object);
    }
    return items;
}
