// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <climits>

/// An absolute path without "." and "..", made from a function's arguments. Does not follow links.
/// Allocates nothing.
class PlainPath
{
public:
    /// Resolves `name` relative to the folder descriptor `folder`, or to the current folder for
    /// AT_FDCWD.
    PlainPath(int folder, const char* name);

    const char* text() const { return m_text.data(); }
    /// Returns whether the path is below the folder of the FaultPlan.
    bool isWatched() const;
    /// Returns the same as isWatched(), and true for the folder itself.
    bool isOnWatchedDisk() const;
    /// Returns whether an entry of that name exists, even a dangling link. Preserves errno.
    bool exists() const;

private:
    std::array<char, PATH_MAX> m_text = {};
};

/// Tracks which open files are below the folder of the FaultPlan, and which of them were written.
/// Any thread; descriptors above 65535 are never watched.
namespace WatchedFiles {

/// Records a newly opened file.
void opened(int file, bool watched);
/// Records a duplicate descriptor. Closing it also stores what was written by the original.
void duplicated(int file, int duplicate);
void written(int file);
/// Records that everything written so far has reached the disk.
void flushed(int file);
/// Records that a descriptor is about to be freed; `isStored`: no written data was lost.
void closed(int file, bool isStored);

/// Truncates a file to half, like a file system that writes late and reports the failure only when
/// the file is closed.
void loseData(int file);

bool isWatched(int file);
bool isWritten(int file);

} // namespace WatchedFiles
