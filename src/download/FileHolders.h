// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemFiles.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

struct SCfg_Item;

/// Tells which items on disk need which files of the download root. An item is on disk if users see
/// it in lists and its own definition is there, or one of its own resources that no other shown
/// item names: music that several themes share does not put those on disk that were never fetched.
/// Internal to the library; any thread that may use the catalogue, whose items must outlive the
/// object.
class FileHolders
{
public:
    /// Looks at the files of all displayed items, as if those in `gone` were not there.
    explicit FileHolders(const QSet<QString>& gone = {});

    struct Holder
    {
        SCfg_Item* item;
        QVector<ItemFiles::Entry> files; ///< present, in the download root, no pictures
    };
    /// Returns the items on disk, in the order of the catalogue.
    const QVector<Holder>& all() const { return m_holders; }

    /// Returns the number of items on disk that need a file.
    int countOf(const QString& path) const { return m_counts.value(path); }

    /// Returns whether the definitions of all themes on disk could be read: otherwise, what they
    /// use is unknown.
    bool isComplete() const { return m_isComplete; }

    /// Returns those files of an item and of all that it uses that a removal may concern: present,
    /// in the download root, no pictures, none of `gone`.
    static QVector<ItemFiles::Entry> filesOf(SCfg_Item& item, const QSet<QString>& gone = {});

private:
    QVector<Holder> m_holders;
    bool m_isComplete = true;
    QHash<QString, int> m_counts; // by path
};
