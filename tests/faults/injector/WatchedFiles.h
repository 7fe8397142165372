#pragma once

#include <array>
#include <climits>

/// An absolute path without "." and "..", made from what a function was given. Links are not
/// followed. Allocates nothing.
class PlainPath
{
public:
    /// `name` relative to the folder that `folder` has open, or to the current one for AT_FDCWD.
    PlainPath(int folder, const char* name);

    const char* text() const { return m_text.data(); }
    /// Whether it lies below the folder of the FaultPlan.
    bool isWatched() const;
    /// The same, and for the folder itself.
    bool isOnWatchedDisk() const;
    /// Whether anything has that name, be it a link to nothing. Leaves errno as it is.
    bool exists() const;

private:
    std::array<char, PATH_MAX> m_text = {};
};

/// Which open files lie below the folder of the FaultPlan, and which of them were written. Any
/// thread; files with numbers above 65535 are never watched.
namespace WatchedFiles {

/// Notes a file that has just been opened.
void opened(int file, bool watched);
/// Notes a second number of an open file. Closing it stores what was written by the first, too.
void duplicated(int file, int duplicate);
void written(int file);
/// Notes that everything written so far is on the disk.
void flushed(int file);
/// Notes that a number is about to become free; `isStored` says whether nothing written was lost.
void closed(int file, bool isStored);

/// Cuts a file in half, as a file system does that writes late, fails, and tells of it when the
/// file is closed.
void loseData(int file);

bool isWatched(int file);
bool isWritten(int file);

} // namespace WatchedFiles
