// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SearchCommand.h"

#include "Arguments.h"
#include "catalogue/SearchWords.h"
#include "ExitStatus.h"
#include "Items.h"
#include "Listing.h"

#include <algorithm>

int SearchCommand::run(const Arguments& arguments)
{
    const SearchWords words(arguments.operands.join(QLatin1Char(' ')));
    QVector<SCfg_Item*> items = Items::displayed();
    items.erase(
        std::remove_if(items.begin(), items.end(),
                       [&](const SCfg_Item* item) { return !words.matches(item->m_qsName); }),
        items.end());
    Listing::print(items, arguments.json);
    return ExitStatus::success;
}
