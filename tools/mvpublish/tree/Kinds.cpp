// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Kinds.h"

#include "records/KindTable.h"
#include "records/ThemeTypes.h"

#include <algorithm>

namespace Kinds {

const SKindInfo* byWord(const QString& word)
{
    const KindTable::Rows& kinds = KindTable::all();
    const auto* const found = std::find_if(
        kinds.begin(), kinds.end(), [&word](const SKindInfo& kind) { return kind.word() == word; });
    return found == kinds.end() ? nullptr : found;
}

QString words()
{
    QStringList words;
    for (const SKindInfo& kind : KindTable::all())
        words.append(kind.word());
    return words.join(QStringLiteral(", "));
}

QStringList themeTypes()
{
    QStringList names;
    for (const ThemeTypes::Type& type : ThemeTypes::all())
        names.append(type.name);
    return names;
}

bool isThemeType(const QString& type)
{
    return themeTypes().contains(type);
}

QString otherThemes()
{
    return ThemeTypes::others().name;
}

} // namespace Kinds
