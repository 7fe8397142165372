// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The desktop's setting for people who want less motion. GUI thread.
class DesktopMotion
{
public:
    DesktopMotion() = delete;

    /// Returns whether the desktop's animations are turned off, by the settings that desktops keep
    /// in the user's configuration folder (gtk-3.0 or gtk-4.0/settings.ini, kdeglobals) and, on
    /// desktops of the GNOME family, in dconf. False if nothing says so. The first call reads the
    /// settings and may take some milliseconds.
    static bool isReduced();
};
