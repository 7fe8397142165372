// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// Lists folders. QDir and QDirIterator report an unreadable folder as an empty one, which would
/// lose data where folders are published or replaced. Stateless, any thread.
namespace FolderContent {

/// Returns the sorted names of everything in `folder`, including hidden entries and links. On false
/// `error` has the reason why the folder cannot be read.
bool names(const QString& folder, QStringList& names, QString* error);

/// Returns the sorted relative paths of everything below `folder`; links are not followed. On false
/// `error` names the folder that cannot be read, and the reason.
bool paths(const QString& folder, QStringList& paths, QString* error);

} // namespace FolderContent
