// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Rules for the names of published files.
namespace FileNames {

/// Returns why some client cannot store a relative path; empty if every client can.
QString fault(const QString& name);

/// Returns whether `path` names a regular file below `folder`, after resolving links.
bool isFileBelow(const QString& folder, const QString& path);

/// Returns whether `path` names a folder below `folder`, after resolving links.
bool isFolderBelow(const QString& folder, const QString& path);

/// Returns the name of the folder that is packed into the archive `name`: "a" for "a.zip". Empty if
/// there is none.
QString packedFolder(const QString& name);

} // namespace FileNames
