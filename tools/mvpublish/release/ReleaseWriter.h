// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>

class ContentFolder;
class PreviousRelease;

/// What a publisher decides about a release.
struct ReleaseOptions
{
    QString catalogueVersion;
    QDateTime now;          ///< UTC, in whole seconds
    qint64 newestInput = 0; ///< time of the newest file of the source, in seconds since 1970
    int expiryDays = 0;     ///< after the publication; 0: never
    bool renew = false;     ///< a new serial and time of publication, whatever has changed
};

/// Makes a written tree a release: writes the contents by digest, files.txt, release.json, and the
/// signature of the replaced tree where it still applies.
class ReleaseWriter
{
public:
    /// `tree` is the folder of the new tree, `replaced` that of the tree to be replaced, which need
    /// not exist.
    ReleaseWriter(const QString& tree, const QString& replaced);

    /// Takes the names of the published files, relative to the tree. On false see errorText().
    bool write(const QSet<QString>& files, const ReleaseOptions& options);

    const SRelease& release() const { return m_release; }
    /// Returns why the release of the replaced tree was not regarded; empty otherwise.
    QString warning() const { return m_warning; }
    QString errorText() const { return m_error; }

private:
    bool listFiles(const QSet<QString>& files, ContentFolder& contents);
    bool decide(const PreviousRelease& previous, const ReleaseOptions& options);
    bool keepSignature(const PreviousRelease& previous, ContentFolder& contents);
    QString file(const QString& name) const { return m_tree + QLatin1Char('/') + name; }
    bool fail(const QString& text);

    QString m_tree;
    QString m_replaced;
    ReleaseList m_list;
    SRelease m_release;
    bool m_isUnchanged = false; // neither content nor options: the previous release again
    QString m_warning;
    QString m_error;
};
