// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "download/AnswerCache.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

/// The files in the download root that hold the accepted release, see AcceptedRelease. Internal to
/// the library; any thread.
class ReleaseStore
{
public:
    ReleaseStore();

    /// Returns the stored release of the present server; null if there is none, it is damaged, or
    /// it is not signed as the settings demand.
    AcceptedRelease::Pointer read() const;
    /// Returns what the server has said of the version of that release.
    SValidators validators() const;
    /// Returns the serial below which no release is accepted: that of the stored one, even if its
    /// list is damaged; 0 if there is none.
    qint64 minSerial() const;

    /// Stores a release: first its list and its signature, then the release itself, each
    /// atomically. Returns false, with lines in the log, if that fails.
    bool write(const AcceptedRelease& release, const SValidators& validators) const;
    void forget() const;

    /// Returns what changes with the files: their times and sizes.
    static QString state();

    /// Returns why a release must not be believed; empty if it is signed as the settings demand.
    static QString faultOf(const QByteArray& text, const QByteArray& signature);

private:
    const AnswerCache m_cache;
    const AnswerCache::Entry m_entry; // as of the construction
};
