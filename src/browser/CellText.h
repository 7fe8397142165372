// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SCellState.h"

#include <QCoreApplication>
#include <QString>
#include <QtGlobal>

struct SCfg_Item;

/// What is said of items in words, in the present language. Internal to the library; GUI thread
/// only.
class CellText
{
    Q_DECLARE_TR_FUNCTIONS(CellText)

public:
    CellText() = delete;

    /// Returns name and state, as a screen reader says them: "White Christmas, festivals,
    /// favourite, not downloaded, 250 kB". Accesses the disk for the size of what is missing.
    static QString spoken(SCfg_Item& item, const SCellState& state);
    /// Returns a text such as "3 of 15".
    static QString position(int number, int count);
    /// Returns the state of the files alone: "update available".
    static QString ofFiles(const SCellState& state);
    /// Returns the text of the mark of new items.
    static QString ofNew();
    /// Returns a size such as "250 kB" or "1.2 MB".
    static QString size(qint64 bytes);

private:
    static QString themeType(int code);
    static QString toFetch(SCfg_Item& item);
};
