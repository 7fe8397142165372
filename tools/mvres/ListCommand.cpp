// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ListCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"
#include "Listing.h"

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
    Listing::print(items, arguments.json);
    return ExitStatus::success;
}
