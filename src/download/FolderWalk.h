// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QDir>

#include <functional>

class QFileInfo;

/// Finds what is below a folder without following links. QDirIterator takes a junction of Windows
/// for a folder, and never ends in one that leads to a folder around it. Stateless, any thread.
class MVRESOURCE_EXPORT FolderWalk
{
public:
    FolderWalk() = delete;

    /// Called with each entry; returns whether the walk goes on.
    using Visitor = std::function<bool(const QFileInfo& entry)>;

    /// Visits the files (QDir::Files) and folders (QDir::Dirs) below the folder, hidden ones only
    /// with QDir::Hidden. The order is that of the disk; an inner folder follows the one around
    /// it. Links and junctions are not visited. Returns false if the visitor has ended the walk.
    static bool visit(const QString& folder, QDir::Filters filters, const Visitor& visitor);
};
