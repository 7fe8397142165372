#pragma once

#include <QString>
#include <QStringList>

/// Lists folders. QDir and QDirIterator report an unreadable folder as an empty one, which would
/// lose data where folders are published or replaced. Stateless, any thread.
namespace FolderContent {

/// The names of everything in `folder`, hidden entries and links too, sorted. False: `error` says
/// why the folder cannot be read.
bool names(const QString& folder, QStringList& names, QString* error);

/// The paths of everything below `folder`, relative to it, sorted; links are not followed. False:
/// `error` says which folder cannot be read, and why.
bool paths(const QString& folder, QStringList& paths, QString* error);

} // namespace FolderContent
