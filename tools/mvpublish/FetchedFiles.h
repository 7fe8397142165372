#pragma once

#include <QSet>
#include <QString>

class ReadTree;

/// The files of a server's tree that clients fetch, apart from the catalogues.
class FetchedFiles
{
public:
    explicit FetchedFiles(const ReadTree& tree);

    /// `name` is relative to the tree.
    bool contains(const QString& name) const;
    /// Returns whether it is the definition of an item, whose name follows from the item's GUID.
    static bool isDefinition(const QString& name);

private:
    QSet<QString> m_kept; // names and folders that are there and stay on the server
};
