// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FavouriteCommand.h"

#include "Arguments.h"
#include "catalogue/ItemIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"
#include "records/KindTable.h"

#include <QJsonDocument>
#include <QJsonObject>

int FavouriteCommand::run(const Arguments& arguments)
{
    const QString guid = arguments.operands.constFirst();
    ItemIndex index;
    SCfg_Item* const item = index.find(guid);
    if (!item)
        return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(guid));
    if (KindTable::of(item->m_eType).favourites == EFavouritesFile::None) {
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("%1 is a %2, which cannot be a favourite")
                                 .arg(guid, Items::kindName(item->m_eType)));
    }
    MVThemeMgr* const manager = MVThemeMgr::init();
    item->m_bCollected = !arguments.off;
    manager->setItemCollected(item);
    QString error;
    if (!manager->saveFavourites(&error))
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("the favourites cannot be written: %1").arg(error));
    if (arguments.json)
        Console::print(QJsonDocument(Items::toJson(*item)));
    else
        Console::print(QStringLiteral("%1 %2 %3")
                           .arg(item->m_qsGUID, index.nameOf(*item),
                                arguments.off ? QStringLiteral("is not a favourite")
                                              : QStringLiteral("is a favourite")));
    return ExitStatus::success;
}
