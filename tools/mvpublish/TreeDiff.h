// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class ReadTree;

/// The changes for users who have all files of one server's tree when another replaces it, across
/// all editions that the first tree serves.
struct TreeDiff
{
    struct File
    {
        QString name; ///< relative to the tree
        qint64 size = 0;
    };

    /// Items as "KIND {GUID} Name", in the order of their catalogue. Lines of only some editions
    /// are followed by the display catalogue in brackets.
    QStringList added;
    QStringList removed;
    QStringList renamed; ///< "KIND {GUID} Old name -> New name"
    /// "1, 5 (VERSION FILE)": the second tree does not serve them.
    QStringList lostEditions;
    /// "VERSION FILE 1.2.0 -> 1.3.0": users of an application with the old version fetch nothing.
    QStringList versions;
    /// Version files and catalogues that checks fetch.
    QVector<File> catalogues;
    QVector<File> newFiles;
    /// Files under existing names: users who have one keep it, because an existing file is never
    /// fetched again, unless their client uses releases.
    QVector<File> changedFiles;
    /// Changed definitions, whose names are derived from the items' GUIDs.
    QVector<File> changedDefinitions;
    /// New and changed files that no client fetches.
    QVector<File> unfetchedFiles;
    QVector<File> removedFiles;

    /// Bytes that one user transfers, in the edition with the largest transfer.
    qint64 catalogueBytes = 0;
    qint64 fileBytes = 0;

    /// Bytes that a user transfers in addition if the client uses releases, which replace changed
    /// files and definitions.
    qint64 changedBytes = 0;
    qint64 listBytes = 0;
    /// Whether clients of any edition use the catalogues of the second tree.
    bool isUsed = false;

    bool isEmpty() const;

    static TreeDiff between(const ReadTree& before, const ReadTree& after);
};
