// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseKey.h"
#include "download/ReleaseList.h"
#include "download/SRelease.h"
#include "release/PublishedTree.h"
#include "tree/Finding.h"

#include <QDateTime>
#include <QVector>

/// Checks that a tree is what its release says: release.json, files.txt, the signature, and every
/// file, under its name and under its digest.
class ReleaseCheck
{
public:
    /// A release that expires within that many days is a warning.
    static constexpr int soonDays = 14;

    /// `tree` must outlive the object.
    ReleaseCheck(PublishedTree& tree, const QDateTime& now);

    /// Sets the keys of which one must have signed; without keys, only the form of the signature
    /// can be checked.
    void setKeys(const QVector<ReleaseKey>& keys) { m_keys = keys; }

    /// Reads release, list and signature. Returns whether there is a list, so that files can be
    /// checked.
    bool readDocuments();
    /// Checks all files. Needs the list; see filesBytes() for the progress.
    void checkFiles(const PublishedTree::Progress& progress = {});
    /// Returns the number of bytes that checkFiles() compares.
    qint64 filesBytes() const;

    const Findings& findings() const { return m_findings; }
    const SRelease& release() const { return m_release; }
    const ReleaseList& list() const { return m_list; }
    /// Returns the id of the key that has signed, if it is one of the keys; empty otherwise.
    const QString& signer() const { return m_signer; }

private:
    bool readRelease();
    bool readList();
    void readSignature();
    void checkSignature(const QByteArray& text);
    void checkExpiry();
    QVector<PublishedTree::Expected> expectedFiles() const;
    void report(const char* code, const QString& file, const QString& message,
                const QString& advice, Severity severity = Severity::Error);

    PublishedTree& m_tree;
    QDateTime m_now;
    QVector<ReleaseKey> m_keys;
    QByteArray m_bytes; // of release.json
    SRelease m_release;
    ReleaseList m_list;
    QString m_signer;
    Findings m_findings;
};
