// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// Locates the application's installed resources and names the active skin.
///
/// Reads hostSettings(); all functions may be called from any thread. The instance exists until the
/// process ends.
class MVHOST_EXPORT TzResourceMgr
{
public:
    /// Returns the object of this process.
    static TzResourceMgr* instance();

    /// Returns the application's resource folder, without a trailing slash.
    QString resourcesPath() const;

    /// Returns the name of the active skin.
    QString currentSkin() const;

    /// Returns the folder that contains "testskin/Simple.gif", the placeholder animation.
    QString testOutputDir() const;

    /// Returns the screen scale factor, above 0.
    static double getZoomDPI();

private:
    TzResourceMgr() = default;
};
