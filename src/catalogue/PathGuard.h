// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

/// Keeps downloads inside the download root, whatever names a catalogue contains. Internal to the
/// library; hosts use MVThemeMgr::isDownloadPath. Any thread.
class PathGuard
{
public:
    PathGuard() = delete;

    /// Makes isReallyInside() and isInside() remember folders on this thread while the object
    /// exists: looking for the files of a whole catalogue resolves each folder once. What is linked
    /// meanwhile goes unnoticed until its end, except by ensureDir(). An object
    /// within the scope of another shares what that knows.
    struct Known
    {
        QHash<QString, QString> real; ///< paths of folders, by the path that was asked for
        QHash<QString, bool> isLink;  ///< by path
    };
    class Folders
    {
    public:
        Folders();
        ~Folders();
        Folders(const Folders&) = delete;
        Folders& operator=(const Folders&) = delete;

    private:
        Known m_known;
        Known* m_previous;
    };

    /// Returns false for a name with a ".." component or a NUL; on Windows also for one that it
    /// would not store as it is, see WindowsName.
    static bool hasPlainName(const QString& path);
    /// Returns whether `path` exists and is below the existing folder `root` after resolving all
    /// links.
    static bool isReallyInside(const QString& root, const QString& path);

    /// Returns whether creating, writing or deleting `path` can only touch entries below `root`:
    /// the path begins with the root, contains no ".." (with either slash) and no NUL, and no
    /// component below the root is a link or, on Windows, a junction, a device or an alternate
    /// stream. The root itself may be a link. An empty root contains nothing.
    static bool isInside(const QString& root, const QString& path);

    /// Creates the folder and its parents if it is missing and inside the root. Returns whether it
    /// now exists.
    static bool ensureDir(const QString& root, const QString& path);
};
