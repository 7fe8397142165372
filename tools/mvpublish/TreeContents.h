// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"

#include <QMap>
#include <QString>

class ReadTree;

/// The published files of a tree, without the documents and contents of its release: those that its
/// release lists, or else those on disk.
class TreeContents
{
public:
    explicit TreeContents(const ReadTree& tree);

    /// Returns whether a valid release lists the files.
    bool isListed() const { return m_isListed; }
    /// Returns the files on disk instead of the listed ones.
    static TreeContents onDisk(const ReadTree& tree);

    /// Returns the sizes by name.
    const QMap<QString, qint64>& sizes() const { return m_sizes; }
    /// Returns the size of the list; 0 without one.
    qint64 listBytes() const { return m_listBytes; }
    /// Returns whether both have the same content under a name, which both have; by digest.
    bool isEqual(const TreeContents& other, const QString& name) const;

private:
    explicit TreeContents(QString folder);
    void readList();
    void readDisk();
    QByteArray digestOf(const QString& name) const;

    QString m_folder;
    QMap<QString, qint64> m_sizes;
    ReleaseList m_list;
    qint64 m_listBytes = 0;
    bool m_isListed = false;
};
