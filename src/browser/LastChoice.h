#pragma once

#include "records/ECfgItemType.h"

#include <QtGlobal>

/// Knows the user's last choice of each kind, over all lists, so that a download that ends later
/// does not replace it. Internal to the library; GUI thread only.
class LastChoice
{
public:
    LastChoice() = delete;

    /// Notes that the user has chosen an item of this kind. Returns the number of the choice.
    static quint64 note(ECfgItemType kind);
    /// Returns whether nothing of this kind has been chosen since the choice with that number.
    static bool isLast(ECfgItemType kind, quint64 choice);
};
