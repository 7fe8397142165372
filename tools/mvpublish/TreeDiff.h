#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class ReadTree;

/// The changes for users who have all files of one server's tree when another replaces it, over all
/// editions that the first tree serves.
struct TreeDiff
{
    struct File
    {
        QString name; ///< relative to the tree
        qint64 size = 0;
    };

    /// Items as "KIND {GUID} Name", in the order of their catalogue. What only some editions show
    /// is followed by the display catalogue in brackets.
    QStringList added;
    QStringList removed;
    QStringList renamed; ///< "KIND {GUID} Old name -> New name"
    /// "1, 5 (VERSION FILE)": the second tree does not serve them.
    QStringList lostEditions;
    /// "VERSION FILE 1.2.0 -> 1.3.0": whose application brought the old version fetches nothing.
    QStringList versions;
    /// Version files and catalogues that checks fetch.
    QVector<File> catalogues;
    QVector<File> newFiles;
    /// Files under a name that was there already: whoever has one keeps it, because a file that is
    /// present is never fetched again.
    QVector<File> changedFiles;
    /// The same of definitions, whose names follow from the items' GUIDs.
    QVector<File> changedDefinitions;
    /// New and changed files that no client fetches.
    QVector<File> unfetchedFiles;
    QVector<File> removedFiles;

    /// Bytes that one user transfers, in the edition with the largest transfer.
    qint64 catalogueBytes = 0;
    qint64 fileBytes = 0;

    bool isEmpty() const;

    static TreeDiff between(const ReadTree& before, const ReadTree& after);
};
