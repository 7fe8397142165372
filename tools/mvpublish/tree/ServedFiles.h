// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QByteArray;

/// Writes the files and folders of a tree, readable by any server whatever the umask and the
/// permissions in the source. Nothing is flushed to disk: FolderSwitch does that for a whole tree.
namespace ServedFiles {

/// Creates a folder whose parent exists; one that exists is fine. Returns false with the reason in
/// `error`.
bool makeFolder(const QString& folder, QString* error);

/// Writes a new file into an existing folder. Returns false with the reason in `error`.
bool write(const QString& path, const QByteArray& content, QString* error);

/// Copies a file to a new name in an existing folder. Returns false with the reason in `error`.
bool copy(const QString& from, const QString& to, QString* error);

/// Makes a file readable that something else has written.
bool makeReadable(const QString& path);

} // namespace ServedFiles
