// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Listing.h"

#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/FileStates.h"
#include "Items.h"
#include "States.h"
#include "Table.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void printTable(const QVector<SCfg_Item*>& items)
{
    const FileStates states(FileStates::Depth::Quick);
    const QVector<int> missingFiles = ItemFiles::countNeeded(items);
    Table table({38, 10, 0, 9, 9});
    for (int row = 0; row < items.size(); ++row) {
        SCfg_Item* const item = items.at(row);
        const bool favourite = MVThemeMgr::init()->isItemCollect(item);
        const SItemState state = states.of(*item);
        const int missing = missingFiles.at(row);
        table.add({item->m_qsGUID, Items::kindName(item->m_eType), item->m_qsName,
                   Items::themeTypeName(*item),
                   favourite ? QStringLiteral("favourite") : QStringLiteral("-"),
                   States::size(state, missing), States::text(state, missing)});
    }
    table.print();
}

/// Returns the items with their states.
QJsonArray toJson(const QVector<SCfg_Item*>& items)
{
    const FileStates states(FileStates::Depth::Quick);
    QJsonArray array = Items::toJson(items);
    for (int row = 0; row < items.size(); ++row) {
        QJsonObject object = array.at(row).toObject();
        States::addTo(object, states.of(*items.at(row)));
        array[row] = object;
    }
    return array;
}

} // namespace

void Listing::print(const QVector<SCfg_Item*>& items, bool isJson)
{
    if (isJson)
        Console::print(QJsonDocument(toJson(items)));
    else
        printTable(items);
}
