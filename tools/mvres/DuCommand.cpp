// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DuCommand.h"

#include "Arguments.h"
#include "catalogue/ItemIndex.h"
#include "Console.h"
#include "download/ResourceStorage.h"
#include "ExitStatus.h"
#include "Items.h"
#include "Table.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using Use = ResourceStorage::Use;

void printTable(const QVector<Use>& uses, qint64 bytes)
{
    ItemIndex index;
    Table table;
    for (const Use& use : uses) {
        table.add({use.item->m_qsGUID, Items::kindName(use.item->m_eType), index.nameOf(*use.item),
                   Console::size(use.bytes()),
                   QStringLiteral("%1 own").arg(Console::size(use.ownBytes)),
                   QStringLiteral("%1 shared").arg(Console::size(use.sharedBytes))});
    }
    table.print();
    Console::print(QStringLiteral("%1: %2").arg(
        Console::counted(uses.size(), QStringLiteral("item")), Console::size(bytes)));
}

QJsonObject toJson(const QVector<Use>& uses, qint64 bytes)
{
    QJsonArray items;
    for (const Use& use : uses) {
        items.append(QJsonObject{
            {QStringLiteral("guid"), use.item->m_qsGUID},
            {QStringLiteral("kind"), Items::kindName(use.item->m_eType)},
            {QStringLiteral("name"), use.item->m_qsName},
            {QStringLiteral("ownBytes"), static_cast<double>(use.ownBytes)},
            {QStringLiteral("sharedBytes"), static_cast<double>(use.sharedBytes)},
            {QStringLiteral("bytes"), static_cast<double>(use.bytes())},
        });
    }
    return {{QStringLiteral("items"), items},
            {QStringLiteral("bytes"), static_cast<double>(bytes)}};
}

} // namespace

int DuCommand::run(const Arguments& arguments)
{
    const ResourceStorage storage;
    QVector<Use> uses = storage.diskUse();
    std::stable_sort(uses.begin(), uses.end(), [](const Use& left, const Use& right) {
        return left.bytes() > right.bytes();
    });
    const qint64 bytes = storage.usedBytes();
    if (arguments.json)
        Console::print(QJsonDocument(toJson(uses, bytes)));
    else
        printTable(uses, bytes);
    return ExitStatus::success;
}
