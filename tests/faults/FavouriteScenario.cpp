// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FavouriteScenario.h"

#include "tools/SmallCatalogue.h"

namespace {

QStringList favourite(MvresItem item)
{
    return {QStringLiteral("favourite"), CatalogueFiles::guid(item)};
}

} // namespace

QString FavouriteScenario::prepare()
{
    SmallCatalogue catalogue;
    catalogue.addFilter(Look, QStringLiteral("Look"), QString());
    catalogue.addFilter(Paper, QStringLiteral("Paper"), QString());
    catalogue.addTheme(Film, QStringLiteral("Film"), QString());
    catalogue.writeTo(mvres().installed());
    if (m_before == Favourites::None)
        return run({QStringLiteral("--version")}); // also writes the settings
    const QString trouble = run(favourite(Look));
    return trouble.isEmpty() ? run(favourite(Film)) : trouble;
}

QStringList FavouriteScenario::command() const
{
    return favourite(Paper);
}
