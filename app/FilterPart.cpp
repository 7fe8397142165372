// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FilterPart.h"

QVector<FilterPart> FilterParts::of(const SListFilter& filter)
{
    QVector<FilterPart> parts;
    if (!filter.words.isEmpty())
        parts.append(FilterPart::Words);
    if (filter.themeType != MVThemeSortFilterProxyModel::allThemes)
        parts.append(FilterPart::ThemeType);
    if (filter.onlyFavourites)
        parts.append(FilterPart::Favourites);
    if (filter.onlyOnDisk)
        parts.append(FilterPart::OnDisk);
    if (filter.onlyOutdated)
        parts.append(FilterPart::Outdated);
    return parts;
}

SListFilter FilterParts::without(SListFilter filter, FilterPart part)
{
    switch (part) {
    case FilterPart::Words:
        filter.words = SearchWords();
        break;
    case FilterPart::ThemeType:
        filter.themeType = MVThemeSortFilterProxyModel::allThemes;
        break;
    case FilterPart::Favourites:
        filter.onlyFavourites = false;
        break;
    case FilterPart::OnDisk:
        filter.onlyOnDisk = false;
        break;
    case FilterPart::Outdated:
        filter.onlyOutdated = false;
        break;
    }
    return filter;
}
