// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

class UploadPlace;
class TreeRelease;

/// Tells which of a release's named files may have another content at a remote although their size
/// is the same: many web spaces have no checksums, and version files always have the same size.
///
/// What has been uploaded since the release in force is known from the records and lists of all
/// uploads, broken ones included.
class RemoteNames
{
public:
    /// Fetches the lists. On false see UploadPlace.
    bool read(UploadPlace& remote, const TreeRelease& tree);

    bool mayDiffer(const ReleaseList::Entry& entry) const;
    /// Returns the listed names at the remote that no release explains, for the record of the
    /// tree's first upload.
    const QStringList& unexplained() const { return m_unexplained; }

private:
    QVector<ReleaseList> m_lists;
    QSet<QString> m_unknown;
    QStringList m_unexplained;
};
