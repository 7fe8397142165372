#pragma once

#include <QString>

/// Rules for the names of published files.
namespace FileNames {

/// Empty for a relative path that every client can store; else what is wrong with it.
QString fault(const QString& name);

/// Returns whether `path` names a regular file that lies below `folder`, also after links.
bool isFileBelow(const QString& folder, const QString& path);

/// Returns whether `path` names a folder that lies below `folder`, also after links.
bool isFolderBelow(const QString& folder, const QString& path);

/// The name of a folder that is packed into the archive `name`: "a.zip" is packed from "a". Empty
/// if there is none.
QString packedFolder(const QString& name);

} // namespace FileNames
