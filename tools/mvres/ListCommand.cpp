#include "ListCommand.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "Columns.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"
#include "records/KindTable.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

void printTable(const QVector<SCfg_Item*>& items)
{
    const QVector<int> missingFiles = ItemFiles::countNeeded(items);
    int nameWidth = 0;
    for (const SCfg_Item* item : items)
        nameWidth = std::max(nameWidth, Columns::width(item->m_qsName));
    for (int row = 0; row < items.size(); ++row) {
        const SCfg_Item* const item = items.at(row);
        const int missing = missingFiles.at(row);
        const QString state =
            missing == 0 ? QStringLiteral("ready") : QStringLiteral("%1 missing").arg(missing);
        const bool favourite = MVThemeMgr::init()->isItemCollect(item);
        Console::print(
            QStringLiteral("%1  %2  %3  %4  %5  %6")
                .arg(Columns::padded(item->m_qsGUID, 38),
                     Columns::padded(Items::kindName(item->m_eType), 10),
                     Columns::padded(item->m_qsName, nameWidth),
                     Columns::padded(Items::themeTypeName(*item), 9),
                     Columns::padded(favourite ? QStringLiteral("favourite") : QStringLiteral("-"),
                                     9),
                     state));
    }
}

} // namespace

int ListCommand::run(const Arguments& arguments)
{
    QVector<ECfgItemType> kinds;
    for (const SKindInfo& kind : KindTable::all())
        kinds.append(kind.type);
    if (!arguments.operands.isEmpty()) {
        ECfgItemType kind = eCfgItem_Filter;
        if (!Items::kindOf(arguments.operands.constFirst(), kind)) {
            return Console::fail(ExitStatus::usage,
                                 QStringLiteral("unknown kind \"%1\": filter, transition, motion, "
                                                "theme or bgmaterial")
                                     .arg(arguments.operands.constFirst()));
        }
        kinds = {kind};
    }
    QVector<SCfg_Item*> items;
    for (const ECfgItemType kind : qAsConst(kinds))
        items += Items::displayed(kind);

    if (!arguments.json) {
        printTable(items);
        return ExitStatus::success;
    }
    Console::print(QJsonDocument(Items::toJson(items)));
    return ExitStatus::success;
}
