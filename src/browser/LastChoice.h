// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include <QtGlobal>

/// Records the user's last choice of each kind, across all lists, so that a download that ends
/// later does not override it. Internal to the library; GUI thread only.
class LastChoice
{
public:
    LastChoice() = delete;

    /// Records that the user has chosen an item of this kind. Returns the number of the choice.
    static quint64 note(ECfgItemType kind);
    /// Returns whether no later choice of this kind has been made.
    static bool isLast(ECfgItemType kind, quint64 choice);
};
