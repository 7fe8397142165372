// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"
#include "SmallSource.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// A server's tree with its release, as mvpublish builds it from SmallSource.
class ReleasedTree
{
public:
    /// The clock of builds unless a test sets another one: later than every file of a test.
    static constexpr qint64 epoch = 4000000000;

    /// Uses the tree `folder`, which does not exist yet, and fixes the clock of builds.
    explicit ReleasedTree(const QString& folder);

    /// Fixes the clock of the builds that follow, in seconds since 1970.
    static void setClock(qint64 seconds);
    /// Builds the tree from the source. Returns an error; empty: success.
    QString build(const QStringList& options = {}) const;

    const SmallSource& source() const { return m_source; }
    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QByteArray read(const QString& name) const;
    /// Returns the valid release; with the serial 0 if it is not.
    SRelease release() const;
    QByteArray releaseDigest() const;
    ReleaseList list() const;
    /// Returns the content of every file by its name.
    QMap<QString, QByteArray> files() const;

private:
    SmallSource m_source;
    QString m_folder;
};
