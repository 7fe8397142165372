// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"

#include <QByteArray>
#include <QString>

class ContentFolder;
class ContentName;

/// The release of the tree that a build replaces.
class PreviousRelease
{
public:
    /// Reads release.json and files.txt of a tree, which may have none, or not exist.
    explicit PreviousRelease(const QString& tree);

    bool exists() const { return !m_bytes.isEmpty(); }
    const SRelease& release() const { return m_release; }
    /// Returns the content of release.json; empty without a valid one.
    const QByteArray& bytes() const { return m_bytes; }
    /// Returns the content of release.json.minisig; empty without a valid one.
    const QByteArray& signature() const { return m_signature; }
    /// Returns why a release.json or a files.txt that is there cannot be used; empty otherwise.
    QString faultText() const { return m_fault; }
    /// Returns why a file of the release cannot be read, or a content cannot be kept; empty
    /// otherwise. A build must fail then: without them it would take contents from clients.
    QString errorText() const { return m_error; }

    /// Keeps the contents that this release names, with its list and its signature, for clients
    /// that still use it. On false see errorText().
    bool keepNamed(ContentFolder& contents);
    /// Keeps all contents, also those of the release before this one. On false see errorText().
    bool keepAll(ContentFolder& contents);

private:
    bool isFit(const QString& name, qint64 maxBytes) const;
    bool read(const QString& name, qint64 maxBytes, QByteArray& bytes);
    bool readSignature(const QString& name, QByteArray& bytes);
    void readList();
    bool keep(const QString& name, ContentFolder& contents);
    bool keepSignature(const ContentName& content, const QString& name, ContentFolder& contents);

    QString m_tree;
    QByteArray m_bytes;
    QByteArray m_signature;
    SRelease m_release;
    ReleaseList m_list;
    QString m_fault;
    QString m_error;
};
