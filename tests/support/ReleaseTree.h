// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SRelease.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>

/// The files that publishing a server tree as a release adds to it. A value type.
struct ReleaseTree
{
    using Files = QMap<QString, QByteArray>; ///< contents by path below the server root

    QByteArray list;    ///< files.txt
    QByteArray release; ///< release.json
    Files added;        ///< all files to serve besides the published ones, these two included

    /// Publishes the files under their digests. `change` (may be empty) alters the release before
    /// it is written.
    static ReleaseTree of(const Files& files, qint64 serial, const QString& catalogueVersion,
                          const std::function<void(SRelease&)>& change = {});
};
