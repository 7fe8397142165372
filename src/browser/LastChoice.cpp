// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/LastChoice.h"

#include <QHash>

namespace {

QHash<int, quint64>& lastChoices()
{
    static QHash<int, quint64> numbers;
    return numbers;
}

} // namespace

quint64 LastChoice::note(ECfgItemType kind)
{
    return ++lastChoices()[kind];
}

bool LastChoice::isLast(ECfgItemType kind, quint64 choice)
{
    return lastChoices().value(kind) == choice;
}
