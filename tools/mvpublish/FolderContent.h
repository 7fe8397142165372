#pragma once

#include <QString>
#include <QStringList>

/// What lies in folders. QDir and QDirIterator take a folder that cannot be read for an empty one;
/// whoever publishes or replaces what they list must not. Stateless, any thread.
namespace FolderContent {

/// The names of everything in `folder`, hidden entries and links too, sorted. False: `error` says
/// why the folder cannot be read.
bool names(const QString& folder, QStringList& names, QString* error);

/// The paths of everything below `folder`, relative to it, sorted; links are not followed. False:
/// `error` says which folder cannot be read, and why.
bool paths(const QString& folder, QStringList& paths, QString* error);

} // namespace FolderContent
