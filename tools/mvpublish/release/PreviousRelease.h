// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"

#include <QByteArray>
#include <QString>

class ContentFolder;

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
    /// Returns why a release.json or a files.txt that is there cannot be used; empty otherwise.
    QString faultText() const { return m_fault; }

    /// Keeps the contents that this release names, with its list and its signature, for clients
    /// that still use it. On false see ContentFolder::errorText().
    bool keepNamed(ContentFolder& contents) const;
    /// Keeps all contents, also those of the release before this one.
    bool keepAll(ContentFolder& contents) const;

private:
    bool keep(const QString& name, ContentFolder& contents) const;
    void readList();

    QString m_tree;
    QByteArray m_bytes;
    SRelease m_release;
    ReleaseList m_list;
    QString m_fault;
};
