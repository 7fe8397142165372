// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// The published contents of a tree, each under the name that ReleasePaths::content() gives its
/// digest: hard links to the files of the tree where the file system allows them, else copies.
class ContentFolder
{
public:
    /// `tree` is the folder of a tree that is being written.
    explicit ContentFolder(const QString& tree);

    /// Simulates a file system without hard links.
    void useCopies() { m_canLink = false; }

    bool contains(const QByteArray& digest) const;
    /// Publishes the content of a file; only the first one of a digest counts. On false see
    /// errorText().
    bool add(const QString& file, const QByteArray& digest);
    /// Publishes the signature of the release.json that has this digest.
    bool addSignature(const QString& file, const QByteArray& releaseDigest);

    QString errorText() const { return m_error; }

private:
    bool place(const QString& file, const QString& name);

    QString m_tree;
    QString m_error;
    bool m_canLink = true;
};
