// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

struct SCfg_Item;

/// The output of the commands that list items.
namespace Listing {

/// Prints a table with a line for each item, or a JSON document.
void print(const QVector<SCfg_Item*>& items, bool isJson);

} // namespace Listing
