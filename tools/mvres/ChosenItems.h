// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

/// Finds the items that a user chooses by GUID, by name or by words of a name.
///
/// A text other than a GUID selects the shown item of exactly that name; else the one whose name
/// differs only in case and accents; else the only one whose name has all its words.
class ChosenItems
{
public:
    explicit ChosenItems(ItemIndex& index);

    /// Takes the items, each once. Returns false if a text selects none or several; report it by
    /// fail().
    bool choose(const QStringList& texts);
    const QVector<SCfg_Item*>& items() const { return m_items; }

    /// Reports why a choice was refused, with the items that were meant. Returns the exit status.
    int fail() const;

private:
    SCfg_Item* find(const QString& text);
    void refuse(const QString& text);

    ItemIndex& m_index;
    QVector<SCfg_Item*> m_items;
    QVector<SCfg_Item*> m_candidates; // for the text that was refused
    QString m_error;
};
