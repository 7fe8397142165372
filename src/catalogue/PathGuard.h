#pragma once

#include <QString>

/// Keeps downloads inside the download root, whatever names a catalogue holds. Internal to the
/// library; hosts ask MVThemeMgr::isDownloadPath. Stateless, any thread.
class PathGuard
{
public:
    PathGuard() = delete;

    /// False for a name that leads elsewhere: a part of it is "..", or it holds a NUL.
    static bool hasPlainName(const QString& path);
    /// True if `path` exists and is below the existing folder `root`, all links followed.
    static bool isReallyInside(const QString& root, const QString& path);

    /// True if creating, writing or deleting `path` can only touch what lies below `root`: the path
    /// begins with the root, goes nowhere up ("..", with either slash), holds no NUL, and no part
    /// of it below the root is a link. The root itself may be one. An empty root holds nothing.
    static bool isInside(const QString& root, const QString& path);

    /// Creates the folder with its parents if it is missing and lies inside the root. True if it
    /// exists now.
    static bool ensureDir(const QString& root, const QString& path);
};
