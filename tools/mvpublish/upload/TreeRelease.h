// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"

#include <QByteArray>
#include <QMap>
#include <QString>

/// The release of a built tree, complete and intact, as an upload sends it.
class TreeRelease
{
public:
    /// Reads the release of a tree and compares all its files and contents with their digests. On
    /// false see errorText().
    bool read(const QString& tree);
    QString errorText() const { return m_error; }

    /// Returns the absolute path of the tree.
    QString folder() const { return m_folder; }
    const SRelease& release() const { return m_release; }
    const ReleaseList& list() const { return m_list; }
    /// Returns the content of release.json.
    const QByteArray& bytes() const { return m_bytes; }
    /// Returns the digest of release.json.
    const QByteArray& digest() const { return m_digest; }
    bool isSigned() const { return m_isSigned; }
    /// Returns the sizes of what clients fetch by digest, list and signature included, by name.
    const QMap<QString, qint64>& contents() const { return m_contents; }

private:
    bool readRelease();
    bool readList();
    bool readSignature();
    bool checkFile(const ReleaseList::Entry& entry);
    bool checkContent(const QByteArray& digest, const QString& otherName);
    QString path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    bool fail(const QString& text);

    QString m_folder;
    QByteArray m_bytes;
    QByteArray m_digest;
    SRelease m_release;
    ReleaseList m_list;
    QMap<QString, qint64> m_contents;
    bool m_isSigned = false;
    QString m_error;
};
