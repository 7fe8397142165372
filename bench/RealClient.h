// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// One user's program with the whole library, in a process of its own: its settings, its download
/// root, and what it does when it is started.
class RealClient
{
public:
    enum class Action {
        Check,  ///< an update of the catalogue, with all previews
        Fetch,  ///< a download of the theme
        Update, ///< both, as after a new release
    };

    /// Describes a client: "url", "key" of releases, "installed" tree, own "folder", and "theme".
    struct Place
    {
        QString url;
        QString key;
        QString installed;
        QString folder;
        QString theme;
    };

    /// Runs a client in a new process of this program. Returns an error; empty: success.
    static QString run(Action action, const Place& place);

    /// Returns whether this process was started by run(), with these arguments.
    static bool isWanted(const QStringList& arguments);
    /// Does the work of that process; returns its exit status.
    static int main(const QStringList& arguments);

private:
    explicit RealClient(const Place& place);

    bool check() const;
    bool update() const;

    const Place m_place;
};
