// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SItemState.h"

#include <QCoreApplication>
#include <QString>

/// The state of an item's files in plain words, in the present language.
class StateText
{
    Q_DECLARE_TR_FUNCTIONS(StateText)

public:
    StateText() = delete;

    /// Returns a size such as "1.2 MB".
    static QString size(qint64 bytes);
    /// Returns the size of a download, of which not all may be known: "at least 1.2 MB".
    static QString sizeToFetch(qint64 bytes, bool areAllKnown);
    /// Returns a text such as "Update available, 1.2 MB".
    static QString ofState(const SItemState& state);
    /// Returns the use of the disk, "On this computer: 3.4 MB"; empty without any.
    static QString ofUse(qint64 ownBytes, qint64 sharedBytes);
};
