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
    const QVector<SItemState> states = FileStates(FileStates::Depth::Quick).of(items);
    Table table({38, 10, 0, 9, 9});
    for (int row = 0; row < items.size(); ++row) {
        const SCfg_Item* const item = items.at(row);
        const SItemState& state = states.at(row);
        const bool favourite = MVThemeMgr::init()->isItemCollect(item);
        table.add({item->m_qsGUID, Items::kindName(item->m_eType), item->m_qsName,
                   Items::themeTypeName(*item),
                   favourite ? QStringLiteral("favourite") : QStringLiteral("-"),
                   States::size(state, state.m_nNeeded), States::text(state, state.m_nNeeded)});
    }
    table.print();
}

/// Returns the items with their states.
QJsonArray toJson(const QVector<SCfg_Item*>& items)
{
    const QVector<SItemState> states = FileStates(FileStates::Depth::Quick).of(items);
    QJsonArray array;
    for (int row = 0; row < items.size(); ++row) {
        QJsonObject object = Items::toJson(*items.at(row), states.at(row).m_nNeeded);
        States::addTo(object, states.at(row));
        array.append(object);
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
