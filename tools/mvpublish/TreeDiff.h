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

    /// A change of what users see of an item.
    struct Item
    {
        QString kind;
        QString guid;
        QString name;
        QString newName;   ///< of a renamed item
        QString catalogue; ///< the display catalogue, for a change in only some editions

        /// Returns "KIND {GUID} Name", "KIND {GUID} Old name -> New name", followed by the
        /// catalogue in brackets.
        QString text() const;
    };
    /// Editions that the second tree does not serve.
    struct LostEditions
    {
        QStringList names;
        QString file; ///< version file

        /// Returns "1, 5 (VERSION FILE)".
        QString text() const;
    };
    /// Another version: users of an application with the old one fetch nothing.
    struct Version
    {
        QString file;
        QString before;
        QString after;

        /// Returns "VERSION FILE 1.2.0 -> 1.3.0".
        QString text() const;
    };

    /// In the order of their catalogue.
    QVector<Item> added;
    QVector<Item> removed;
    QVector<Item> renamed;
    QVector<LostEditions> lostEditions;
    QVector<Version> versions;
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
