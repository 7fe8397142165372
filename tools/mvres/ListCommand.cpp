// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ListCommand.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/FileStates.h"
#include "ExitStatus.h"
#include "Items.h"
#include "States.h"
#include "Table.h"

#include <QJsonDocument>

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

int ListCommand::run(const Arguments& arguments)
{
    QVector<SCfg_Item*> items;
    if (arguments.operands.isEmpty()) {
        items = Items::displayed();
    } else {
        ECfgItemType kind = eCfgItem_Filter;
        if (!Items::kindOf(arguments.operands.constFirst(), kind)) {
            return Console::fail(ExitStatus::usage,
                                 QStringLiteral("unknown kind \"%1\": filter, transition, motion, "
                                                "theme or bgmaterial")
                                     .arg(arguments.operands.constFirst()));
        }
        items = Items::displayed(kind);
    }
    if (!arguments.json) {
        printTable(items);
        return ExitStatus::success;
    }
    Console::print(QJsonDocument(toJson(items)));
    return ExitStatus::success;
}
