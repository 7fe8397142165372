// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"
#include "host/SPublishedContent.h"
#include "host/STransferFailure.h"
#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// The release that the last successful check has accepted and stored in the download root: what
/// the files of the server must be. Immutable, any thread.
///
/// Beside the catalogue, "release-cache.json" holds the release, "release.minisig" its signature
/// and "files.txt" its list. A release that is not signed by one of HostSettings::releaseKeys, or
/// whose list is not the one it names, counts as none.
class MVRESOURCE_EXPORT AcceptedRelease
{
public:
    /// Shares an immutable release; null for none.
    using Pointer = std::shared_ptr<const AcceptedRelease>;

    /// Returns the accepted release of the present server; null if there is none, or if the policy
    /// is to ignore releases. Reads the files only if they have changed since the last call.
    static Pointer current();

    /// Returns whether a release has been stored that current() does not return, since it cannot be
    /// read, is damaged or is not signed by a trusted key. The next check fetches it again.
    static bool isUnusable();

    /// Combines what a check has verified: the text of release.json, its content, its list and its
    /// signature. Tests nothing.
    AcceptedRelease(QByteArray text, SRelease release, ReleaseList list, QByteArray signature);

    /// Returns the content of release.json.
    const SRelease& release() const { return m_release; }
    /// Returns the list of the release's files.
    const ReleaseList& list() const { return m_list; }
    /// Returns the bytes of release.json.
    const QByteArray& text() const { return m_text; }
    /// Returns the bytes of its signature; empty if it was not asked for.
    const QByteArray& signature() const { return m_signature; }

    /// Describes how to fetch a file of the server: its address and its content.
    struct Source
    {
        QString contentUrl;          ///< see TransferPool::Job::contentUrl
        SPublishedContent published; ///< unknown: any content is accepted
        bool isRefused = false;      ///< the policy does not allow to fetch it
    };
    /// Returns that for an address of the server (MVThemeMgr::addressOf()), by the current()
    /// release, which may be null.
    static Source sourceOf(const QString& url, const Pointer& release);

    /// Returns the failure of a file that the policy does not allow to fetch.
    static STransferFailure refusalOf(const QString& url, const QString& file);

    /// Returns the path of an address below the server root, as lists have it; empty for an address
    /// of another server.
    static QString pathOf(const QString& url);
    /// Returns the address of a path below the server root.
    static QString urlOf(const QString& path);

private:
    QByteArray m_text;
    SRelease m_release;
    ReleaseList m_list;
    QByteArray m_signature;
};
