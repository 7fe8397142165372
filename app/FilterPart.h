// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SListFilter.h"

#include <QVector>

/// One condition of an SListFilter, for controls that set and remove single ones.
enum class FilterPart : int {
    Words,
    ThemeType,
    Favourites,
    OnDisk,
    Outdated,
};

/// Conditions of filters, by their parts. Stateless.
class FilterParts
{
public:
    FilterParts() = delete;

    /// Returns the conditions that a filter sets, in the order of FilterPart.
    static QVector<FilterPart> of(const SListFilter& filter);
    /// Returns the filter without one of its conditions.
    static SListFilter without(SListFilter filter, FilterPart part);
};
