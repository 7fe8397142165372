// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QStringList>

/// The words a user types into a search field, matched against names in any order.
///
/// Case and accents do not count: "neige noel" finds "Noël sous la Neige". A word matches anywhere
/// in a name, so results narrow while the user types. An immutable value: any thread may use it.
class MVRESOURCE_EXPORT SearchWords
{
public:
    SearchWords() = default;
    /// Splits the text at white space, of any script.
    explicit SearchWords(const QString& text);

    /// Returns whether the text held no word; every name matches then.
    bool isEmpty() const { return m_words.isEmpty(); }
    /// Returns whether the name contains every word.
    bool matches(const QString& name) const;

    /// Returns whether both are the same words in the same order.
    bool operator==(const SearchWords& other) const { return m_words == other.m_words; }
    /// Returns the opposite of ==.
    bool operator!=(const SearchWords& other) const { return m_words != other.m_words; }

    /// Returns the text without the differences that a search ignores: compatibility forms
    /// (full-width letters, ligatures) are decomposed (Unicode form KD), combining marks removed
    /// and letters folded to one case. "ÉLÉGANT" becomes "elegant".
    static QString folded(const QString& text);

private:
    QStringList m_words; // folded
};
