// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>

class ReadTree;

/// The files of a server's tree that clients fetch, except for the catalogues.
class FetchedFiles
{
public:
    explicit FetchedFiles(const ReadTree& tree);

    /// Returns whether clients fetch the file; `name` is relative to the tree.
    bool contains(const QString& name) const;
    /// Returns whether it is an item's definition, whose name is derived from the item's GUID.
    static bool isDefinition(const QString& name);

private:
    QSet<QString> m_kept; // names and folders of files that are never fetched
};
