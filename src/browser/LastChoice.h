#pragma once

#include "records/ECfgItemType.h"

#include <QtGlobal>

/// Which choice of the user's is the last one of a kind, over all lists: a download that ends later
/// than another choice must not take its place. Internal to the library; GUI thread only.
class LastChoice
{
public:
    LastChoice() = delete;

    /// Notes that the user has chosen an item of this kind. Returns the number of the choice.
    static quint64 note(ECfgItemType kind);
    /// Whether nothing of this kind has been chosen since the choice with that number.
    static bool isLast(ECfgItemType kind, quint64 choice);
};
