#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class ReadTree;

/// What changes for a user who has everything of one server's tree when another replaces it.
struct TreeDiff
{
    struct File
    {
        QString name; ///< relative to the tree
        qint64 size = 0;
    };

    /// Items as "KIND {GUID} Name", in the order of their catalogue.
    QStringList added;
    QStringList removed;
    QStringList renamed; ///< "KIND {GUID} Old name -> New name"
    /// Version file and catalogues that a check fetches.
    QVector<File> catalogues;
    QVector<File> newFiles;
    /// Files under a name that was there already: whoever has one keeps it, because a file that is
    /// present is never fetched again.
    QVector<File> changedFiles;
    QVector<File> removedFiles;

    bool isEmpty() const;
    static qint64 bytes(const QVector<File>& files);

    static TreeDiff between(const ReadTree& before, const ReadTree& after);
};
