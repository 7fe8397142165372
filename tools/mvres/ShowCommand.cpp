// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ShowCommand.h"

#include "Arguments.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/ItemIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"

#include <QJsonDocument>

namespace {

void printText(SCfg_Item& item, const ItemFiles& files, ItemIndex& index)
{
    const bool favourite = MVThemeMgr::init()->isItemCollect(&item);
    Console::print(QStringLiteral("GUID        %1").arg(item.m_qsGUID));
    Console::print(QStringLiteral("kind        %1").arg(Items::kindName(item.m_eType)));
    Console::print(QStringLiteral("name        %1").arg(item.m_qsName));
    Console::print(QStringLiteral("theme type  %1").arg(Items::themeTypeName(item)));
    Console::print(QStringLiteral("favourite   %1")
                       .arg(favourite ? QStringLiteral("yes") : QStringLiteral("no")));
    Console::print(QStringLiteral("missing     %1").arg(ItemFiles::countNeeded(item)));
    for (const SCfg_Item* dependency : files.uses()) {
        Console::print(QStringLiteral("uses        %1 %2 %3")
                           .arg(Items::kindName(dependency->m_eType), dependency->m_qsGUID,
                                index.nameOf(*dependency)));
    }
    for (const ItemFiles::Entry& entry : files.entries()) {
        Console::print(QStringLiteral("%1 %2 (%3)")
                           .arg(Items::roleName(entry.role), -11)
                           .arg(entry.path,
                                entry.isPresent
                                    ? Console::size(entry.sizeBytes)
                                    : QStringLiteral("missing, from %1").arg(entry.url)));
    }
}

} // namespace

int ShowCommand::run(const Arguments& arguments)
{
    const QString guid = arguments.operands.constFirst();
    ItemIndex index;
    SCfg_Item* const item = index.find(guid);
    if (!item)
        return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(guid));
    const ItemFiles files(*item);
    if (!arguments.json) {
        printText(*item, files, index);
        return ExitStatus::success;
    }
    QJsonObject object = Items::toJson(*item);
    QJsonArray uses;
    for (const SCfg_Item* dependency : files.uses()) {
        uses.append(QJsonObject{
            {QStringLiteral("guid"), dependency->m_qsGUID},
            {QStringLiteral("kind"), Items::kindName(dependency->m_eType)},
            {QStringLiteral("name"), index.nameOf(*dependency)},
        });
    }
    object.insert(QStringLiteral("uses"), uses);
    object.insert(QStringLiteral("files"), Items::toJson(files));
    Console::print(QJsonDocument(object));
    return ExitStatus::success;
}
