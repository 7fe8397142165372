#pragma once

#include <QString>

/// Keeps downloads inside the download root, whatever names a catalogue contains. Internal to the
/// library; hosts use MVThemeMgr::isDownloadPath. Stateless, any thread.
class PathGuard
{
public:
    PathGuard() = delete;

    /// Returns false for a name with a ".." component or a NUL.
    static bool hasPlainName(const QString& path);
    /// Returns whether `path` exists and is below the existing folder `root` after resolving all
    /// links.
    static bool isReallyInside(const QString& root, const QString& path);

    /// Returns whether creating, writing or deleting `path` can only touch entries below `root`:
    /// the path begins with the root, contains no ".." (with either slash) and no NUL, and no
    /// component below the root is a link. The root itself may be one. An empty root contains
    /// nothing.
    static bool isInside(const QString& root, const QString& path);

    /// Creates the folder and its parents if it is missing and inside the root. Returns whether it
    /// now exists.
    static bool ensureDir(const QString& root, const QString& path);
};
