// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/SValidators.h"

#include <QByteArray>
#include <QString>

/// A small file of the server as it was last fetched, with its validators, so that a check can ask
/// whether it has changed instead of fetching it again. Internal to the library; any thread.
///
/// It is one file in the download tree, written atomically. A missing, damaged or foreign one is
/// ignored: the check then fetches the server's file.
class AnswerCache
{
public:
    struct Entry
    {
        SValidators validators; ///< empty if there is no usable entry, or none were sent
        QByteArray content;
    };

    /// Returns the cache of the version file.
    static AnswerCache ofVersion();
    /// Returns the cache of the release: the last one that was accepted.
    static AnswerCache ofRelease();

    /// Returns the entry for the server's file at that address.
    Entry read(const QString& url) const;
    /// Replaces the entry, without unreliable validators; returns false, with a line in the log, if
    /// it cannot be stored.
    bool store(const QString& url, Entry entry) const;
    /// Removes the entry.
    void forget() const;
    /// Returns the path of the cache.
    QString path() const;

private:
    AnswerCache(QString name, qint64 maxBytes);

    QString m_name;
    qint64 m_maxBytes;
};
